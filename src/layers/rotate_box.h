// Rotate..: the selection's box of the active layer's image turned in
// place by an angle.
#pragma once

#include "document/canvas.h"

// The box's picture turned about its centre (clockwise positive) and put
// back into the same box; corners it leaves are white. 1, or 0 when the
// box misses the layer or memory fails. Ends with an undo record of the box.
int RotateLayerBox(Canvas* canvas, double degrees);
