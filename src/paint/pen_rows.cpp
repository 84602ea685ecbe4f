#include "paint/pen_rows.h"

#include <algorithm>
#include <cstring>

PenRowsObject PenRows;

namespace {

// A whole stored row of the widest plane a span may touch, and a row of
// single bytes for the 8-bit planes.
uint8_t wholeRow[kPenRowPixels * 3];
uint8_t byteRow[kPenRowPixels];

struct Span {
  int x0, x1;     // clipped columns of the plane
  size_t offset;  // bytes into the caller's buffer
};

bool Clip(const Plane* plane, int y, int x0, int x1, Span& span) {
  if (!plane || y < 0 || y >= plane->height) return false;
  span.x0 = std::max(x0, 0);
  span.x1 = std::min(x1, plane->width - 1);
  span.offset = size_t(span.x0 - x0) * plane->bytesPerPixel;
  return span.x0 <= span.x1;
}

// A packed plane moves a whole row when the span starts at column 0; a
// shorter span then goes through a buffer of a whole row.
bool NeedsWholeRow(const Plane* plane, const Span& span) {
  return plane->kind == Packed && span.x0 == 0 && span.x1 < plane->width - 1;
}

bool WholeRowFits(const Plane* plane) { return plane->width <= kPenRowPixels; }

}  // namespace

int ReadPlaneSpan(Plane* plane, int y, int x0, int x1, uint8_t* out) {
  // The store clips a span of a plane of rows in memory the same way.
  if (plane && plane->kind != Packed) return PlaneStore.ReadRow(plane, y, x0, x1, out);
  Span span;
  if (!Clip(plane, y, x0, x1, span)) return 0;
  if (!NeedsWholeRow(plane, span))
    return PlaneStore.ReadRow(plane, y, span.x0, span.x1, out + span.offset);
  if (!WholeRowFits(plane) || !PlaneStore.ReadRow(plane, y, 0, plane->width - 1, wholeRow))
    return 0;
  std::memcpy(out + span.offset, wholeRow, size_t(span.x1 + 1) * plane->bytesPerPixel);
  return 1;
}

int WritePlaneSpan(Plane* plane, int y, int x0, int x1, const uint8_t* in) {
  if (plane && plane->kind != Packed) return PlaneStore.WriteRow(plane, y, x0, x1, in);
  Span span;
  if (!Clip(plane, y, x0, x1, span)) return 0;
  if (!NeedsWholeRow(plane, span))
    return PlaneStore.WriteRow(plane, y, span.x0, span.x1, in + span.offset);
  if (!WholeRowFits(plane) || !PlaneStore.ReadRow(plane, y, 0, plane->width - 1, wholeRow))
    return 0;
  std::memcpy(wholeRow, in + span.offset, size_t(span.x1 + 1) * plane->bytesPerPixel);
  return PlaneStore.WriteRow(plane, y, 0, plane->width - 1, wholeRow);
}

namespace {

// Row y, columns x0..x1 of a plane of slot geometry, in canvas coordinates,
// as 24 bits.
int ReadWide(const PlaneSlot& slot, Plane* plane, int y, int x0, int x1, uint8_t* out24) {
  if (!plane) return 0;
  y -= slot.top;
  x0 -= slot.left;
  x1 -= slot.left;
  if (plane->bits == 24) return ReadPlaneSpan(plane, y, x0, x1, out24);
  Span span;
  if (!Clip(plane, y, x0, x1, span) || span.x1 - x0 >= kPenRowPixels) return 0;
  if (!ReadPlaneSpan(plane, y, x0, x1, byteRow)) return 0;
  for (int k = span.x0 - x0; k <= span.x1 - x0; ++k)
    out24[3 * k] = out24[3 * k + 1] = out24[3 * k + 2] = byteRow[k];
  return 1;
}

int WriteWide(const PlaneSlot& slot, Plane* plane, int y, int x0, int x1, const uint8_t* in24) {
  if (!plane) return 0;
  y -= slot.top;
  x0 -= slot.left;
  x1 -= slot.left;
  if (plane->bits == 24) return WritePlaneSpan(plane, y, x0, x1, in24);
  Span span;
  if (!Clip(plane, y, x0, x1, span) || span.x1 - x0 >= kPenRowPixels) return 0;
  for (int k = span.x0 - x0; k <= span.x1 - x0; ++k)
    byteRow[k] = std::max({in24[3 * k], in24[3 * k + 1], in24[3 * k + 2]});
  return WritePlaneSpan(plane, y, x0, x1, byteRow);
}

}  // namespace

int ReadImageRow(Canvas* canvas, int y, int x0, int x1, uint8_t* out24) {
  PlaneSlot& slot = ActiveSlot(canvas);
  return ReadWide(slot, slot.plane, y, x0, x1, out24);
}

int WriteImageRow(Canvas* canvas, int y, int x0, int x1, const uint8_t* in24) {
  PlaneSlot& slot = ActiveSlot(canvas);
  return WriteWide(slot, slot.plane, y, x0, x1, in24);
}

int ReadImageRowLow(Canvas* canvas, int y, int x0, int x1, uint8_t* out24) {
  PlaneSlot& slot = ActiveSlot(canvas);
  return ReadWide(slot, slot.accuracyPlane, y, x0, x1, out24);
}

int WriteImageRowLow(Canvas* canvas, int y, int x0, int x1, const uint8_t* in24) {
  PlaneSlot& slot = ActiveSlot(canvas);
  return WriteWide(slot, slot.accuracyPlane, y, x0, x1, in24);
}

int ReadSlotSpan(const PlaneSlot& slot, int y, int x0, int x1, uint8_t* out) {
  return ReadPlaneSpan(slot.plane, y - slot.top, x0 - slot.left, x1 - slot.left, out);
}

int ReadLayerPlaneRow(Canvas* canvas, int y, int x0, int x1, uint8_t* out, int position) {
  if (x1 < x0) return 0;
  const PlaneSlot& slot = canvas->planes[ActiveLayerBase(canvas) + position];
  if (!slot.plane) {
    std::memset(out, 0, size_t(x1 - x0 + 1));
    return 0;
  }
  return ReadSlotSpan(slot, y, x0, x1, out);
}

int WriteLayerPlaneRow(Canvas* canvas, int y, int x0, int x1, const uint8_t* in, int position) {
  const PlaneSlot& slot = canvas->planes[ActiveLayerBase(canvas) + position];
  if (!slot.plane) return 0;
  return WritePlaneSpan(slot.plane, y - slot.top, x0 - slot.left, x1 - slot.left, in);
}
