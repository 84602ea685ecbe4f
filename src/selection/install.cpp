#include "selection/install.h"

#include "selection/detection_install.h"
#include "selection/draft_routes.h"
#include "selection/line_tool.h"
#include "selection/path_tools.h"
#include "selection/point_tools.h"
#include "selection/raster_commands.h"
#include "selection/rect_tools.h"
#include "selection/selection_file_commands.h"

void InstallSelection(const std::string& programFolder) {
  InstallDetection();
  InstallDraftRoutes();
  InstallRectTools();
  InstallLineTool();
  InstallPointTools();
  InstallPathTools();
  InstallSelectionRaster();
  InstallSelectionFiles(programFolder);
}
