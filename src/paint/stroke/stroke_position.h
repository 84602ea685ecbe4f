// Where a pass of a stroke paints: the pointer, smoothed, in canvas pixels.
#pragma once

#include "document/canvas.h"

// The mean of the last positionSmoothing screen positions of the pointer,
// the one polled now included. With first set the history starts again
// from the pointer alone, which is returned as it is.
void SmoothPointerPosition(double* outX, double* outY, int first);

struct StrokePoint {
  double x, y;
};

// The canvas position of this pass. While the canvas shows its grid and
// snaps to it, the pointer goes to the nearest grid point and nothing is
// smoothed. Otherwise the smoothed screen position's whole part is taken
// into the view and through the zoom, and its fraction is added back
// unscaled, so the sub-pixel part survives at any zoom.
StrokePoint StrokePosition(Canvas* canvas, int first);
