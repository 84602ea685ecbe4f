#include "selection/edit_bezier.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>

#include "base/command_ids.h"
#include "base/current_tool.h"
#include "display/pointer_routing.h"
#include "display/zoom.h"
#include "platform/platform.h"
#include "resources/strings.h"
#include "selection/draft.h"
#include "selection/draft_engine.h"
#include "selection/draft_outline.h"
#include "selection/gesture.h"
#include "selection/path_file.h"
#include "selection/selection_windows.h"
#include "selection/shape_tool.h"

EditFrame editFrame;

namespace {

constexpr int kStringAngleLabel = 23100;
constexpr int kStringSizeLabel = 23101;
constexpr int kStringSizeTitle = 23102;
constexpr int kStringAngleTitle = 23103;

// tsTapSubMenu's items.
enum : int { kResetSize = 2, kResetAngle = 3, kInputSize = 4, kInputAngle = 5, kBack = 10 };

constexpr int kAngleLine = 50;  // view pixels from the centre to the angle peg
constexpr int kPegHalf = 4;
constexpr int kLabelOffset = 20;  // canvas pixels up and left of the cursor
constexpr int kCentreMark = 2;
constexpr double kDegrees = 57.29577951308232;
// A path coordinate stays within this, whatever size is asked for.
constexpr double kCoordinateLimit = 1 << 20;

Canvas* editCanvas = nullptr;
int backTool = 0;

double Radians(int degrees) { return degrees * std::numbers::pi / 180; }

// Nearest, halves away from zero, as every turned point is placed.
int Round(double v) { return static_cast<int>(v <= 0 ? v - 0.5 : v + 0.5); }

FrameCorners Corners(CanvasPoint centre, int halfWidth, int halfHeight, int angle) {
  const double c = std::cos(Radians(angle)), s = std::sin(Radians(angle));
  FrameCorners frame{centre, {}};
  const int signs[4][2] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}};
  for (int i = 0; i < 4; ++i) {
    const double x = signs[i][0] * halfWidth, y = signs[i][1] * halfHeight;
    frame.corner[i] = {centre.x + Round(x * c - y * s), centre.y + Round(x * s + y * c)};
  }
  return frame;
}

CanvasPoint FrameCentre() {
  return {(editFrame.tapLeft + editFrame.tapRight) / 2,
          (editFrame.tapTop + editFrame.tapBottom) / 2};
}

// The angle line's end, in view pixels from the centre.
CanvasPoint AngleReach() {
  return {static_cast<int>(kAngleLine * std::cos(Radians(Draft.angle))),
          static_cast<int>(kAngleLine * std::sin(Radians(Draft.angle)))};
}

bool Near(CanvasPoint a, CanvasPoint b) {
  return std::abs(a.x - b.x) < kPegHalf && std::abs(a.y - b.y) < kPegHalf;
}

FrameCorners CanvasFrameTurned(int angle) {
  const int halfWidth = (editFrame.tapRight - editFrame.tapLeft + 1) / 2 * editFrame.tapSize / 100;
  const int halfHeight = (editFrame.tapBottom - editFrame.tapTop + 1) / 2 * editFrame.tapSize / 100;
  return Corners(FrameCentre(), halfWidth, halfHeight, angle);
}

// The body of a press and of the menu: the frame's box as though unturned,
// whatever the angle (the body reads an angle that nothing sets).
bool InBody(CanvasPoint at) {
  const FrameCorners frame = CanvasFrameTurned(0);
  return at.x >= frame.corner[0].x && at.x <= frame.corner[2].x && at.y >= frame.corner[0].y &&
         at.y <= frame.corner[2].y;
}

void DrawFrame(Canvas* canvas) {
  const FrameCorners frame = ViewFrame(canvas);
  auto view = [](CanvasPoint p) { return ViewPoint{p.x, p.y}; };
  for (int i = 0; i < 4; ++i)
    DottedLine(canvas, view(frame.corner[i]), view(frame.corner[(i + 1) % 4]));
  Peg(canvas, view(frame.corner[2]));
  const CanvasPoint reach = AngleReach();
  const ViewPoint end{frame.centre.x + reach.x, frame.centre.y + reach.y};
  DottedLine(canvas, view(frame.centre), end);
  Peg(canvas, end);
}

void DrawLiveFrame(Canvas* canvas) {
  if (canvas == editCanvas) DrawFrame(canvas);
}

CanvasPoint AnglePeg(CanvasPoint centre, const Canvas* canvas) {
  const CanvasPoint reach = AngleReach();
  return {centre.x + ToCanvas(canvas, reach.x), centre.y + ToCanvas(canvas, reach.y)};
}

