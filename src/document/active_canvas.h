// The canvas of the active document window. The shell reports each
// activation; a canvas that is being closed no longer counts as active.
#pragma once

#include "document/canvas.h"

void SetActiveCanvas(Canvas* canvas);

// Null when no document is active or the active one is closing.
Canvas* ActiveCanvas();
