// The outline of a selection that has no shape (a raster left by Invert,
// Fatten, Slim, the blurs, the seed fill or Detect Selection): the edges
// between selected pixels (value below 128) and the others, the canvas's
// border counting as unselected, drawn by inversion on the view. The
// edges are worked out once per change of the raster and merged into
// runs; a drawing takes only the runs in the view's visible part.
#pragma once

#include <cstdint>
#include <vector>

#include "document/canvas.h"

// A run of edge along one grid line of the canvas: `line` is the row line
// y (between pixel rows y - 1 and y) of a horizontal run from x = first to
// last + 1, or the column line x of a vertical run from y = first to
// last + 1.
struct EdgeRun {
  int32_t line, first, last;
};

struct RasterEdges {
  std::vector<EdgeRun> horizontal;  // by line, then first
  std::vector<EdgeRun> vertical;    // by line, then first
  bool tooMany = false;             // beyond the limit: nothing is drawn
};

// More runs than this (a dithered raster) would take longer to draw than
// the picture itself: such an outline isn't drawn.
constexpr size_t kMaxEdgeRuns = 1'000'000;

// The runs of the canvas's raster.
RasterEdges EdgesOf(Canvas* canvas);

// Whoever changes a raster in place says so, so that the outline is
// worked out anew at its next drawing.
void SelectionRasterChanged(Canvas* canvas);

// The overlay's toggle: draws the outline of a shapeless selection once;
// a second call erases it.
void ToggleRasterOutline(Canvas* canvas);

// Forgets what was worked out.
void ResetRasterOutline();
