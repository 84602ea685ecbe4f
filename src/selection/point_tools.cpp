#include "selection/point_tools.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <vector>

#include "base/command_ids.h"
#include "display/rulers.h"
#include "display/view_scroll.h"
#include "platform/platform.h"
#include "selection/draft.h"
#include "selection/draft_engine.h"
#include "selection/draft_outline.h"
#include "selection/gesture.h"
#include "selection/selection_windows.h"
#include "selection/shape_tool.h"

namespace {

// Add Point stops short of the end of the list.
constexpr int kAddPointLimit = 5110;
constexpr int kLeastPointsToDelete = 4;
constexpr float kAddPointStep = 5;
constexpr int kVkBack = 0x08;

struct PointShape {
  int kind;
  bool closed;  // a polygon: the last point is the first again
};

int Count(const Canvas* canvas) {
  return std::min(static_cast<int>(canvas->draftPointCount), kMaxDraftPoints);
}

CanvasPoint PointAt(const Canvas* canvas, int i) {
  return {static_cast<int>(canvas->draftPoints[i][0]), static_cast<int>(canvas->draftPoints[i][1])};
}

void SetPoint(Canvas* canvas, int i, CanvasPoint at) {
  canvas->draftPoints[i][0] = static_cast<float>(at.x);
  canvas->draftPoints[i][1] = static_cast<float>(at.y);
}

void CopyPoint(Canvas* canvas, int to, int from) {
  canvas->draftPoints[to][0] = canvas->draftPoints[from][0];
  canvas->draftPoints[to][1] = canvas->draftPoints[from][1];
}

ViewPoint ViewOfPoint(const Canvas* canvas, int i) {
  const CanvasPoint at = PointAt(canvas, i);
  return ViewOf(canvas, at.x, at.y);
}

bool Owns(const Canvas* canvas, const PointShape& shape) {
  return canvas->selectionKind == shape.kind && Count(canvas) > 0;
}

// The last of the first `count` points whose peg is under the pointer.
int HitPoint(Canvas* canvas, int count) {
  const ViewPoint pointer = PointerInView(canvas);
  int hit = -1;
  for (int i = 0; i < count; ++i)
    if (OnPeg(pointer, ViewOfPoint(canvas, i))) hit = i;
  return hit;
}

// A polygon's closing point isn't scanned.
int ScannedPoints(const Canvas* canvas, const PointShape& shape) {
  return Count(canvas) - (shape.closed ? 1 : 0);
}

// The body: a polygon's is the canvas's box, a connect line's the box of
// its points, which nothing keeps.
Rect BodyOf(const Canvas* canvas, const PointShape& shape) {
  if (shape.closed) return {canvas->selLeft, canvas->selTop, canvas->selRight, canvas->selBottom};
  Rect box{INT_MAX, INT_MAX, INT_MIN, INT_MIN};
  for (int i = 0; i < Count(canvas); ++i) {
    const CanvasPoint at = PointAt(canvas, i);
    box = Union(box, Rect{at.x, at.y, at.x, at.y});
  }
  return box;
}

bool StrictlyInside(const Rect& box, int x, int y) {
  return x > box.left && x < box.right && y > box.top && y < box.bottom;
}

void Outline(Canvas* canvas, const PointShape& shape, bool atRest) {
  PointOutline(canvas, Count(canvas), atRest, 1, !shape.closed);
}

std::string Hover(Canvas* canvas, const PointShape& shape) {
  if (!Owns(canvas, shape)) return "";
  if (HitPoint(canvas, ScannedPoints(canvas, shape)) >= 0) return "posmove";
  const Rect body = BodyOf(canvas, shape);
  const ViewPoint a = ViewOf(canvas, body.left, body.top);
  const ViewPoint b = ViewOf(canvas, body.right, body.bottom);
  const ViewPoint at = PointerInView(canvas);
  return at.x > a.x && at.x < b.x && at.y > a.y && at.y < b.y ? "move" : "";
}

void Settle(Canvas* canvas) {
  CommitShape(canvas, 1, 1);
  EraseOutline(canvas);
}

void DragPoint(Canvas* canvas, const PointShape& shape, int index) {
  RubberDrag(
      canvas, {0, 0}, [&] { Outline(canvas, shape, false); },
      [&](CanvasPoint at) {
        at = ClampToCanvas(canvas, at);
        SetPoint(canvas, index, at);
        if (shape.closed && index == 0) CopyPoint(canvas, Count(canvas) - 1, 0);
      });
  Settle(canvas);
}

// Every point moves by the drag from a copy taken at the press, held to
// nothing.
void DragBody(Canvas* canvas, const PointShape& shape, CanvasPoint grab) {
  const int count = Count(canvas);
  const std::vector<float> from(&canvas->draftPoints[0][0], &canvas->draftPoints[count][0]);
  RubberDrag(
      canvas, {0, 0}, [&] { Outline(canvas, shape, false); },
      [&](CanvasPoint at) {
        const float dx = static_cast<float>(at.x - grab.x), dy = static_cast<float>(at.y - grab.y);
        for (int i = 0; i < count; ++i) {
          canvas->draftPoints[i][0] = from[2 * i] + dx;
          canvas->draftPoints[i][1] = from[2 * i + 1] + dy;
        }
      });
  Settle(canvas);
}

CanvasPoint Pointer(Canvas* canvas) {
  CanvasPoint at{};
  PointerOnCanvas(canvas, &at, 0, 0);
  return at;
}

// The run of clicks: the last point is the rubber point that follows the
// pointer. A click fixes it and adds the next; a right release ends the
// run, closing a polygon and dropping a connect line's rubber point;
// Backspace drops the last point. A click past the list's end ends the
// run as the right release does. Fewer than 3 points leave no Draft.
void ClickRun(Canvas* canvas, const PointShape& shape) {
  Deselect(canvas);
  std::memset(canvas->draftPoints, 0, sizeof canvas->draftPoints);
  const CanvasPoint start = ClampToCanvas(canvas, Pointer(canvas));
  SetPoint(canvas, 0, start);
  SetPoint(canvas, 1, start);
  int count = 2;
  canvas->draftPointCount = count;
  {
    RubberBand band(canvas, [&] { PointOutline(canvas, count, false, 1, false); });
    while (PrimaryHeld()) {
    }
    bool running = selectionWindows.nextClickEvent != nullptr;
    while (running) {
      const ClickEvent event = selectionWindows.nextClickEvent(canvas);
      band.Toggle();
      const bool full = event.type == ClickEvent::LeftDown && count >= kMaxDraftPoints;
      if (event.type == ClickEvent::RightUp || full) {
        // The rubber point closes a polygon and leaves a connect line.
        if (shape.closed)
          CopyPoint(canvas, count - 1, 0);
        else
          --count;
        running = false;
      } else if (event.type == ClickEvent::Move) {
        const CanvasPoint at = Pointer(canvas);
        SetPoint(canvas, count - 1, at);
        ShowPosition(canvas, at.x, at.y);
        ScrollAtEdge(canvas);
      } else if (event.type == ClickEvent::LeftDown) {
        SetPoint(canvas, count - 1, ClampToCanvas(canvas, PointAt(canvas, count - 1)));
        const CanvasPoint at = Pointer(canvas);
        SetPoint(canvas, count++, shape.closed ? at : ClampToCanvas(canvas, at));
      } else {
        --count;
        while (platform::KeyDown(kVkBack)) platform::DrainPointerMessages();
        running = count > 0;
      }
      canvas->draftPointCount = count;
      if (running) band.Toggle();
    }
  }
  if (count < 3) {
    canvas->selectionKind = kNoDraft;
    canvas->draftPointCount = 0;
  } else {
    canvas->selectionKind = shape.kind;
  }
  Settle(canvas);
}

// The press's first two tries, a peg and then the body: 1 when one took
// the press.
int PegOrBody(Canvas* canvas, const PointShape& shape) {
  if (!Owns(canvas, shape)) return 0;
  if (const int index = HitPoint(canvas, ScannedPoints(canvas, shape)); index >= 0) {
    DragPoint(canvas, shape, index);
    return 1;
  }
  const CanvasPoint at = Pointer(canvas);
  if (!StrictlyInside(BodyOf(canvas, shape), at.x, at.y)) return 0;
  DragBody(canvas, shape, at);
  return 1;
}

void Press(Canvas* canvas, const PointShape& shape) {
  if (!PegOrBody(canvas, shape)) ClickRun(canvas, shape);
}

// A hit on a polygon's last point is its first.
int PegMenu(Canvas* canvas, const PointShape& shape) {
  if (!Owns(canvas, shape)) return 0;
  const int count = Count(canvas);
  int index = HitPoint(canvas, count);
  if (index < 0) return 0;
  if (shape.closed && index == count - 1) index = 0;
  const int chosen =
      selectionWindows.popupMenu
          ? selectionWindows.popupMenu(canvas, "tsDraftPoly",
                                       {{kAddPoint, count < kAddPointLimit},
                                        {kDeletePoint, count >= kLeastPointsToDelete}})
          : 0;
  if (chosen != kAddPoint && chosen != kDeletePoint) return 1;
  EraseOutline(canvas);
  if (chosen == kAddPoint)
    AddPoint(canvas, index);
  else
    DeletePoint(canvas, index, shape.closed);
  Settle(canvas);
  return 1;
}

void Register(const PointShape& shape) {
  RegisterShapeTool(shape.kind, {[shape](Canvas* c) { return Hover(c, shape); },
                                 [shape](Canvas* c) { Press(c, shape); },
                                 [shape](Canvas* c) { return PegMenu(c, shape); },
                                 [shape](Canvas* c) { Outline(c, shape, true); }});
}

}  // namespace

