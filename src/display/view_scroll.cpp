#include "display/view_scroll.h"

#include <algorithm>

#include "display/view_layout.h"
#include "display/zoom.h"

namespace {

struct AxisFields {
  int32_t* scroll;
  int extent, client;
};

AxisFields FieldsOf(Canvas* canvas, Axis axis) {
  if (axis == Axis::Horizontal) return {&canvas->scrollX, canvas->extentX, canvas->clientWidth};
  return {&canvas->scrollY, canvas->extentY, canvas->clientHeight};
}

int RequestedMove(const Canvas* canvas, const AxisFields& f, int request, int thumb) {
  const int line = std::max(1, ToView(canvas, 1));
  switch (request) {
    case kScrollLineUp:
      return -line;
    case kScrollLineDown:
      return line;
    case kScrollPageUp:
      return -10 * line;
    case kScrollPageDown:
      return 10 * line;
    case kScrollThumbPosition:
    case kScrollThumbTrack:
      return thumb - *f.scroll;
    case kScrollTop:
      return -*f.scroll;
    case kScrollBottom:
      return f.extent - f.client - *f.scroll;
    default:
      return 0;
  }
}

}  // namespace

int ScrollView(Canvas* canvas, Axis axis, int request, int thumb) {
  const AxisFields f = FieldsOf(canvas, axis);
  int move = RequestedMove(canvas, f, request, thumb);
  move = std::max(std::min(move, f.extent - f.client - *f.scroll), -*f.scroll);
  if (move == 0) return 0;
  *f.scroll += move;
  if (viewWindows.scrollWindow) {
    if (axis == Axis::Horizontal)
      viewWindows.scrollWindow(canvas, -move, 0);
    else
      viewWindows.scrollWindow(canvas, 0, -move);
  }
  if (viewWindows.setScrollBar)
    viewWindows.setScrollBar(canvas, axis, {f.extent - 1, f.client, *f.scroll});
  if (canvas->rulersOn && viewWindows.repaintRuler) viewWindows.repaintRuler(canvas, axis);
  return move;
}

int ScrollAtEdge(Canvas* canvas) {
  if (!viewWindows.pointer) return 0;
  const PointerState pointer = viewWindows.pointer(canvas);
  // displayWnd stands at the origin less the scroll inside frameWnd.
  const int x = pointer.viewX + ViewOriginX(canvas) - canvas->scrollX;
  const int y = pointer.viewY + ViewOriginY(canvas) - canvas->scrollY;
  int moved = 0;
  if (x < kAutoScrollEdge) moved |= ScrollView(canvas, Axis::Horizontal, kScrollPageUp) != 0;
  if (y < kAutoScrollEdge) moved |= ScrollView(canvas, Axis::Vertical, kScrollPageUp) != 0;
  if (x >= kAutoScrollEdge && x >= canvas->clientWidth - kAutoScrollEdge)
    moved |= ScrollView(canvas, Axis::Horizontal, kScrollPageDown) != 0;
  if (y >= kAutoScrollEdge && y >= canvas->clientHeight - kAutoScrollEdge)
    moved |= ScrollView(canvas, Axis::Vertical, kScrollPageDown) != 0;
  if (moved && viewWindows.updateNow) viewWindows.updateNow(canvas);
  return moved;
}
