// Whole-plane fills of the active layer: Blank Sheet, clearing a plane,
// initializing mask and transparency, Negative.
#include <vector>

#include "document/canvas_manager.h"
#include "document/canvas_rows.h"
#include "document/canvas_slots.h"

namespace {

PlaneSlot* ActiveLayerSlots(Canvas* canvas) {
  return &canvas->planes[SlotIndex(LayerOf(canvas->activePlane), 0)];
}

int FillIfPresent(Plane* plane, uint8_t value) {
  if (!plane) return 0;
  FillPlane(plane, value);
  return 1;
}

// Row y takes the texture's row y mod its height; columns repeat.
void TileTexture(Plane* image, Plane* texture) {
  const size_t pixel = image->bytesPerPixel;
  std::vector<uint8_t> source(static_cast<size_t>(texture->width) * pixel);
  std::vector<uint8_t> row(static_cast<size_t>(image->width) * pixel);
  for (int y = 0; y < image->height; ++y) {
    PlaneStore.ReadRow(texture, y % texture->height, 0, texture->width - 1, source.data());
    for (int x = 0; x < image->width; ++x)
      for (size_t b = 0; b < pixel; ++b)
        row[x * pixel + b] = source[(x % texture->width) * pixel + b];
    PlaneStore.WriteRow(image, y, 0, image->width - 1, row.data());
  }
}

}  // namespace

int CanvasManagerObject::BlankSheet(Canvas* canvas, BlankSheetKind kind, Plane* texture) {
  PlaneSlot* slots = ActiveLayerSlots(canvas);
  Plane* image = slots[kImagePosition].plane;
  Plane* transparency = slots[kTransparencyPosition].plane;
  // Transparent clears the coverage and leaves the colours alone.
  if (kind == BlankSheetKind::Transparent) return FillIfPresent(transparency, 0);
  if (!image) return 0;
  if (kind == BlankSheetKind::Texture) {
    if (!texture || texture->bits != image->bits) return 0;
    TileTexture(image, texture);
  } else {
    FillPlane(image, kind == BlankSheetKind::White ? 255 : 0);
  }
  FillIfPresent(transparency, 255);
  return 1;
}

int CanvasManagerObject::ClearPlane(Canvas* canvas) {
  if (ActiveIsImage(canvas)) return 0;
  const PlaneSlot& slot = canvas->planes[canvas->activePlane];
  return FillIfPresent(slot.plane, slot.planeFlags[kFlagLineDraw] ? 255 : 0);
}

int CanvasManagerObject::InitializeMask(Canvas* canvas) {
  return FillIfPresent(ActiveLayerSlots(canvas)[kMaskPosition].plane, 0);
}

int CanvasManagerObject::InitializeTransparency(Canvas* canvas) {
  return FillIfPresent(ActiveLayerSlots(canvas)[kTransparencyPosition].plane, 255);
}

int CanvasManagerObject::Negative(Canvas* canvas) {
  Plane* plane = canvas->planes[canvas->activePlane].plane;
  if (!plane) return 0;
  std::vector<uint8_t> row(static_cast<size_t>(plane->width) * plane->bytesPerPixel);
  for (int y = 0; y < plane->height; ++y) {
    PlaneStore.ReadRow(plane, y, 0, plane->width - 1, row.data());
    for (uint8_t& byte : row) byte = static_cast<uint8_t>(255 - byte);
    PlaneStore.WriteRow(plane, y, 0, plane->width - 1, row.data());
  }
  return 1;
}
