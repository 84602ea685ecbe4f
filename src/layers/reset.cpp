#include "layers/reset.h"

#include "layers/duplicates.h"
#include "layers/layer_command.h"
#include "layers/layer_resize.h"
#include "layers/layer_windows.h"

void ResetLayers() {
  CloseResizeBySides();
  resizeSides = {};
  colorAdjustOwnsPointer = false;
  layersTitleHooks.Clear();
  layerWindows = {};
  lastDuplicateChoices = {};
}
