#include "layers/merge_layers.h"

#include <cstring>

#include "document/canvas_manager.h"
#include "document/canvas_request.h"
#include "document/canvas_slots.h"
#include "layers/block_compose.h"
#include "layers/layer_copy.h"

namespace {

bool Hidden(const Canvas* canvas, int layer) {
  return canvas->planes[SlotIndex(layer, 0)].mixMode == kMixHide;
}

}  // namespace

void RequestMergedCanvas(Canvas* source, MergeKind kind, int mergeOption) {
  const int mode = kind == MergeKind::AllLayers ? kModeMergeAll : kModeMergeVisible;
  RequestLayersOf(source, mode, 1);
  CanvasRequest.planeCount[0] = 2;
  CanvasRequest.mergeOption = mergeOption;
  if (kind != MergeKind::AllLayers) return;
  const int layers = CanvasManager.LayerCount(source);
  for (int layer = 0; layer < layers; ++layer) {
    if (!Hidden(source, layer)) continue;
    // The hidden layer's own description goes to the next place.
    CanvasRequestRecord& r = CanvasRequest;
    const PlaneSlot& slot = source->planes[SlotIndex(layer, 0)];
    const int at = r.layerCount++;
    r.left[at] = slot.left, r.top[at] = slot.top;
    r.width[at] = slot.width, r.height[at] = slot.height;
    r.bits[at] = static_cast<int32_t>(slot.bits);
    r.planeCount[at] = 2;
  }
}

int FillMergedCanvas(Canvas* canvas) {
  Canvas* source = CanvasRequest.source;
  if (!source) return 0;
  const int option = CanvasRequest.mergeOption;
  PlaneSlot* base = canvas->planes;
  Plane* coverage = option ? base[kTransparencyPosition].plane : nullptr;
  if (!ComposeIntoPlanes(source, option != 0, base[kImagePosition].plane, coverage, 0, 0, false))
    return 0;
  if (CanvasRequest.mode != kModeMergeAll) return 1;
  // Hidden work survives the merge as layers above the merged one.
  const int layers = CanvasManager.LayerCount(source);
  for (int layer = 0, next = 1; layer < layers; ++layer) {
    if (!Hidden(source, layer)) continue;
    if (!CopyLayer(&canvas->planes[SlotIndex(next++, 0)], &source->planes[SlotIndex(layer, 0)]))
      return 0;
  }
  return 1;
}

int NewFlattenedLayer(Canvas* canvas, int option) {
  const int layer = CanvasManager.LayerCount(canvas);
  if (layer >= kMaxLayers) return 0;
  PlaneSlot* slots = &canvas->planes[SlotIndex(layer, 0)];
  std::memcpy(slots, canvas->planes, sizeof(PlaneSlot) * kPlanesPerLayer);
  for (int position = 0; position < kPlanesPerLayer; ++position) {
    slots[position].plane = slots[position].accuracyPlane = slots[position].spare = nullptr;
    std::memset(slots[position].planeFlags, 0, kPlaneFlagCount);
  }
  // Hidden while composing, so that it doesn't count itself.
  slots[0].mixMode = kMixHide;
  slots[0].savedMixMode = kMixHide;
  slots[0].opacityLoss = 0;
  if (!MakeLayerPlanes(slots, 2)) {
    for (int position = 0; position < kPlanesPerLayer; ++position) FreeSlotPlanes(slots[position]);
    std::memset(slots, 0, sizeof(PlaneSlot) * kPlanesPerLayer);
    return -1;
  }
  NameNewLayer(canvas, layer);
  canvas->activePlane = SlotIndex(layer, 0);
  Plane* coverage = option ? slots[kTransparencyPosition].plane : nullptr;
  ComposeIntoPlanes(canvas, option != 0, slots[0].plane, coverage, slots[0].left, slots[0].top,
                    false);
  slots[0].displayMode = kDisplayThisLayerOnly;
  return SlotIndex(layer, 0);
}
