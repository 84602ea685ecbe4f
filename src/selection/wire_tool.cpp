#include "selection/wire_tool.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "base/command_ids.h"
#include "display/grid.h"
#include "display/rulers.h"
#include "display/view_scroll.h"
#include "display/zoom.h"
#include "selection/draft.h"
#include "selection/draft_engine.h"
#include "selection/draft_outline.h"
#include "selection/gesture.h"
#include "selection/point_tools.h"
#include "selection/selection_windows.h"
#include "selection/shape_tool.h"
#include "selection/wire_track.h"

int lastEdgeStrength = 0;

namespace {

// A move shorter than this (|dx| + |dy|) asks for no new Track.
constexpr int kTrackThreshold = 25;
constexpr int kWirePegEvery = 10;

CanvasPoint PointAt(const Canvas* canvas, int i) {
  return {static_cast<int>(canvas->draftPoints[i][0]), static_cast<int>(canvas->draftPoints[i][1])};
}

void SetPoint(Canvas* canvas, int i, CanvasPoint at) {
  canvas->draftPoints[i][0] = static_cast<float>(at.x);
  canvas->draftPoints[i][1] = static_cast<float>(at.y);
}

// The kind 20009 as a file brings it: its neighbours joined and a peg at
// each tenth point, the closing one left out.
void WireOutline(Canvas* canvas) {
  PointOutline(canvas, static_cast<int>(canvas->draftPointCount), true, kWirePegEvery, false);
}

// The run's points and how many of them are fixed.
struct WireRun {
  Canvas* canvas;
  int count = 0;
  int anchorCount = 0;
  CanvasPoint tracked{};  // the start, then the cursor where the last Track ended

  RubberBand* band;

  // The points change under the rubber band.
  template <typename Change>
  void Redraw(Change change) {
    band->Toggle();
    change();
    canvas->draftPointCount = static_cast<uint32_t>(count);
    band->Toggle();
  }

  // The points after the last fixed one are those of a Track to the
  // cursor; false when they would pass the list's end, which was then
  // filled.
  bool TrackTo(CanvasPoint cursor) {
    bool fits = true;
    Redraw([&] {
      const std::vector<CanvasPoint> found =
          Track(canvas, PointAt(canvas, anchorCount - 1), cursor, lastEdgeStrength);
      const int room = kMaxDraftPoints - anchorCount;
      fits = static_cast<int>(found.size()) <= room;
      count = anchorCount + std::min(static_cast<int>(found.size()), room);
      for (int i = anchorCount; i < count; ++i) SetPoint(canvas, i, found[i - anchorCount]);
    });
    tracked = cursor;
    return fits;
  }

  void Close() {
    Redraw([&] { SetPoint(canvas, count - 1, PointAt(canvas, 0)); });
  }

  // One event of the loop; false when the run ends.
  bool Take(ClickEvent::Type type, CanvasPoint cursor, bool snap) {
    switch (type) {
      case ClickEvent::Move:
        if (snap) {
          if (std::abs(cursor.x - tracked.x) + std::abs(cursor.y - tracked.y) < kTrackThreshold)
            return true;
          if (TrackTo(cursor)) return true;
          Close();
          return false;
        }
        Redraw([&] { SetPoint(canvas, count - 1, cursor); });
        return true;
      case ClickEvent::LeftDown:
        if (snap) {
          anchorCount = count;
          return true;
        }
        // A list that is full ends the run rather than grow past its end.
        if (count >= kMaxDraftPoints) {
          Close();
          return false;
        }
        Redraw([&] { SetPoint(canvas, count++, cursor); });
        anchorCount = count;
        return true;
      case ClickEvent::Backspace:
        Redraw([&] { --count; });
        anchorCount = std::min(anchorCount, count);
        return count > 0;
      case ClickEvent::RightUp:
        Close();
        return false;
    }
    return false;
  }
};

// A press on the polygon's pegs or body edits that polygon, since the
// wire leaves one; else a new run begins.
void PressWire(Canvas* canvas) {
  if (polygonPegOrBody && polygonPegOrBody(canvas)) return;
  RunWire(canvas);
}

// Over a Draft the wire's cursors and peg menu are the polygon's.
std::string WireHover(Canvas* canvas) {
  const ShapeTool* polygon = ShapeToolOf(cmd::kSelectionPolygon);
  return polygon && polygon->hover ? polygon->hover(canvas) : std::string();
}

int WirePegMenu(Canvas* canvas) {
  const ShapeTool* polygon = ShapeToolOf(cmd::kSelectionPolygon);
  return polygon && polygon->pegMenu ? polygon->pegMenu(canvas) : 0;
}

}  // namespace

void RunWire(Canvas* canvas) {
  Deselect(canvas);
  std::memset(canvas->draftPoints, 0, sizeof canvas->draftPoints);
  CanvasPoint cursor{};
  if (!PointerOnCanvas(canvas, &cursor, 0, 0)) return;
  const EdgeSnap start = SnapToEdge(canvas, cursor);
  lastEdgeStrength = start.strength;
  SetPoint(canvas, 0, start.at);
  canvas->draftPointCount = 1;
  WireRun run{canvas, 1, 1, start.at, nullptr};
  {
    RubberBand band(canvas, [&] { PointOutline(canvas, run.count, false, 1, false); });
    run.band = &band;
    while (selectionWindows.nextClickEvent) {
      const ClickEvent event = selectionWindows.nextClickEvent(canvas);
      PointerOnCanvas(canvas, &cursor, 0, 0);
      if (event.type == ClickEvent::Move) {
        ShowPosition(canvas, cursor.x, cursor.y);
        ScrollAtEdge(canvas);
      }
      if (!run.Take(event.type, cursor, !ShiftHeld())) break;
    }
  }
  if (run.count < 3) {
    canvas->selectionKind = kNoDraft;
    canvas->draftPointCount = 0;
  } else {
    canvas->selectionKind = cmd::kSelectionPolygon;
    canvas->draftPointCount = static_cast<uint32_t>(run.count);
  }
  CommitShape(canvas, 1, 1);
  // The shape's outline shows at rest.
  EraseOutline(canvas);
}

void InstallWire() {
  RegisterShapeTool(cmd::kWire, ShapeTool{WireHover, PressWire, WirePegMenu, WireOutline});
}
