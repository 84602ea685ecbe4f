// The frame's handler: file- and window-level commands and tool changes.
#include <string>

#include "document/active_canvas.h"
#include "platform/platform.h"
#include "resources/strings.h"
#include "base/command_ids.h"
#include "base/command_registry.h"
#include "shell/command_routing.h"
#include "base/command_table.h"
#include "shell/documents.h"
#include "shell/history_menu.h"
#include "shell/shell_windows.h"
#include "shell/tool_change.h"

namespace {

constexpr int kStringClearHistory = 1203;
constexpr int kStringNewFailed = 1303;

void NewDocument() {
  if (!shellWindows.newDialog || !shellWindows.createDocument) return;
  NewCanvasFields fields = OpenNewCanvasFields();
  if (!shellWindows.newDialog(fields)) return;
  AcceptNewCanvas(fields);  // one layer, mask and transparency, mode 0
  if (!shellWindows.createDocument())
    platform::ShowMessageBox(platform::Window::Frame, StringText(kStringNewFailed), kProductName,
                             platform::MbOk | platform::MbIconError);
}

void AskClearHistory() {
  const int answer =
      platform::ShowMessageBox(platform::Window::Frame, StringText(kStringClearHistory),
                               kProductName, platform::MbYesNo | platform::MbIconQuestion);
  if (answer == platform::IdYes) ClearFileHistory();
}

void MdiClientMessage(uint32_t message) {
  if (shellWindows.mdiClientMessage) shellWindows.mdiClientMessage(message);
}

void Call(const std::function<void()>& action) {
  if (action) action();
}

void ToolCommand(int id, intptr_t lParam) {
  switch (id) {
    case cmd::kPasteFromFile:
    case cmd::kPasteFromPartsBox:
      // The paste subsystem asks for the file, then changes the tool.
      RunFrameHandler(id, lParam);
      return;
    case cmd::kSmoothZoom: {
      // A smooth zoom in force ends; otherwise the tool starts one.
      const Canvas* canvas = ActiveCanvas();
      if (canvas && canvas->smoothZoom > 0)
        RunFrameHandler(id, lParam);
      else
        ChangeTool(id);
      return;
    }
    default: ChangeTool(id);
  }
}

}  // namespace

int FrameCommand(int id, intptr_t lParam) {
  if (colorAdjustOwnsPointer) return 1;
  if (id >= cmd::kHistoryFirst && id <= cmd::kHistoryLast) {
    // A copy: opening the file reorders the history under the path.
    const std::string path = HistoryPath(id);
    return FrameCommand(cmd::kOpenPath, reinterpret_cast<intptr_t>(path.c_str()));
  }
  const CommandInfo* info = FindCommand(id);
  if (!info || info->owner != CommandOwner::Frame) return 0;
  if (info->toolChange) {
    ToolCommand(id, lParam);
    return 1;
  }
  switch (id) {
    case cmd::kClose: Call(shellWindows.closeActiveDocument); break;
    case cmd::kExit: Call(shellWindows.closeFrame); break;
    case cmd::kNew: NewDocument(); break;
    case cmd::kClearHistory: AskClearHistory(); break;
    case cmd::kTile: MdiClientMessage(kMdiTile); break;
    case cmd::kCascade: MdiClientMessage(kMdiCascade); break;
    case cmd::kCloseAll: CloseAllDocuments(); break;
    case cmd::kArrangeIcons: MdiClientMessage(kMdiIconArrange); break;
    case cmd::kAbout: Call(shellWindows.showAbout); break;
    default: RunFrameHandler(id, lParam);
  }
  return 1;
}
