// The rows of the paint pipeline and the row access to the active layer.
// Coordinates are canvas ones; each read or write takes the plane's left
// and top off and clips to the plane, leaving buffer positions outside it
// as they were. A buffer holds x1 - x0 + 1 pixels.
#pragma once

#include <cstdint>

#include "document/canvas.h"
#include "paint/dab_rows.h"
#include "paint/tip.h"

// The widest row the pipeline takes: a dab of the widest tip plus its
// fractional column, with a column each side for the kernels that read
// around a pixel; any canvas row fits too.
constexpr int kPenRowPixels = kTipBufferBytes + 4;

// Rows shared by everything that paints; one user at a time. All but the
// low bytes have slack for the vector kernels (dab_rows.h).
struct PenRowsObject {
  uint8_t sourceRow[(kPenRowPixels + kRowBlock) * 3];  // blue, green, red
  uint8_t sourceOpacityRow[kPenRowPixels + kRowBlock];
  uint8_t protectRow[kPenRowPixels + kRowBlock];  // 0 paints, 255 protects
  uint8_t destRow[(kPenRowPixels + kRowBlock) * 3];
  uint8_t destLowRow[kPenRowPixels * 3];  // low bytes under Double Accuracy
  uint8_t transparencyRow[kPenRowPixels + kRowBlock];
};

extern PenRowsObject PenRows;

// The active plane's slot, and whether it is an image plane (position 0).
inline PlaneSlot& ActiveSlot(Canvas* canvas) { return canvas->planes[canvas->activePlane]; }
inline bool ActiveIsImage(const Canvas* canvas) {
  return PositionOf(canvas->activePlane) == kImagePosition;
}
// Slot index of the active layer's position 0.
inline int ActiveLayerBase(const Canvas* canvas) {
  return canvas->activePlane - PositionOf(canvas->activePlane);
}

// Span access to one plane in its own coordinates, clipped, safe for every
// storage kind. 0 when nothing of the span lies on the plane.
int ReadPlaneSpan(Plane* plane, int y, int x0, int x1, uint8_t* out);
int WritePlaneSpan(Plane* plane, int y, int x0, int x1, const uint8_t* in);
// A slot's plane read with canvas coordinates.
int ReadSlotSpan(const PlaneSlot& slot, int y, int x0, int x1, uint8_t* out);

// The active plane as 24 bits: an 8-bit plane gives each value three times.
int ReadImageRow(Canvas* canvas, int y, int x0, int x1, uint8_t* out24);
// Back to the active plane: an 8-bit plane keeps the largest channel.
int WriteImageRow(Canvas* canvas, int y, int x0, int x1, const uint8_t* in24);
// The same on the active slot's accuracyPlane (the low bytes).
int ReadImageRowLow(Canvas* canvas, int y, int x0, int x1, uint8_t* out24);
int WriteImageRowLow(Canvas* canvas, int y, int x0, int x1, const uint8_t* in24);

// Plane `position` of the active layer: zeros when the slot is empty; the
// write does nothing then.
int ReadLayerPlaneRow(Canvas* canvas, int y, int x0, int x1, uint8_t* out, int position);
int WriteLayerPlaneRow(Canvas* canvas, int y, int x0, int x1, const uint8_t* in, int position);
