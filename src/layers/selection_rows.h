// What the layer operations read of the selection.
#pragma once

#include "base/rect.h"
#include "document/canvas.h"

// The selection's bounding box, inclusive, in canvas coordinates.
Rect SelectionBox(const Canvas* canvas);
