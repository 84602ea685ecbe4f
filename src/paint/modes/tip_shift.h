// The tip at a sub-pixel position: its raster shifted right by fx / 255
// and down by fy / 255 of a pixel, bilinearly, one column wider and one row
// taller than the raster, zero beyond it. Each value is
//   min(255, Mul255(upper, 255 - fy) + Mul255(lower, fy)),
// where upper and lower are the rows r and r - 1 shifted right:
//   min(255, Mul255(raster(c - 1), fx) + Mul255(raster(c), 255 - fx)).
#pragma once

#include <cstdint>

#include "paint/modes/dab_rows.h"
#include "paint/tip/tip.h"

// Values of the largest shifted tip: (w + 1) x (h + 1) for w x h up to
// kTipBufferBytes.
constexpr int kShiftedTipBytes = 2 * kTipBufferBytes + 2;

// The w x h raster (row after row) shifted into out: (w + 1) x (h + 1)
// values, row after row, followed by slack.
void ShiftTip(const uint8_t* raster, int w, int h, unsigned fx, unsigned fy, uint8_t* out);
