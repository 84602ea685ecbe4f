#include "display/pointer_gestures.h"

#include "display/view_scroll.h"
#include "base/command_ids.h"

namespace {

bool Held(PointerButton button) { return viewWindows.buttonHeld && viewWindows.buttonHeld(button); }

}  // namespace

void HandScroll(Canvas* canvas, PointerButton button, int screenX, int screenY) {
  if (!viewWindows.pointer) return;
  if (viewWindows.handCursor) viewWindows.handCursor(true);
  int lastX = screenX, lastY = screenY;
  while (Held(button)) {
    const PointerState now = viewWindows.pointer(canvas);
    if (now.screenX == lastX && now.screenY == lastY) continue;
    ScrollView(canvas, Axis::Horizontal, kScrollThumbPosition,
               canvas->scrollX - (now.screenX - lastX));
    ScrollView(canvas, Axis::Vertical, kScrollThumbPosition,
               canvas->scrollY - (now.screenY - lastY));
    if (viewWindows.updateNow) viewWindows.updateNow(canvas);
    lastX = now.screenX;
    lastY = now.screenY;
  }
  if (viewWindows.handCursor) viewWindows.handCursor(false);
}

void ZoomDrag(Canvas* canvas, int screenX) {
  if (!viewWindows.pointer || !viewWindows.sendCommand) return;
  int start = screenX;
  while (Held(PointerButton::Right)) {
    const int x = viewWindows.pointer(canvas).screenX;
    if (x - start >= kZoomDragStep) {
      viewWindows.sendCommand(canvas, cmd::kZoomIn);
      start = x;
    } else if (start - x >= kZoomDragStep) {
      viewWindows.sendCommand(canvas, cmd::kZoomOut);
      start = x;
    }
  }
}