// What a drag shows beside the frame: a label near the cursor, and for the
// size the centre; drawn by inversion, once placed.
struct DragMarks {
  bool placed = false;
  bool centre = false;
  int x = 0, y = 0;
  std::string text;

  void Draw(Canvas* canvas) const {
    if (!placed) return;
    if (selectionWindows.invertText) selectionWindows.invertText(canvas, x, y, text);
    if (centre && selectionWindows.invertArc) {
      const CanvasPoint c = ViewFrame(canvas).centre;
      selectionWindows.invertArc(
          canvas, Rect{c.x - kCentreMark, c.y - kCentreMark, c.x + kCentreMark, c.y + kCentreMark});
    }
  }
  void Place(Canvas* canvas, CanvasPoint at, std::string label) {
    placed = true;
    x = ToView(canvas, at.x - kLabelOffset), y = ToView(canvas, at.y - kLabelOffset);
    text = std::move(label);
  }
};

// The frame follows the drag, with the marks; update changes the frame.
void FrameDrag(Canvas* canvas, DragMarks* marks,
               const std::function<void(CanvasPoint at)>& update) {
  DragLoop(
      canvas, {0, 0},
      [&] {
        DrawFrame(canvas);
        marks->Draw(canvas);
      },
      update);
  marks->Draw(canvas);
}

void DragAngle(Canvas* canvas, CanvasPoint centre) {
  DragMarks marks;
  FrameDrag(canvas, &marks, [&](CanvasPoint at) {
    int angle = static_cast<int>(std::atan2(at.y - centre.y, at.x - centre.x) * kDegrees);
    if (ShiftHeld()) angle = (angle + 22) / 45 * 45;
    Draft.angle = angle;
    marks.Place(canvas, at, FormatString(kStringAngleLabel, -angle));
  });
}

void DragSize(Canvas* canvas, CanvasPoint centre) {
  DragMarks marks;
  marks.centre = true;
  FrameDrag(canvas, &marks, [&](CanvasPoint at) {
    const double a = Radians(Draft.angle);
    const int dx = at.x - centre.x, dy = at.y - centre.y;
    const int along = static_cast<int>(dx * std::cos(a) + dy * std::sin(a));
    editFrame.tapSize = std::abs(along) * 100 / std::max(1, editFrame.tapWidth / 2);
    marks.Place(canvas, at, FormatString(kStringSizeLabel, editFrame.tapSize));
  });
}

void DragBody(Canvas* canvas, CanvasPoint grab) {
  const EditFrame start = editFrame;
  DragMarks none;
  FrameDrag(canvas, &none, [&](CanvasPoint at) {
    const int dx = at.x - grab.x, dy = at.y - grab.y;
    editFrame.tapLeft = start.tapLeft + dx, editFrame.tapRight = start.tapRight + dx;
    editFrame.tapTop = start.tapTop + dy, editFrame.tapBottom = start.tapBottom + dy;
  });
}

std::string EditBezierHover(Canvas* canvas) {
  CanvasPoint at{};
  if (canvas != editCanvas || !PointerOnCanvas(canvas, &at, 0, 0)) return {};
  const FrameCorners frame = CanvasFrame();
  if (Near(at, AnglePeg(frame.centre, canvas)) ||
      std::any_of(std::begin(frame.corner), std::end(frame.corner),
                  [&](CanvasPoint c) { return Near(at, c); }))
    return "posmove";
  return InBody(at) ? "move" : std::string();
}

// Angle peg, then a corner, then the body; the result is applied.
void PressEditBezier(Canvas* canvas) {
  CanvasPoint at{};
  if (canvas != editCanvas || !PointerOnCanvas(canvas, &at, 0, 0)) return;
  const FrameCorners frame = CanvasFrame();
  if (Near(at, AnglePeg(frame.centre, canvas)))
    DragAngle(canvas, frame.centre);
  else if (std::any_of(std::begin(frame.corner), std::end(frame.corner),
                       [&](CanvasPoint c) { return Near(at, c); }))
    DragSize(canvas, frame.centre);
  else if (InBody(at))
    DragBody(canvas, at);
  else
    return;
  ApplyEditFrame(canvas);
}

int AskNumber(int title, int low, int high, int32_t* field) {
  int value = *field;
  if (!selectionWindows.numberDialog ||
      !selectionWindows.numberDialog(StringText(title), low, high, &value))
    return 0;
  *field = value;
  return 1;
}

