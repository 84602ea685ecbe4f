// The overlays on the picture (pen outline, Loope box, resize box, Draft
// outline and objects, Smooth Zoom's frame) are drawn by inversion, so one
// call of an overlay's toggle takes it off and the next puts it back. Any
// repaint of the picture would cover them while their owners believe them
// shown, so every repaint (RedrawRect, and so WM_PAINT too) takes them off
// in the order of `Overlay` before its tiles go out and puts them back in
// the reverse order after.
#pragma once

#include "document/canvas.h"

// Each overlay's owner puts its toggle into pointerRoutes.overlayToggles
// (pointer_routing.h); an empty one is skipped. Every overlay on canvas off, in the order above; and back on, in reverse.
void OverlaysOff(Canvas* canvas);
void OverlaysOn(Canvas* canvas);

// WM_PAINT of displayWnd, once BeginPaint and EndPaint are done, with its
// update rectangle in view pixels.
void PaintView(Canvas* canvas, int x0, int y0, int x1, int y1);
