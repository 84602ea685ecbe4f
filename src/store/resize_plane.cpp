#include <algorithm>
#include <cstring>
#include <vector>

#include "store/plane_ops.h"
#include "store/plane_rows.h"

namespace {

// Source index of output index k of n over a source length m, in 64 bits
// so that large planes don't overflow.
int NearestOf(int k, int m, int n) {
  return static_cast<int>(std::min<int64_t>(m - 1, static_cast<int64_t>(m) * k / n));
}

Plane* NearestResize(Plane* source, int width, int height, uint32_t kind) {
  Plane* out = PlaneStore.CreatePlane(width, height, static_cast<int>(source->bits), 0, 0, kind);
  if (!out) return nullptr;
  if (source->bits == 8) std::memcpy(out->palette, source->palette, sizeof out->palette);
  const size_t n = source->bytesPerPixel;
  std::vector<size_t> from(width);
  for (int c = 0; c < width; c++) from[c] = NearestOf(c, source->width, width) * n;
  std::vector<uint8_t> row = RowBuffer(source);
  std::vector<uint8_t> outRow = RowBuffer(out);
  int rowHeld = -1;
  for (int r = 0; r < height; r++) {
    const int y = NearestOf(r, source->height, height);
    if (y != rowHeld) ReadWholeRow(source, y, row.data());
    rowHeld = y;
    for (int c = 0; c < width; c++) std::memcpy(&outRow[c * n], &row[from[c]], n);
    WriteWholeRow(out, r, outRow.data());
  }
  return out;
}

}  // namespace

Plane* ResizePlane(Plane* plane, int width, int height, uint32_t kind, int smooth, int kernel) {
  if (!HasRowDepth(plane)) return nullptr;
  // A picture one pixel wide or high isn't worth scaling.
  if (width <= 1 || height <= 1) {
    return PlaneStore.CreatePlane(width, height, static_cast<int>(plane->bits), 0, 0, kind);
  }
  if (smooth) return SmoothResize(plane, width, height, kernel);
  return NearestResize(plane, width, height, kind);
}
