#include <algorithm>
#include <cstring>

#include "store/plane_ops.h"
#include "store/plane_rows.h"

int PastePlane(Plane* dest, Plane* src, int x, int y) {
  if (!HasRowDepth(dest) || src->bits != dest->bits) return 0;
  // The source columns and rows that land inside dest, as [first, end).
  const int64_t colFirst = std::max<int64_t>(0, -static_cast<int64_t>(x));
  const int64_t colEnd = std::min<int64_t>(src->width, static_cast<int64_t>(dest->width) - x);
  const int64_t rowFirst = std::max<int64_t>(0, -static_cast<int64_t>(y));
  const int64_t rowEnd = std::min<int64_t>(src->height, static_cast<int64_t>(dest->height) - y);
  const size_t n = dest->bytesPerPixel;
  std::vector<uint8_t> srcRow = RowBuffer(src);
  std::vector<uint8_t> destRow = RowBuffer(dest);
  // Whole dest rows are read, overlaid and written back, so the columns
  // beside the piece survive in every storage kind.
  for (int64_t r = rowFirst; colFirst < colEnd && r < rowEnd; r++) {
    ReadWholeRow(src, static_cast<int>(r), srcRow.data());
    ReadWholeRow(dest, static_cast<int>(y + r), destRow.data());
    std::memcpy(&destRow[(x + colFirst) * n], &srcRow[colFirst * n], (colEnd - colFirst) * n);
    WriteWholeRow(dest, static_cast<int>(y + r), destRow.data());
  }
  return 1;
}
