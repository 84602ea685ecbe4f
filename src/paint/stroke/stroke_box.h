// The bounding box of what a stroke or a segment touched, inclusive canvas
// pixels. It starts empty, as left and top 999999 and right and bottom 0,
// and grows by the boxes the dabs report.
#pragma once

#include <algorithm>

#include "document/canvas.h"

struct StrokeBox {
  int left = 999999, top = 999999, right = 0, bottom = 0;

  void Merge(int l, int t, int r, int b) {
    left = std::min(left, l);
    top = std::min(top, t);
    right = std::max(right, r);
    bottom = std::max(bottom, b);
  }
  void Merge(const StrokeBox& box) { Merge(box.left, box.top, box.right, box.bottom); }
  bool Empty() const { return left > right || top > bottom; }
};

// Repaints the view over a canvas box; an empty box repaints nothing.
void RepaintCanvasBox(Canvas* canvas, const StrokeBox& box);
