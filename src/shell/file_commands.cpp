#include "shell/file_commands.h"

#include <string>

#include "base/command_ids.h"
#include "base/command_registry.h"
#include "document/canvas_manager.h"
#include "file/file_windows.h"
#include "file/native_file.h"
#include "file/save_canvas.h"
#include "platform/platform.h"
#include "resources/strings.h"
#include "shell/command_routing.h"
#include "shell/history_menu.h"
#include "shell/shell_windows.h"

namespace {

constexpr int kStringOpeningFailed = 1302;

void ShowOpeningFailed() {
  platform::ShowMessageBox(platform::Window::Frame, StringText(kStringOpeningFailed), kProductName,
                           platform::MbOk | platform::MbIconError);
}

// The reader's sizes become the next canvas, whose window reads the rows.
void OpenPath(const char* path) {
  if (!path || !OpenCanvasFile(path)) return ShowOpeningFailed();
  if (shellWindows.createDocument && !shellWindows.createDocument()) ShowOpeningFailed();
}

void Save(Canvas* canvas, int forceDialog) {
  const std::string before = canvas->fileName;
  SaveCanvas(canvas, forceDialog);
  if (before != canvas->fileName && shellWindows.setTitle)
    shellWindows.setTitle(canvas, CanvasManager.TitleText(canvas));
}

}  // namespace

void InstallFileCommands() {
  fileNamedHooks.Add(AddToFileHistory);
  RegisterFrameCommand(cmd::kOpen, [](intptr_t) {
    std::string path;
    if (fileWindows.openDialog && fileWindows.openDialog(&path))
      FrameCommand(cmd::kOpenPath, reinterpret_cast<intptr_t>(path.c_str()));
  });
  RegisterFrameCommand(cmd::kOpenPath,
                       [](intptr_t lParam) { OpenPath(reinterpret_cast<const char*>(lParam)); });
  RegisterCanvasCommand(cmd::kSave, [](Canvas* canvas, intptr_t) { Save(canvas, 0); });
  RegisterCanvasCommand(cmd::kSaveAs, [](Canvas* canvas, intptr_t) { Save(canvas, 1); });
}
