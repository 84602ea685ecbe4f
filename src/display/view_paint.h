// The paint of displayWnd. The overlays on the picture (pen outline,
// Loope box, resize box, Draft outline and objects, Smooth Zoom's frame)
// are drawn by inversion, so one call of an overlay's toggle takes it off
// and the next puts it back. They come off in this order around the redraw
// and go back on in the reverse order, which keeps each intact.
#pragma once

#include <functional>

#include "document/canvas.h"

enum Overlay {
  kOverlayPenOutline,  // only on the canvas that shows it
  kOverlayLoopeBox,
  kOverlayResizeBox,
  kOverlayDraft,
  kOverlayZoomFrame,  // the rectangle Smooth Zoom is about to enlarge
  kOverlayCount,
};

// Each overlay's owner registers its toggle; an empty one is skipped.
extern std::function<void(Canvas* canvas)> overlayToggles[kOverlayCount];

// WM_PAINT of displayWnd, once BeginPaint and EndPaint are done, with its
// update rectangle in view pixels.
void PaintView(Canvas* canvas, int x0, int y0, int x1, int y1);
