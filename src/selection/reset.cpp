#include "selection/reset.h"

#include "selection/draft.h"
#include "selection/detection_install.h"
#include "selection/draft_engine.h"
#include "selection/gesture.h"
#include "selection/path_tools.h"
#include "selection/raster_commands.h"
#include "selection/selection_history.h"
#include "selection/selection_windows.h"
#include "selection/shape_tool.h"

void ResetSelection() {
  selectionWindows = {};
  Draft = {};
  ClearPath();
  ClearShapeTools();
  ResetToolCursor();
  historyHooks.Clear();
  draftAllowsHooks.Clear();
  ResetDetection();
  ResetPathTools();
  ResetSelectionRaster();
  historyFolder.clear();
}
