// Thirty-two pixels at a time. Products of bytes are formed in 16-bit
// lanes as the table's (x * y + 128) / 255 = ((x * y + 129) * 257) >> 16,
// exact for every pair of bytes (display/avx2_bytes.h shows why), and
// packing back to bytes saturates at 255, which is the min(255, ...) of
// the arithmetic.
//
// The Over blend divides a sum weighted by coverages, x = A d + e s, by
// n = A + e (n up to 510, x up to 255 n) in single floats: x and n are
// exact there, the quotient is rounded once, and a quotient that is not a
// whole number lies at least 1 / n below the next one, while the rounding
// moves it by at most 255 x 2^-24; so truncating gives x / n exactly.
#include "paint/modes/dab_rows_avx2.h"

#include <algorithm>

#include "pixel/avx2_bytes.h"

namespace avx2 {
namespace {

constexpr int kBlock = 32;

// x / n truncated in 32-bit lanes, n of 0 taken as 1.
AVX2_CODE inline __m256i Quotient32(__m256i x, __m256i n) {
  const __m256 divisor = _mm256_cvtepi32_ps(_mm256_max_epi32(n, _mm256_set1_epi32(1)));
  return _mm256_cvttps_epi32(_mm256_div_ps(_mm256_cvtepi32_ps(x), divisor));
}

// (A d + e s) / (A + e) for 16 bytes of each, given as the pairs d, s and
// A, e interleaved byte by byte: a multiply-add of 16-bit pairs forms each
// sum. The quotients come back in 16-bit lanes in the order Low16 and
// High16 give the bytes.
AVX2_CODE inline __m256i Quotients(__m256i ds, __m256i ae) {
  const __m256i pairs = _mm256_set1_epi16(1);
  const __m256i ae0 = Low16(ae), ae1 = High16(ae);
  const __m256i q0 = Quotient32(_mm256_madd_epi16(Low16(ds), ae0), _mm256_madd_epi16(ae0, pairs));
  const __m256i q1 = Quotient32(_mm256_madd_epi16(High16(ds), ae1), _mm256_madd_epi16(ae1, pairs));
  return _mm256_packus_epi32(q0, q1);
}

// The Over blend of 32 colour bytes: m = (A d + e s) / (A + e), then
// Mul255(m, 255 - e) + Mul255(s, e); where A and e are both 0, s.
AVX2_CODE inline __m256i Over8(__m256i d, __m256i s, __m256i coverage, __m256i e) {
  const __m256i mLow = Quotients(_mm256_unpacklo_epi8(d, s), _mm256_unpacklo_epi8(coverage, e));
  const __m256i mHigh = Quotients(_mm256_unpackhi_epi8(d, s), _mm256_unpackhi_epi8(coverage, e));
  const __m256i rest = _mm256_xor_si256(e, Ones());
  const __m256i low = _mm256_add_epi16(MulLanes(mLow, Low16(rest)), MulLanes(Low16(s), Low16(e)));
  const __m256i high =
      _mm256_add_epi16(MulLanes(mHigh, High16(rest)), MulLanes(High16(s), High16(e)));
  const __m256i empty = _mm256_cmpeq_epi8(_mm256_or_si256(coverage, e), Zero());
  return _mm256_blendv_epi8(_mm256_packus_epi16(low, high), s, empty);
}

template <TransparencyBlend How>
AVX2_CODE void BlendColorBlocksOf(const uint8_t* source, const uint8_t* strength,
                                  const uint8_t* sourceOpacity, uint8_t* dest,
                                  uint8_t* transparency, int pixels) {
  for (int i = 0; i < pixels; i += kBlock) {
    // A last, short block leaves out the colour bytes past its pixels.
    const int parts = std::min(3, (3 * (pixels - i) + kBlock - 1) / kBlock);
    const __m256i e = Load(strength + i);
    if (How != TransparencyBlend::Over && _mm256_testz_si256(e, e)) continue;  // nothing changes
    __m256i eSpread[3], coverageSpread[3];
    Spread(e, eSpread);
    __m256i coverage = Zero();
    if constexpr (How != TransparencyBlend::None) coverage = Load(transparency + i);
    if constexpr (How == TransparencyBlend::Over) Spread(coverage, coverageSpread);
    for (int part = 0; part < parts; ++part) {
      uint8_t* d = dest + 3 * i + kBlock * part;
      const __m256i s = Load(source + 3 * i + kBlock * part);
      if constexpr (How == TransparencyBlend::Over)
        Store(d, Over8(Load(d), s, coverageSpread[part], eSpread[part]));
      else
        Store(d, Mix8(Load(d), s, eSpread[part]));
    }
    // The coverage becomes Mul255(A, 255 - e) + Mul255(255, e).
    if constexpr (How == TransparencyBlend::Over)
      Store(transparency + i, Mix8(coverage, Ones(), e));
    if constexpr (How == TransparencyBlend::Replace)
      Store(transparency + i, Mix8(coverage, Load(sourceOpacity + i), e));
  }
}

// A fraction of 0 passes each value through (Mul255(x, 255) is x), so the
// mix it would make is left out.
template <bool Across, bool Down>
AVX2_CODE void ShiftBlocksOf(const uint8_t* padded, const uint8_t* lower, unsigned fx, unsigned fy,
                             uint8_t* upper, uint8_t* out, int blocks) {
  const __m256i across = _mm256_set1_epi8(static_cast<char>(fx));
  const __m256i down = _mm256_set1_epi8(static_cast<char>(fy));
  for (int i = 0; i < blocks * kBlock; i += kBlock) {
    __m256i shifted = Load(padded + i + 1);
    if constexpr (Across) shifted = Mix8(shifted, Load(padded + i), across);
    Store(upper + i, shifted);
    Store(out + i, Down ? Mix8(shifted, Load(lower + i), down) : shifted);
  }
}

}  // namespace

void ShiftRowBlocks(const uint8_t* padded, const uint8_t* lower, unsigned fx, unsigned fy,
                    uint8_t* upper, uint8_t* out, int blocks) {
  if (fx == 0)
    return fy == 0 ? ShiftBlocksOf<false, false>(padded, lower, fx, fy, upper, out, blocks)
                   : ShiftBlocksOf<false, true>(padded, lower, fx, fy, upper, out, blocks);
  return fy == 0 ? ShiftBlocksOf<true, false>(padded, lower, fx, fy, upper, out, blocks)
                 : ShiftBlocksOf<true, true>(padded, lower, fx, fy, upper, out, blocks);
}

AVX2_CODE void ScaleByteBlocks(const uint8_t* in, unsigned k, uint8_t* out, int blocks) {
  const __m256i factor = _mm256_set1_epi8(static_cast<char>(k));
  for (int i = 0; i < blocks * kBlock; i += kBlock) Store(out + i, Mul8(Load(in + i), factor));
}

AVX2_CODE void StrengthBlocks(const uint8_t* in, const uint8_t* protect, unsigned k, uint8_t* out,
                              int blocks) {
  const __m256i factor = _mm256_set1_epi8(static_cast<char>(k));
  for (int i = 0; i < blocks * kBlock; i += kBlock)
    Store(out + i, Mul8(Mul8(Load(in + i), factor), _mm256_xor_si256(Load(protect + i), Ones())));
}

void BlendColorBlocks(const uint8_t* source, const uint8_t* strength, const uint8_t* sourceOpacity,
                      uint8_t* dest, uint8_t* transparency, int pixels, TransparencyBlend how) {
  switch (how) {
    case TransparencyBlend::None:
      return BlendColorBlocksOf<TransparencyBlend::None>(source, strength, sourceOpacity, dest,
                                                         transparency, pixels);
    case TransparencyBlend::Replace:
      return BlendColorBlocksOf<TransparencyBlend::Replace>(source, strength, sourceOpacity, dest,
                                                            transparency, pixels);
    case TransparencyBlend::Over:
      return BlendColorBlocksOf<TransparencyBlend::Over>(source, strength, sourceOpacity, dest,
                                                         transparency, pixels);
  }
}

AVX2_CODE void CoverageQuotientBlocks(const int32_t* x, const int32_t* n, int32_t* q, int blocks) {
  for (int i = 0; i < blocks * 8; i += 8) {
    const __m256i xs = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(x + i));
    const __m256i ns = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(n + i));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(q + i), Quotient32(xs, ns));
  }
}

}  // namespace avx2
