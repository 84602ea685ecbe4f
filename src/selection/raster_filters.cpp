// The filters in SSE2, which every x86-64 processor has, or in AVX2 where
// the processor has it and the vector paths are on.
#include "selection/raster_filters.h"

#include <emmintrin.h>

#include <algorithm>
#include <utility>

#include "pixel/vector_paths.h"
#include "selection/raster_filters_avx2.h"
#include "selection/raster_kernels.h"

namespace {

struct Sse2 {
  using Reg = __m128i;
  static constexpr int kBytes = 16;
  static Reg Load(const void* p) { return _mm_loadu_si128(static_cast<const Reg*>(p)); }
  static void Store(void* p, Reg v) { _mm_storeu_si128(static_cast<Reg*>(p), v); }
  static Reg Min8(Reg a, Reg b) { return _mm_min_epu8(a, b); }
  static Reg Max8(Reg a, Reg b) { return _mm_max_epu8(a, b); }
  // Eight bytes to eight 16-bit lanes.
  static Reg Widen(const uint8_t* p) {
    return _mm_unpacklo_epi8(_mm_loadl_epi64(reinterpret_cast<const Reg*>(p)), _mm_setzero_si128());
  }
  static Reg Add16(Reg a, Reg b) { return _mm_add_epi16(a, b); }
  static Reg Sub16(Reg a, Reg b) { return _mm_sub_epi16(a, b); }
  static Reg Set16(int v) { return _mm_set1_epi16(static_cast<int16_t>(v)); }
  static Reg MulHi16(Reg a, Reg b) { return _mm_mulhi_epu16(a, b); }
  // Eight 16-bit lanes holding bytes to eight bytes.
  static void StoreNarrow16(uint8_t* p, Reg v) {
    _mm_storel_epi64(reinterpret_cast<Reg*>(p), _mm_packus_epi16(v, v));
  }
  static Reg Sub32(Reg a, Reg b) { return _mm_sub_epi32(a, b); }
  // Four truncated quotients as four bytes.
  static void StoreQuotients(uint8_t* p, Reg sums, float divisor) {
    const Reg q = _mm_cvttps_epi32(_mm_div_ps(_mm_cvtepi32_ps(sums), _mm_set1_ps(divisor)));
    const Reg bytes = _mm_packus_epi16(_mm_packs_epi32(q, q), q);
    const int32_t four = _mm_cvtsi128_si32(bytes);
    std::copy_n(reinterpret_cast<const uint8_t*>(&four), 4, p);
  }
};

bool Empty(int width, int height, int radius) { return width < 1 || height < 1 || radius < 1; }

}  // namespace

void MinMaxSquare(const uint8_t* from, uint8_t* to, int width, int height, int radius, bool takeMax,
                  const std::function<void(int y)>& progress) {
  if (Empty(width, height, radius)) return;
  if (VectorPaths())
    raster_avx2::MinMaxSquare(from, to, width, height, radius, takeMax, progress);
  else
    raster_kernels::MinMaxSquare<Sse2>(from, to, width, height, radius, takeMax, progress);
}

void SquareMean(const uint8_t* from, uint8_t* to, int width, int height, int radius,
                const std::function<void(int y)>& progress) {
  if (Empty(width, height, radius)) return;
  if (VectorPaths())
    raster_avx2::SquareMean(from, to, width, height, radius, progress);
  else
    raster_kernels::SquareMean<Sse2>(from, to, width, height, radius, progress);
}

void Mean3x3(const uint8_t* from, uint8_t* to, int width, int height) {
  if (Empty(width, height, 1)) return;
  if (VectorPaths())
    raster_avx2::Mean3x3(from, to, width, height);
  else
    raster_kernels::Mean3x3<Sse2>(from, to, width, height);
}

void DitherPass(uint8_t* bytes, int width, int height, DitherRandom& random) {
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) {
      const int dx = static_cast<int>(random.Next() % 9) - 4;
      const int dy = static_cast<int>(random.Next() % 9) - 4;
      const size_t target = static_cast<size_t>(std::clamp(y + dy, 0, height - 1)) * width +
                            static_cast<size_t>(std::clamp(x + dx, 0, width - 1));
      std::swap(bytes[static_cast<size_t>(y) * width + x], bytes[target]);
    }
}
