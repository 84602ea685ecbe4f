// The areas the shapes commit: each writes 0 over its area of a raster
// that it has filled with 255 first.
#pragma once

#include "base/rect.h"
#include "document/canvas.h"

// Every row of the ordered box.
void RasterizeBox(Canvas* canvas, const Rect& box);
// The ellipse inside the ordered box, walked on integers.
void RasterizeEllipse(Canvas* canvas, const Rect& box);
// The even-odd fill of the first count points of draftPoints, truncated to
// integers, the last edge ending on the last point; the box becomes the
// points' bounds. Fewer than 3 points fill nothing.
void RasterizePolygon(Canvas* canvas, int count);
