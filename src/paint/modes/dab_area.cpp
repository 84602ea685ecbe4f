// A dab of the flat colour reads nothing of the plane in its kernel, and
// its rows are the plane's only writer while it runs; so the protection and
// the plane's rows of many of its rows can be read ahead, the processor
// fetching them together, and one blend can take them all. That blend goes
// over the rows in order, so its random draws come as in the plain
// pipeline, row after row.
#include "paint/modes/dab_area.h"

#include <algorithm>
#include <cstring>

#include "paint/modes/blend_row.h"
#include "paint/modes/blend_target.h"
#include "paint/modes/color_mask.h"
#include "paint/modes/mode_kernels.h"
#include "paint/modes/pen_modes.h"
#include "paint/tip/pen_record.h"

namespace {

// The rows read ahead, one after another with no gap, so that one blend
// takes them all: as many as these hold, and a vector block of slack.
constexpr int kBandPixels = 32768;
uint8_t bandSource[(kBandPixels + kRowBlock) * 3];
uint8_t bandProtect[kBandPixels + kRowBlock];
uint8_t bandDest[(kBandPixels + kRowBlock) * 3];
uint8_t bandDestLow[(kBandPixels + kRowBlock) * 3];
uint8_t bandTransparency[kBandPixels + kRowBlock];
const TargetRows band{bandDest, bandDestLow, bandTransparency};

// The pen's colour over the first `pixels` of bandSource. Nothing else
// writes there, so what the last dab filled stays while the colour does.
void FillBandSource(int pixels) {
  static uint8_t filledColor[3];
  static int filledPixels = 0;
  const uint8_t color[3] = {uint8_t(pen.blue), uint8_t(pen.green), uint8_t(pen.red)};
  if (std::memcmp(color, filledColor, 3) != 0) {
    std::memcpy(filledColor, color, 3);
    filledPixels = 0;
  }
  if (pixels <= filledPixels) return;
  FillColor(bandSource, pixels);
  filledPixels = pixels;
}

// Row r of the tip, or null.
const uint8_t* TipRow(const uint8_t* tip, const DabArea& area, int r) {
  return tip ? tip + size_t(r) * area.width : nullptr;
}

void PaintRowByRow(Canvas* canvas, const DabArea& area, const DabTip& tip) {
  const int x0 = area.left, x1 = area.left + area.width - 1;
  for (int r = 0; r < area.height; ++r) {
    int kind = kBlendOver;
    FetchModeRow(canvas, PenRows.sourceRow, PenRows.sourceOpacityRow, PenRows.protectRow,
                 area.top + r, x0, x1, area.box, &kind);
    BlendRow(canvas, PenRows.sourceRow, TipRow(tip.high, area, r), TipRow(tip.low, area, r),
             PenRows.sourceOpacityRow, PenRows.protectRow, kind, area.top + r, x0, x1, 0);
  }
}

// The rows BlendRow takes lie together: only rows off the plane or the
// canvas are left out, and those lie above or below the rest.
struct TakenRows {
  int first, last;  // rows of the dab, first > last when none
};

TakenRows RowsTaken(const BlendTarget& target, const DabArea& area) {
  const int x0 = area.left, x1 = area.left + area.width - 1;
  TakenRows taken{0, area.height - 1};
  while (taken.first <= taken.last && !TakesRow(target, area.top + taken.first, x0, x1))
    ++taken.first;
  while (taken.last >= taken.first && !TakesRow(target, area.top + taken.last, x0, x1))
    --taken.last;
  return taken;
}

// Bands of rows: the plane's rows read, one blend over all of them with
// the tip's rows as they lie, and the rows written back.
void PaintFlat(Canvas* canvas, const DabArea& area, const DabTip& tip) {
  const BlendTarget target = TargetOf(canvas, kBlendOver);
  const int x0 = area.left, x1 = area.left + area.width - 1, count = area.width;
  const int bandRows = kBandPixels / count;
  const TakenRows taken = RowsTaken(target, area);
  FillBandSource(std::min(bandRows, taken.last - taken.first + 1) * count);
  for (int r = taken.first; r <= taken.last; r += bandRows) {
    const int rows = std::min(bandRows, taken.last - r + 1), y0 = area.top + r;
    PrefetchRowStarts(canvas, y0, rows, x0);
    ReadTargetRows(target, y0, rows, x0, x1, band, count);
    // The flat colour's own protection is none.
    PlaneProtection(canvas, bandProtect, y0, rows, x0, x1, count);
    BlendTargetRow(target, bandSource, TipRow(tip.high, area, r), TipRow(tip.low, area, r),
                   PenRows.sourceOpacityRow, bandProtect, band, rows * count, true);
    WriteTargetRows(target, y0, rows, x0, x1, band, count);
  }
}

}  // namespace

void PaintDab(Canvas* canvas, const DabArea& area, const DabTip& tip) {
  if (FlatColorKernel() && !ColorMaskActive() && area.width >= 1 && area.width <= kBandPixels)
    PaintFlat(canvas, area, tip);
  else
    PaintRowByRow(canvas, area, tip);
}
