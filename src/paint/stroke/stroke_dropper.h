// The colour picker of the right button: the Dropper takes the colour
// under the pointer into the pen while the button is held; with Shift it
// picks a rectangle of the active plane as the pen's pattern instead.
#pragma once

#include "document/canvas.h"

// A pattern picked before goes first: the pen paints flat colour again.
void RunDropper(Canvas* canvas);
