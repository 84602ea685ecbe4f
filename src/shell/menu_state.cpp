#include "shell/menu_state.h"

#include <initializer_list>

#include "settings/settings.h"
#include "base/command_ids.h"
#include "document/selection_rows.h"

namespace {

int KindOf(const Canvas* canvas) { return canvas ? canvas->selectionKind : 0; }

bool KindIn(int kind, std::initializer_list<int> kinds) {
  for (int k : kinds)
    if (k == kind) return true;
  return false;
}

bool HasTransparencyPlane(const Canvas* canvas) {
  const int index = SlotIndex(LayerOf(canvas->activePlane), kTransparencyPosition);
  return canvas->planes[index].plane != nullptr;
}

MenuItemState Enabled(bool enabled) { return {true, enabled, false}; }
MenuItemState Checked(bool checked) { return {true, true, checked}; }

}  // namespace

bool SelectionExists(const Canvas* canvas) {
  return canvas && (canvas->selectionKind != 0 || canvas->selectionPlane != nullptr);
}

bool SelectionOutlineExists(const Canvas* canvas) {
  const int kind = KindOf(canvas);
  // A seed fill is a raster only: nothing to draw.
  return kind != 0 && kind != kShapelessSelection && kind != cmd::kSeedFill;
}

MenuItemState MenuStateOf(int id, const Canvas* canvas, const MenuFlags& flags) {
  if (id >= cmd::kZoomFirst && id <= cmd::kZoomLast)
    return Checked(canvas && id == canvas->zoomStep + cmd::kZoomActual);
  if (id >= cmd::kOutsideHide && id <= cmd::kOutsideDarken)
    return Checked(settings.outsideDisplay == id - cmd::kOutsideHide);
  const bool smoothZoom = canvas && canvas->smoothZoom > 0;
  switch (id) {
    case cmd::kFromCameraOrScanner: return Enabled(flags.acquisitionAvailable);
    case cmd::kConvertToBezier:
      return Enabled(
          KindIn(KindOf(canvas), {cmd::kSelectionBox, cmd::kSelectionLine, cmd::kSelectionCircle,
                                  cmd::kSelectionPolygon, cmd::kWire}));
    case cmd::kEditBezier: return Enabled(KindIn(KindOf(canvas), {cmd::kBezier, cmd::kFreeBezier}));
    case cmd::kDisplayPosition: return Checked(settings.displayPosition);
    case cmd::kDarkenOutsideBoundary: return Checked(settings.darkenOutsideBoundary);
    case cmd::kRuler: return Checked(canvas && canvas->rulersOn);
    case cmd::kDoubleAccuracy: return Checked(canvas && canvas->doubleAccuracy);
    case cmd::kGrid: return Checked(canvas && canvas->gridOn);
    case cmd::kMagnify: return Checked(flags.magnifierOpen);
    case cmd::kFilterPanel: return Checked(flags.filterPanelOpen);
    case cmd::kSettingsPanel: return Checked(flags.settingsPanelOpen);
    case cmd::kSmoothZoom: return Checked(smoothZoom);
    case cmd::kMergeLayers:
    case cmd::kMergeWithLower: return Enabled(!smoothZoom);
    case cmd::kLine: return Enabled(SelectionOutlineExists(canvas));
    case cmd::kPaste:
    case cmd::kPasteAsLayer: return Enabled(flags.clipboardHasImage);
    case cmd::kDelete:
    case cmd::kFattenSelection:
    case cmd::kSlimSelection:
    case cmd::kBlurOutside:
    case cmd::kBlurInside:
    case cmd::kFill: return Enabled(SelectionExists(canvas));
    case cmd::kConvertToLayer:
      return Enabled(SelectionExists(canvas) && HasTransparencyPlane(canvas));
    case cmd::kSaveSelection:
      return Enabled(SelectionExists(canvas) || SelectionOutlineExists(canvas));
    default: return {false, true, false};
  }
}

MainMenu MainMenuFor(int openDocuments) {
  return openDocuments > 0 ? MainMenu::Child : MainMenu::Init;
}
