#include "shell/bezier_path_tool.h"

#include "base/command_ids.h"
#include "document/active_canvas.h"
#include "selection/edit_bezier.h"
#include "selection/path_file.h"
#include "shell/documents.h"
#include "shell/tool_change.h"

void InstallBezierPathTool(const std::string& tempFolder) {
  pathFileFolder = tempFolder;
  // Edit Bezier follows the focus: its backup is the path of the canvas it
  // began on, so it ends there and begins again on the canvas that comes.
  deactivationHooks.Add([](Canvas* canvas) {
    if (EditBezierCanvas() == canvas) EndEditBezier();
    StorePathOnLeaving(canvas);
  });
  activationHooks.Add([](Canvas* canvas) {
    RestorePath(canvas, 1);
    if (currentTool == cmd::kEditBezier) BeginEditBezier(canvas, cmd::kEditBezier);
  });
  documentReleaseHooks.Add([](Canvas* canvas) {
    if (EditBezierCanvas() == canvas) EndEditBezier();
    DeletePathFile(canvas);
  });
  RegisterToolStart(cmd::kEditBezier, [](int, const std::string&) {
    Canvas* canvas = ActiveCanvas();
    return canvas ? BeginEditBezier(canvas, previousTool) : 0;
  });
  toolStateHooks.Add([] {
    if (currentTool != cmd::kEditBezier) EndEditBezier();
  });
}
