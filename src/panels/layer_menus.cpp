#include "panels/layer_menus.h"

#include "document/canvas_manager.h"
#include "document/canvas_slots.h"
#include "layers/layer_command.h"
#include "platform/platform.h"
#include "resources/strings.h"
#include "settings/settings.h"

namespace {

constexpr int kStringDeletePlane = 1410;
constexpr int kStringImage = 11000;  // 11001 Mask, 11002 Transparency follow

// What would change the stack's geometry waits for the end of Smooth Zoom.
constexpr int kGreyedInSmoothZoom[] = {
    kLayerItemAdd,         kLayerItemDelete,     kLayerItemDuplicate, kLayerItemResize,
    kLayerItemMergeLayers, kLayerItemDropShadow, kLayerItemMergeDown};
constexpr int kPlaneItemsGreyedInSmoothZoom[] = {kLayerItemAddTransparency, kLayerItemAddMask};

bool HasPlane(const Canvas* canvas, int layer, int position) {
  return canvas->planes[SlotIndex(layer, position)].plane != nullptr;
}

}  // namespace

RowMenu RightPressMenu(const Canvas* canvas, int row) {
  RowMenu menu;
  if (row < 0 || row >= kPlaneSlots || !canvas->planes[row].plane) return menu;
  const int position = PositionOf(row);
  if (position >= kFirstFurtherPosition) {
    menu.kind = RowMenuKind::FurtherPlane;
    return menu;
  }
  if (position != kImagePosition) return menu;
  menu.kind = settings.showPlanes ? RowMenuKind::LayerPlanes : RowMenuKind::Layer;
  if (canvas->smoothZoom <= 0) return menu;
  menu.greyed.assign(std::begin(kGreyedInSmoothZoom), std::end(kGreyedInSmoothZoom));
  if (menu.kind == RowMenuKind::LayerPlanes)
    menu.greyed.insert(menu.greyed.end(), std::begin(kPlaneItemsGreyedInSmoothZoom),
                       std::end(kPlaneItemsGreyedInSmoothZoom));
  return menu;
}

bool DeleteRowPlane(Canvas* canvas, int row) {
  if (RightPressMenu(canvas, row).kind != RowMenuKind::FurtherPlane) return false;
  const std::string question =
      FormatString(kStringDeletePlane, CanvasManager.PlaneLabel(canvas, row).c_str());
  if (platform::ShowMessageBox(platform::Window::Frame, question, kProductName,
                               platform::MbYesNo | platform::MbIconQuestion) != platform::IdYes)
    return false;
  return CanvasManager.DeletePlane(canvas, row) >= 0;
}

PlaneMenu PlaneMenuOf(const Canvas* canvas) {
  PlaneMenu menu;
  const int layer = LayerOf(canvas->activePlane);
  menu.maskEnabled = HasPlane(canvas, layer, kMaskPosition);
  menu.transparencyEnabled = HasPlane(canvas, layer, kTransparencyPosition);
  for (int position = kFirstFurtherPosition;
       position < kPlanesPerLayer && HasPlane(canvas, layer, position); ++position)
    menu.further.push_back(
        {position + 1, CanvasManager.PlaneLabel(canvas, SlotIndex(layer, position))});
  menu.addDelete = canvas->smoothZoom <= 0;
  return menu;
}

int PlaneOfItem(const Canvas* canvas, int item) {
  // Items run one above the positions they select.
  const int position = item - kPlaneItemImage;
  if (position < 0 || position >= kPlanesPerLayer) return -1;
  const int index = SlotIndex(LayerOf(canvas->activePlane), position);
  return canvas->planes[index].plane ? index : -1;
}

std::string StripPlaneName(const Canvas* canvas) {
  const int position = PositionOf(canvas->activePlane);
  if (position < kFirstFurtherPosition) return StringText(kStringImage + position);
  return CanvasManager.PlaneLabel(canvas, canvas->activePlane);
}
