#include "shell/tool_change.h"

#include <map>
#include <utility>

#include "document/active_canvas.h"
#include "platform/platform.h"
#include "base/command_ids.h"
#include "shell/shell_windows.h"

int lastDraftTool = 0;
int previousTool = cmd::kFreeHandConnect;

HookList<Canvas*> draftStoreHooks;
HookList<> toolStateHooks;

namespace {
std::map<int, ToolStart> toolStarts;
}  // namespace

void RegisterToolStart(int tool, ToolStart start) { toolStarts[tool] = std::move(start); }

int PasteKindOf(int tool) {
  switch (tool) {
    case cmd::kPaste: return kPastePlain;
    case cmd::kPasteFromFile:
    case cmd::kPasteFromPartsBox: return kPasteWithFile;
    default: return kPasteOwnMode;
  }
}

bool IsDraftTool(int tool) {
  return (tool >= cmd::kSelectionBox && tool <= cmd::kSelectionPolygon) ||
         (tool >= cmd::kSeedFill && tool <= cmd::kEditBezier);
}

void ChangeTool(int tool, const std::string& path) {
  const int previous = previousTool = currentTool;
  if (Canvas* canvas = ActiveCanvas()) draftStoreHooks.Run(canvas);
  currentTool = tool;
  toolStateHooks.Run();
  auto start = toolStarts.find(tool);
  if (start != toolStarts.end() && start->second && !start->second(PasteKindOf(tool), path)) {
    currentTool = previous;
    toolStateHooks.Run();
  }
  if (shellWindows.toolButtonsChanged) shellWindows.toolButtonsChanged(previous, currentTool);
  platform::ClearStatus();
  if (IsDraftTool(previous)) lastDraftTool = previous;
}

void ResetToolState() {
  previousTool = cmd::kFreeHandConnect;
  lastDraftTool = 0;
  toolStarts.clear();
  draftStoreHooks.Clear();
  toolStateHooks.Clear();
}
