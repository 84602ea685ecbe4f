#include "layers/selection_rows.h"

Rect SelectionBox(const Canvas* canvas) {
  return Rect{canvas->selLeft, canvas->selTop, canvas->selRight, canvas->selBottom};
}
