#include "paint/stroke/stroke_box.h"

#include "display/redraw.h"
#include "display/zoom.h"

void RepaintCanvasBox(Canvas* canvas, const StrokeBox& box) {
  if (box.Empty()) return;
  RedrawRect(canvas, ToView(canvas, box.left), ToView(canvas, box.top), ToView(canvas, box.right),
             ToView(canvas, box.bottom));
}
