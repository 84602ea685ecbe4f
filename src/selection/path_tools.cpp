#include "selection/path_tools.h"

#include "selection/edit_bezier.h"
#include "selection/path_file.h"
#include "selection/wire_tool.h"

void InstallPathTools() {
  InstallWire();
  InstallEditBezier();
}

void ResetPathTools() {
  lastEdgeStrength = 0;
  pathFileFolder.clear();
  ResetEditBezier();
}
