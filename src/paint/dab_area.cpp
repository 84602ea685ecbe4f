// A dab of the flat colour reads nothing of the plane in its kernel, and
// its rows are the plane's only writer while it runs; so the protection and
// the plane's rows of many of its rows can be read ahead, and the processor
// fetches them together instead of one row at a time. The blends and their
// random draws still come row after row, in order, as in the plain
// pipeline.
#include "paint/dab_area.h"

#include <algorithm>
#include <cstring>

#include "paint/blend_row.h"
#include "paint/blend_target.h"
#include "paint/color_mask.h"
#include "paint/mode_kernels.h"
#include "paint/pen_modes.h"

namespace {

// The rows read ahead: as many as these hold.
constexpr int kBandPixels = 32768;
uint8_t bandProtect[kBandPixels];
uint8_t bandDest[kBandPixels * 3];
uint8_t bandDestLow[kBandPixels * 3];
uint8_t bandTransparency[kBandPixels];
bool bandTaken[kBandPixels / kRowBlock];

void PaintRowByRow(Canvas* canvas, const DabArea& area, TipRows& tip) {
  const int x0 = area.left, x1 = area.left + area.width - 1;
  for (int r = 0; r < area.height; ++r) {
    const uint8_t *high, *low;
    tip.Row(r, &high, &low);
    int kind = kBlendOver;
    FetchModeRow(canvas, PenRows.sourceRow, PenRows.sourceOpacityRow, PenRows.protectRow,
                 area.top + r, x0, x1, area.boxLeft, area.boxTop, area.boxRight, area.boxBottom,
                 &kind);
    BlendRow(canvas, PenRows.sourceRow, high, low, PenRows.sourceOpacityRow, PenRows.protectRow,
             kind, area.top + r, x0, x1, 0);
  }
}

// Rows of a band stand a whole number of vector blocks apart, so that the
// blend's slack stays within each.
int BandStride(int count) { return (count + kRowBlock - 1) / kRowBlock * kRowBlock; }

TargetRows BandRows(int i, int stride) {
  const size_t at = size_t(i) * stride;
  return TargetRows{bandDest + 3 * at, bandDestLow + 3 * at, bandTransparency + at};
}

// Every row the blend is given has slack: the tip's, the band's and the
// pen rows.
void PaintFlat(Canvas* canvas, const DabArea& area, TipRows& tip) {
  const BlendTarget target = TargetOf(canvas, kBlendOver);
  const int x0 = area.left, x1 = area.left + area.width - 1, count = area.width;
  const int stride = BandStride(count);
  const int bandRows = kBandPixels / stride;
  FillColor(PenRows.sourceRow, count);
  for (int first = 0; first < area.height; first += bandRows) {
    const int rows = std::min(bandRows, area.height - first);
    for (int i = 0; i < rows; ++i) bandTaken[i] = TakesRow(target, area.top + first + i, x0, x1);
    ReadTargetRows(target, area.top + first, rows, bandTaken, x0, x1, BandRows(0, stride), stride);
    // The flat colour's own protection is none.
    for (int i = 0; i < rows; ++i)
      if (bandTaken[i])
        PlaneProtection(canvas, bandProtect + size_t(i) * stride, area.top + first + i, x0, x1);
    for (int i = 0; i < rows; ++i) {
      const uint8_t *high, *low;
      tip.Row(first + i, &high, &low);
      if (!bandTaken[i]) continue;
      const int y = area.top + first + i;
      BlendTargetRow(target, PenRows.sourceRow, high, low, PenRows.sourceOpacityRow,
                     bandProtect + size_t(i) * stride, BandRows(i, stride), count, true);
      WriteTargetRow(target, y, x0, x1, BandRows(i, stride));
    }
  }
}

}  // namespace

void PaintDab(Canvas* canvas, const DabArea& area, TipRows& tip) {
  if (FlatColorKernel() && !ColorMaskActive() && area.width >= 1 &&
      BandStride(area.width) <= kBandPixels)
    PaintFlat(canvas, area, tip);
  else
    PaintRowByRow(canvas, area, tip);
}
