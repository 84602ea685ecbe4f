// The kernels compiled for AVX2: everything defined below the pragma (in
// either compiler's form, since the fuzzing tree builds with the other),
// the kernels' templates included, is AVX2 code; the standard library
// stays as compiled for every processor, since it comes in first.
#include "selection/raster_filters_avx2.h"

#include <immintrin.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <vector>

#if defined(__clang__)
#pragma clang attribute push(__attribute__((target("avx2"))), apply_to = function)
#else
#pragma GCC push_options
#pragma GCC target("avx2")
#endif

#include "selection/raster_kernels.h"

namespace {

struct Avx2 {
  using Reg = __m256i;
  static constexpr int kBytes = 32;
  static Reg Load(const void* p) { return _mm256_loadu_si256(static_cast<const Reg*>(p)); }
  static void Store(void* p, Reg v) { _mm256_storeu_si256(static_cast<Reg*>(p), v); }
  static Reg Min8(Reg a, Reg b) { return _mm256_min_epu8(a, b); }
  static Reg Max8(Reg a, Reg b) { return _mm256_max_epu8(a, b); }
  // Sixteen bytes to sixteen 16-bit lanes.
  static Reg Widen(const uint8_t* p) {
    return _mm256_cvtepu8_epi16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p)));
  }
  static Reg Add16(Reg a, Reg b) { return _mm256_add_epi16(a, b); }
  static Reg Sub16(Reg a, Reg b) { return _mm256_sub_epi16(a, b); }
  static Reg Set16(int v) { return _mm256_set1_epi16(static_cast<int16_t>(v)); }
  static Reg MulHi16(Reg a, Reg b) { return _mm256_mulhi_epu16(a, b); }
  // Sixteen 16-bit lanes holding bytes to sixteen bytes: the pack works
  // within each half, so the halves' low quarters come together after.
  static void StoreNarrow16(uint8_t* p, Reg v) {
    const Reg packed = _mm256_permute4x64_epi64(_mm256_packus_epi16(v, v), 0b1000);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(p), _mm256_castsi256_si128(packed));
  }
  static Reg Sub32(Reg a, Reg b) { return _mm256_sub_epi32(a, b); }
  // Eight truncated quotients as eight bytes.
  static void StoreQuotients(uint8_t* p, Reg sums, float divisor) {
    const Reg q =
        _mm256_cvttps_epi32(_mm256_div_ps(_mm256_cvtepi32_ps(sums), _mm256_set1_ps(divisor)));
    const __m128i words =
        _mm_packs_epi32(_mm256_castsi256_si128(q), _mm256_extracti128_si256(q, 1));
    _mm_storel_epi64(reinterpret_cast<__m128i*>(p), _mm_packus_epi16(words, words));
  }
};

}  // namespace

namespace raster_avx2 {

void MinMaxSquare(const uint8_t* from, uint8_t* to, int width, int height, int radius, bool takeMax,
                  const std::function<void(int y)>& progress) {
  raster_kernels::MinMaxSquare<Avx2>(from, to, width, height, radius, takeMax, progress);
}

void SquareMean(const uint8_t* from, uint8_t* to, int width, int height, int radius,
                const std::function<void(int y)>& progress) {
  raster_kernels::SquareMean<Avx2>(from, to, width, height, radius, progress);
}

void Mean3x3(const uint8_t* from, uint8_t* to, int width, int height) {
  raster_kernels::Mean3x3<Avx2>(from, to, width, height);
}

}  // namespace raster_avx2

#if defined(__clang__)
#pragma clang attribute pop
#else
#pragma GCC pop_options
#endif
