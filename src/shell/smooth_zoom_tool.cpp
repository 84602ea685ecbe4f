#include "shell/smooth_zoom_tool.h"

#include "display/smooth_zoom.h"
#include "display/smooth_zoom_frame.h"
#include "display/pointer_routing.h"
#include "display/view_paint.h"
#include "document/active_canvas.h"
#include "base/command_ids.h"
#include "shell/command_routing.h"
#include "shell/documents.h"
#include "shell/tool_change.h"

namespace {

// What the tool gives back to; starting the tool again while its frame
// shows keeps it.
int returnTool = cmd::kFreeHandConnect;

int StartFrame(int, const std::string&) {
  Canvas* canvas = ActiveCanvas();
  if (!canvas) return 0;
  if (previousTool != cmd::kSmoothZoom) returnTool = previousTool;
  return BeginZoomFrame(canvas);
}

}  // namespace

void InstallSmoothZoomTool(const std::string& tempFolder) {
  smoothZoomFolder = tempFolder;
  pointerRoutes.overlayToggles[kOverlayZoomFrame] = ToggleZoomFrame;
  RegisterToolStart(cmd::kSmoothZoom, StartFrame);
  // The frame command reaches here only while a Smooth Zoom is in force.
  RegisterFrameCommand(cmd::kSmoothZoom, [](intptr_t) {
    if (Canvas* canvas = ActiveCanvas()) LeaveSmoothZoom(canvas);
  });
  zoomFrameDoneHooks.Add([] { ChangeTool(returnTool); });
  // Another tool ends the choice without entering.
  toolStateHooks.Add([] {
    if (currentTool != cmd::kSmoothZoom) EndZoomFrame();
  });
  beforeCloseHooks.Add([](Canvas* canvas) { LeaveSmoothZoom(canvas); });
  documentReleaseHooks.Add([](Canvas* canvas) {
    if (ZoomFrameCanvas() == canvas) ChangeTool(returnTool);
  });
}
