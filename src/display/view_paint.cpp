#include "display/view_paint.h"

#include "display/pointer_routing.h"
#include "display/redraw.h"

void OverlaysOff(Canvas* canvas) {
  for (int i = 0; i < kOverlayCount; ++i)
    if (pointerRoutes.overlayToggles[i]) pointerRoutes.overlayToggles[i](canvas);
}

void OverlaysOn(Canvas* canvas) {
  for (int i = kOverlayCount - 1; i >= 0; --i)
    if (pointerRoutes.overlayToggles[i]) pointerRoutes.overlayToggles[i](canvas);
}

// The update region was validated already, and RedrawRect keeps the
// overlays intact.
void PaintView(Canvas* canvas, int x0, int y0, int x1, int y1) {
  RedrawRect(canvas, Rect{x0, y0, x1, y1});
}
