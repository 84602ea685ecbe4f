#include "selection/draft_engine.h"

#include <algorithm>
#include <climits>

#include "base/command_ids.h"
#include "display/view_windows.h"
#include "document/selection_rows.h"
#include "selection/draft.h"
#include "selection/seed_fill.h"
#include "selection/shape_raster.h"
#include "selection/shape_tool.h"

HookList<Canvas*> historyHooks;
HookList<> draftAllowsHooks;

DraftAllows AllowedBy(int selectionKind) {
  switch (selectionKind) {
    case kNoDraft:
    case cmd::kSeedFill:
      return {true, false};
    case cmd::kSelectionLine:
    case cmd::kConnectLine:
    case cmd::kSplineCurve:
      return {false, true};
    default:
      return {true, true};
  }
}

namespace {

// An open path selects nothing of its own; its box is that of its nodes.
void BoxOfNodes(Canvas* canvas) {
  if (Draft.nodeCount <= 0) return;
  Rect box{INT_MAX, INT_MAX, INT_MIN, INT_MIN};
  for (int i = 0; i < std::min(Draft.nodeCount, kMaxPathNodes); ++i)
    box = Union(box, Rect{Draft.nodes[i].x, Draft.nodes[i].y, Draft.nodes[i].x, Draft.nodes[i].y});
  SetSelectionBox(canvas, box);
}

}  // namespace

void CommitShape(Canvas* canvas, int addToHistory, int repaint) {
  const int kind = canvas->selectionKind;
  if (kind != cmd::kSeedFill) EnsurePlane(canvas, 1);
  if (kind != cmd::kSelectionLine) SetSelectionBox(canvas, Ordered(SelectionBox(canvas)));
  switch (kind) {
    case cmd::kSelectionBox:
      RasterizeBox(canvas, SelectionBox(canvas));
      break;
    case cmd::kSelectionCircle:
      RasterizeEllipse(canvas, SelectionBox(canvas));
      break;
    case cmd::kSelectionPolygon:
    case cmd::kWire:
      RasterizePolygon(canvas, static_cast<int>(canvas->draftPointCount));
      break;
    case cmd::kBezier:
    case cmd::kFreeBezier:
      if (Draft.closed)
        RasterizePolygon(canvas, static_cast<int>(canvas->draftPointCount));
      else
        BoxOfNodes(canvas);
      break;
    case cmd::kSeedFill:
      SeedFillAtPointer(canvas);
      break;
    // The open kinds select everything as far as the raster goes: only
    // Line reads them.
    case cmd::kSelectionLine:
    case cmd::kConnectLine:
    case cmd::kSplineCurve:
      break;
    default:
      FillPlane(canvas, 1);
  }
  if (repaint && viewWindows.invalidate) viewWindows.invalidate(canvas);
  if (addToHistory) historyHooks.Run(canvas);
}

void EraseOutline(Canvas* canvas) {
  if (const ShapeTool* tool = ShapeToolOf(canvas->selectionKind); tool && tool->outline)
    tool->outline(canvas);
}

void Deselect(Canvas* canvas) {
  EraseOutline(canvas);
  canvas->selectionKind = kNoDraft;
  SetSelectionBox(canvas, WholeCanvas(canvas));
  canvas->draftPointCount = 0;
  ClearPath();
  draftAllowsHooks.Run();
  PlaneStore.FreePlane(&canvas->selectionPlane);
}
