// The tip at a sub-pixel position: its raster shifted right by fx / 255
// and down by fy / 255 of a pixel, bilinearly, one column wider and one row
// taller than the raster, zero beyond it. Each value is
//   min(255, Mul255(upper, 255 - fy) + Mul255(lower, fy)),
// where upper and lower are the rows r and r - 1 shifted right:
//   min(255, Mul255(raster(c - 1), fx) + Mul255(raster(c), 255 - fx)).
#pragma once

#include <cstdint>
#include <vector>

#include "paint/dab_rows.h"
#include "paint/tip.h"

class ShiftedTip {
 public:
  // A w x h raster, row after row.
  void Start(const uint8_t* raster, int w, int h, unsigned fx, unsigned fy);
  // Row r, 0..h, taken in that order: w + 1 values into out, which has
  // slack.
  void Row(int r, uint8_t* out);

 private:
  static constexpr int kRowBytes = kTipBufferBytes + 1 + kRowBlock;
  int w_ = 0, h_ = 0, stride_ = 0;
  unsigned fx_ = 0, fy_ = 0;
  // The raster's rows, each with a zero before it and zeros after it, and
  // a row of zeros for the row past the last.
  std::vector<uint8_t> padded_;
  uint8_t across_[2][kRowBytes];  // rows shifted right; row r lies at r & 1
};
