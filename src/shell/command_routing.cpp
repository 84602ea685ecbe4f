#include "shell/command_routing.h"

#include "base/command_registry.h"
#include "shell/shell_windows.h"

bool textDialogOpen = false;
bool commandRunning = false;

HookList<Canvas*> undoSnapshotHooks;

void RouteCommand(int id, intptr_t lParam) {
  if (LayerResizeOpen() || textDialogOpen) return;
  if (FrameCommand(id, lParam)) return;
  // Not the frame's: the active document does it. With no document there is
  // nothing to do, so picture commands never check for one.
  if (!shellWindows.activeDocument || !shellWindows.sendCommand) return;
  WindowHandle document = shellWindows.activeDocument();
  if (document) shellWindows.sendCommand(document, id, lParam);
}

void ResetCommandRouting() {
  undoSnapshotHooks.Clear();
  textDialogOpen = false;
  commandRunning = false;
}
