// The one multiply of all 8-bit blending: a 256 x 256 table of products of
// two 0..255 values scaled back to 0..255, rounded to nearest, and the fixed
// blend built from it.
#pragma once

#include <cstdint>

struct MulTableData {
  uint8_t v[256][256];
  // MulTable[k] is the row of products by k; MulTable[k][v] = MUL(k, v).
  constexpr const uint8_t* operator[](unsigned k) const { return v[k]; }
};

// MulTable[k][v] = min(255, (k x v + 128) / 255). Symmetric; built at compile
// time, so it is ready before any code runs.
extern const MulTableData MulTable;

inline uint8_t Mul255(unsigned k, unsigned v) { return MulTable[k][v]; }

// MUL(dst, 255 - a) + MUL(src, a): each term rounds on its own, so it can be
// one off the exact mix, and it never exceeds 255.
inline uint8_t Blend255(unsigned dst, unsigned src, unsigned a) {
  return static_cast<uint8_t>(MulTable[255 - a][dst] + MulTable[a][src]);
}
