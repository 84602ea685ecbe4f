#include "selection/line_tool.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "base/command_ids.h"
#include "document/selection_rows.h"
#include "platform/platform.h"
#include "selection/draft_engine.h"
#include "selection/draft_outline.h"
#include "selection/gesture.h"
#include "selection/shape_tool.h"

namespace {

constexpr double kDegreesPerRadian = 57.29577951308232;
constexpr int kLeastBody = 4;

struct Line {
  CanvasPoint start, end;
};

Line LineOf(const Canvas* canvas) {
  return {{canvas->selLeft, canvas->selTop}, {canvas->selRight, canvas->selBottom}};
}

void Store(Canvas* canvas, const Line& line) {
  SetSelectionBox(canvas, {line.start.x, line.start.y, line.end.x, line.end.y});
}

void Outline(Canvas* canvas, const Line& line, bool atRest) {
  const ViewPoint a = ViewOf(canvas, line.start.x, line.start.y);
  const ViewPoint b = ViewOf(canvas, line.end.x, line.end.y);
  DottedLine(canvas, a, b);
  if (!atRest) return;
  Peg(canvas, a);
  Peg(canvas, b);
}

// The later end wins: 0 the start, 1 the end, -1 neither.
int HitEnd(Canvas* canvas, const Line& line) {
  const ViewPoint at = PointerInView(canvas);
  int hit = -1;
  if (OnPeg(at, ViewOf(canvas, line.start.x, line.start.y))) hit = 0;
  if (OnPeg(at, ViewOf(canvas, line.end.x, line.end.y))) hit = 1;
  return hit;
}

// A box around the middle as wide and high as the line's extent, at least
// 4, and the point strictly inside it.
bool InBody(int x0, int y0, int x1, int y1, int px, int py) {
  const int cx = (x0 + x1) / 2, cy = (y0 + y1) / 2;
  const int halfW = std::max(std::abs(x1 - x0), kLeastBody) / 2;
  const int halfH = std::max(std::abs(y1 - y0), kLeastBody) / 2;
  return px > cx - halfW && px < cx + halfW && py > cy - halfH && py < cy + halfH;
}

std::string Hover(Canvas* canvas) {
  if (canvas->selectionKind != cmd::kSelectionLine) return "";
  const Line line = LineOf(canvas);
  if (HitEnd(canvas, line) >= 0) return "posmove";
  const ViewPoint a = ViewOf(canvas, line.start.x, line.start.y);
  const ViewPoint b = ViewOf(canvas, line.end.x, line.end.y);
  const ViewPoint at = PointerInView(canvas);
  return InBody(a.x, a.y, b.x, b.y, at.x, at.y) ? "move" : "";
}

// The end written into the box as it is; a line has no raster to rebuild.
void DragEnd(Canvas* canvas, Line line, int end) {
  RubberDrag(
      canvas, {0, 0}, [&] { Outline(canvas, line, false); },
      [&](CanvasPoint at) {
        (end == 0 ? line.start : line.end) = ClampToCanvas(canvas, at);
        ShowCorners({line.start.x, line.start.y, line.end.x, line.end.y});
      });
  Store(canvas, line);
  EraseOutline(canvas);
  platform::ClearStatus();
}

void DragBody(Canvas* canvas, const Line& from, CanvasPoint grab) {
  Line line = from;
  RubberDrag(
      canvas, {0, 0}, [&] { Outline(canvas, line, false); },
      [&](CanvasPoint at) {
        const int dx = at.x - grab.x, dy = at.y - grab.y;
        line = {{from.start.x + dx, from.start.y + dy}, {from.end.x + dx, from.end.y + dy}};
        ShowCorners({line.start.x, line.start.y, line.end.x, line.end.y});
      });
  Store(canvas, line);
  CommitShape(canvas, 1, 1);
  EraseOutline(canvas);
}

void NewLine(Canvas* canvas) {
  Deselect(canvas);
  CanvasPoint start;
  if (PointerOnCanvas(canvas, &start, 0, 0)) {
    start = ClampToCanvas(canvas, start);
    Line line{start, start};
    RubberDrag(
        canvas, {0, 0}, [&] { Outline(canvas, line, false); },
        [&](CanvasPoint at) {
          line.end = ClampToCanvas(canvas, ShiftHeld() ? SnapTo15Degrees(start, at) : at);
          ShowCorners({line.start.x, line.start.y, line.end.x, line.end.y});
        });
    if (line.end.x != start.x || line.end.y != start.y) {
      canvas->selectionKind = cmd::kSelectionLine;
      Store(canvas, line);
    }
  }
  CommitShape(canvas, 1, 1);
  EraseOutline(canvas);
}

// The body's box is reckoned in canvas pixels but met by the pointer in
// view pixels, so the press agrees with the cursor at 100 % only.
void Press(Canvas* canvas) {
  if (canvas->selectionKind == cmd::kSelectionLine) {
    const Line line = LineOf(canvas);
    if (const int end = HitEnd(canvas, line); end >= 0) return DragEnd(canvas, line, end);
    const ViewPoint at = PointerInView(canvas);
    CanvasPoint grab;
    if (InBody(line.start.x, line.start.y, line.end.x, line.end.y, at.x, at.y) &&
        PointerOnCanvas(canvas, &grab, 0, 0))
      return DragBody(canvas, line, grab);
  }
  NewLine(canvas);
}

}  // namespace

CanvasPoint SnapTo15Degrees(CanvasPoint start, CanvasPoint end) {
  const double dx = end.x - start.x, dy = end.y - start.y;
  const int length = static_cast<int>(std::sqrt(dx * dx + dy * dy));
  const int degrees = static_cast<int>(std::atan2(dy, dx) * kDegreesPerRadian) / 15 * 15;
  const double angle = degrees / kDegreesPerRadian;
  return {start.x + static_cast<int>(std::cos(angle) * length),
          start.y + static_cast<int>(std::sin(angle) * length)};
}

void InstallLineTool() {
  RegisterShapeTool(cmd::kSelectionLine,
                    {Hover, Press, nullptr, [](Canvas* c) { Outline(c, LineOf(c), true); }});
}
