// Row kernels of a dab: the tip's sub-pixel shift, the strength of each
// pixel, and the 8-bit blend of the colour. Each picks, once per row, a
// vector form where the processor has one; the vector forms give the same
// bytes as the table arithmetic.
#pragma once

#include <cstdint>

#include "paint/modes/blend_kernels.h"

// Pixels a vector kernel takes at a time. Rows said to have slack can be
// read and written up to their length rounded up to a whole block.
constexpr int kRowBlock = 32;

// A row of the shifted tip (tip_shift.h), for c = 0 to n - 1:
//   upper[c] = min(255, Mul255(padded[c + 1], 255 - fx) + Mul255(padded[c], fx)),
//   out[c] = min(255, Mul255(upper[c], 255 - fy) + Mul255(lower[c], fy)).
// Every row has slack, padded one byte more.
void ShiftRow(const uint8_t* padded, const uint8_t* lower, unsigned fx, unsigned fy, uint8_t* upper,
              uint8_t* out, int n);

// The strength e of each pixel of the 8-bit blend: Mul255(tip, thickness),
// set to 0 where dropout strikes (one rand() per nonzero value, in order,
// while density is below 255), then Mul255(that, 255 - protect). out has
// slack; tip and protect too when slack is set.
void Strengths8(const uint8_t* tip, const uint8_t* protect, unsigned thickness, unsigned density,
                uint8_t* out, int n, bool slack);

// The rows of the 8-bit colour blend. strength, dest and transparency have
// slack; source (blue, green, red) and sourceOpacity too when slack is set,
// else they hold count pixels.
struct ColorRows {
  const uint8_t* source;
  const uint8_t* strength;
  const uint8_t* sourceOpacity;  // read by TransparencyBlend::Replace only
  uint8_t* dest;                 // blue, green, red, blended in place
  uint8_t* transparency;         // blended in place; not read with None
  int count;
  bool slack;
};

// Each channel becomes Mul255(d, 255 - e) + Mul255(s, e); with Over the
// colour first mixes with what is there by the two coverages.
void BlendColors8(const ColorRows& rows, TransparencyBlend how);
