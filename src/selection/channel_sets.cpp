#include "selection/channel_sets.h"

#include <immintrin.h>

#include <array>
#include <cstring>

#include "pixel/vector_paths.h"

#define AVX2_CODE __attribute__((target("avx2")))

namespace {

void MatchScalar(const ChannelSets& sets, const uint8_t* bgr, int n, uint8_t pass, uint8_t fail,
                 uint8_t* out) {
  const uint8_t* blue = sets.member[0];
  const uint8_t* green = sets.member[1];
  const uint8_t* red = sets.member[2];
  for (int x = 0; x < n; ++x, bgr += 3)
    out[x] = (blue[bgr[0]] & green[bgr[1]] & red[bgr[2]]) ? pass : fail;
}

// pshufb masks that gather channel k of 16 pixels from the three 16-byte
// thirds of their 48 bytes: byte j takes 3j + k when it lies in the third.
constexpr std::array<std::array<std::array<int8_t, 16>, 3>, 3> BuildGathers() {
  std::array<std::array<std::array<int8_t, 16>, 3>, 3> masks{};
  for (int k = 0; k < 3; ++k)
    for (int third = 0; third < 3; ++third)
      for (int j = 0; j < 16; ++j) {
        const int at = 3 * j + k - 16 * third;
        masks[k][third][j] = at >= 0 && at < 16 ? int8_t(at) : int8_t(-128);
      }
  return masks;
}
constexpr auto kGathers = BuildGathers();

// A set of bytes as pshufb tables: by the low nibble, bit h of `low` says
// whether 16h + l is in the set, of `high` whether 128 + 16h + l is.
struct NibbleSet {
  __m256i low, high;
};

AVX2_CODE NibbleSet NibblesOf(const uint8_t* member) {
  alignas(32) uint8_t low[32] = {}, high[32] = {};
  for (int l = 0; l < 16; ++l)
    for (int h = 0; h < 8; ++h) {
      low[l] = uint8_t(low[l] | (member[16 * h + l] ? 1 << h : 0));
      high[l] = uint8_t(high[l] | (member[128 + 16 * h + l] ? 1 << h : 0));
    }
  for (int l = 0; l < 16; ++l) low[16 + l] = low[l], high[16 + l] = high[l];
  return NibbleSet{_mm256_load_si256(reinterpret_cast<const __m256i*>(low)),
                   _mm256_load_si256(reinterpret_cast<const __m256i*>(high))};
}

// The same mask in both lanes.
AVX2_CODE inline __m256i GatherMask(int k, int third) {
  const __m128i half =
      _mm_loadu_si128(reinterpret_cast<const __m128i*>(kGathers[size_t(k)][size_t(third)].data()));
  return _mm256_set_m128i(half, half);
}

AVX2_CODE inline __m256i Gather(__m256i a, __m256i b, __m256i c, int k) {
  return _mm256_or_si256(_mm256_or_si256(_mm256_shuffle_epi8(a, GatherMask(k, 0)),
                                         _mm256_shuffle_epi8(b, GatherMask(k, 1))),
                         _mm256_shuffle_epi8(c, GatherMask(k, 2)));
}

// A third of 32 pixels' bytes: the low lane from pixels 0..15, the high
// lane from pixels 16..31.
AVX2_CODE inline __m256i LoadThird(const uint8_t* bgr, int third) {
  return _mm256_loadu2_m128i(reinterpret_cast<const __m128i*>(bgr + 48 + 16 * third),
                             reinterpret_cast<const __m128i*>(bgr + 16 * third));
}

// 0xFF where the byte is in the set.
AVX2_CODE inline __m256i Member(__m256i v, const NibbleSet& set, __m256i bitOfHigh) {
  const __m256i nibble = _mm256_set1_epi8(0x0F);
  const __m256i low = _mm256_and_si256(v, nibble);
  const __m256i high = _mm256_and_si256(_mm256_srli_epi16(v, 4), nibble);
  const __m256i row =
      _mm256_blendv_epi8(_mm256_shuffle_epi8(set.low, low), _mm256_shuffle_epi8(set.high, low), v);
  const __m256i bit = _mm256_shuffle_epi8(bitOfHigh, high);
  return _mm256_xor_si256(_mm256_cmpeq_epi8(_mm256_and_si256(row, bit), _mm256_setzero_si256()),
                          _mm256_set1_epi8(-1));
}

AVX2_CODE int MatchAvx2(const ChannelSets& sets, const uint8_t* bgr, int n, uint8_t pass,
                        uint8_t fail, uint8_t* out) {
  const NibbleSet channels[3] = {NibblesOf(sets.member[0]), NibblesOf(sets.member[1]),
                                 NibblesOf(sets.member[2])};
  const __m256i bitOfHigh =
      _mm256_setr_epi8(1, 2, 4, 8, 16, 32, 64, -128, 1, 2, 4, 8, 16, 32, 64, -128, 1, 2, 4, 8, 16,
                       32, 64, -128, 1, 2, 4, 8, 16, 32, 64, -128);
  const __m256i passes = _mm256_set1_epi8(static_cast<char>(pass));
  const __m256i fails = _mm256_set1_epi8(static_cast<char>(fail));
  int x = 0;
  // 32 pixels: the low lanes hold pixels 0..15, the high lanes 16..31.
  for (; x + 32 <= n; x += 32, bgr += 96, out += 32) {
    const __m256i a = LoadThird(bgr, 0), b = LoadThird(bgr, 1), c = LoadThird(bgr, 2);
    __m256i all = _mm256_set1_epi8(-1);
    for (int k = 0; k < 3; ++k)
      all = _mm256_and_si256(all, Member(Gather(a, b, c, k), channels[k], bitOfHigh));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(out), _mm256_blendv_epi8(fails, passes, all));
  }
  return x;
}

}  // namespace

void MatchChannelSets(const ChannelSets& sets, const uint8_t* bgr, int n, uint8_t pass,
                      uint8_t fail, uint8_t* out) {
  int done = 0;
  if (VectorPaths() && n >= 32) done = MatchAvx2(sets, bgr, n, pass, fail, out);
  MatchScalar(sets, bgr + 3 * size_t(done), n - done, pass, fail, out + done);
}
