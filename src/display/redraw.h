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
  int viewX, viewY;  // where the tile starts in the walk
  Rect canvasPart;   // the canvas rectangle composed for it
};

// The tiles that repaint the view rectangle; none when the
// rectangle lies off the canvas. The canvas rectangle of a tile reaches one
// pixel beyond the tile's end, and the walk up to 128 view pixels beyond
// the rectangle (not past the zoomed canvas), so that every view pixel of a
// partly covered canvas pixel is drawn.
std::vector<RedrawTile> PlanRedraw(const Canvas* canvas, const Rect& view);

// Where the view picture of a canvas rectangle stands: from ToView(left) up
// to ToView(right + 1), at least one pixel each way.
Rect ViewRectOf(const Canvas* canvas, const Rect& canvasPart);

// A new tile of the view picture of a composed tile of a canvas rectangle,
// sized as ViewRectOf says: nearest neighbour, with the seamless phase at
// 150 %. Null when memory fails.
DibTile* ScaleToView(const Canvas* canvas, const DibTile* composed, const Rect& canvasPart);

// Repaints a rectangle of view pixels (its far edge may lie one beyond, as
// an update rectangle gives it). Each tile is composed, scaled and dithered,
// and all of them go to the window as one picture, in one call (a repaint
// larger than a big screen in a few). The grid is drawn once over all the
// tiles, clipped to what they covered, so an inverted line is never
// inverted twice where tiles overlap. The overlays come off around it
// (view_paint.h), so that the tiles never cover one its owner believes shown.
void RedrawRect(Canvas* canvas, const Rect& view);

// Repaints the view over a rectangle of canvas pixels; an empty one repaints
// nothing.
void RedrawCanvasBox(Canvas* canvas, const Rect& box);
