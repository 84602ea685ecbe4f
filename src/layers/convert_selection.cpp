#include "layers/convert_selection.h"

#include <cstring>
#include <vector>

#include "document/canvas_manager.h"
#include "document/canvas_rows.h"
#include "document/canvas_slots.h"
#include "document/selection_rows.h"
#include "pixel/mul_table.h"

namespace {

void ClearLayer(PlaneSlot* slots) {
  for (int position = 0; position < kPlanesPerLayer; ++position) FreeSlotPlanes(slots[position]);
  std::memset(slots, 0, sizeof(PlaneSlot) * kPlanesPerLayer);
}

// The box's pixels of the old layer, and its transparency cut by the
// selection: MUL(255 - outside, old transparency).
void CopyBox(Canvas* canvas, const PlaneSlot* from, PlaneSlot* to, const Rect& box) {
  const int width = box.Width();
  std::vector<uint8_t> colours(static_cast<size_t>(width) * 3), cover(width), outside(width);
  const int x0 = box.left - from[0].left, x1 = box.right - from[0].left;
  Plane* newCover = to[kTransparencyPosition].plane;
  for (int y = box.top; y <= box.bottom; ++y) {
    // Where the box reaches beyond the old layer, the new one is white and clear.
    std::memset(colours.data(), 255, colours.size());
    PlaneStore.ReadRow(from[0].plane, y - from[0].top, x0, x1, colours.data());
    PlaneStore.WriteRow(to[0].plane, y - box.top, 0, width - 1, colours.data());
    if (!newCover) continue;
    std::memset(cover.data(), from[kTransparencyPosition].plane ? 0 : 255, cover.size());
    if (from[kTransparencyPosition].plane)
      PlaneStore.ReadRow(from[kTransparencyPosition].plane, y - from[0].top, x0, x1, cover.data());
    ReadSelectionRow(canvas, y, box.left, box.right, outside.data());
    for (int k = 0; k < width; ++k) cover[k] = Mul255(255 - outside[k], cover[k]);
    PlaneStore.WriteRow(newCover, y - box.top, 0, width - 1, cover.data());
  }
}

}  // namespace

int ConvertSelectionToLayer(Canvas* canvas) {
  const Rect box = SelectionBox(canvas);
  const int layer = CanvasManager.LayerCount(canvas);
  if (box.Empty() || layer >= kMaxLayers) return -1;
  const PlaneSlot* from = &canvas->planes[SlotIndex(LayerOf(canvas->activePlane), 0)];
  PlaneSlot* to = &canvas->planes[SlotIndex(layer, 0)];
  std::memcpy(to, from, sizeof(PlaneSlot) * kPlanesPerLayer);
  for (int position = 0; position < kPlanesPerLayer; ++position) {
    PlaneSlot& slot = to[position];
    slot.plane = slot.accuracyPlane = slot.spare = nullptr;
    slot.left = box.left, slot.top = box.top;
    slot.width = box.Width(), slot.height = box.Height();
  }
  to[0].mixMode = kMixNormal;
  to[0].savedMixMode = 0;
  to[0].displayMode = kDisplayLayersBlended;
  if (!MakeLayerPlanes(to, 2)) {
    ClearLayer(to);
    return -1;
  }
  NameNewLayer(canvas, layer);
  CopyBox(canvas, from, to, box);
  return SlotIndex(layer, 0);
}
