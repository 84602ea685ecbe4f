#include "paint/place_dab.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "display/mul_table.h"
#include "display/redraw.h"
#include "display/zoom.h"
#include "paint/blend_row.h"
#include "paint/color_mask.h"
#include "paint/pen_modes.h"
#include "paint/pen_rows.h"
#include "paint/protection.h"
#include "platform/platform.h"

PenBlenderObject PenBlender;
int32_t connected = 0;
int32_t penAntiAlias = 1;
int32_t speedDelay = 0;
Plane* undoPenImage = nullptr;
Plane* undoPenTransparency = nullptr;

void PenBlenderObject::Reset() { lastDabX = lastDabY = 0.0; }

void ResetPenModes() {
  PenBlender.Reset();
  PenKernels.Reset();
  PlaneStore.FreePlane(&undoPenImage);
  PlaneStore.FreePlane(&undoPenTransparency);
  FreeColorMaskMap();
  connected = 0;
  penAntiAlias = 1;
  speedDelay = 0;
  colorMaskChoice = 0;
  colorMaskVagueness = 0;
  penTool = 20005;
  disableMask = maskOutsideSelection = fillInProgress = protectTransparency = 0;
  gradientRowSource = nullptr;
  toneRowFilter = nullptr;
}

namespace {

struct Box {
  int left, top, right, bottom;
};

void Report(const Box& box, int* outLeft, int* outTop, int* outRight, int* outBottom) {
  if (outLeft) *outLeft = box.left;
  if (outTop) *outTop = box.top;
  if (outRight) *outRight = box.right;
  if (outBottom) *outBottom = box.bottom;
}

void Repaint(Canvas* canvas, const Box& box) {
  RedrawRect(canvas, ToView(canvas, box.left), ToView(canvas, box.top), ToView(canvas, box.right),
             ToView(canvas, box.bottom));
}

void WaitForSpeed() {
  if (speedDelay > 0) platform::BusyWait(uint32_t(speedDelay));
}

// One row of the pipeline: the kernel's rows, then the blend.
void PaintRow(Canvas* canvas, int y, int x0, int x1, const Box& box, const uint8_t* tipHigh,
              const uint8_t* tipLow) {
  int kind = kBlendOver;
  FetchModeRow(canvas, PenRows.sourceRow, PenRows.sourceOpacityRow, PenRows.protectRow, y, x0, x1,
               box.left, box.top, box.right, box.bottom, &kind);
  BlendRow(canvas, PenRows.sourceRow, tipHigh, tipLow, PenRows.sourceOpacityRow, PenRows.protectRow,
           kind, y, x0, x1, 0);
}

// The tip at whole pixels.
Box PlaceDabInteger(Canvas* canvas, int x, int y) {
  int w = 0, h = 0;
  FetchTipRaster(PenBlender.tipHighBuffer, PenBlender.tipLowBuffer, &w, &h);
  const Box box{x + 1 - w / 2, y + 1 - h / 2, x + 1 - w / 2 + w, y + 1 - h / 2 + h};
  for (int r = 0; r < h; ++r)
    PaintRow(canvas, box.top + r, box.left, box.left + w - 1, box,
             PenBlender.tipHighBuffer + size_t(r) * w, PenBlender.tipLowBuffer + size_t(r) * w);
  return box;
}

// Row r of a w x h raster shifted right by fx/255 and down by fy/255 of a
// pixel, bilinearly: w + 1 values, zero beyond the raster.
void ShiftedRow(const uint8_t* raster, int w, int h, int r, unsigned fx, unsigned fy,
                uint8_t* out) {
  const uint8_t* byFx = MulTable[fx];
  const uint8_t* byRestX = MulTable[255 - fx];
  // Column c of a raster row shifted right; a missing row is all zero.
  auto across = [&](const uint8_t* row, int c) -> unsigned {
    if (!row) return 0;
    const unsigned left = c > 0 ? byFx[row[c - 1]] : 0;
    const unsigned here = c < w ? byRestX[row[c]] : 0;
    return std::min(255u, left + here);
  };
  const uint8_t* upper = r < h ? raster + size_t(r) * w : nullptr;
  const uint8_t* lower = r > 0 ? raster + size_t(r - 1) * w : nullptr;
  for (int c = 0; c <= w; ++c)
    out[c] = uint8_t(std::min(255u, unsigned(Mul255(across(upper, c), 255 - fy)) +
                                        Mul255(across(lower, c), fy)));
}

// Whole pixel of a position: a position at or below 0 goes one further
// down, so 0 itself lands at -1 with a full fraction.
int WholePixel(double v) { return v > 0 ? int(v) : int(v - 1); }

// The tip at a sub-pixel position, one row and column larger than itself.
Box PlaceDabFraction(Canvas* canvas, double x, double y, int ix, int iy) {
  int w = 0, h = 0;
  FetchTipRaster(PenBlender.tipHighBuffer, PenBlender.tipLowBuffer, &w, &h);
  const unsigned fx = unsigned((x - ix) * 255.0), fy = unsigned((y - iy) * 255.0);
  const int left = ix + 1 - (w + 1) / 2, top = iy + 1 - (h + 1) / 2;
  const Box box{left, top, left + w, top + h};
  const bool lowBytes = canvas->doubleAccuracy != 0;
  for (int r = 0; r <= h; ++r) {
    ShiftedRow(PenBlender.tipHighBuffer, w, h, r, fx, fy, PenBlender.rowHigh);
    if (lowBytes) ShiftedRow(PenBlender.tipLowBuffer, w, h, r, fx, fy, PenBlender.rowLow);
    PaintRow(canvas, top + r, left, left + w, box, PenBlender.rowHigh,
             lowBytes ? PenBlender.rowLow : nullptr);
  }
  return Box{left, top, left + w + 1, top + h + 1};
}

}  // namespace

