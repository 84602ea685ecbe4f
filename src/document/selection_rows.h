// The selection raster of a canvas and the one row service through which
// everything reads and writes it. A value is how far a pixel lies outside
// the selection: 0 selected, 255 not, between them partly; with no raster
// every pixel counts as selected. Coordinates are canvas ones, clipped at
// the raster's edges.
#pragma once

#include <cstdint>

#include "base/rect.h"
#include "document/canvas.h"

// The Draft kinds that the raster's owners share with the levels below
// the selection.
constexpr int kShapelessSelection = 100;  // a raster without a shape

// Without force nothing happens when a raster exists; otherwise the old
// one goes and a new one of the canvas's size, all 0, takes its place.
// 0 when none can be made (the canvas then reads as all selected).
int EnsurePlane(Canvas* canvas, int force);
// Every value to 255 (outside set) or 0; nothing without a raster.
void FillPlane(Canvas* canvas, int outside);

// Columns x0..x1 of row y: x1 - x0 + 1 bytes, zeros where no raster lies.
void ReadSelectionRow(Canvas* canvas, int y, int x0, int x1, uint8_t* out);
// Nothing without a raster, and that is success.
void WriteSelectionRow(Canvas* canvas, int y, int x0, int x1, const uint8_t* in);
uint8_t ReadSelectionPixel(Canvas* canvas, int x, int y);

// Counts every change made through the service above (a new raster, a
// fill, a row written), so that what is worked out from a raster can tell
// that it is stale.
uint64_t SelectionRevision();

// The extent of the values below 255; with none, left and top stand at
// INT32_MAX and right and bottom at INT32_MIN. Without a raster, the canvas.
Rect SelectionBounds(Canvas* canvas);

// The Draft's box as the canvas holds it (a line's may run right to left).
inline Rect SelectionBox(const Canvas* canvas) {
  return Rect{canvas->selLeft, canvas->selTop, canvas->selRight, canvas->selBottom};
}
inline void SetSelectionBox(Canvas* canvas, const Rect& box) {
  canvas->selLeft = box.left, canvas->selTop = box.top;
  canvas->selRight = box.right, canvas->selBottom = box.bottom;
}
// The box of a canvas without a Draft: the whole canvas.
inline Rect WholeCanvas(const Canvas* canvas) {
  return Rect::OfSize(0, 0, canvas->canvasWidth, canvas->canvasHeight);
}
