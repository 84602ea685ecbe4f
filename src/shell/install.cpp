#include "shell/install.h"

#include "adjust/copy_between_channels.h"
#include "file/install.h"
#include "layers/install.h"
#include "paint/install.h"
#include "selection/detect_selection.h"
#include "selection/install.h"
#include "shell/bezier_path_tool.h"
#include "shell/documents.h"
#include "shell/file_commands.h"
#include "shell/layer_commands.h"
#include "shell/right_click_keys.h"
#include "shell/smooth_zoom_tool.h"
#include "shell/undo_commands.h"

void InstallShell(const std::string& tempFolder) {
  InstallUndoHistory();
  InstallFileCommands();
  InstallLayerCommands();
  InstallSmoothZoomTool(tempFolder);
  InstallBezierPathTool(tempFolder);
  InstallRightClickKeys();
  documentReleaseHooks.Add(DetectSelectionCanvasGoing);
}

void InstallSubsystems(const std::string& programFolder, const std::string& tempFolder) {
  InstallLayers();
  InstallPaint();
  InstallSelection(programFolder);
  InstallAdjust();
  InstallFile(programFolder);
  InstallShell(tempFolder);
}
