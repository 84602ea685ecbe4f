// The 8-bit planes beside a layer's image: adding and deleting them.
#include <cstdio>
#include <cstring>

#include "document/canvas_manager.h"
#include "document/canvas_slots.h"

namespace {

// The lowest digit that no plane of the layer uses with this kind letter.
// A layer holds at most seven such planes, so a digit is always free.
int LowestFreeDigit(const PlaneSlot* slots, char letter) {
  bool used[10] = {};
  for (int position = 0; position < kPlanesPerLayer; ++position) {
    const char* name = slots[position].name;
    if (slots[position].plane && name[1] == letter && name[0] >= '0' && name[0] <= '9')
      used[name[0] - '0'] = true;
  }
  int digit = 0;
  while (used[digit]) ++digit;
  return digit;
}

}  // namespace

int CanvasManagerObject::AddPlane(Canvas* canvas, int index, int isTransparency) {
  if (index < 0 || index >= kPlaneSlots) return -1;
  PlaneSlot* slots = &canvas->planes[SlotIndex(LayerOf(index), 0)];
  int position = 0;
  while (position < kPlanesPerLayer && slots[position].plane) ++position;
  if (position == 0 || position == kPlanesPerLayer) return -1;

  const PlaneSlot& image = slots[kImagePosition];
  Plane* plane = PlaneStore.CreatePlane(image.width, image.height, 8, 0, 1, ImageBufferKind());
  if (!plane) return -1;
  const char letter = isTransparency ? 'T' : 'M';
  PlaneSlot& slot = slots[position];
  std::snprintf(slot.name, kPlaneNameChars, "%01d%c", LowestFreeDigit(slots, letter), letter);
  slot.plane = plane;
  slot.left = image.left;
  slot.top = image.top;
  slot.width = image.width;
  slot.height = image.height;
  slot.bits = 8;
  slot.displayMode = kDisplayChannel;
  std::memset(slot.planeFlags, 0, sizeof slot.planeFlags);
  slot.opacityLoss = 0;
  slot.mixMode = 0;
  return SlotIndex(LayerOf(index), position);
}

int CanvasManagerObject::DeletePlane(Canvas* canvas, int index) {
  if (index < 0 || index >= kPlaneSlots) return -1;
  const int position = PositionOf(index);
  PlaneSlot* slots = &canvas->planes[SlotIndex(LayerOf(index), 0)];
  if (position == kImagePosition || !slots[position].plane) return -1;
  FreeSlotPlanes(slots[position]);
  std::memmove(&slots[position], &slots[position + 1],
               sizeof(PlaneSlot) * (kPlanesPerLayer - 1 - position));
  const PlaneSlot& image = slots[kImagePosition];
  InitSlot(slots[kPlanesPerLayer - 1], kPlanesPerLayer - 1, image.left, image.top, image.width,
           image.height, image.bits);
  return position;
}
