// The rows of the paint pipeline; the rows of the canvas come and go
// through document/canvas_rows.h.
#pragma once

#include <cstdint>

#include "document/canvas.h"
#include "document/canvas_rows.h"
#include "paint/modes/dab_rows.h"
#include "paint/tip/tip.h"

// The widest row the pipeline takes: a dab of the widest tip plus its
// fractional column, with a column each side for the kernels that read
// around a pixel; any canvas row fits too.
constexpr int kPenRowPixels = kTipBufferBytes + 4;

// Rows shared by everything that paints; one user at a time. All but the
// low bytes have slack for the vector kernels (dab_rows.h).
struct PenRowsObject {
  uint8_t sourceRow[(kPenRowPixels + kRowBlock) * 3];  // blue, green, red
  uint8_t sourceOpacityRow[kPenRowPixels + kRowBlock];
  uint8_t protectRow[kPenRowPixels + kRowBlock];  // 0 paints, 255 protects
  uint8_t destRow[(kPenRowPixels + kRowBlock) * 3];
  uint8_t destLowRow[kPenRowPixels * 3];  // low bytes under Double Accuracy
  uint8_t transparencyRow[kPenRowPixels + kRowBlock];
};

extern PenRowsObject PenRows;
