#include "paint/stroke/stroke_outline.h"

#include <cmath>

#include "display/zoom.h"
#include "paint/modes/pen_modes.h"
#include "paint/stroke/stroke_windows.h"
#include "paint/tip/pen_record.h"

PenOutlineState penOutline;
StrokeWindows strokeWindows;

namespace {

void Draw() {
  if (strokeWindows.drawPenOutline) strokeWindows.drawPenOutline(penOutline.view, penOutline.drawn);
}

}  // namespace

// The box a dab at (x, y) covers: a dot tip's raster, or the width and
// height the size list gives the radii.
PenOutline PenOutlineAt(const Canvas* canvas, int x, int y) {
  PenOutline outline{};
  int width, height;
  if (tipState.dotTipActive && tipState.dotTip) {
    width = tipState.dotTip->width;
    height = tipState.dotTip->height;
  } else {
    outline.ellipse = 1;
    width = static_cast<int>(std::trunc(2 * pen.radiusX + 1));
    height = static_cast<int>(std::trunc(2 * pen.radiusY + 1));
  }
  const int left = x - width / 2, top = y - height / 2;
  outline.box = {ToView(canvas, left), ToView(canvas, top), ToView(canvas, left + width) - 1,
                 ToView(canvas, top + height) - 1};
  if (pen.mode == kModeClone) {
    outline.cross = 1;
    outline.crossX = ToView(canvas, x + PenKernels.cloneOffsetX, 1);
    outline.crossY = ToView(canvas, y + PenKernels.cloneOffsetY, 1);
  }
  return outline;
}

void MovePenOutline(Canvas* canvas, int x, int y) {
  HidePenOutline();
  penOutline.x = x;
  penOutline.y = y;
  ShowPenOutline(canvas);
}

void HidePenOutline() {
  if (!penOutline.shown) return;
  Draw();
  penOutline.shown = 0;
}

void ShowPenOutline(Canvas* canvas) {
  if (penOutline.shown) return;
  penOutline.view = canvas->displayWnd;
  penOutline.drawn = PenOutlineAt(canvas, penOutline.x, penOutline.y);
  Draw();
  penOutline.shown = 1;
}

void TogglePenOutline(Canvas* canvas) {
  if (penOutline.shown && penOutline.view == canvas->displayWnd) Draw();
}
