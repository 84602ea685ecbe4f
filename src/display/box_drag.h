// The drag of a rectangle over the canvas: an inverted frame follows the
// pointer, in canvas pixels with grid snap, while the left button is down.
// Near an edge of frameWnd, or beyond it, the view scrolls along.
#pragma once

#include <functional>

#include "display/grid.h"
#include "document/canvas.h"

// The box's left, top after the drag. moved hears each new place (and the
// first one), so that the caller can show it.
CanvasPoint DragCanvasBox(Canvas* canvas, int left, int top, int width, int height,
                          const std::function<void(int left, int top)>& moved);
