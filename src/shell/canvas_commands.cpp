// The document's handler: view commands, whole-plane operations, and the
// commands of other subsystems through their registered handlers.
#include "shell/canvas_command_groups.h"
#include "base/command_registry.h"
#include "shell/command_routing.h"

namespace {

// commandRunning holds for the length of the handler, on every way out.
class RunningCommand {
 public:
  RunningCommand() { commandRunning = true; }
  ~RunningCommand() { commandRunning = false; }
  RunningCommand(const RunningCommand&) = delete;
  RunningCommand& operator=(const RunningCommand&) = delete;
};

}  // namespace

void CanvasCommand(Canvas* canvas, int id, intptr_t lParam) {
  if (!canvas) return;
  RunningCommand running;
  if (ViewCommand(canvas, id) || PictureCommand(canvas, id)) return;
  RunCanvasHandler(canvas, id, lParam);
}