void PointOutline(Canvas* canvas, int count, bool pegs, int pegEvery, bool pegOnLast) {
  count = std::min(count, kMaxDraftPoints);
  for (int i = 0; i + 1 < count; ++i)
    DottedLine(canvas, ViewOfPoint(canvas, i), ViewOfPoint(canvas, i + 1));
  if (!pegs) return;
  for (int i = 0; i < count - (pegOnLast ? 0 : 1); i += pegEvery)
    Peg(canvas, ViewOfPoint(canvas, i));
}

void AddPoint(Canvas* canvas, int index) {
  const int count = Count(canvas);
  if (count < kAddPointLimit) {
    std::memmove(canvas->draftPoints[index + 1], canvas->draftPoints[index],
                 sizeof canvas->draftPoints[0] * (count - index));
    canvas->draftPoints[index][0] += kAddPointStep;
    canvas->draftPoints[index][1] += kAddPointStep;
  }
  canvas->draftPointCount = std::min(count + 1, kMaxDraftPoints);
}

void DeletePoint(Canvas* canvas, int index, bool closed) {
  const int count = Count(canvas);
  if (count >= kLeastPointsToDelete) {
    std::memmove(canvas->draftPoints[index], canvas->draftPoints[index + 1],
                 sizeof canvas->draftPoints[0] * (count - index - 1));
    if (closed && index == 0) CopyPoint(canvas, count - 2, 0);
  }
  canvas->draftPointCount = std::max(count - 1, 0);
}

void InstallPointTools() {
  constexpr PointShape kPolygon{cmd::kSelectionPolygon, true};
  Register(kPolygon);
  Register({cmd::kConnectLine, false});
  polygonPegOrBody = [kPolygon](Canvas* canvas) { return PegOrBody(canvas, kPolygon); };
}
