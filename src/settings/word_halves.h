// Positions and sizes in the settings record are words of two signed
// 16-bit halves: x or width in the low half, y or height in the high one.
#pragma once

#include <cstdint>

inline int32_t Halves(int low, int high) {
  return static_cast<int32_t>((static_cast<uint32_t>(high) << 16) |
                              (static_cast<uint32_t>(low) & 0xFFFF));
}
inline int LowHalf(int32_t word) { return static_cast<int16_t>(word & 0xFFFF); }
inline int HighHalf(int32_t word) {
  return static_cast<int16_t>(static_cast<uint32_t>(word) >> 16);
}
