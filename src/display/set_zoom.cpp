#include "display/set_zoom.h"

#include <algorithm>

#include "display/grid.h"
#include "display/view_scroll.h"
#include "display/zoom.h"
#include "settings/settings.h"
#include "base/command_ids.h"

namespace {

CanvasPoint PointToKeep(Canvas* canvas, int keepCentre) {
  if (!keepCentre && viewWindows.pointer) {
    const PointerState pointer = viewWindows.pointer(canvas);
    if (pointer.inDocument) return ViewToCanvasPoint(canvas, pointer.viewX, pointer.viewY, 0, 0);
  }
  return {ToCanvas(canvas, canvas->clientWidth / 2 - canvas->marginX + canvas->scrollX),
          ToCanvas(canvas, canvas->clientHeight / 2 - canvas->marginY + canvas->scrollY)};
}

// The extents must follow the new zoom before the scroll goes anywhere.
void LayOutAgain(Canvas* canvas) {
  if (settings.autoAdjustWindow) {
    if (viewWindows.sendCommand) viewWindows.sendCommand(canvas, cmd::kAdjustWindowSize);
  } else if (viewWindows.resendDocumentSize) {
    viewWindows.resendDocumentSize(canvas);
  }
}

}  // namespace

void SetZoom(Canvas* canvas, int step, int keepCentre) {
  const CanvasPoint keep = PointToKeep(canvas, keepCentre);
  ScrollView(canvas, Axis::Horizontal, kScrollThumbPosition, 0);
  ScrollView(canvas, Axis::Vertical, kScrollThumbPosition, 0);
  canvas->zoomStep = std::clamp(step, kMinZoomStep, kMaxZoomStep);
  const int x = ToView(canvas, keep.x);
  const int y = ToView(canvas, keep.y);
  LayOutAgain(canvas);
  ScrollView(canvas, Axis::Horizontal, kScrollThumbPosition,
             std::max(0, x - canvas->clientWidth / 2));
  ScrollView(canvas, Axis::Vertical, kScrollThumbPosition,
             std::max(0, y - canvas->clientHeight / 2));
  if (viewWindows.showZoom) viewWindows.showZoom(ZoomReadoutOf(canvas->zoomStep));
}
