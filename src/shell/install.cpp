#include "shell/install.h"

#include "paint/install.h"
#include "shell/right_click_keys.h"
#include "shell/smooth_zoom_tool.h"
#include "shell/undo_commands.h"

void InstallShell(const std::string& tempFolder) {
  InstallUndoHistory();
  InstallSmoothZoomTool(tempFolder);
  InstallRightClickKeys();
}

void InstallSubsystems(const std::string& tempFolder) {
  InstallPaint();
  InstallShell(tempFolder);
}
