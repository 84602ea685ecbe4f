#include "document/canvas_rows.h"

#include <algorithm>
#include <cstring>

namespace {

// A span in place, and the bytes it takes of a buffer that starts at x0.
struct PlaceOfSpan {
  uint8_t* bytes;
  size_t offset, count;
};

// Calls step(i, place) for each of rows y0 to y0 + n - 1 of the plane, in
// its own coordinates, that has something of x0..x1 on it; answers how
// many did. Those rows, and their columns, are found once.
template <typename Step>
int ForEachRow(Plane* plane, int y0, int n, int x0, int x1, int write, Step step) {
  if (n < 1) return 0;
  const int top = std::max(y0, 0);
  const int bottom = int(std::min<int64_t>(int64_t{y0} + n, plane->height));
  int first = x0, last = x1;
  if (top >= bottom || !ClipToPlane(plane, top, first, last)) return 0;
  const size_t offset = size_t(int64_t{first} - x0) * plane->bytesPerPixel;
  const size_t count = size_t(last - first + 1) * plane->bytesPerPixel;
  int done = 0;
  for (int y = top; y < bottom; ++y) {
    uint8_t* bytes = PlaneStore.AccessRow(plane, y, first, last, write).bytes;
    if (!bytes) continue;
    step(y - y0, PlaceOfSpan{bytes, offset, count});
    ++done;
  }
  return done;
}

}  // namespace

int ReadPlaneRows(Plane* plane, int y0, int n, int x0, int x1, uint8_t* out, int stride) {
  if (!plane) return 0;
  const size_t rowBytes = size_t(stride) * plane->bytesPerPixel;
  return ForEachRow(plane, y0, n, x0, x1, 0, [&](int i, const PlaceOfSpan& place) {
    std::memcpy(out + i * rowBytes + place.offset, place.bytes, place.count);
  });
}

int WritePlaneRows(Plane* plane, int y0, int n, int x0, int x1, const uint8_t* in, int stride) {
  if (!plane) return 0;
  const size_t rowBytes = size_t(stride) * plane->bytesPerPixel;
  return ForEachRow(plane, y0, n, x0, x1, 1, [&](int i, const PlaceOfSpan& place) {
    std::memcpy(place.bytes, in + i * rowBytes + place.offset, place.count);
  });
}

void ClearRows(uint8_t* out, int n, size_t count, int stride) {
  if (size_t(stride) == count) {  // rows one after another: one run
    std::memset(out, 0, count * n);
    return;
  }
  for (int i = 0; i < n; ++i) std::memset(out + size_t(i) * stride, 0, count);
}

int ReadSlotRows(const PlaneSlot& slot, int y0, int n, int x0, int x1, uint8_t* out, int stride) {
  return ReadPlaneRows(slot.plane, y0 - slot.top, n, x0 - slot.left, x1 - slot.left, out, stride);
}

namespace {

// Rows of a plane of slot geometry, in canvas coordinates, as 24 bits.
int ReadWide(const PlaneSlot& slot, Plane* plane, int y0, int n, int x0, int x1, uint8_t* out24,
             int stride) {
  if (!plane) return 0;
  y0 -= slot.top;
  x0 -= slot.left;
  x1 -= slot.left;
  if (plane->bits == 24) return ReadPlaneRows(plane, y0, n, x0, x1, out24, stride);
  return ForEachRow(plane, y0, n, x0, x1, 0, [&](int i, const PlaceOfSpan& place) {
    uint8_t* out = out24 + 3 * (size_t(i) * stride + place.offset);
    for (size_t k = 0; k < place.count; ++k)
      out[3 * k] = out[3 * k + 1] = out[3 * k + 2] = place.bytes[k];
  });
}

int WriteWide(const PlaneSlot& slot, Plane* plane, int y0, int n, int x0, int x1,
              const uint8_t* in24, int stride) {
  if (!plane) return 0;
  y0 -= slot.top;
  x0 -= slot.left;
  x1 -= slot.left;
  if (plane->bits == 24) return WritePlaneRows(plane, y0, n, x0, x1, in24, stride);
  return ForEachRow(plane, y0, n, x0, x1, 1, [&](int i, const PlaceOfSpan& place) {
    const uint8_t* in = in24 + 3 * (size_t(i) * stride + place.offset);
    for (size_t k = 0; k < place.count; ++k)
      place.bytes[k] = std::max({in[3 * k], in[3 * k + 1], in[3 * k + 2]});
  });
}

}  // namespace

