// What the layer operations read of the selection.
#pragma once

#include <cstdint>

#include "base/rect.h"
#include "document/canvas.h"

// The outside-coverage of the selection along canvas row y, columns x0..x1:
// 0 inside, up to 255 outside; zeros where no selection raster lies.
void ReadSelectionOutsideRow(Canvas* canvas, int y, int x0, int x1, uint8_t* out);

// The selection's bounding box, inclusive, in canvas coordinates.
Rect SelectionBox(const Canvas* canvas);
