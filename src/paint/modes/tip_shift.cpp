#include "paint/modes/tip_shift.h"

#include <cstring>

namespace {

// The raster's rows a column apart, each with a zero before it (the zero
// after the row before), then a row of zeros for the row past the last:
// row r of the shifted tip takes values r (w + 1) to r (w + 1) + w + 1.
uint8_t padded[kShiftedTipBytes + 1 + kRowBlock];
// The rows shifted right, after a row of zeros for the row above the first.
uint8_t across[kShiftedTipBytes + kTipBufferBytes + 1 + kRowBlock];

}  // namespace

void ShiftTip(const uint8_t* raster, int w, int h, unsigned fx, unsigned fy, uint8_t* out) {
  const size_t stride = size_t(w) + 1, n = stride * (h + 1);
  for (int r = 0; r < h; ++r) {
    padded[r * stride] = 0;
    std::memcpy(padded + r * stride + 1, raster + size_t(r) * w, size_t(w));
  }
  std::memset(padded + h * stride, 0, stride + 1 + kRowBlock);
  std::memset(across, 0, stride);
  // All rows at once, in two passes, since each row takes the row above
  // shifted. First across, with nothing down: out takes the shifted rows
  // too, until the second pass replaces them. Then down, with nothing
  // across, which passes each shifted value through as it is; what that
  // pass gives as its own shifted rows goes to `padded`, no longer needed.
  ShiftRow(padded, padded, fx, 0, across + stride, out, int(n));
  ShiftRow(across + stride - 1, across, 0, fy, padded, out, int(n));
}
