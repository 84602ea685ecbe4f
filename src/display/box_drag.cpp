#include "display/box_drag.h"

#include "display/redraw.h"
#include "display/view_scroll.h"

namespace {

// The frame of a canvas box, inverted where it stands in the view.
void Invert(Canvas* canvas, int left, int top, int width, int height) {
  if (viewWindows.invertBox)
    viewWindows.invertBox(canvas, ViewRectOf(canvas, Rect::OfSize(left, top, width, height)));
}

}  // namespace

CanvasPoint DragCanvasBox(Canvas* canvas, int left, int top, int width, int height,
                          const std::function<void(int left, int top)>& moved) {
  CanvasPoint at{left, top};
  CanvasPoint start;
  if (!PointerOnCanvas(canvas, &start, 0, 0)) return at;
  Invert(canvas, at.x, at.y, width, height);
  if (moved) moved(at.x, at.y);
  while (viewWindows.buttonHeld && viewWindows.buttonHeld(PointerButton::Left)) {
    CanvasPoint now;
    PointerOnCanvas(canvas, &now, 0, 0);
    const CanvasPoint next{left + now.x - start.x, top + now.y - start.y};
    if (next.x == at.x && next.y == at.y) continue;
    Invert(canvas, at.x, at.y, width, height);
    at = next;
    // The frame is off while the view scrolls, so what comes into view
    // paints without it.
    ScrollAtEdge(canvas);
    Invert(canvas, at.x, at.y, width, height);
    if (moved) moved(at.x, at.y);
  }
  Invert(canvas, at.x, at.y, width, height);
  return at;
}
