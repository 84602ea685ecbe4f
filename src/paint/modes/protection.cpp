#include "paint/modes/protection.h"

#include <algorithm>
#include <cstring>

#include "document/selection_rows.h"
#include "paint/modes/pen_rows.h"
#include "pixel/mul_table.h"

ProtectionOptions protection;

namespace {

constexpr int kFlagAddsProtection = 2;
constexpr int kFlagInvertsProtection = 3;
constexpr int kFlagMultipliesOpacity = 4;
constexpr int kFlagInvertsOpacity = 5;

uint8_t planeRow[kPenRowPixels];
uint8_t colorRow[kPenRowPixels * 3];
uint8_t opacityRow[kPenRowPixels];

// One further plane's row, zeros where it doesn't reach.
const uint8_t* FurtherRow(const PlaneSlot& slot, int y, int x0, int x1) {
  std::memset(planeRow, 0, size_t(x1 - x0 + 1));
  ReadSlotSpan(slot, y, x0, x1, planeRow);
  return planeRow;
}

// Columns x0..x1 taken at most kPenRowPixels at a time, so the rows of
// this file hold any span.
template <typename Step>
void InPieces(int x0, int x1, uint8_t* out, Step step) {
  for (int a = x0; a <= x1; a += kPenRowPixels)
    step(a, std::min(x1, a + kPenRowPixels - 1), out + (a - x0));
}

}  // namespace

void OrRow(uint8_t* dst, const uint8_t* src, int n) {
  int i = 0;
  for (; i + 8 <= n; i += 8) {
    uint64_t a, b;
    std::memcpy(&a, dst + i, 8);
    std::memcpy(&b, src + i, 8);
    a |= b;
    std::memcpy(dst + i, &a, 8);
  }
  for (; i < n; ++i) dst[i] |= src[i];
}

void ReadProtectionRows(Canvas* canvas, int y0, int n, int x0, int x1, uint8_t* out, int stride,
                        int layerBase) {
  if (x1 < x0) return;
  const size_t count = static_cast<size_t>(static_cast<unsigned>(x1 - x0)) + 1;
  ClearRows(out, n, count, stride);
  if (protection.disableMask) return;
  const PlaneSlot* slots = &canvas->planes[layerBase];
  const PlaneSlot& mask = slots[kMaskPosition];
  if (mask.plane && !mask.planeOff) ReadSlotRows(mask, y0, n, x0, x1, out, stride);
  for (int position = kFirstFurtherPosition; position < kPlanesPerLayer; ++position) {
    const PlaneSlot& slot = slots[position];
    if (!slot.plane) break;
    if (slot.planeOff) continue;
    bool adds = slot.planeFlags[kFlagAddsProtection];
    bool inverts = slot.planeFlags[kFlagInvertsProtection];
    if (!adds && !inverts) continue;
    for (int r = 0; r < n; ++r) {
      InPieces(x0, x1, out + size_t(r) * stride, [&](int a, int b, uint8_t* piece) {
        const uint8_t* row = FurtherRow(slot, y0 + r, a, b);
        for (int i = 0; i <= b - a; ++i)
          piece[i] |= (adds ? row[i] : 0) | (inverts ? 255 - row[i] : 0);
      });
    }
  }
}

uint8_t ReadProtectionPixel(Canvas* canvas, int x, int y, int layerBase) {
  uint8_t value = 0;
  ReadProtectionRow(canvas, y, x, x, &value, layerBase);
  return value;
}

void ReadOpacityRow(Canvas* canvas, int y, int x0, int x1, uint8_t* out, int layerBase) {
  if (x1 < x0) return;
  std::memset(out, 255, size_t(x1 - x0 + 1));
  const PlaneSlot* slots = &canvas->planes[layerBase];
  InPieces(x0, x1, out, [&](int a, int b, uint8_t* piece) {
    const PlaneSlot& transparency = slots[kTransparencyPosition];
    if (transparency.plane && !transparency.planeOff) ReadSlotSpan(transparency, y, a, b, piece);
    for (int position = kFirstFurtherPosition; position < kPlanesPerLayer; ++position) {
      const PlaneSlot& slot = slots[position];
      if (!slot.plane || slot.planeOff) continue;
      bool multiplies = slot.planeFlags[kFlagMultipliesOpacity];
      bool inverts = slot.planeFlags[kFlagInvertsOpacity];
      if (!multiplies && !inverts) continue;
      const uint8_t* row = FurtherRow(slot, y, a, b);
      for (int i = 0; i <= b - a; ++i) {
        if (multiplies) piece[i] = Mul255(piece[i], row[i]);
        if (inverts) piece[i] = Mul255(piece[i], 255 - row[i]);
      }
    }
  });
}

namespace {

uint8_t refusalRow[kPenRowPixels];

// ReadPenRow for at most kPenRowPixels columns.
void ReadPenPiece(Canvas* canvas, int y, int x0, int x1, uint8_t* color24, uint8_t* opacity,
                  uint8_t* ok) {
  const int n = x1 - x0 + 1;
  const PlaneSlot& active = ActiveSlot(canvas);
  const bool image = ActiveIsImage(canvas);
  if (!active.plane) {
    std::memset(ok, 0, size_t(n));
    return;
  }
  std::memset(ok, 1, size_t(n));
  // Any protection at all refuses the pixel.
  auto refuse = [&] {
    for (int i = 0; i < n; ++i)
      if (refusalRow[i]) ok[i] = 0;
  };
  if (image && !protection.disableMask) {
    ReadProtectionRow(canvas, y, x0, x1, refusalRow, ActiveLayerBase(canvas));
    refuse();
  }
  if (protection.maskOutsideSelection) {
    ReadSelectionRow(canvas, y, x0, x1, refusalRow);
    refuse();
  }

  // Colour and opacity with x and y held inside the plane.
  const int width = active.plane->width, height = active.plane->height;
  const int row = std::clamp(y - active.top, 0, height - 1) + active.top;
  auto column = [&](int i) { return std::clamp(x0 + i - active.left, 0, width - 1); };
  const int first = column(0), last = column(n - 1);
  ReadImageRow(canvas, row, first + active.left, last + active.left, colorRow);
  for (int i = 0; i < n; ++i) std::memcpy(color24 + 3 * i, colorRow + 3 * (column(i) - first), 3);

  const PlaneSlot& transparency = canvas->planes[ActiveLayerBase(canvas) + kTransparencyPosition];
  if (!image || !transparency.plane) {
    std::memset(opacity, 0, size_t(n));
    return;
  }
  ReadSlotSpan(transparency, row, first + active.left, last + active.left, opacityRow);
  for (int i = 0; i < n; ++i) opacity[i] = opacityRow[column(i) - first];
}

}  // namespace

void ReadPenRow(Canvas* canvas, int y, int x0, int x1, uint8_t* color24, uint8_t* opacity,
                uint8_t* ok) {
  InPieces(x0, x1, ok, [&](int a, int b, uint8_t* piece) {
    ReadPenPiece(canvas, y, a, b, color24 + 3 * (a - x0), opacity + (a - x0), piece);
  });
}

int ReadPenPixel(Canvas* canvas, int x, int y, uint32_t* outRed, uint32_t* outGreen,
                 uint32_t* outBlue, uint32_t* outOpacity) {
  uint8_t color[3], opacity, ok;
  ReadPenRow(canvas, y, x, x, color, &opacity, &ok);
  if (!ok) return 0;
  *outBlue = color[0];
  *outGreen = color[1];
  *outRed = color[2];
  *outOpacity = opacity;
  return 1;
}
