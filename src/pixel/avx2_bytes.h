// Byte arithmetic in AVX2 registers shared by the vector kernels of
// composition and of the pen. The table's product (x * y + 128) / 255 is
// formed exactly as ((x * y + 129) * 257) >> 16: with t = x * y + 128 =
// 255q + r, (t + 1) * 257 = 65536q + 257(r + 1) - q, and
// 0 <= 257(r + 1) - q < 65536 for every product of two bytes. Everything
// stays unsigned and within 16 bits. The shorter (t + (t >> 8)) >> 8 would
// round some products the other way, so it is not used.
// Include only in files whose functions are compiled for AVX2.
#pragma once

#include <immintrin.h>

#include <array>
#include <cstdint>

#define AVX2_CODE __attribute__((target("avx2")))

namespace avx2 {

AVX2_CODE inline __m256i Zero() { return _mm256_setzero_si256(); }
AVX2_CODE inline __m256i Ones() { return _mm256_set1_epi8(-1); }

// floor(t / 255) for t + 1 in lanes, t up to 65534.
AVX2_CODE inline __m256i Div255Plus1(__m256i tPlus1) {
  return _mm256_mulhi_epu16(tPlus1, _mm256_set1_epi16(257));
}

// MUL(x, y) in 16-bit lanes holding bytes.
AVX2_CODE inline __m256i MulLanes(__m256i x, __m256i y) {
  return Div255Plus1(_mm256_add_epi16(_mm256_mullo_epi16(x, y), _mm256_set1_epi16(129)));
}

AVX2_CODE inline __m256i Low16(__m256i bytes) { return _mm256_unpacklo_epi8(bytes, Zero()); }
AVX2_CODE inline __m256i High16(__m256i bytes) { return _mm256_unpackhi_epi8(bytes, Zero()); }

// MUL(x, y) byte by byte.
AVX2_CODE inline __m256i Mul8(__m256i x, __m256i y) {
  return _mm256_packus_epi16(MulLanes(Low16(x), Low16(y)), MulLanes(High16(x), High16(y)));
}

// MUL(d, 255 - a) + MUL(s, a) byte by byte; never above 255.
AVX2_CODE inline __m256i Mix8(__m256i d, __m256i s, __m256i a) {
  __m256i rest = _mm256_xor_si256(a, Ones());
  __m256i low = _mm256_add_epi16(MulLanes(Low16(d), Low16(rest)), MulLanes(Low16(s), Low16(a)));
  __m256i high =
      _mm256_add_epi16(MulLanes(High16(d), High16(rest)), MulLanes(High16(s), High16(a)));
  return _mm256_packus_epi16(low, high);
}

// Byte j of the three 32-byte parts of a colour row belongs to pixel j / 3.
// Shuffles work within 128-bit lanes, so each part draws on the lane (low or
// high 16 pixels) that holds its pixels, placed in both halves first.
constexpr int LaneBase(int part, int half) { return (part * 2 + half) >= 3 ? 16 : 0; }

constexpr std::array<std::array<char, 32>, 3> BuildSpreadMasks() {
  std::array<std::array<char, 32>, 3> masks{};
  for (int part = 0; part < 3; ++part)
    for (int j = 0; j < 32; ++j)
      masks[part][j] = static_cast<char>((part * 32 + j) / 3 - LaneBase(part, j / 16));
  return masks;
}

inline constexpr auto kSpreadMasks = BuildSpreadMasks();

AVX2_CODE inline __m256i SpreadMask(int part) {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(kSpreadMasks[part].data()));
}

// One byte a pixel for 32 pixels, repeated for each of their three colours.
AVX2_CODE inline void Spread(__m256i v, __m256i out[3]) {
  out[0] = _mm256_shuffle_epi8(_mm256_permute4x64_epi64(v, 0x44), SpreadMask(0));
  out[1] = _mm256_shuffle_epi8(v, SpreadMask(1));
  out[2] = _mm256_shuffle_epi8(_mm256_permute4x64_epi64(v, 0xEE), SpreadMask(2));
}

AVX2_CODE inline __m256i Load(const uint8_t* p) {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
}
AVX2_CODE inline void Store(uint8_t* p, __m256i v) {
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), v);
}

}  // namespace avx2
