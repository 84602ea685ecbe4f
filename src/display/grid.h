// The grid of a view: where its lines fall over a redrawn tile, and the
// snap of pointer positions to it.
#pragma once

#include <vector>

#include "display/view_windows.h"
#include "document/canvas.h"

struct CanvasPoint {
  int x, y;
};

// The canvas position of a view position. While the grid shows and snaps,
// the position goes to the nearest grid point plus the offset of a grabbed
// thing (offset mod grid), so that the thing keeps its place on the grid.
CanvasPoint ViewToCanvasPoint(const Canvas* canvas, int viewX, int viewY, int offsetX, int offsetY);

// The pointer in canvas pixels, with grid snap. 0 when the window side
// can't tell where the pointer is.
int PointerOnCanvas(Canvas* canvas, CanvasPoint* point, int offsetX, int offsetY);

// The grid lines over the canvas rectangle cx0..cx1, cy0..cy1, in view
// pixels: every grid column from cx0 - 1 through cx1 + 1 as a vertical
// line from row cy0 - 1 to cy1 + 2, then every grid row likewise, each
// placed at the middle of its pixel.
std::vector<GridLine> GridLinesOver(const Canvas* canvas, int cx0, int cy0, int cx1, int cy1);
