// Ctrl and a press on the canvas pick a layer: the left button activates
// it or drags it to a new place, the right button opens its menu.
#pragma once

#include "document/canvas.h"

// The topmost shown layer whose rectangle holds canvas point x, y; 0 when
// there is none, since the base layer can't be picked to move.
int LayerAt(const Canvas* canvas, int x, int y);

// With shift set the layer is the active one instead of the one under the
// pointer. Refused with string 1401 while Smooth Zoom is in force.
void PickLayer(Canvas* canvas, int rightButton, int shift);
