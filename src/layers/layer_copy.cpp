#include "layers/layer_copy.h"

#include <cstdio>
#include <cstring>

#include "document/canvas_manager.h"
#include "document/canvas_request.h"
#include "document/canvas_slots.h"

int CopyLayerPlanes(PlaneSlot* to, const PlaneSlot* from, const Rect& place,
                    const PlaneCopier& copy) {
  Plane* made[kPlanesPerLayer] = {};
  for (int position = 0; position < kPlanesPerLayer && from[position].plane; ++position) {
    made[position] = copy(from[position].plane, position);
    if (!made[position]) {
      for (Plane*& plane : made) PlaneStore.FreePlane(&plane);
      return 0;
    }
  }
  for (int position = 0; position < kPlanesPerLayer; ++position) FreeSlotPlanes(to[position]);
  std::memcpy(to, from, sizeof(PlaneSlot) * kPlanesPerLayer);
  for (int position = 0; position < kPlanesPerLayer; ++position) {
    PlaneSlot& slot = to[position];
    slot.plane = made[position];
    slot.accuracyPlane = slot.spare = nullptr;
    slot.left = place.left, slot.top = place.top;
    slot.width = place.Width(), slot.height = place.Height();
  }
  return 1;
}

int CopyLayer(PlaneSlot* to, const PlaneSlot* from) {
  const Rect place = Rect::OfSize(from->left, from->top, from->width, from->height);
  return CopyLayerPlanes(to, from, place, [](Plane* source, int) {
    Plane* copy = PlaneStore.CreatePlane(source->width, source->height,
                                         static_cast<int>(source->bits), 0, 0, ImageBufferKind());
    if (copy && !PlaneStore.CopyPlane(copy, source)) PlaneStore.FreePlane(&copy);
    return copy;
  });
}

void RequestLayersOf(Canvas* source, int mode, int layerCount) {
  std::memset(&CanvasRequest, 0, sizeof CanvasRequest);
  CanvasRequest.mode = mode;
  CanvasRequest.source = source;
  CanvasRequest.layerCount = layerCount;
  CanvasRequest.dpi = source->dpi;
  for (int layer = 0; layer < layerCount; ++layer) {
    const PlaneSlot* slots = &source->planes[SlotIndex(layer, 0)];
    CanvasRequest.left[layer] = slots[0].left;
    CanvasRequest.top[layer] = slots[0].top;
    CanvasRequest.width[layer] = slots[0].width;
    CanvasRequest.height[layer] = slots[0].height;
    CanvasRequest.bits[layer] = static_cast<int32_t>(slots[0].bits);
    int alphas = 0;
    while (alphas + 1 < kPlanesPerLayer && slots[alphas + 1].plane) ++alphas;
    CanvasRequest.planeCount[layer] = alphas;
    for (int position = 0; position < kPlanesPerLayer; ++position)
      std::snprintf(CanvasRequest.planeNames[SlotIndex(layer, position)], kRequestPlaneNameChars,
                    "%.9s", slots[position].name);
  }
}
