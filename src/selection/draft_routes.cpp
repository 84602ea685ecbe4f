#include "selection/draft_routes.h"

#include <algorithm>
#include <vector>

#include "base/command_ids.h"
#include "base/command_registry.h"
#include "base/current_tool.h"
#include "display/pointer_routing.h"
#include "display/view_windows.h"
#include "paint/control/pen_options.h"
#include "platform/platform.h"
#include "settings/settings.h"
#include "selection/draft.h"
#include "selection/draft_engine.h"
#include "selection/draft_outline.h"
#include "selection/gesture.h"
#include "selection/selection_windows.h"
#include "selection/shape_tool.h"

namespace {

constexpr int kActionMenuReach = 100;  // view pixels around the Draft's box

void SendCommand(int id) {
  if (selectionWindows.sendCommand) selectionWindows.sendCommand(id);
}

void PostCommand(int id) {
  if (selectionWindows.postCommand) selectionWindows.postCommand(id);
}

void Repaint(Canvas* canvas) {
  if (viewWindows.invalidate) viewWindows.invalidate(canvas);
}

void DeselectAndRepaint(Canvas* canvas) {
  Deselect(canvas);
  Repaint(canvas);
}

bool OpenKind(int kind) {
  return kind == cmd::kSelectionLine || kind == cmd::kConnectLine || kind == cmd::kSplineCurve;
}

bool ConvertsToBezier(int kind) {
  return kind == cmd::kSelectionBox || kind == cmd::kSelectionLine ||
         kind == cmd::kSelectionCircle || kind == cmd::kSelectionPolygon || kind == cmd::kWire;
}

// The pointer within reach of the Draft's box on every side.
bool NearDraft(Canvas* canvas) {
  const ViewPoint at = PointerInView(canvas);
  const ViewPoint a = ViewOf(canvas, std::min(canvas->selLeft, canvas->selRight),
                             std::min(canvas->selTop, canvas->selBottom));
  const ViewPoint b = ViewOf(canvas, std::max(canvas->selLeft, canvas->selRight),
                             std::max(canvas->selTop, canvas->selBottom));
  return at.x >= a.x - kActionMenuReach && at.x <= b.x + kActionMenuReach &&
         at.y >= a.y - kActionMenuReach && at.y <= b.y + kActionMenuReach;
}

}  // namespace

void PressPrimary(Canvas* canvas) {
  int tool = currentTool;
  // Shift turns the Bezier press into the free one; the plain Bezier
  // press goes on placing nodes and has no end to check.
  if (tool == cmd::kBezier) {
    if (!ShiftHeld()) {
      if (const ShapeTool* bezier = ShapeToolOf(tool); bezier && bezier->press)
        bezier->press(canvas);
      return;
    }
    tool = cmd::kFreeBezier;
  }
  if (const ShapeTool* shape = ShapeToolOf(tool); shape && shape->press) shape->press(canvas);
  FinishGesture(canvas);
}

int PegMenuPress(Canvas* canvas) {
  const ShapeTool* tool = ShapeToolOf(currentTool);
  return tool && tool->pegMenu ? tool->pegMenu(canvas) : 0;
}

int ActionMenu(Canvas* canvas) {
  const int kind = canvas->selectionKind;
  if (kind == kNoDraft || !NearDraft(canvas) || !selectionWindows.popupMenu) return 0;
  const DraftAllows allows = AllowedBy(kind);
  const std::vector<MenuItemState> items = {
      {cmd::kFill, allows.canFill},
      {cmd::kCopy, allows.canFill},
      {cmd::kInvertSelection, allows.canFill},
      {cmd::kDelete, allows.canFill},
      {cmd::kLine, allows.canLine},
      {cmd::kConvertToBezier, ConvertsToBezier(kind)},
      {cmd::kEditBezier, kind == cmd::kBezier || kind == cmd::kFreeBezier},
  };
  // The menu decides nothing itself: the frame does the command.
  if (const int chosen = selectionWindows.popupMenu(canvas, "tsDraftExec", items))
    SendCommand(chosen);
  return 1;
}

void HoverCursor(Canvas* canvas) {
  const ShapeTool* tool = ShapeToolOf(currentTool);
  ShowToolCursor(tool && tool->hover ? tool->hover(canvas) : "");
}

void FinishGesture(Canvas* canvas) {
  if (platform::KeyDown(platform::VkControl)) PostCommand(cmd::kFill);
  if (platform::KeyDown('Z')) PostCommand(cmd::kLine);
  if (platform::KeyDown('X')) PostCommand(cmd::kFill);
  const int outside = settings.outsideDisplay;
  settings.outsideDisplay = 0;
  switch (shapeFinish) {
    case kFinishStraightLine:
      SendCommand(cmd::kLine);
      DeselectAndRepaint(canvas);
      break;
    case kFinishFill:
      if (OpenKind(canvas->selectionKind)) break;
      SendCommand(cmd::kFill);
      DeselectAndRepaint(canvas);
      break;
    default:
      draftAllowsHooks.Run();
  }
  settings.outsideDisplay = outside;
}

void InstallDraftRoutes() {
  pointerRoutes.draftPointPress = PressPrimary;
  pointerRoutes.draftRightPress = PegMenuPress;
  pointerRoutes.selectionPopup = ActionMenu;
  // The pen's outline follows the pointer as before; the cursor is ours.
  pointerRoutes.toolPointer = [pen = pointerRoutes.toolPointer](Canvas* canvas,
                                                                const CanvasPoint& at) {
    if (pen) pen(canvas, at);
    HoverCursor(canvas);
  };
  pointerRoutes.overlayToggles[kOverlayDraft] = ToggleDraftOverlay;
  RegisterCanvasCommand(cmd::kDeselect,
                        [](Canvas* canvas, intptr_t) { DeselectAndRepaint(canvas); });
}
