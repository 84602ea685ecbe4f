#include "paint/tip_shift.h"

#include <algorithm>
#include <cstring>

void ShiftedTip::Start(const uint8_t* raster, int w, int h, unsigned fx, unsigned fy) {
  w_ = w;
  h_ = h;
  fx_ = fx;
  fy_ = fy;
  // Column c of a shifted row takes raster columns c - 1 and c; the
  // padding makes both exist for c = 0 to w and a block beyond.
  stride_ = w + 1 + kRowBlock;
  padded_.assign(size_t(stride_) * (h + 1), 0);
  for (int r = 0; r < h; ++r)
    std::memcpy(padded_.data() + size_t(r) * stride_ + 1, raster + size_t(r) * w, size_t(w));
  // Row -1 lies above the raster: all zero.
  std::memset(across_[1], 0, size_t(w) + 1 + kRowBlock);
}

void ShiftedTip::Row(int r, uint8_t* out) {
  const uint8_t* row = padded_.data() + size_t(std::min(r, h_)) * stride_;
  ShiftRow(row, across_[(r + 1) & 1], fx_, fy_, across_[r & 1], out, w_ + 1);
}