int ReadImageRows(Canvas* canvas, int y0, int n, int x0, int x1, uint8_t* out24, int stride) {
  PlaneSlot& slot = ActiveSlot(canvas);
  return ReadWide(slot, slot.plane, y0, n, x0, x1, out24, stride);
}

int WriteImageRows(Canvas* canvas, int y0, int n, int x0, int x1, const uint8_t* in24,
                   int stride) {
  PlaneSlot& slot = ActiveSlot(canvas);
  return WriteWide(slot, slot.plane, y0, n, x0, x1, in24, stride);
}

int ReadImageRowsLow(Canvas* canvas, int y0, int n, int x0, int x1, uint8_t* out24, int stride) {
  PlaneSlot& slot = ActiveSlot(canvas);
  return ReadWide(slot, slot.accuracyPlane, y0, n, x0, x1, out24, stride);
}

int WriteImageRowsLow(Canvas* canvas, int y0, int n, int x0, int x1, const uint8_t* in24,
                      int stride) {
  PlaneSlot& slot = ActiveSlot(canvas);
  return WriteWide(slot, slot.accuracyPlane, y0, n, x0, x1, in24, stride);
}

int ReadLayerPlaneRows(Canvas* canvas, int y0, int n, int x0, int x1, uint8_t* out, int stride,
                       int position) {
  if (x1 < x0) return 0;
  const PlaneSlot& slot = canvas->planes[ActiveLayerBase(canvas) + position];
  if (slot.plane) return ReadSlotRows(slot, y0, n, x0, x1, out, stride);
  ClearRows(out, n, size_t(x1 - x0 + 1), stride);
  return 0;
}

int WriteLayerPlaneRows(Canvas* canvas, int y0, int n, int x0, int x1, const uint8_t* in,
                        int stride, int position) {
  const PlaneSlot& slot = canvas->planes[ActiveLayerBase(canvas) + position];
  return WritePlaneRows(slot.plane, y0 - slot.top, n, x0 - slot.left, x1 - slot.left, in, stride);
}

void PrefetchRowStarts(Canvas* canvas, int y0, int n, int x0) {
  constexpr int kLineBytes = 64;
  auto starts = [&](const PlaneSlot& slot, const Plane* plane) {
    if (!plane || plane->bytesPerPixel == 0) return;
    const int x = x0 - slot.left, columns = kLineBytes / int(plane->bytesPerPixel);
    PlaneStore.PrefetchRows(plane, y0 - slot.top, n, x, x + columns - 1);
  };
  const PlaneSlot* slots = &canvas->planes[ActiveLayerBase(canvas)];
  for (int position = 0; position < kPlanesPerLayer; ++position)
    starts(slots[position], slots[position].plane);
  const PlaneSlot& active = ActiveSlot(canvas);
  starts(active, active.accuracyPlane);
}

void SetLayerRowCaches(Canvas* canvas, bool wide) {
  const PlaneSlot* slots = &canvas->planes[ActiveLayerBase(canvas)];
  for (int position = 0; position < kPlanesPerLayer; ++position) {
    Plane* plane = slots[position].plane;
    if (!plane) continue;
    if (wide)
      PlaneStore.WidenRowCache(plane);
    else
      PlaneStore.NarrowRowCache(plane);
  }
}
