// Row access to the planes of a canvas, shared by everything that changes
// pixels: paint, adjustments, filters, paste and files. Coordinates are
// canvas ones; each read or write takes the plane's left and top off and
// clips to the plane, leaving buffer positions outside it as they were. A
// buffer holds x1 - x0 + 1 pixels.
#pragma once

#include <cstddef>
#include <cstdint>

#include "document/canvas.h"

// The active plane's slot, and whether it is an image plane (position 0).
inline PlaneSlot& ActiveSlot(Canvas* canvas) { return canvas->planes[canvas->activePlane]; }
inline bool ActiveIsImage(const Canvas* canvas) {
  return PositionOf(canvas->activePlane) == kImagePosition;
}
// Slot index of the active layer's position 0.
inline int ActiveLayerBase(const Canvas* canvas) {
  return canvas->activePlane - PositionOf(canvas->activePlane);
}

// The row access below takes rows y0 to y0 + n - 1 at once, as a dab reads
// the rows of its band: row i lies i * stride pixels into the buffer. Each
// answers how many of the rows had something on the plane. The rows are
// reached in place in the store (PlaneStore.AccessRow) and copied.

// Spans of one plane in its own coordinates, clipped, safe for every
// storage kind.
int ReadPlaneRows(Plane* plane, int y0, int n, int x0, int x1, uint8_t* out, int stride);
int WritePlaneRows(Plane* plane, int y0, int n, int x0, int x1, const uint8_t* in, int stride);
// One span: 0 when nothing of it lies on the plane.
inline int ReadPlaneSpan(Plane* plane, int y, int x0, int x1, uint8_t* out) {
  return ReadPlaneRows(plane, y, 1, x0, x1, out, 0);
}
inline int WritePlaneSpan(Plane* plane, int y, int x0, int x1, const uint8_t* in) {
  return WritePlaneRows(plane, y, 1, x0, x1, in, 0);
}
// Zeros over `count` bytes of each of n rows laid so.
void ClearRows(uint8_t* out, int n, size_t count, int stride);

// A slot's plane read with canvas coordinates.
int ReadSlotRows(const PlaneSlot& slot, int y0, int n, int x0, int x1, uint8_t* out, int stride);
inline int ReadSlotSpan(const PlaneSlot& slot, int y, int x0, int x1, uint8_t* out) {
  return ReadSlotRows(slot, y, 1, x0, x1, out, 0);
}

// The active plane as 24 bits: an 8-bit plane gives each value three times.
int ReadImageRows(Canvas* canvas, int y0, int n, int x0, int x1, uint8_t* out24, int stride);
// Back to the active plane: an 8-bit plane keeps the largest channel.
int WriteImageRows(Canvas* canvas, int y0, int n, int x0, int x1, const uint8_t* in24,
                   int stride);
// The same on the active slot's accuracyPlane (the low bytes).
int ReadImageRowsLow(Canvas* canvas, int y0, int n, int x0, int x1, uint8_t* out24, int stride);
int WriteImageRowsLow(Canvas* canvas, int y0, int n, int x0, int x1, const uint8_t* in24,
                      int stride);

inline int ReadImageRow(Canvas* canvas, int y, int x0, int x1, uint8_t* out24) {
  return ReadImageRows(canvas, y, 1, x0, x1, out24, 0);
}
inline int WriteImageRow(Canvas* canvas, int y, int x0, int x1, const uint8_t* in24) {
  return WriteImageRows(canvas, y, 1, x0, x1, in24, 0);
}
inline int ReadImageRowLow(Canvas* canvas, int y, int x0, int x1, uint8_t* out24) {
  return ReadImageRowsLow(canvas, y, 1, x0, x1, out24, 0);
}
inline int WriteImageRowLow(Canvas* canvas, int y, int x0, int x1, const uint8_t* in24) {
  return WriteImageRowsLow(canvas, y, 1, x0, x1, in24, 0);
}

// A hint that rows y0 to y0 + n - 1 of the active layer's planes are wanted
// soon from canvas column x0 on: the start of each row is fetched ahead,
// since the processor follows a row once it is in it but cannot foresee
// the step to the next.
void PrefetchRowStarts(Canvas* canvas, int y0, int n, int x0);

// Plane `position` of the active layer: zeros when the slot is empty; the
// write does nothing then.
int ReadLayerPlaneRows(Canvas* canvas, int y0, int n, int x0, int x1, uint8_t* out, int stride,
                       int position);
int WriteLayerPlaneRows(Canvas* canvas, int y0, int n, int x0, int x1, const uint8_t* in,
                        int stride, int position);

inline int ReadLayerPlaneRow(Canvas* canvas, int y, int x0, int x1, uint8_t* out, int position) {
  return ReadLayerPlaneRows(canvas, y, 1, x0, x1, out, 0, position);
}
inline int WriteLayerPlaneRow(Canvas* canvas, int y, int x0, int x1, const uint8_t* in,
                              int position) {
  return WriteLayerPlaneRows(canvas, y, 1, x0, x1, in, 0, position);
}

// The row caches of the active layer's planes run wide (many rows kept at
// hand, for work that comes back to the same rows) or narrow again.
void SetLayerRowCaches(Canvas* canvas, bool wide);
