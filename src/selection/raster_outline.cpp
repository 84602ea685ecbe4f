#include "selection/raster_outline.h"

#include <algorithm>
#include <memory>

#include "base/command_ids.h"
#include "display/view_layout.h"
#include "display/zoom.h"
#include "document/selection_rows.h"
#include "selection/selection_windows.h"

namespace {

constexpr uint8_t kSelectedBelow = 128;

// The runs of one canvas, kept until its raster changes.
struct CachedEdges {
  const Canvas* canvas = nullptr;
  const Plane* plane = nullptr;
  uint64_t revision = 0;
  RasterEdges edges;
};
CachedEdges cached;

bool Shapeless(const Canvas* canvas) {
  return canvas->selectionPlane &&
         (canvas->selectionKind == kShapelessSelection || canvas->selectionKind == cmd::kSeedFill);
}

// Appends the run [first, x) of `line` when one is open.
void CloseRun(std::vector<EdgeRun>& runs, int line, int& first, int x) {
  if (first >= 0) runs.push_back({line, first, x - 1});
  first = -1;
}

const RasterEdges& CurrentEdges(Canvas* canvas) {
  if (cached.canvas != canvas || cached.plane != canvas->selectionPlane ||
      cached.revision != SelectionRevision()) {
    cached.edges = EdgesOf(canvas);
    cached.canvas = canvas;
    cached.plane = canvas->selectionPlane;
    cached.revision = SelectionRevision();
  }
  return cached.edges;
}

// Canvas lines lo..hi that the view shows along one axis, one more each
// way; the whole axis when the view has no size yet.
struct Span {
  int lo, hi;
};
Span VisibleLines(const Canvas* canvas, int scroll, int origin, int client, int size) {
  if (client <= 0) return {0, size};
  const int from = scroll - origin;
  return {std::max(ToCanvas(canvas, std::max(from, 0)) - 1, 0),
          std::min(ToCanvas(canvas, from + client) + 1, size)};
}

// The runs whose line lies in [lines] and which reach into [along].
template <typename Draw>
void DrawRuns(const std::vector<EdgeRun>& runs, Span lines, Span along, Draw draw) {
  auto it = std::lower_bound(runs.begin(), runs.end(), lines.lo,
                             [](const EdgeRun& run, int line) { return run.line < line; });
  for (; it != runs.end() && it->line <= lines.hi; ++it)
    if (it->last + 1 >= along.lo && it->first <= along.hi) draw(*it);
}

}  // namespace

RasterEdges EdgesOf(Canvas* canvas) {
  RasterEdges edges;
  if (!canvas->selectionPlane) return edges;
  const int width = canvas->canvasWidth, height = canvas->canvasHeight;
  if (width < 1 || height < 1) return edges;
  std::vector<uint8_t> above(static_cast<size_t>(width), 0), row(static_cast<size_t>(width));
  std::vector<int> open(static_cast<size_t>(width) + 1, -1);  // vertical runs by column line
  const auto inside = [](uint8_t v) { return v < kSelectedBelow; };
  for (int y = 0; y <= height; ++y) {
    if (y < height) {
      ReadSelectionRow(canvas, y, 0, width - 1, row.data());
      for (uint8_t& v : row) v = inside(v);
    } else {
      std::fill(row.begin(), row.end(), 0);
    }
    int first = -1;
    for (int x = 0; x < width; ++x) {
      if (above[x] != row[x]) {
        if (first < 0) first = x;
      } else {
        CloseRun(edges.horizontal, y, first, x);
      }
    }
    CloseRun(edges.horizontal, y, first, width);
    for (int x = 0; x <= width && y < height; ++x) {
      const uint8_t left = x > 0 ? row[x - 1] : 0, right = x < width ? row[x] : 0;
      if (left != right) {
        if (open[x] < 0) open[x] = y;
      } else {
        CloseRun(edges.vertical, x, open[x], y);
      }
    }
    std::swap(above, row);
    if (edges.horizontal.size() + edges.vertical.size() > kMaxEdgeRuns) {
      edges = {};
      edges.tooMany = true;
      return edges;
    }
  }
  for (int x = 0; x <= width; ++x) CloseRun(edges.vertical, x, open[x], height);
  std::sort(edges.vertical.begin(), edges.vertical.end(), [](const EdgeRun& a, const EdgeRun& b) {
    return a.line != b.line ? a.line < b.line : a.first < b.first;
  });
  return edges;
}

void SelectionRasterChanged(Canvas* canvas) {
  if (cached.canvas == canvas) cached = {};
}

void ToggleRasterOutline(Canvas* canvas) {
  if (!canvas || !Shapeless(canvas) || !selectionWindows.invertLine) return;
  const RasterEdges& edges = CurrentEdges(canvas);
  const Span columns = VisibleLines(canvas, canvas->scrollX, ViewOriginX(canvas),
                                    canvas->clientWidth, canvas->canvasWidth);
  const Span rows = VisibleLines(canvas, canvas->scrollY, ViewOriginY(canvas), canvas->clientHeight,
                                 canvas->canvasHeight);
  // Every corner of the outline ends a horizontal run and a vertical one.
  // Inverting it twice would clear it, so the horizontal runs take their
  // corners (a line leaves out its last pixel: one more) and the vertical
  // ones leave theirs out.
  const auto view = [canvas](int v) { return ToView(canvas, v); };
  DrawRuns(edges.horizontal, rows, columns, [&](const EdgeRun& run) {
    const int y = view(run.line);
    selectionWindows.invertLine(canvas, OutlinePen::Current, view(run.first), y,
                                view(run.last + 1) + 1, y);
  });
  DrawRuns(edges.vertical, columns, rows, [&](const EdgeRun& run) {
    const int x = view(run.line), y0 = view(run.first) + 1, y1 = view(run.last + 1);
    if (y0 < y1) selectionWindows.invertLine(canvas, OutlinePen::Current, x, y0, x, y1);
  });
}

void ResetRasterOutline() { cached = {}; }
