#include "document/canvas_slots.h"

#include <cstdio>
#include <cstring>
#include <vector>

#include "platform/platform.h"
#include "resources/strings.h"
#include "settings/settings.h"

void InitSlot(PlaneSlot& slot, int position, int left, int top, int width, int height,
              uint32_t imageBits) {
  std::memset(&slot, 0, sizeof slot);
  slot.left = left;
  slot.top = top;
  slot.width = width;
  slot.height = height;
  slot.bits = position == kImagePosition ? imageBits : 8;
  slot.displayMode = position == kImagePosition ? static_cast<uint8_t>(settings.defaultDisplay)
                                                : kDisplayChannel;
  slot.mixMode = kMixNormal;
  slot.savedMixMode = kMixNormal;
}

void FreeSlotPlanes(PlaneSlot& slot) {
  PlaneStore.FreePlane(&slot.plane);
  PlaneStore.FreePlane(&slot.accuracyPlane);
  PlaneStore.FreePlane(&slot.spare);
}

void NameLayerBase(Canvas* canvas, int layer) {
  PlaneSlot* slots = &canvas->planes[SlotIndex(layer, 0)];
  std::snprintf(slots[kImagePosition].name, kPlaneNameChars, "LAYER%d", layer);
  std::snprintf(slots[kMaskPosition].name, kPlaneNameChars, "%01dM", 0);
  std::snprintf(slots[kTransparencyPosition].name, kPlaneNameChars, "%01dT", 0);
}

void NameNewLayer(Canvas* canvas, int layer) {
  NameLayerBase(canvas, layer);
  std::snprintf(canvas->planes[SlotIndex(layer, kFirstFurtherPosition)].name, kPlaneNameChars,
                "%01dT", 1);
}

int MakeLayerPlanes(PlaneSlot* slots, int alphaCount) {
  const int width = slots[kImagePosition].width, height = slots[kImagePosition].height;
  const uint32_t kind = ImageBufferKind();
  slots[kImagePosition].plane = PlaneStore.CreatePlane(
      width, height, static_cast<int>(slots[kImagePosition].bits), 255, 1, kind);
  if (!slots[kImagePosition].plane) return 0;
  for (int j = 0; j < alphaCount; ++j) {
    if ((j == 0 && settings.noMaskPlane) || (j == 1 && settings.noTransparencyPlane)) continue;
    PlaneSlot& slot = slots[j + 1];
    slot.plane = PlaneStore.CreatePlane(width, height, 8, j == 1 ? 255 : 0, 1, kind);
    if (!slot.plane) return 0;
    std::snprintf(slot.name, kPlaneNameChars, "@@");
  }
  return 1;
}

void ShowMemoryBox(const PlaneSlot* slots) {
  ShowCanvasBox(slots[kImagePosition].plane ? "memory error1" : "memory error0", platform::MbOk);
}

uint32_t ImageBufferKind() { return static_cast<uint32_t>(settings.imageBuffer); }

void FillPlane(Plane* plane, uint8_t value) {
  std::vector<uint8_t> row(static_cast<size_t>(plane->width) * plane->bytesPerPixel, value);
  for (int y = 0; y < plane->height; ++y)
    PlaneStore.WriteRow(plane, y, 0, plane->width - 1, row.data());
}

std::string FieldText(const char* field, size_t size) {
  const void* end = std::memchr(field, 0, size);
  return std::string(field, end ? static_cast<size_t>(static_cast<const char*>(end) - field) : size);
}

void ShowCanvasBox(const std::string& text, unsigned style) {
  platform::ShowMessageBox(platform::Window::Frame, text, kProductName, style);
}
