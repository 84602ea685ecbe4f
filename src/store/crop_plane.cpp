#include <algorithm>
#include <cstring>

#include "store/plane_ops.h"
#include "store/plane_rows.h"

Plane* CropPlane(Plane* plane, int x0, int y0, int x1, int y1) {
  if (!HasRowDepth(plane)) return nullptr;
  if (x1 < x0) std::swap(x0, x1);
  if (y1 < y0) std::swap(y0, y1);
  const int64_t width = static_cast<int64_t>(x1) - x0 + 1;
  const int64_t height = static_cast<int64_t>(y1) - y0 + 1;
  if (width > INT32_MAX || height > INT32_MAX) return nullptr;
  Plane* out = PlaneStore.CreatePlane(static_cast<int>(width), static_cast<int>(height),
                                      static_cast<int>(plane->bits), 0, 0, plane->kind);
  if (!out) return nullptr;
  std::memcpy(out->palette, plane->palette, sizeof out->palette);
  // The source columns that fall inside the crop, as [first, last).
  const int64_t first = std::max<int64_t>(x0, 0);
  const int64_t last = std::min<int64_t>(static_cast<int64_t>(x1) + 1, plane->width);
  if (first >= last) return out;
  const size_t n = plane->bytesPerPixel;
  std::vector<uint8_t> row = RowBuffer(plane);
  std::vector<uint8_t> outRow = RowBuffer(out);
  const int rowFirst = std::max(y0, 0);
  const int rowEnd = static_cast<int>(std::min<int64_t>(static_cast<int64_t>(y1) + 1, plane->height));
  for (int y = rowFirst; y < rowEnd; y++) {
    ReadWholeRow(plane, y, row.data());
    std::memcpy(&outRow[(first - x0) * n], &row[first * n], (last - first) * n);
    WriteWholeRow(out, y - y0, outRow.data());
  }
  return out;
}
