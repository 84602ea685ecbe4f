// The view's own drags: the hand scroll and the zoom by a drag. Each is a
// short loop that polls the button until it is released.
#pragma once

#include "display/view_windows.h"
#include "document/canvas.h"

// Horizontal travel of the pointer that makes one zoom step.
constexpr int kZoomDragStep = 21;

// While button is down the picture follows the pointer: every change of
// the pointer's position scrolls both axes by the difference. The travel
// counts from where the button went down, at screenX, screenY.
void HandScroll(Canvas* canvas, PointerButton button, int screenX, int screenY);

// While the right button is down, each 21 pixels to the right zooms in
// one step and each 21 to the left zooms out; smaller motion does nothing.
// The travel counts from screenX, where the button went down.
void ZoomDrag(Canvas* canvas, int screenX);
