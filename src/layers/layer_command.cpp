#include "layers/layer_command.h"

#include "base/command_ids.h"
#include "base/command_registry.h"
#include "display/view_windows.h"
#include "document/canvas_manager.h"
#include "document/canvas_slots.h"
#include "layers/drop_shadow.h"
#include "layers/layer_resize.h"
#include "layers/layer_windows.h"
#include "layers/plane_roles.h"
#include "layers/merge_down.h"
#include "platform/platform.h"
#include "resources/strings.h"

bool colorAdjustOwnsPointer = false;
HookList<Canvas*> layersTitleHooks;

namespace {

constexpr int kStringDeleteLayer = 9002;
constexpr int kStringBaseLayer = 9003;

int AddLayerAbove(Canvas* canvas, int planeIndex) {
  int width = canvas->canvasWidth, height = canvas->canvasHeight;
  if (!layerWindows.addLayerDialog || !layerWindows.addLayerDialog(canvas, &width, &height))
    return 0;
  // The new layer lands above the layer the menu was opened on.
  const int active = canvas->activePlane;
  canvas->activePlane = SlotIndex(LayerOf(planeIndex), 0);
  const int added = CanvasManager.AddLayerByUser(canvas, width, height);
  if (added <= 0) canvas->activePlane = active;
  return added > 0;
}

int DeleteLayer(Canvas* canvas, int planeIndex) {
  const int layer = LayerOf(planeIndex);
  if (layer == 0) {
    ShowCanvasBox(StringText(kStringBaseLayer), platform::MbOk | platform::MbIconWarning);
    return 0;
  }
  const std::string name = CanvasManager.PlaneLabel(canvas, SlotIndex(layer, 0));
  if (platform::ShowMessageBox(platform::Window::Frame,
                               FormatString(kStringDeleteLayer, name.c_str()), kProductName,
                               platform::MbOkCancel | platform::MbIconQuestion) != platform::IdOk)
    return 0;
  CanvasManager.DeleteLayer(canvas, layer);
  layersTitleHooks.Run(canvas);
  return 1;
}

int DuplicateLayer(Canvas* canvas, int planeIndex) {
  const int index = CanvasManager.DuplicateLayer(canvas, planeIndex);
  if (index <= 0) return 0;
  CanvasManager.SelectPlane(canvas, index);
  return 1;
}

int LayerOptions(Canvas* canvas, int planeIndex) {
  if (!layerWindows.layerOptionsDialog ||
      !layerWindows.layerOptionsDialog(canvas, LayerOf(planeIndex)))
    return 0;
  canvas->modified = 1;
  return 1;
}

int Planes(Canvas* canvas, int planeIndex) {
  if (!layerWindows.planesDialog) return 0;
  layerWindows.planesDialog(canvas, planeIndex);
  return 1;
}

int Shadow(Canvas* canvas, int planeIndex) {
  ShadowChoice choice;
  if (!layerWindows.dropShadowDialog || !layerWindows.dropShadowDialog(&choice)) return 0;
  return DropShadow(canvas, LayerOf(planeIndex), choice.dx, choice.dy, choice.blur, choice.red,
                    choice.green, choice.blue);
}

int MergeWithLower(Canvas* canvas, int planeIndex) {
  int mergeTransparency = 0;
  if (!layerWindows.mergeDownDialog || !layerWindows.mergeDownDialog(&mergeTransparency)) return 0;
  return MergeDown(canvas, planeIndex, mergeTransparency);
}

int RunItem(Canvas* canvas, int item, int planeIndex) {
  switch (item) {
    case kLayerItemAdd:
      return AddLayerAbove(canvas, planeIndex);
    case kLayerItemDelete:
      return DeleteLayer(canvas, planeIndex);
    case kLayerItemDuplicate:
      return DuplicateLayer(canvas, planeIndex);
    case kLayerItemSetting:
      return LayerOptions(canvas, planeIndex);
    // The session tells the panel and repaints when it applies.
    case kLayerItemResize:
      ResizeLayerBySides(canvas, planeIndex);
      return 0;
    case kLayerItemPlanes:
      return Planes(canvas, planeIndex);
    case kLayerItemMergeLayers:
      RunFrameHandler(cmd::kMergeLayers, 0);
      return 0;
    case kLayerItemDropShadow:
      return Shadow(canvas, planeIndex);
    case kLayerItemMergeDown:
      return MergeWithLower(canvas, planeIndex);
    case kLayerItemAddTransparency:
      return MakePlaneOfRole(canvas, planeIndex, PlaneRole::Transparency) >= 0;
    case kLayerItemAddMask:
      return MakePlaneOfRole(canvas, planeIndex, PlaneRole::Mask) >= 0;
    default:
      return 0;
  }
}

}  // namespace

void LayersChanged(Canvas* canvas) {
  platform::SendToWindow(platform::Window::LayerPanel, platform::MsgLayerRedraw, -1,
                         reinterpret_cast<intptr_t>(canvas));
  if (viewWindows.invalidate) viewWindows.invalidate(canvas);
}

int LayerCommand(Canvas* canvas, int item, int planeIndex) {
  if (!canvas || LayerResizeOpen() || colorAdjustOwnsPointer) return 0;
  if (planeIndex < 0 || planeIndex >= kPlaneSlots || !canvas->planes[planeIndex].plane) return 0;
  if (!RunItem(canvas, item, planeIndex)) return 0;
  LayersChanged(canvas);
  return 1;
}
