// The repaint of a view: a rectangle of view pixels is walked in tiles of
// at most 128 x 128 view pixels, each composed from the canvas, scaled to
// the zoom and dithered for the screen; the window side gets them as one
// picture, and the grid goes over them last.
#pragma once

#include <vector>

#include "display/view_windows.h"
#include "document/canvas.h"
#include "store/dib.h"

constexpr int kRedrawTileSize = 128;

struct RedrawTile {
  int viewX, viewY;        // where the tile starts in the walk
  int cx0, cy0, cx1, cy1;  // the canvas rectangle composed for it
};

// The tiles that repaint view pixels x0..x1, y0..y1; none when the
// rectangle lies off the canvas. The canvas rectangle of a tile reaches one
// pixel beyond the tile's end, and the walk up to 128 view pixels beyond
// the rectangle (not past the zoomed canvas), so that every view pixel of a
// partly covered canvas pixel is drawn.
std::vector<RedrawTile> PlanRedraw(const Canvas* canvas, int x0, int y0, int x1, int y1);

// Where the view picture of canvas columns cx0..cx1, rows cy0..cy1 stands:
// from ToView(cx0) to ToView(cx1 + 1), at least one pixel each way.
ViewRect ViewRectOf(const Canvas* canvas, int cx0, int cy0, int cx1, int cy1);

// A new tile of the view picture of a composed tile of canvas columns
// cx0..cx1, rows cy0..cy1, sized as ViewRectOf says: nearest neighbour,
// with the seamless phase at 150 %. Null when memory fails.
DibTile* ScaleToView(const Canvas* canvas, const DibTile* composed, int cx0, int cy0, int cx1,
                     int cy1);

// Repaints view pixels x0..x1, y0..y1 (the far edge may be exclusive, as an
// update rectangle gives it). Each tile is composed, scaled and dithered,
// and all of them go to the window as one picture, in one call (a repaint
// larger than a big screen in a few). The grid is drawn once over all the
// tiles, clipped to what they covered, so an inverted line is never
// inverted twice where tiles overlap. The overlays come off around it
// (view_paint.h), so that the tiles never cover one its owner believes shown.
void RedrawRect(Canvas* canvas, int x0, int y0, int x1, int y1);
