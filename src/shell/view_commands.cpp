// Commands that change only how a document is shown.
#include "display/grid_command.h"
#include "display/set_zoom.h"
#include "document/canvas_manager.h"
#include "platform/platform.h"
#include "settings/settings.h"
#include "shell/canvas_command_groups.h"
#include "base/command_ids.h"
#include "shell/frame_geometry.h"
#include "shell/shell_windows.h"

namespace {

constexpr uint32_t kWmCommand = 0x0111;
constexpr int kToggleStatusPosition = 110;  // the status bar's own command
constexpr int kOutsideModes = 3;

void ViewChanged(Canvas* canvas) {
  if (shellWindows.viewChanged) shellWindows.viewChanged(canvas);
}

// The point under the pointer, or the middle of the window, stays in view.
void SetZoomStep(Canvas* canvas, int step) {
  SetZoom(canvas, step, 0);
  ViewChanged(canvas);
}

void SetOutsideDisplay(Canvas* canvas, int mode) {
  settings.outsideDisplay = mode;
  ViewChanged(canvas);
}

// Sizes are sent twice, double first: the second message then makes the
// scroll state be computed with the new extents.
void AdjustWindowSize(Canvas* canvas) {
  if (!shellWindows.documentFrame) return;
  const DocumentFrame frame = shellWindows.documentFrame(canvas);
  if (frame.maximized) {
    if (!shellWindows.sendDocumentSize) return;
    shellWindows.sendDocumentSize(canvas, frame.width * 2, frame.height * 2);
    shellWindows.sendDocumentSize(canvas, frame.width, frame.height);
    return;
  }
  if (!shellWindows.moveDocument) return;
  const WindowSize size =
      FitDocumentWindow(ZoomedCanvasSize(canvas), canvas->marginX, canvas->marginY, frame.border,
                        frame.caption, frame.mdiWidth, frame.mdiHeight);
  shellWindows.moveDocument(canvas, size.width * 2, size.height * 2);
  shellWindows.moveDocument(canvas, size.width, size.height);
}

void ToggleDoubleAccuracy(Canvas* canvas) {
  canvas->doubleAccuracy = !canvas->doubleAccuracy;
  CanvasManager.ResetAccuracy(canvas, 1);
  if (shellWindows.setTitle) shellWindows.setTitle(canvas, CanvasManager.TitleText(canvas));
}

}  // namespace

int ViewCommand(Canvas* canvas, int id) {
  if (id >= cmd::kZoomFirst && id <= cmd::kZoomLast) {
    SetZoomStep(canvas, id - cmd::kZoomActual);
    return 1;
  }
  switch (id) {
    case cmd::kDisplayPosition:
      platform::SendToWindow(platform::Window::StatusBar, kWmCommand, kToggleStatusPosition, 0);
      return 1;
    case cmd::kRuler:
      canvas->rulersOn = !canvas->rulersOn;
      ViewChanged(canvas);
      return 1;
    case cmd::kGrid:
      if (ToggleGrid(canvas)) ViewChanged(canvas);
      return 1;
    case cmd::kZoomIn: SetZoomStep(canvas, canvas->zoomStep + 1); return 1;
    case cmd::kZoomOut: SetZoomStep(canvas, canvas->zoomStep - 1); return 1;
    case cmd::kDarkenOutsideBoundary:
      settings.darkenOutsideBoundary = !settings.darkenOutsideBoundary;
      ViewChanged(canvas);
      return 1;
    case cmd::kAdjustWindowSize: AdjustWindowSize(canvas); return 1;
    case cmd::kDoubleAccuracy: ToggleDoubleAccuracy(canvas); return 1;
    case cmd::kOutsideHide:
    case cmd::kOutsideCheck:
    case cmd::kOutsideDarken: SetOutsideDisplay(canvas, id - cmd::kOutsideHide); return 1;
    case cmd::kShowOutsideBorder: {
      const int mode = settings.outsideDisplay;
      SetOutsideDisplay(canvas, mode >= 0 && mode < kOutsideModes - 1 ? mode + 1 : 0);
      return 1;
    }
    default: return 0;
  }
}
