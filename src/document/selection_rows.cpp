#include "document/selection_rows.h"

#include <climits>
#include <cstring>
#include <vector>

#include "document/canvas_rows.h"
#include "document/canvas_slots.h"

namespace {
uint64_t revision = 0;
}

uint64_t SelectionRevision() { return revision; }

int EnsurePlane(Canvas* canvas, int force) {
  if (canvas->selectionPlane && !force) return 1;
  ++revision;
  PlaneStore.FreePlane(&canvas->selectionPlane);
  canvas->selectionPlane =
      PlaneStore.CreatePlane(canvas->canvasWidth, canvas->canvasHeight, 8, 0, 1, Physical);
  return canvas->selectionPlane != nullptr;
}

void FillPlane(Canvas* canvas, int outside) {
  ++revision;
  if (canvas->selectionPlane) ::FillPlane(canvas->selectionPlane, outside ? 255 : 0);
}

void ReadSelectionRow(Canvas* canvas, int y, int x0, int x1, uint8_t* out) {
  if (x1 < x0) return;
  std::memset(out, 0, static_cast<size_t>(static_cast<unsigned>(x1 - x0)) + 1);
  if (canvas->selectionPlane) ReadPlaneSpan(canvas->selectionPlane, y, x0, x1, out);
}

void WriteSelectionRow(Canvas* canvas, int y, int x0, int x1, const uint8_t* in) {
  ++revision;
  if (canvas->selectionPlane && x1 >= x0) WritePlaneSpan(canvas->selectionPlane, y, x0, x1, in);
}

uint8_t ReadSelectionPixel(Canvas* canvas, int x, int y) {
  uint8_t value = 0;
  ReadSelectionRow(canvas, y, x, x, &value);
  return value;
}

Rect SelectionBounds(Canvas* canvas) {
  const int width = canvas->canvasWidth, height = canvas->canvasHeight;
  if (!canvas->selectionPlane) return WholeCanvas(canvas);
  Rect bounds{INT_MAX, INT_MAX, INT_MIN, INT_MIN};
  std::vector<uint8_t> row(static_cast<size_t>(width));
  for (int y = 0; y < height; ++y) {
    ReadSelectionRow(canvas, y, 0, width - 1, row.data());
    int first = 0;
    while (first < width && row[first] == 255) ++first;
    if (first == width) continue;
    int last = width - 1;
    while (row[last] == 255) --last;
    if (bounds.top == INT_MAX) bounds.top = y;
    bounds.bottom = y;
    if (first < bounds.left) bounds.left = first;
    if (last > bounds.right) bounds.right = last;
  }
  return bounds;
}
