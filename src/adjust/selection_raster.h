// The two steps on the selection raster that the channel copy takes. The
// selection level takes them over when it lands; reading goes through
// ReadSelectionBytes (document/canvas_rows.h).
#pragma once

#include <cstdint>

#include "document/canvas.h"

// Makes the raster when the canvas has none: the canvas's size, all
// selected (0). 0 when it can't be made.
int EnsureSelectionPlane(Canvas* canvas);

// Canvas columns x0..x1 of row y into the raster, clipped to it; nothing
// without a raster.
void WriteSelectionBytes(Canvas* canvas, int y, int x0, int x1, const uint8_t* in);
