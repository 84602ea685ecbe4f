#include "adjust/selection_raster.h"

#include "document/canvas_rows.h"

int EnsureSelectionPlane(Canvas* canvas) {
  if (canvas->selectionPlane) return 1;
  canvas->selectionPlane =
      PlaneStore.CreatePlane(canvas->canvasWidth, canvas->canvasHeight, 8, 0, 1, Physical);
  return canvas->selectionPlane != nullptr;
}

void WriteSelectionBytes(Canvas* canvas, int y, int x0, int x1, const uint8_t* in) {
  WritePlaneSpan(canvas->selectionPlane, y, x0, x1, in);
}
