// The rows of one dab, painted in order through the pen's kernel and the
// blend: for each row FetchModeRow, then BlendRow with the tip's row.
#pragma once

#include <cstdint>

#include "base/rect.h"
#include "document/canvas.h"

// The tip of a dab: the area's width times its height of values, row
// after row, high bytes and low bytes (or null), each followed by slack
// for the vector kernels (dab_rows.h).
struct DabTip {
  const uint8_t* high;
  const uint8_t* low;
};

struct DabArea {
  int left, top, width, height;  // the rows painted
  Rect box;                      // the box the kernels are given
};

void PaintDab(Canvas* canvas, const DabArea& area, const DabTip& tip);
