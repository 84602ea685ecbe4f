#include "paint/modes/color_mask.h"

#include <cstdlib>
#include <cstring>

#include "base/current_tool.h"
#include "document/canvas_slots.h"
#include "paint/modes/pen_rows.h"
#include "paint/modes/protection.h"
#include "paint/tip/pen_record.h"
#include "pixel/mul_table.h"

ColorMaskOptions colorMask;

namespace {

enum : int32_t { kMaskNone, kMaskStart, kMaskUpperLeft, kMaskWhite, kMaskBlack };

Plane* maskMap = nullptr;
uint8_t colorRow[kPenRowPixels * 3];
uint8_t opacityRow[kPenRowPixels];
uint8_t mapRow[kPenRowPixels];

// The colour at a canvas point, weighted by its opacity on an image plane.
void KeyAt(Canvas* canvas, int x, int y, uint8_t key[3]) {
  uint8_t pixel[3] = {0, 0, 0};
  ReadImageRow(canvas, y, x, x, pixel);
  uint8_t opacity = 255;
  if (ActiveIsImage(canvas)) ReadOpacityRow(canvas, y, x, x, &opacity, ActiveLayerBase(canvas));
  for (int c = 0; c < 3; ++c) key[c] = Mul255(pixel[c], opacity);
}

// 0 where each channel of the plane, weighted by opacity on an image
// plane, lies within the vagueness of the key; 255 elsewhere.
void MakeMap(Canvas* canvas, int centreX, int centreY) {
  const PlaneSlot& slot = ActiveSlot(canvas);
  if (!slot.plane || slot.plane->width > kPenRowPixels) return;
  uint8_t key[3];
  switch (colorMask.choice) {
    case kMaskStart:
      KeyAt(canvas, centreX, centreY, key);
      break;
    case kMaskUpperLeft:
      KeyAt(canvas, 0, 0, key);
      break;
    case kMaskWhite:
      std::memset(key, 255, 3);
      break;
    default:
      std::memset(key, 0, 3);
      break;
  }
  const int width = slot.plane->width, height = slot.plane->height;
  maskMap = PlaneStore.CreatePlane(width, height, 8, 0, 0, ImageBufferKind());
  if (!maskMap) return;
  const bool image = ActiveIsImage(canvas);
  const int x0 = slot.left, x1 = slot.left + width - 1;
  for (int row = 0; row < height; ++row) {
    const int y = slot.top + row;
    ReadImageRow(canvas, y, x0, x1, colorRow);
    if (image) ReadOpacityRow(canvas, y, x0, x1, opacityRow, ActiveLayerBase(canvas));
    for (int i = 0; i < width; ++i) {
      bool near = true;
      for (int c = 0; c < 3; ++c) {
        const int value = image ? Mul255(colorRow[3 * i + c], opacityRow[i]) : colorRow[3 * i + c];
        near = near && std::abs(value - key[c]) <= colorMask.vagueness;
      }
      mapRow[i] = near ? 0 : 255;
    }
    WritePlaneSpan(maskMap, row, 0, width - 1, mapRow);
  }
}

}  // namespace

// The colour mask works for the two freehand tools only.
bool ColorMaskActive() {
  return colorMask.choice != kMaskNone &&
         (currentTool == cmd::kFreeHand || currentTool == cmd::kFreeHandConnect);
}

void ApplyColorMask(Canvas* canvas, uint8_t* protectRow, int y, int x0, int x1, int centreX,
                    int centreY) {
  if (!maskMap && tipState.dabCount == 0) MakeMap(canvas, centreX, centreY);
  if (!maskMap || x1 - x0 + 1 > kPenRowPixels) return;
  // The map is read with canvas coordinates as they stand.
  std::memset(mapRow, 0, size_t(x1 - x0 + 1));
  ReadPlaneSpan(maskMap, y, x0, x1, mapRow);
  OrRow(protectRow, mapRow, x1 - x0 + 1);
}

void FreeColorMaskMap() { PlaneStore.FreePlane(&maskMap); }
