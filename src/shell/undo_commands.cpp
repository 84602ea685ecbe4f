#include "shell/undo_commands.h"

#include "document/active_canvas.h"
#include "document/undo_history.h"
#include "base/command_ids.h"
#include "shell/command_routing.h"
#include "shell/documents.h"
#include "shell/shell_windows.h"

namespace {

// A whole record of the active plane, marking the picture changed or not.
void Snapshot(Canvas* canvas, int changed) {
  UndoHistory.RecordUndo(canvas, -1, changed, -1, -1, -1, -1, 0);
}

}  // namespace

void InstallUndoHistory() {
  // A step may have changed a plane's size: the view is laid out again.
  UndoHistory.repaint = [](Canvas* canvas) {
    if (shellWindows.viewChanged) shellWindows.viewChanged(canvas);
  };
  RegisterCanvasCommand(cmd::kUndo, [](Canvas* canvas, intptr_t) { UndoHistory.Undo(canvas, 1); });
  RegisterCanvasCommand(cmd::kRedo, [](Canvas* canvas, intptr_t) { UndoHistory.Redo(canvas, 1); });
  undoSnapshotHooks.Add([](Canvas* canvas) { Snapshot(canvas, 1); });
  // A fresh base of what the activated picture shows.
  activationHooks.Add([](Canvas* canvas) { Snapshot(canvas, 0); });
  // The copies of a closed picture serve nothing any more.
  documentReleaseHooks.Add([](Canvas* canvas) {
    if (canvas->serial == UndoHistory.canvasSerial) UndoHistory.ClearUndo(canvas, 1, 0);
  });
  frameDestroyHooks.Add([] { UndoHistory.ClearUndo(nullptr, 1, 0); });
  // The buffer kind or the count may have changed.
  preferencesClosedHooks.Add([] {
    if (Canvas* canvas = ActiveCanvas()) UndoHistory.ClearUndo(canvas, 1, 1);
  });
}
