#include "layers/selection_rows.h"

#include <cstring>

#include "store/plane_store.h"

void ReadSelectionOutsideRow(Canvas* canvas, int y, int x0, int x1, uint8_t* out) {
  std::memset(out, 0, static_cast<size_t>(x1 - x0 + 1));
  if (canvas->selectionPlane) PlaneStore.ReadRow(canvas->selectionPlane, y, x0, x1, out);
}

Rect SelectionBox(const Canvas* canvas) {
  return Rect{canvas->selLeft, canvas->selTop, canvas->selRight, canvas->selBottom};
}
