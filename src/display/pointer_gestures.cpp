#include "display/pointer_gestures.h"

#include "display/view_scroll.h"

namespace {

bool Held(PointerButton button) { return viewWindows.buttonHeld && viewWindows.buttonHeld(button); }

}  // namespace

void HandScroll(Canvas* canvas, PointerButton button) {
  if (!viewWindows.pointer) return;
  if (viewWindows.handCursor) viewWindows.handCursor(true);
  PointerState last = viewWindows.pointer(canvas);
  while (Held(button)) {
    const PointerState now = viewWindows.pointer(canvas);
    if (now.screenX == last.screenX && now.screenY == last.screenY) continue;
    ScrollView(canvas, Axis::Horizontal, kScrollThumbPosition,
               canvas->scrollX - (now.screenX - last.screenX));
    ScrollView(canvas, Axis::Vertical, kScrollThumbPosition,
               canvas->scrollY - (now.screenY - last.screenY));
    if (viewWindows.updateNow) viewWindows.updateNow(canvas);
    last = now;
  }
  if (viewWindows.handCursor) viewWindows.handCursor(false);
}

void ZoomDrag(Canvas* canvas) {
  if (!viewWindows.pointer || !viewWindows.sendCommand) return;
  int start = viewWindows.pointer(canvas).screenX;
  while (Held(PointerButton::Right)) {
    const int x = viewWindows.pointer(canvas).screenX;
    if (x - start >= kZoomDragStep) {
      viewWindows.sendCommand(canvas, kZoomInCommand);
      start = x;
    } else if (start - x >= kZoomDragStep) {
      viewWindows.sendCommand(canvas, kZoomOutCommand);
      start = x;
    }
  }
}
