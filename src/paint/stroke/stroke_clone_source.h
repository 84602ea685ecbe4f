// The Clone pen's source: dragging with Shift held from the source to the
// place where painting will start. The offset stays until set again.
#pragma once

#include "document/canvas.h"

// Rubber-bands an inverted line on the screen from the press to the
// pointer until the left button is released, then stores press minus
// release, in canvas pixels, as the clone offset.
void SetCloneSource(Canvas* canvas);
