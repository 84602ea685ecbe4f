#include "selection/gesture.h"

#include <algorithm>

#include "display/rulers.h"
#include "display/view_scroll.h"
#include "display/view_windows.h"
#include "platform/platform.h"
#include "selection/selection_windows.h"

namespace {

constexpr int kVkQ = 'Q';
constexpr int kVkMenu = 0x5D;  // the application key

std::string shownCursor;

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

CanvasPoint ClampToCanvas(const Canvas* canvas, CanvasPoint at) {
  return {std::clamp(at.x, 0, std::max(canvas->canvasWidth - 1, 0)),
          std::clamp(at.y, 0, std::max(canvas->canvasHeight - 1, 0))};
}

void ShowToolCursor(const std::string& name) {
  if (name == shownCursor) return;
  shownCursor = name;
  if (selectionWindows.showCursor) selectionWindows.showCursor(name);
}

void ResetToolCursor() { shownCursor.clear(); }

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
  ShowToolCursor("");
}
