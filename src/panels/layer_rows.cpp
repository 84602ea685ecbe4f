#include "panels/layer_rows.h"

#include "settings/settings.h"

LayerPanelState layerPanel;

namespace {

constexpr int kVisibleX = 2;
constexpr int kHiddenX = 12;
constexpr int kPlaneX = 16;

bool HasHeight(int position) {
  if (position == kImagePosition) return true;
  return settings.showPlanes && position != kTransparencyPosition;
}

}  // namespace

std::vector<int> RowPlanes(const Canvas* canvas) {
  std::vector<int> indices;
  for (int layer = 0; layer < kMaxLayers && canvas->planes[SlotIndex(layer, 0)].plane; ++layer)
    for (int position = 0; position < kPlanesPerLayer; ++position) {
      const int index = SlotIndex(layer, position);
      if (!canvas->planes[index].plane) break;
      indices.push_back(index);
    }
  return indices;
}

std::vector<RowPlace> LayOutRows(const Canvas* canvas) {
  std::vector<RowPlace> places;
  int y = 0;
  layerPanel.visibleRowCount = 0;
  for (int index : RowPlanes(canvas)) {
    const int position = PositionOf(index);
    int x = kPlaneX;
    if (position == kImagePosition)
      x = canvas->planes[index].mixMode > kMixHide ? kVisibleX : kHiddenX;
    if (!HasHeight(position)) {
      places.push_back({index, x, y, 0, 0});
      continue;
    }
    places.push_back({index, x, y, kRowWidth, kRowHeight});
    y += kRowHeight;
    ++layerPanel.visibleRowCount;
  }
  layerPanel.listHeight = layerPanel.visibleRowCount * kRowHeight;
  return places;
}

bool RowIsActive(const Canvas* canvas, int row) {
  const int active = canvas->activePlane;
  return row == active || (!settings.showPlanes && row == SlotIndex(LayerOf(active), 0));
}

int RowOfWindow(WindowHandle row, const Canvas* canvas) {
  if (!row) return -1;
  for (int index : RowPlanes(canvas))
    if (layerPanel.layerRows[index] == row) return index;
  return -1;
}
