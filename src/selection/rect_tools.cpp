#include "selection/rect_tools.h"

#include <cstdlib>
#include <utility>

#include "base/command_ids.h"
#include "display/grid.h"
#include "document/selection_rows.h"
#include "selection/draft_engine.h"
#include "selection/draft_outline.h"
#include "selection/gesture.h"
#include "selection/selection_windows.h"
#include "selection/shape_tool.h"

namespace {

constexpr int kPegs[] = {0, 1, 2, 3, 10, 11, 12, 13};
constexpr int kCornerPegs = 4;
constexpr int kAllPegs = 8;

struct RectShape {
  int kind;
  bool circle;
};

Rect HeldToCanvas(const Canvas* canvas, const Rect& r) {
  const CanvasPoint a = ClampToCanvas(canvas, {r.left, r.top});
  const CanvasPoint b = ClampToCanvas(canvas, {r.right, r.bottom});
  return {a.x, a.y, b.x, b.y};
}

// A middle is the integer average of its edge's ends in view pixels.
ViewPoint PegPlace(const Canvas* canvas, const Rect& box, int peg) {
  const ViewPoint a = ViewOf(canvas, box.left, box.top), b = ViewOf(canvas, box.right, box.bottom);
  switch (peg) {
    case 0:
      return a;
    case 1:
      return {b.x, a.y};
    case 2:
      return b;
    case 3:
      return {a.x, b.y};
    case 10:
      return {(a.x + b.x) / 2, a.y};
    case 11:
      return {(a.x + b.x) / 2, b.y};
    case 12:
      return {a.x, (a.y + b.y) / 2};
    default:
      return {b.x, (a.y + b.y) / 2};
  }
}

// The last of the first `count` pegs under the pointer, -1 for none.
int HitPeg(Canvas* canvas, const Rect& box, int count) {
  const ViewPoint pointer = PointerInView(canvas);
  int hit = -1;
  for (int i = 0; i < count; ++i)
    if (OnPeg(pointer, PegPlace(canvas, box, kPegs[i]))) hit = kPegs[i];
  return hit;
}

void Outline(Canvas* canvas, const RectShape& shape, const Rect& box, bool atRest) {
  const ViewPoint a = ViewOf(canvas, box.left, box.top), b = ViewOf(canvas, box.right, box.bottom);
  if (shape.circle) {
    if (selectionWindows.invertArc)
      selectionWindows.invertArc(canvas, Rect{std::min(a.x, b.x), std::min(a.y, b.y),
                                              std::max(a.x, b.x), std::max(a.y, b.y)});
    DottedLine(canvas, a, {b.x, a.y});
    DottedLine(canvas, {b.x, a.y}, b);
    DottedLine(canvas, b, {a.x, b.y});
    DottedLine(canvas, {a.x, b.y}, a);
  } else {
    FrameBox(canvas, a, b);
  }
  if (!atRest) return;
  for (int i = 0; i < (shape.circle ? kCornerPegs : kAllPegs); ++i)
    Peg(canvas, PegPlace(canvas, box, kPegs[i]));
}

bool Owns(const Canvas* canvas, const RectShape& shape) {
  return canvas->selectionKind == shape.kind;
}

std::string Hover(Canvas* canvas, const RectShape& shape) {
  if (!Owns(canvas, shape)) return "";
  const Rect box = SelectionBox(canvas);
  if (HitPeg(canvas, box, shape.circle ? kCornerPegs : kAllPegs) >= 0) return "posmove";
  const ViewPoint at = PointerInView(canvas);
  const ViewPoint a = ViewOf(canvas, box.left, box.top), b = ViewOf(canvas, box.right, box.bottom);
  return at.x > a.x && at.x < b.x && at.y > a.y && at.y < b.y ? "move" : "";
}

// The shape becomes the canvas's Draft and its raster, and shows at rest.
void Settle(Canvas* canvas, int kind, const Rect& box) {
  canvas->selectionKind = kind;
  SetSelectionBox(canvas, box);
  CommitShape(canvas, 1, 1);
  EraseOutline(canvas);
}

void DragPeg(Canvas* canvas, const RectShape& shape, Rect box, int peg) {
  RubberDrag(
      canvas, {0, 0}, [&] { Outline(canvas, shape, box, false); },
      [&](CanvasPoint at) {
        MoveRectPeg(&box, peg, ClampToCanvas(canvas, at), ShiftHeld());
        ShowCorners(box);
      });
  Settle(canvas, shape.kind, Ordered(box));
}

// The grab's place within the box goes to the grid snap; the box may
// leave the canvas and stays where it is dropped.
void DragBody(Canvas* canvas, const RectShape& shape, Rect box, CanvasPoint grab) {
  const CanvasPoint offset{grab.x - box.left, grab.y - box.top};
  RubberDrag(
      canvas, offset, [&] { Outline(canvas, shape, box, false); },
      [&](CanvasPoint at) {
        box = Rect::OfSize(at.x - offset.x, at.y - offset.y, box.Width(), box.Height());
        ShowCorners(box);
      });
  Settle(canvas, shape.kind, box);
}

// A new rectangle from the clamped pointer, ordered; a square with Shift.
bool DrawRect(Canvas* canvas, const RectShape& shape, Rect* out) {
  CanvasPoint start;
  if (!PointerOnCanvas(canvas, &start, 0, 0)) return false;
  start = ClampToCanvas(canvas, start);
  Rect box{start.x, start.y, start.x, start.y};
  RubberDrag(
      canvas, {0, 0}, [&] { Outline(canvas, shape, box, false); },
      [&](CanvasPoint at) {
        at = ClampToCanvas(canvas, at);
        box.right = at.x;
        box.bottom = at.y;
        if (ShiftHeld())
          box.bottom = box.top + (at.y < box.top ? -1 : 1) * std::abs(at.x - box.left);
        ShowCorners(box);
      });
  *out = Ordered(box);
  return true;
}

void NewShape(Canvas* canvas, const RectShape& shape) {
  Deselect(canvas);
  Rect box;
  if (DrawRect(canvas, shape, &box)) {
    // A square may have left the canvas; the circle keeps it.
    if (!shape.circle) box = HeldToCanvas(canvas, box);
    if (box.left != box.right && box.top != box.bottom) return Settle(canvas, shape.kind, box);
  }
  CommitShape(canvas, 1, 1);
}

// The press answers to all eight places, also where the circle shows four.
void Press(Canvas* canvas, const RectShape& shape) {
  if (Owns(canvas, shape)) {
    const Rect box = SelectionBox(canvas);
    if (const int peg = HitPeg(canvas, box, kAllPegs); peg >= 0)
      return DragPeg(canvas, shape, box, peg);
    CanvasPoint at;
    if (PointerOnCanvas(canvas, &at, 0, 0) && at.x > box.left && at.x < box.right &&
        at.y > box.top && at.y < box.bottom)
      return DragBody(canvas, shape, box, at);
  }
  NewShape(canvas, shape);
}

void Register(const RectShape& shape) {
  RegisterShapeTool(shape.kind, {[shape](Canvas* c) { return Hover(c, shape); },
                                 [shape](Canvas* c) { Press(c, shape); }, nullptr,
                                 [shape](Canvas* c) { Outline(c, shape, SelectionBox(c), true); }});
}

}  // namespace