// tsTapSubMenu on a secondary press inside the frame: 1 when it showed.
int EditBezierMenu(Canvas* canvas) {
  CanvasPoint at{};
  if (canvas != editCanvas || !PointerOnCanvas(canvas, &at, 0, 0) || !InBody(at)) return 0;
  if (!selectionWindows.popupMenu) return 1;
  const int item = selectionWindows.popupMenu(canvas, "tsTapSubMenu",
                                              {{kInputSize, true},
                                               {kResetSize, true},
                                               {kInputAngle, true},
                                               {kResetAngle, true},
                                               {kBack, true}});
  if (item == kBack) {
    if (selectionWindows.sendCommand) selectionWindows.sendCommand(backTool);
    return 1;
  }
  if (item < kResetSize || item > kInputAngle) return 1;
  DrawFrame(canvas);
  switch (item) {
    case kInputSize:
      AskNumber(kStringSizeTitle, 1, 100, &editFrame.tapSize);
      break;
    case kResetSize:
      editFrame.tapSize = 100;
      break;
    case kInputAngle:
      AskNumber(kStringAngleTitle, 1, 359, &Draft.angle);
      break;
    case kResetAngle:
      Draft.angle = 0;
      break;
  }
  DrawFrame(canvas);
  ApplyEditFrame(canvas);
  return 1;
}

int32_t Placed(double v, int add) {
  return Round(std::clamp(v, -kCoordinateLimit, kCoordinateLimit)) + add;
}

}  // namespace

FrameCorners CanvasFrame() { return CanvasFrameTurned(Draft.angle); }

FrameCorners ViewFrame(const Canvas* canvas) {
  const int halfWidth =
      ToView(canvas, (editFrame.tapRight - editFrame.tapLeft + 1) / 2) * editFrame.tapSize / 100;
  const int halfHeight =
      ToView(canvas, (editFrame.tapBottom - editFrame.tapTop + 1) / 2) * editFrame.tapSize / 100;
  const CanvasPoint centre = FrameCentre();
  return Corners({ToView(canvas, centre.x, 1), ToView(canvas, centre.y, 1)}, halfWidth, halfHeight,
                 Draft.angle);
}

int BeginEditBezier(Canvas* canvas, int fromTool) {
  if (!IsBezierKind(canvas->selectionKind)) return 0;
  EndEditBezier();
  if (fromTool != cmd::kEditBezier) backTool = fromTool;
  Draft.angle = 0;
  Draft.active = 1;
  editFrame = {canvas->selLeft,
               canvas->selRight,
               canvas->selTop,
               canvas->selBottom,
               canvas->selRight - canvas->selLeft + 1,
               canvas->selBottom - canvas->selTop + 1,
               100};
  editCanvas = canvas;
  SavePath(canvas, 0);
  DrawFrame(canvas);
  return 1;
}

void EndEditBezier() {
  if (!editCanvas) return;
  Draft.active = 0;
  DrawFrame(editCanvas);
  editCanvas = nullptr;
}

Canvas* EditBezierCanvas() { return editCanvas; }

void ApplyEditFrame(Canvas* canvas) {
  EraseOutline(canvas);
  // Without its backup the path stays as it is rather than turn again.
  if (RestorePath(canvas, 0)) {
    const int cx = (canvas->selLeft + canvas->selRight) / 2;
    const int cy = (canvas->selTop + canvas->selBottom) / 2;
    const int ox = editFrame.tapLeft - canvas->selLeft, oy = editFrame.tapTop - canvas->selTop;
    const double c = std::cos(Radians(Draft.angle)), s = std::sin(Radians(Draft.angle));
    for (int i = 0; i < Draft.nodeCount; ++i) {
      PathNode& node = Draft.nodes[i];
      for (auto [px, py] : {std::pair{&node.x, &node.y}, std::pair{&node.c1x, &node.c1y},
                            std::pair{&node.c2x, &node.c2y}}) {
        const double x = double(int64_t(*px - cx) * editFrame.tapSize / 100);
        const double y = double(int64_t(*py - cy) * editFrame.tapSize / 100);
        *px = Placed(x * c - y * s, cx + ox);
        *py = Placed(x * s + y * c, cy + oy);
      }
    }
  }
  EraseOutline(canvas);
  CommitShape(canvas, 1, 1);
}

void InstallEditBezier() {
  RegisterShapeTool(cmd::kEditBezier,
                    ShapeTool{EditBezierHover, PressEditBezier, EditBezierMenu, DrawLiveFrame});
  pointerRoutes.overlayToggles[kOverlayEditFrame] = DrawLiveFrame;
  // The left press of an object mode goes to the tool in use.
  pointerRoutes.draftObjectPress = [](Canvas* canvas) {
    if (const ShapeTool* tool = ShapeToolOf(currentTool); tool && tool->press) tool->press(canvas);
  };
}

void ResetEditBezier() {
  editCanvas = nullptr;
  backTool = 0;
  editFrame = {};
}
