#include <algorithm>

#include "display/compose.h"
#include "display/compose_rows.h"
#include "pixel/mul_table.h"

namespace {

constexpr int32_t kMixHighLight = 7;

// Layers that cover: shown, of a known mode, and not High Light, whose light
// adds to what is below and hides none of it.
bool Covers(const PlaneSlot& image) {
  return image.mixMode >= 1 && image.mixMode <= 9 && image.mixMode != kMixHighLight;
}

}  // namespace

DibTile* ComposeCoverage(Canvas* canvas, int x0, int y0, int x1, int y1) {
  const int64_t width = static_cast<int64_t>(x1) - x0 + 1;
  const int64_t height = static_cast<int64_t>(y1) - y0 + 1;
  if (!canvas || width < 1 || height < 1 || width > INT32_MAX || height > INT32_MAX) return nullptr;
  if (!EnsureComposeRows(width)) return nullptr;
  DibTile* tile = CreateTile(static_cast<int>(width), static_cast<int>(height), 8);
  if (!tile) return nullptr;
  uint8_t* coverage = composeRows.Coverage(0);
  for (int row = 0; row < height; ++row) {
    const int y = y0 + row;
    uint8_t* acc = TileRow(tile, row);
    for (int layer = 0; layer < kMaxLayers; ++layer) {
      const int index = layer * kPlanesPerLayer;
      const PlaneSlot& image = canvas->planes[index];
      if (!image.plane) break;
      if (!Covers(image) || !RowInLayer(image, y)) continue;
      LayerCoverageRow(canvas, y, x0, x1, coverage, index);
      const uint8_t* byKeep = MulTable[255 - std::clamp(image.opacityLoss, 0, 255)];
      for (int k = 0; k < width; ++k) {
        const unsigned a = byKeep[coverage[k]];
        acc[k] = static_cast<uint8_t>(255 - MulTable[255 - acc[k]][255 - a]);
      }
    }
  }
  return tile;
}
