#include "selection/detection_install.h"

#include <cstring>

#include "base/command_ids.h"
#include "base/command_registry.h"
#include "display/pointer_routing.h"
#include "selection/detect_selection.h"
#include "selection/raster_outline.h"
#include "selection/seed_fill.h"
#include "selection/seed_source.h"
#include "selection/shape_tool.h"

void InstallDetection() {
  ShapeTool seedFill;
  seedFill.press = PressSeedFill;
  seedFill.outline = ToggleRasterOutline;
  RegisterShapeTool(cmd::kSeedFill, seedFill);
  RegisterCanvasCommand(cmd::kDetectSelection,
                        [](Canvas* canvas, intptr_t) { OpenDetectSelection(canvas); });
  pointerRoutes.detectSelectionPick = SampleForDetectSelection;
}

void ResetDetection() {
  seedTolerance = 20;
  seedLayer = kSeedCurrent;
  seedPlane = -1;
  std::memset(pickTable, 0, sizeof pickTable);
  pickTableFresh = 1;
  pickIsHsv = pickCondition = pickTarget = 0;
  pickDisplayed = 1;
  pickCanvas = nullptr;
  pickDialog = nullptr;
  pickOldPlane = 0;
}
