#include <algorithm>
#include <utility>

#include "store/plane_ops.h"
#include "store/plane_rows.h"

int BoxBlur(Plane* plane) {
  if (plane->bits != 8) return 0;
  const int w = plane->width;
  const int h = plane->height;
  // The rows above, at and below the one being blurred, all unblurred:
  // the row above is kept from before it was written back.
  std::vector<uint8_t> above = RowBuffer(plane);
  std::vector<uint8_t> here = RowBuffer(plane);
  std::vector<uint8_t> below = RowBuffer(plane);
  std::vector<uint8_t> out = RowBuffer(plane);
  ReadWholeRow(plane, 0, here.data());
  above = here;
  for (int y = 0; y < h; y++) {
    if (y + 1 < h) {
      ReadWholeRow(plane, y + 1, below.data());
    } else {
      below = here;
    }
    for (int x = 0; x < w; x++) {
      const int left = std::max(x - 1, 0);
      const int right = std::min(x + 1, w - 1);
      int sum = 0;
      for (const auto* row : {&above, &here, &below}) sum += (*row)[left] + (*row)[x] + (*row)[right];
      out[x] = static_cast<uint8_t>(sum / 9);
    }
    WriteWholeRow(plane, y, out.data());
    std::swap(above, here);
    std::swap(here, below);
  }
  return 1;
}
