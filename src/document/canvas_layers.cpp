// Layers as wholes: counting, adding, duplicating, deleting, reordering.
#include <algorithm>
#include <cstring>
#include <memory>
#include <new>
#include <vector>

#include "document/canvas_manager.h"
#include "document/canvas_slots.h"
#include "document/undo_history.h"
#include "platform/platform.h"
#include "resources/strings.h"

namespace {

constexpr int kStringBaseSizeChange = 1400;
constexpr size_t kLayerBytes = sizeof(PlaneSlot) * kPlanesPerLayer;

PlaneSlot* LayerSlots(Canvas* canvas, int layer) {
  return &canvas->planes[SlotIndex(layer, 0)];
}

// Copies every row of src into dest, which has src's size and bits.
void CopyRows(Plane* dest, Plane* src) {
  std::vector<uint8_t> row(static_cast<size_t>(src->width) * src->bytesPerPixel);
  for (int y = 0; y < src->height; ++y) {
    PlaneStore.ReadRow(src, y, 0, src->width - 1, row.data());
    PlaneStore.WriteRow(dest, y, 0, src->width - 1, row.data());
  }
}

// An active plane left on an empty slot falls back to its layer's image.
void KeepActivePlaneOnPlane(Canvas* canvas, int fallback) {
  if (!canvas->planes[canvas->activePlane].plane) canvas->activePlane = fallback;
}

}  // namespace

int CanvasManagerObject::LayerCount(const Canvas* canvas) const {
  int layers = 0;
  while (layers < kMaxLayers && canvas->planes[SlotIndex(layers, 0)].plane) ++layers;
  return layers;
}

int CanvasManagerObject::AddLayer(Canvas* canvas, int left, int top, int width, int height) {
  const int layer = LayerCount(canvas);
  if (layer >= kMaxLayers) return 0;
  PlaneSlot* slots = LayerSlots(canvas, layer);
  for (int position = 0; position < kPlanesPerLayer; ++position)
    InitSlot(slots[position], position, left, top, width, height, 24);
  const int made = MakeLayerPlanes(slots, 2);
  NameNewLayer(canvas, layer);
  return made ? SlotIndex(layer, 0) : -1;
}

int CanvasManagerObject::AddLayerByUser(Canvas* canvas, int width, int height) {
  width = std::min(std::max(width, 1), canvas->canvasWidth);
  height = std::min(std::max(height, 1), canvas->canvasHeight);
  const int layer = LayerCount(canvas);
  const int index = AddLayer(canvas, (canvas->canvasWidth - width) / 2,
                             (canvas->canvasHeight - height) / 2, width, height);
  if (index == 0) return 0;
  if (index < 0) {
    ShowMemoryBox(LayerSlots(canvas, layer));
    return -1;
  }
  // A new layer lands directly above the active one.
  const int above = LayerOf(canvas->activePlane) + 1;
  const int placed = layer == above || MoveLayer(canvas, layer, above) ? above : layer;
  SelectPlane(canvas, SlotIndex(placed, 0));
  platform::SendToWindow(platform::Window::LayerPanel, platform::MsgLayerRedraw, -1,
                         reinterpret_cast<intptr_t>(canvas));
  return SlotIndex(placed, 0);
}

int CanvasManagerObject::DuplicateLayer(Canvas* canvas, int index) {
  const int layer = LayerCount(canvas);
  const int source = index / kPlanesPerLayer;
  if (index < 0 || source >= layer || layer >= kMaxLayers) return 0;
  PlaneSlot* from = LayerSlots(canvas, source);
  PlaneSlot* to = LayerSlots(canvas, layer);
  std::memcpy(to, from, kLayerBytes);
  for (int position = 0; position < kPlanesPerLayer; ++position)
    to[position].plane = to[position].accuracyPlane = to[position].spare = nullptr;
  NameLayerBase(canvas, layer);
  for (int position = 0; position < kPlanesPerLayer && from[position].plane; ++position) {
    Plane* src = from[position].plane;
    to[position].plane = PlaneStore.CreatePlane(src->width, src->height,
                                                static_cast<int>(src->bits), 0, 0,
                                                ImageBufferKind());
    if (!to[position].plane) return -1;
    CopyRows(to[position].plane, src);
  }
  return SlotIndex(layer, 0);
}

void CanvasManagerObject::DeleteLayer(Canvas* canvas, int layer) {
  const int layers = LayerCount(canvas);
  if (layer < 1 || layer >= layers) return;  // the base layer stays
  PlaneSlot* slots = LayerSlots(canvas, layer);
  for (int position = 0; position < kPlanesPerLayer; ++position) FreeSlotPlanes(slots[position]);
  std::memmove(slots, LayerSlots(canvas, layer + 1), kLayerBytes * (layers - 1 - layer));
  std::memset(LayerSlots(canvas, layers - 1), 0, kLayerBytes);
  KeepActivePlaneOnPlane(canvas, 0);
}

int CanvasManagerObject::MoveLayer(Canvas* canvas, int from, int to) {
  const int layers = LayerCount(canvas);
  if (from < 0 || to < 0 || from == to || from >= layers || to >= layers) return 0;
  // The rollback is a whole record: too big for the stack.
  std::unique_ptr<Canvas> saved(new (std::nothrow) Canvas(*canvas));
  if (!saved) return 0;

  PlaneSlot moving[kPlanesPerLayer];
  std::memcpy(moving, LayerSlots(canvas, from), kLayerBytes);
  if (from < to)
    std::memmove(LayerSlots(canvas, from), LayerSlots(canvas, from + 1), kLayerBytes * (to - from));
  else
    std::memmove(LayerSlots(canvas, to + 1), LayerSlots(canvas, to), kLayerBytes * (from - to));
  std::memcpy(LayerSlots(canvas, to), moving, kLayerBytes);

  // The base layer fixes the canvas size: it may only trade places with a
  // layer of the same size.
  const bool refused = canvas->planes[0].width != saved->planes[0].width ||
                       canvas->planes[0].height != saved->planes[0].height;
  if (refused) {
    ShowCanvasBox(StringText(kStringBaseSizeChange), platform::MbOk | platform::MbIconWarning);
    *canvas = *saved;
  }
  saved.reset();
  KeepActivePlaneOnPlane(canvas, SlotIndex(LayerOf(canvas->activePlane), 0));
  NormalizeOrigins(canvas);
  // An undo across a reorder isn't meaningful.
  UndoHistory.ClearUndo(canvas, 1, 0);
  return !refused;
}
