#include <algorithm>
#include <cstring>

#include "settings/settings.h"
#include "store/plane_ops.h"
#include "store/plane_rows.h"
#include "store/resample.h"

Plane* NewResamplePlane(const Plane* source, int width, int height) {
  Plane* out = PlaneStore.CreatePlane(width, height, static_cast<int>(source->bits), 0, 0,
                                      static_cast<uint32_t>(settings.workBuffer));
  if (out) std::memcpy(out->palette, source->palette, sizeof out->palette);
  return out;
}

Plane* SmoothResize(Plane* source, int width, int height, int kernel) {
  if (!HasRowDepth(source)) return nullptr;
  width = std::max(width, 1);
  height = std::max(height, 1);
  const int w = source->width;
  const int h = source->height;
  if (width == w && height == h) {
    Plane* copy = NewResamplePlane(source, w, h);
    if (copy) PlaneStore.CopyPlane(copy, source);
    return copy;
  }
  kernel = kernel == 1 ? 1 : 2;
  if (width >= w && height >= h) return CubicResample(source, width, height, kernel);
  if (width <= w && height <= h) return AreaAverage(source, width, height);
  // One axis grows, the other shrinks: grow both to the larger size, then
  // average down.
  Plane* grown = CubicResample(source, std::max(width, w), std::max(height, h), kernel);
  if (!grown) return nullptr;
  Plane* out = AreaAverage(grown, width, height);
  PlaneStore.FreePlane(&grown);
  return out;
}
