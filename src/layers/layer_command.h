// LayerCommand: one item of the layer menus (tsLayPartsMenu and
// tsLayPartsMenu2), on the layer that holds planeIndex. The layer panel's
// rows and its strip reach every layer operation through here.
#pragma once

#include "base/hook_list.h"
#include "document/canvas.h"

enum LayerMenuItem : int {
  kLayerItemAdd = 1,
  kLayerItemDelete = 2,
  kLayerItemDuplicate = 3,
  kLayerItemSetting = 4,
  kLayerItemResize = 5,
  kLayerItemPlanes = 6,  // tsl_alpopt
  kLayerItemMergeLayers = 7,
  kLayerItemDropShadow = 8,
  kLayerItemMergeDown = 9,
  kLayerItemAddTransparency = 11,
  kLayerItemAddMask = 12,
};

// Refused without a word while a layer resize by drag is open or a
// colour-adjust window owns the pointer. After a change the layer panel
// is told (message 1036, -1, the canvas) and the picture repaints.
// 1 when the item ran, 0 when it was refused or cancelled.
int LayerCommand(Canvas* canvas, int item, int planeIndex);

// True while the modeless resize-by-sides dialog is open: the frame
// ignores commands meanwhile (layers/layer_resize.h).
bool LayerResizeOpen();

// Set by the colour adjustments while one of their windows owns the
// pointer: the frame's commands and the layer menus are refused meanwhile.
extern bool colorAdjustOwnsPointer;

// A layer went or changed size: the document's title and size display
// follow (the shell adds the hook).
extern HookList<Canvas*> layersTitleHooks;

// The layer panel redraws its list of the canvas (message 1036, -1) and the
// picture repaints.
void LayersChanged(Canvas* canvas);
