#include "layers/install.h"

#include "base/command_ids.h"
#include "base/command_registry.h"
#include "display/pointer_routing.h"
#include "document/canvas_content.h"
#include "document/canvas_manager.h"
#include "document/canvas_request.h"
#include "layers/convert_selection.h"
#include "layers/duplicates.h"
#include "layers/flips.h"
#include "layers/layer_command.h"
#include "layers/layer_copy.h"
#include "layers/layer_windows.h"
#include "layers/merge_layers.h"
#include "layers/rotate_box.h"

namespace {

// Mode 5: every layer of the source, whole.
int FillDuplicate(Canvas* canvas) {
  const Canvas* source = CanvasRequest.source;
  if (!source) return 0;
  const int layers = CanvasManager.LayerCount(source);
  for (int layer = 0; layer < layers; ++layer)
    if (!CopyLayer(&canvas->planes[SlotIndex(layer, 0)], &source->planes[SlotIndex(layer, 0)]))
      return 0;
  return 1;
}

void Flip(Canvas* canvas, FlipAxis axis) {
  if (FlipLayer(canvas, axis)) LayersChanged(canvas);
}

}  // namespace

void InstallLayers() {
  SetCanvasContentFill(kModeMergeVisible, FillMergedCanvas);
  SetCanvasContentFill(kModeMergeAll, FillMergedCanvas);
  SetCanvasContentFill(kModeDuplicate, FillDuplicate);
  SetCanvasContentFill(kModeResizedDuplicate, FillResizedDuplicate);
  SetCanvasContentFill(kModeResizedCanvas, FillResizedCanvas);
  SetCanvasContentFill(kModeRotatedDuplicate, FillRotatedDuplicate);
  RegisterCanvasCommand(cmd::kMergeWithLower, [](Canvas* canvas, intptr_t) {
    LayerCommand(canvas, kLayerItemMergeDown, canvas->activePlane);
  });
  RegisterCanvasCommand(cmd::kConvertToLayer, [](Canvas* canvas, intptr_t) {
    if (ConvertSelectionToLayer(canvas) > 0) LayersChanged(canvas);
  });
  RegisterCanvasCommand(cmd::kFlipVertically,
                        [](Canvas* canvas, intptr_t) { Flip(canvas, FlipAxis::Vertical); });
  RegisterCanvasCommand(cmd::kFlipHorizontally,
                        [](Canvas* canvas, intptr_t) { Flip(canvas, FlipAxis::Horizontal); });
  RegisterCanvasCommand(cmd::kRotate, [](Canvas* canvas, intptr_t) {
    RotateChoice choice;
    if (layerWindows.rotateDialog && layerWindows.rotateDialog(canvas, &choice) &&
        RotateLayerBox(canvas, choice.degrees))
      LayersChanged(canvas);
  });
  pointerRoutes.layerCommand = [](Canvas* canvas, int layer, int item) {
    LayerCommand(canvas, item, SlotIndex(layer, 0));
  };
}
