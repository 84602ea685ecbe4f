#include "paint/modes/dab_rows.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "paint/modes/coverage_divide.h"
#include "paint/modes/dab_rows_avx2.h"
#include "pixel/mul_table.h"
#include "pixel/vector_paths.h"

namespace {

void MixBytesScalar(const uint8_t* keep, const uint8_t* put, unsigned a, uint8_t* out, int n) {
  const uint8_t* byRest = MulTable[255 - a];
  const uint8_t* byA = MulTable[a];
  for (int i = 0; i < n; ++i)
    out[i] = uint8_t(std::min(255u, unsigned(byRest[keep[i]]) + byA[put[i]]));
}

void Dropout(uint8_t* strength, int n, unsigned density) {
  for (int i = 0; i < n; ++i)
    if (strength[i] > 0 && unsigned(std::rand()) % 255 > density) strength[i] = 0;
}

int BlocksOf(int n) { return (n + kRowBlock - 1) / kRowBlock; }

// Mul255(Mul255(in, k), 255 - protect), out apart from in and having
// slack. Each value depends on its own inputs alone, so without slack the
// last block of a long row is done again over the one before it, and a
// short row runs on copies.
void StrengthsVector(const uint8_t* in, const uint8_t* protect, unsigned k, uint8_t* out, int n,
                     bool slack) {
  if (slack) {
    avx2::StrengthBlocks(in, protect, k, out, BlocksOf(n));
    return;
  }
  if (n >= kRowBlock) {
    avx2::StrengthBlocks(in, protect, k, out, n / kRowBlock);
    if (n % kRowBlock)
      avx2::StrengthBlocks(in + n - kRowBlock, protect + n - kRowBlock, k, out + n - kRowBlock, 1);
    return;
  }
  uint8_t inBlock[kRowBlock] = {}, protectBlock[kRowBlock] = {};
  std::memcpy(inBlock, in, size_t(n));
  std::memcpy(protectBlock, protect, size_t(n));
  avx2::StrengthBlocks(inBlock, protectBlock, k, out, 1);
}

template <TransparencyBlend How>
void BlendColorsScalar(const ColorRows& rows) {
  for (int i = 0; i < rows.count; ++i) {
    const unsigned e = rows.strength[i];
    const uint8_t* keep = MulTable[255 - e];
    const uint8_t* put = MulTable[e];
    uint8_t* d = rows.dest + 3 * i;
    const uint8_t* s = rows.source + 3 * i;
    if constexpr (How == TransparencyBlend::Over) {
      const unsigned coverage = rows.transparency[i];
      const unsigned n = coverage + e;
      for (int c = 0; c < 3; ++c) {
        if (n == 0) {
          d[c] = s[c];
        } else {
          const unsigned m = DivideByCoverage(coverage * d[c] + e * s[c], n);
          d[c] = uint8_t(keep[m] + put[s[c]]);
        }
      }
      rows.transparency[i] = uint8_t(keep[coverage] + put[255]);
    } else {
      if (e == 0) continue;  // Mul255(d, 255) is d: nothing changes
      for (int c = 0; c < 3; ++c) d[c] = uint8_t(keep[d[c]] + put[s[c]]);
      if constexpr (How == TransparencyBlend::Replace)
        rows.transparency[i] = uint8_t(put[rows.sourceOpacity[i]] + keep[rows.transparency[i]]);
    }
  }
}

// The vector kernel over whole blocks; without slack the last, partial
// block runs on copies of the caller's rows.
template <TransparencyBlend How>
void BlendColorsVector(const ColorRows& rows) {
  if (rows.slack) {
    avx2::BlendColorBlocks(rows.source, rows.strength, rows.sourceOpacity, rows.dest,
                           rows.transparency, rows.count, How);
    return;
  }
  const int whole = rows.count / kRowBlock * kRowBlock;
  avx2::BlendColorBlocks(rows.source, rows.strength, rows.sourceOpacity, rows.dest,
                         rows.transparency, whole, How);
  const int rest = rows.count - whole;
  if (rest == 0) return;
  uint8_t source[3 * kRowBlock] = {}, opacity[kRowBlock] = {};
  std::memcpy(source, rows.source + 3 * whole, size_t(3 * rest));
  if (How == TransparencyBlend::Replace)
    std::memcpy(opacity, rows.sourceOpacity + whole, size_t(rest));
  avx2::BlendColorBlocks(source, rows.strength + whole, opacity, rows.dest + 3 * whole,
                         rows.transparency + whole, rest, How);
}

template <TransparencyBlend How>
void BlendColorsOf(const ColorRows& rows) {
  if (VectorPaths())
    BlendColorsVector<How>(rows);
  else
    BlendColorsScalar<How>(rows);
}

}  // namespace

void ShiftRow(const uint8_t* padded, const uint8_t* lower, unsigned fx, unsigned fy, uint8_t* upper,
              uint8_t* out, int n) {
  if (VectorPaths()) {
    avx2::ShiftRowBlocks(padded, lower, fx, fy, upper, out, BlocksOf(n));
    return;
  }
  MixBytesScalar(padded + 1, padded, fx, upper, n);
  MixBytesScalar(upper, lower, fy, out, n);
}

void Strengths8(const uint8_t* tip, const uint8_t* protect, unsigned thickness, unsigned density,
                uint8_t* out, int n, bool slack) {
  const uint8_t* thick = MulTable[thickness];
  if (!VectorPaths()) {
    for (int i = 0; i < n; ++i) out[i] = thick[tip[i]];
    if (density < 255) Dropout(out, n, density);
    for (int i = 0; i < n; ++i) out[i] = MulTable[out[i]][255 - protect[i]];
    return;
  }
  if (density >= 255) {
    StrengthsVector(tip, protect, thickness, out, n, slack);
    return;
  }
  const int whole = slack ? n : n / kRowBlock * kRowBlock;
  avx2::ScaleByteBlocks(tip, thickness, out, BlocksOf(whole));
  for (int i = whole; i < n; ++i) out[i] = thick[tip[i]];
  Dropout(out, n, density);
  // Mul255(a, 255) is a. In place, blocks must not overlap: the rest goes
  // one by one.
  avx2::StrengthBlocks(out, protect, 255, out, BlocksOf(whole));
  for (int i = whole; i < n; ++i) out[i] = MulTable[out[i]][255 - protect[i]];
}

void BlendColors8(const ColorRows& rows, TransparencyBlend how) {
  switch (how) {
    case TransparencyBlend::None:
      return BlendColorsOf<TransparencyBlend::None>(rows);
    case TransparencyBlend::Replace:
      return BlendColorsOf<TransparencyBlend::Replace>(rows);
    case TransparencyBlend::Over:
      return BlendColorsOf<TransparencyBlend::Over>(rows);
  }
}
