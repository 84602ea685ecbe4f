#include "display/compose.h"

#include "display/compose_modes.h"
#include "display/compose_rows.h"

namespace {

using RowComposer = void (*)(Canvas*, int, int, int, int, uint8_t*);

// The routine of the active plane's display mode; null for an unknown mode,
// or a plane view of a slot without an 8-bit plane.
RowComposer ComposerOf(const Canvas* canvas) {
  const PlaneSlot& active = canvas->planes[canvas->activePlane];
  const bool planeShown = active.plane && active.plane->bytesPerPixel == 1;
  switch (active.displayMode) {
    case kDisplayThisLayerOnly: return ThisLayerRow;
    case kDisplayLayersBlended:
    case kDisplayBlendedFromPlane: return BlendedRow;
    case kDisplayChannel: return planeShown ? ChannelRow : nullptr;
    case kDisplayComposition: return planeShown ? CompositionRow : nullptr;
    case kDisplayThickness: return planeShown ? ThicknessRow : nullptr;
    default: return nullptr;
  }
}

// The tile's size, or 0 when the rectangle is empty or too large for one.
int Extent(int from, int to) {
  const int64_t extent = static_cast<int64_t>(to) - from + 1;
  return extent < 1 || extent > INT32_MAX ? 0 : static_cast<int>(extent);
}

bool ValidActivePlane(const Canvas* canvas) {
  return canvas && canvas->activePlane >= 0 && canvas->activePlane < kPlaneSlots;
}

}  // namespace

DibTile* Compose(Canvas* canvas, int x0, int y0, int x1, int y1, int shadeForView,
                 int baseOpaque) {
  const int width = Extent(x0, x1), height = Extent(y0, y1);
  if (!width || !height || !ValidActivePlane(canvas)) return nullptr;
  RowComposer composer = ComposerOf(canvas);
  if (!composer || !EnsureComposeRows(width)) return nullptr;
  DibTile* tile = CreateTile(width, height, 24);
  if (!tile) return nullptr;
  const bool shade = shadeForView && ViewShadingApplies(canvas);
  for (int row = 0; row < height; ++row) {
    uint8_t* pixels = TileRow(tile, row);
    composer(canvas, y0 + row, x0, x1, baseOpaque, pixels);
    if (shade) ShadeRow(canvas, y0 + row, x0, x1, pixels);
  }
  return tile;
}