void MoveRectPeg(Rect* box, int peg, CanvasPoint at, bool square) {
  if (peg >= 10) {
    int* side[] = {&box->top, &box->bottom, &box->left, &box->right};
    *side[peg - 10] = peg < 12 ? at.y : at.x;
    return;
  }
  int& x = peg == 0 || peg == 3 ? box->left : box->right;
  int& y = peg < 2 ? box->top : box->bottom;
  const int oppositeX = &x == &box->left ? box->right : box->left;
  const int oppositeY = &y == &box->top ? box->bottom : box->top;
  x = at.x;
  y = at.y;
  if (square) y = oppositeY + (at.y < oppositeY ? -1 : 1) * std::abs(at.x - oppositeX);
}

int BoxGesture(Canvas* canvas, int* outLeft, int* outTop, int* outRight, int* outBottom) {
  Rect box;
  const bool drawn = DrawRect(canvas, {cmd::kSelectionBox, false}, &box);
  EraseOutline(canvas);  // the Draft's outline back, as it was
  if (!drawn) return 0;
  box = HeldToCanvas(canvas, box);
  *outLeft = box.left, *outTop = box.top, *outRight = box.right, *outBottom = box.bottom;
  return 1;
}

void InstallRectTools() {
  Register({cmd::kSelectionBox, false});
  Register({cmd::kSelectionCircle, true});
}
