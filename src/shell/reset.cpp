#include "shell/reset.h"

#include <cstring>

#include "document/active_canvas.h"
#include "shell/command_routing.h"
#include "shell/documents.h"
#include "shell/file_history.h"
#include "shell/frame_geometry.h"
#include "shell/input_rules.h"
#include "shell/key_polling.h"
#include "shell/shell_windows.h"
#include "shell/tool_change.h"

void ResetShell() {
  ResetCommandRouting();
  ResetToolState();
  ResetCascade();
  std::memset(fileHistory, 0, sizeof fileHistory);
  for (auto* hooks :
       {&beforeCloseHooks, &documentReleaseHooks, &activationHooks, &deactivationHooks})
    hooks->Clear();
  frameDestroyHooks.Clear();
  preferencesClosedHooks.Clear();
  documentKeyHooks.Clear();
  shellWindows = {};
  keyPollWindows = {};
  appActive = 1;
  SetActiveCanvas(nullptr);
}
