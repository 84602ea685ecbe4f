// What every Draft gesture shares: the buttons as the tools read them, and
// the drag loop that moves an outline with the pointer.
#pragma once

#include <functional>
#include <string>

#include "base/rect.h"
#include "display/grid.h"
#include "document/canvas.h"

// The left button is down.
bool PrimaryHeld();
// The right button, or the key Q or the Menu key, so that a pen without a
// side switch can finish a shape.
bool SecondaryHeld();
bool ShiftHeld();
// The status bar's two corners.
void ShowCorners(const Rect& box);
// A position held to the canvas's pixels.
CanvasPoint ClampToCanvas(const Canvas* canvas, CanvasPoint at);
// The resource cursor of that name over the view, loaded only when it
// differs from the one shown; an empty name puts back the saved one.
void ShowToolCursor(const std::string& name);
// Forgets which cursor shows.
void ResetToolCursor();

// While the left button is down: each time the pointer (canvas pixels,
// grid snap with the grab offset) reaches another pixel, the outline is
// drawn (erasing it), update takes the new position (and shows the
// corners), the position shows, the view scrolls at its edge, and the
// outline is drawn again. The cursor is restored at the end.
void DragLoop(Canvas* canvas, CanvasPoint grabOffset, const std::function<void()>& outline,
              const std::function<void(CanvasPoint at)>& update);
