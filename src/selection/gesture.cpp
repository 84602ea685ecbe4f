#include "selection/gesture.h"

#include "display/rulers.h"
#include "display/view_scroll.h"
#include "display/view_windows.h"
#include "platform/platform.h"
#include "selection/selection_windows.h"

namespace {

constexpr int kVkQ = 'Q';
constexpr int kVkMenu = 0x5D;  // the application key

}  // namespace

bool PrimaryHeld() { return viewWindows.buttonHeld && viewWindows.buttonHeld(PointerButton::Left); }

bool SecondaryHeld() {
  return (viewWindows.buttonHeld && viewWindows.buttonHeld(PointerButton::Right)) ||
         platform::KeyDown(kVkQ) || platform::KeyDown(kVkMenu);
}

bool ShiftHeld() { return platform::KeyDown(platform::VkShift); }

void ShowCorners(const Rect& box) {
  platform::SendToWindow(platform::Window::StatusBar, platform::MsgStatus,
                         platform::kStatusFirstCorner, platform::PackCorner(box.left, box.top));
  platform::SendToWindow(platform::Window::StatusBar, platform::MsgStatus,
                         platform::kStatusSecondCorner,
                         platform::PackCorner(box.right, box.bottom));
}

void DragLoop(Canvas* canvas, CanvasPoint grabOffset, const std::function<void()>& outline,
              const std::function<void(CanvasPoint at)>& update) {
  CanvasPoint last{};
  bool first = true;
  while (PrimaryHeld()) {
    CanvasPoint at;
    if (!PointerOnCanvas(canvas, &at, grabOffset.x, grabOffset.y)) continue;
    if (!first && at.x == last.x && at.y == last.y) continue;
    first = false;
    last = at;
    outline();
    update(at);
    ShowPosition(canvas, at.x, at.y);
    ScrollAtEdge(canvas);
    outline();
  }
  if (selectionWindows.showCursor) selectionWindows.showCursor("");
}
