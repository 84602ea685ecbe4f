#include "paint/modes/place_dab.h"

#include <cmath>
#include <cstring>

#include "display/redraw.h"
#include "display/zoom.h"
#include "paint/modes/blend_row.h"
#include "paint/modes/color_mask.h"
#include "paint/modes/dab_area.h"
#include "paint/modes/pen_modes.h"
#include "paint/modes/pen_rows.h"
#include "paint/modes/protection.h"
#include "platform/platform.h"

PenBlenderObject PenBlender;
Plane* undoPenImage = nullptr;
Plane* undoPenTransparency = nullptr;

void PenBlenderObject::Reset() {
  lastDabX = lastDabY = 0.0;
  connected = 0;
  antiAlias = 1;
  speedDelay = 0;
}

void ResetPenModes() {
  PenBlender.Reset();
  PenKernels.Reset();
  PlaneStore.FreePlane(&undoPenImage);
  PlaneStore.FreePlane(&undoPenTransparency);
  FreeColorMaskMap();
  colorMask = {};
  protection = {};
  penSources = {};
}

namespace {

void Report(const Rect& box, Rect* painted) {
  if (painted) *painted = box;
}

void WaitForSpeed() {
  if (PenBlender.speedDelay > 0) platform::BusyWait(uint32_t(PenBlender.speedDelay));
}

// Only the 16-bit blend reads the low bytes of the tip.
uint8_t* LowBytesFor(bool wanted) { return wanted ? PenBlender.tipLowBuffer : nullptr; }

Rect PlaceDabInteger(Canvas* canvas, int x, int y) {
  int w = 0, h = 0;
  uint8_t* low = LowBytesFor(ActiveSlot(canvas).accuracyPlane);
  FetchTipRaster(PenBlender.tipHighBuffer, low, &w, &h);
  const Rect box{x + 1 - w / 2, y + 1 - h / 2, x + 1 - w / 2 + w, y + 1 - h / 2 + h};
  PaintDab(canvas, DabArea{box.left, box.top, w, h, box},
           DabTip{PenBlender.tipHighBuffer, low});
  return box;
}

// Whole pixel of a position: a position at or below 0 goes one further
// down, so 0 itself lands at -1 with a full fraction.
int WholePixel(double v) { return v > 0 ? int(v) : int(v - 1); }

// The tip at a sub-pixel position, one row and column larger than itself.
Rect PlaceDabFraction(Canvas* canvas, double x, double y, int ix, int iy) {
  const bool lowBytes = canvas->doubleAccuracy != 0;
  int w = 0, h = 0;
  FetchTipRaster(PenBlender.tipHighBuffer, LowBytesFor(lowBytes), &w, &h);
  const unsigned fx = unsigned((x - ix) * 255.0), fy = unsigned((y - iy) * 255.0);
  const int left = ix + 1 - (w + 1) / 2, top = iy + 1 - (h + 1) / 2;
  // The low bytes are shifted as if they were values of their own.
  ShiftTip(PenBlender.tipHighBuffer, w, h, fx, fy, PenBlender.shiftedHigh);
  if (lowBytes) ShiftTip(PenBlender.tipLowBuffer, w, h, fx, fy, PenBlender.shiftedLow);
  PaintDab(canvas, DabArea{left, top, w + 1, h + 1, {left, top, left + w, top + h}},
           DabTip{PenBlender.shiftedHigh, lowBytes ? PenBlender.shiftedLow : nullptr});
  return Rect{left, top, left + w + 1, top + h + 1};
}

}  // namespace

Rect RestoreDab(Canvas* canvas, int x, int y) {
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
  return Rect{left, top, left + w, top + h};
}

int PlaceDab(Canvas* canvas, double x, double y, int refresh, int rightButton, Rect* painted,
             double spacing, int& first) {
  Rect box;
  if (!PenBlender.antiAlias) {
    const int ix = int(x + 0.5), iy = int(y + 0.5);
    WaitForSpeed();
    if (rightButton)
      box = RestoreDab(canvas, ix, iy);
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
      Report(Rect{px, py, px, py}, painted);
      if (PenBlender.connected) return 0;
    }
    PenBlender.lastDabX = x;
    PenBlender.lastDabY = y;
    const int ix = WholePixel(x), iy = WholePixel(y);
    WaitForSpeed();
    if (rightButton)
      box = RestoreDab(canvas, ix, iy);
    else
      box = PlaceDabFraction(canvas, x, y, ix, iy);
  }
  if (refresh) RedrawCanvasBox(canvas, box);
  Report(box, painted);
  return 1;
}
