#include "panels/row_press.h"

#include "document/canvas_manager.h"
#include "document/canvas_slots.h"
#include "layers/layer_command.h"
#include "panels/layer_rows.h"
#include "platform/platform.h"
#include "resources/strings.h"
#include "selection/draft.h"

namespace {

constexpr int kStringNoMoveInSmoothZoom = 1401;
// The image popup's items are the modes from 0, the other's from 10.
constexpr int kImageMenuShift = -1;
constexpr int kPlaneMenuShift = 9;

bool ValidRow(const Canvas* canvas, int row) {
  return row >= 0 && row < kPlaneSlots && canvas->planes[row].plane;
}

}  // namespace

bool RowPressRefused() { return colorAdjustOwnsPointer || Draft.active > 0; }

RowRelease ReleaseRow(Canvas* canvas, int from, int to) {
  if (!ValidRow(canvas, from) || !ValidRow(canvas, to)) return RowRelease::Nothing;
  if (LayerOf(from) == LayerOf(to)) {
    // Within a layer the press counts, not the release.
    if (from == canvas->activePlane) return RowRelease::LayerOptions;
    CanvasManager.SelectPlane(canvas, from);
    return RowRelease::Selected;
  }
  if (canvas->smoothZoom > 0) {
    ShowCanvasBox(StringText(kStringNoMoveInSmoothZoom), platform::MbOk | platform::MbIconWarning);
    return RowRelease::Refused;
  }
  CanvasManager.MoveLayer(canvas, LayerOf(from), LayerOf(to));
  return RowRelease::Moved;
}

DisplayMenu DisplayMenuOf(const Canvas* canvas, int row) {
  if (!RowIsActive(canvas, row) || !ValidRow(canvas, row)) return DisplayMenu::None;
  return PositionOf(canvas->activePlane) == kImagePosition ? DisplayMenu::Image
                                                           : DisplayMenu::Plane;
}

void ChooseDisplayMode(Canvas* canvas, DisplayMenu menu, int choice) {
  if (menu == DisplayMenu::None || choice < 1) return;
  const int shift = menu == DisplayMenu::Image ? kImageMenuShift : kPlaneMenuShift;
  canvas->planes[canvas->activePlane].displayMode = uint8_t(choice + shift);
}

void ToggleEye(Canvas* canvas, int row) {
  if (!ValidRow(canvas, row)) return;
  PlaneSlot& image = canvas->planes[SlotIndex(LayerOf(row), 0)];
  if (image.mixMode != kMixHide) {
    image.savedMixMode = image.mixMode;
    image.mixMode = kMixHide;
  } else {
    image.mixMode = image.savedMixMode ? image.savedMixMode : kMixNormal;
  }
}

void TogglePlaneOff(Canvas* canvas, int row) {
  if (!ValidRow(canvas, row) || PositionOf(row) == kImagePosition) return;
  canvas->planes[row].planeOff = !canvas->planes[row].planeOff;
}
