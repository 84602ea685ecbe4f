#include "display/smooth_zoom_frame.h"

#include "display/box_drag.h"
#include "display/redraw.h"
#include "display/smooth_zoom.h"
#include "display/view_windows.h"

HookList<> zoomFrameDoneHooks;

namespace {

Canvas* frameCanvas = nullptr;
// Whether the frame stands on frameCanvas's view now; it is off while it
// is dragged, since the drag draws its own.
bool frameShown = false;
// The first use offers the least factor, smoothed.
SmoothZoomDialogFields lastFields{0, 1};

void InvertFrame() {
  const SmoothZoomChoice& c = smoothZoomChoice;
  if (viewWindows.invertBox)
    viewWindows.invertBox(frameCanvas,
                          ViewRectOf(frameCanvas, Rect::OfSize(c.left, c.top, c.width, c.height)));
}

void ShowFrame(bool show) {
  if (frameShown == show) return;
  InvertFrame();
  frameShown = show;
}

void Done() {
  zoomFrameDoneHooks.Run();
}

}  // namespace

int BeginZoomFrame(Canvas* canvas) {
  SmoothZoomDialogFields fields = lastFields;
  if (!viewWindows.smoothZoomDialog || !viewWindows.smoothZoomDialog(&fields)) return 0;
  lastFields = fields;
  EndZoomFrame();
  BeginSmoothZoomChoice(canvas, fields);
  frameCanvas = canvas;
  ShowFrame(true);
  return 1;
}

Canvas* ZoomFrameCanvas() { return frameCanvas; }

void ToggleZoomFrame(Canvas* canvas) {
  if (canvas == frameCanvas && frameShown) InvertFrame();
}

void PressZoomFrame(Canvas* canvas) {
  if (canvas != frameCanvas) return;
  ShowFrame(false);
  DragSmoothZoomChoice(canvas);
  ShowFrame(true);
}

int ZoomFrameMenu(Canvas* canvas) {
  if (canvas != frameCanvas) return 0;
  switch (viewWindows.zoomFrameMenu ? viewWindows.zoomFrameMenu(canvas) : kZoomFrameNothing) {
    case kZoomFrameEnter:
      ShowFrame(false);
      frameCanvas = nullptr;
      if (EndSmoothZoomChoice(canvas, 1) && viewWindows.invalidate) viewWindows.invalidate(canvas);
      Done();
      break;
    case kZoomFrameCancel:
      EndZoomFrame();
      Done();
      break;
  }
  return 1;
}

void EndZoomFrame() {
  if (!frameCanvas) return;
  ShowFrame(false);
  EndSmoothZoomChoice(frameCanvas, 0);
  frameCanvas = nullptr;
}
