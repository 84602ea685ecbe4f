#include "shell/install.h"

#include "paint/stroke/stroke_routes.h"
#include "paint/tip/pen_state.h"
#include "paint/tip/tip.h"
#include "shell/right_click_keys.h"
#include "shell/smooth_zoom_tool.h"
#include "shell/undo_commands.h"

void InstallSubsystems(const std::string& tempFolder) {
  InstallStrokeEngine();
  // The pen of the last run comes back.
  LoadPenState();
  BuildTip();
  InstallUndoHistory();
  InstallSmoothZoomTool(tempFolder);
  InstallRightClickKeys();
}
