// The rows of one dab, painted in order through the pen's kernel and the
// blend: for each row FetchModeRow, then BlendRow with the tip's row.
#pragma once

#include <cstdint>

#include "document/canvas.h"

// Where the tip's rows come from; taken once each, in order. Each row can
// be read to its width rounded up to a whole vector block (dab_rows.h).
class TipRows {
 public:
  virtual ~TipRows() = default;
  // Row r: its high bytes, and its low bytes or null.
  virtual void Row(int r, const uint8_t** high, const uint8_t** low) = 0;
};

struct DabArea {
  int left, top, width, height;              // the rows painted
  int boxLeft, boxTop, boxRight, boxBottom;  // the box the kernels are given
};

void PaintDab(Canvas* canvas, const DabArea& area, TipRows& tip);
