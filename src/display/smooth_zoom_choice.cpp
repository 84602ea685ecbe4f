#include "display/smooth_zoom_choice.h"

#include <algorithm>

#include "display/box_drag.h"
#include "display/smooth_zoom.h"

namespace {
}  // namespace

SmoothZoomChoice smoothZoomChoice = kNoChoice;

std::vector<std::string> SmoothZoomListRows() {
  std::vector<std::string> rows;
  for (int i = 0; i < kSmoothZoomListRows; ++i) {
    std::string row = "x";
    row += std::to_string(kSmoothZoomFactors[i]);
    rows.push_back(row);
  }
  std::sort(rows.begin(), rows.end());  // as the sorting list control orders them
  return rows;
}

int SmoothZoomFactorOfRow(int row) {
  return kSmoothZoomFactors[std::clamp(row, 0, kSmoothZoomListRows - 1)];
}

void BeginSmoothZoomChoice(const Canvas* canvas, const SmoothZoomDialogFields& fields) {
  const PlaneSlot& active = canvas->planes[canvas->activePlane];
  SmoothZoomChoice& c = smoothZoomChoice;
  c.factor = SmoothZoomFactorOfRow(fields.row);
  c.smooth = fields.smooth;
  c.width = canvas->canvasWidth / c.factor;
  c.height = canvas->canvasHeight / c.factor;
  c.left = active.left + (active.width - c.width) / 2;
  c.top = active.top + (active.height - c.height) / 2;
}

void DragSmoothZoomChoice(Canvas* canvas) {
  SmoothZoomChoice& c = smoothZoomChoice;
  const CanvasPoint at = DragCanvasBox(canvas, c.left, c.top, c.width, c.height, nullptr);
  c.left = at.x;
  c.top = at.y;
}

int EndSmoothZoomChoice(Canvas* canvas, int confirmed) {
  const SmoothZoomChoice c = smoothZoomChoice;
  smoothZoomChoice = kNoChoice;
  if (!confirmed) return 0;
  return EnterSmoothZoom(canvas, c.left, c.top, c.factor, c.smooth);
}