void RestoreDab(Canvas* canvas, int x, int y, int* outLeft, int* outTop, int* outRight,
                int* outBottom) {
  int w = 0, h = 0;
  FetchTipRaster(PenBlender.tipHighBuffer, PenBlender.tipLowBuffer, &w, &h);
  const int left = x - w / 2, top = y - h / 2;
  for (int r = 0; r < h; ++r) {
    // Without a snapshot the pen paints white and no coverage.
    std::memset(PenRows.sourceRow, 255, size_t(w) * 3);
    std::memset(PenRows.sourceOpacityRow, 0, size_t(w));
    std::memset(PenRows.protectRow, 0, size_t(w));
    ReadPlaneSpan(undoPenImage, top + r, left, left + w - 1, PenRows.sourceRow);
    ReadPlaneSpan(undoPenTransparency, top + r, left, left + w - 1, PenRows.sourceOpacityRow);
    BlendRow(canvas, PenRows.sourceRow, PenBlender.tipHighBuffer + size_t(r) * w,
             PenBlender.tipLowBuffer + size_t(r) * w, PenRows.sourceOpacityRow, PenRows.protectRow,
             kBlendReplace, top + r, left, left + w - 1, 1);
  }
  Report(Box{left, top, left + w, top + h}, outLeft, outTop, outRight, outBottom);
}

int PlaceDab(Canvas* canvas, double x, double y, int refresh, int rightButton, int* outLeft,
             int* outTop, int* outRight, int* outBottom, double spacing, int& first) {
  Box box;
  if (!penAntiAlias) {
    const int ix = int(x + 0.5), iy = int(y + 0.5);
    WaitForSpeed();
    if (rightButton)
      RestoreDab(canvas, ix, iy, &box.left, &box.top, &box.right, &box.bottom);
    else
      box = PlaceDabInteger(canvas, ix, iy);
  } else {
    if (first) {
      first = 0;
    } else if (std::sqrt((x - PenBlender.lastDabX) * (x - PenBlender.lastDabX) +
                         (y - PenBlender.lastDabY) * (y - PenBlender.lastDabY)) < spacing) {
      // Too near the last dab: the box is the point, and the segment walker
      // leaves it out; a stationary stroke paints on.
      const int px = int(x), py = int(y);
      Report(Box{px, py, px, py}, outLeft, outTop, outRight, outBottom);
      if (connected) return 0;
    }
    PenBlender.lastDabX = x;
    PenBlender.lastDabY = y;
    const int ix = WholePixel(x), iy = WholePixel(y);
    WaitForSpeed();
    if (rightButton)
      RestoreDab(canvas, ix, iy, &box.left, &box.top, &box.right, &box.bottom);
    else
      box = PlaceDabFraction(canvas, x, y, ix, iy);
  }
  if (refresh) Repaint(canvas, box);
  Report(box, outLeft, outTop, outRight, outBottom);
  return 1;
}
