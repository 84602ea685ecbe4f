#include "file/save_canvas.h"

#include <cstdio>

#include "display/smooth_zoom.h"
#include "document/undo_history.h"
#include "file/file_filters.h"
#include "file/file_windows.h"
#include "file/native_file.h"
#include "file/write_canvas.h"
#include "platform/platform.h"
#include "resources/strings.h"

namespace {

constexpr int kStringSavingFailed = 1301;
constexpr int kStringOverwrite = 1409;
constexpr int kStringUntitled = 17002;

// An undo point of the whole active plane that leaves `modified` alone:
// the saved state is one the user can come back to.
void MarkSaved(Canvas* canvas) {
  UndoHistory.RecordUndo(canvas, -1, 0, -1, 0, 0, 0, 0);
  canvas->modified = 0;
}

bool AskOverwrite(const std::string& path) {
  return !platform::FileExists(path) ||
         platform::ShowMessageBox(platform::Window::Frame, StringText(kStringOverwrite),
                                  kProductName, platform::MbYesNo | platform::MbIconQuestion) ==
             platform::IdYes;
}

}  // namespace

std::string SaveDialogSeed(const std::string& name) {
  if (name == StringText(kStringUntitled)) return "";
  return name.substr(0, name.find('.'));
}

int SaveCanvas(Canvas* canvas, int forceDialog) {
  LeaveSmoothZoom(canvas);
  if (platform::KeyDown(platform::VkShift)) forceDialog = 1;
  const std::string name = canvas->fileName;
  int saved = 0;
  if (name != StringText(kStringUntitled) && !forceDialog) {
    // WriteCanvas has told of a failure already.
    if (!WriteCanvas(canvas, -1, 0, 0, 0, name, 0, &saved) || !saved) return 0;
    MarkSaved(canvas);
    return 1;
  }
  std::string chosen, extension;
  if (!fileWindows.saveDialog || !fileWindows.saveDialog(name, &chosen, &extension)) return 0;
  const std::string path = WithExtension(chosen, extension);
  if (!AskOverwrite(path)) return 0;
  if (!WriteCanvas(canvas, -1, 0, 0, 0, path, 0, &saved)) {
    platform::ShowMessageBox(platform::Window::Frame, StringText(kStringSavingFailed), kProductName,
                             platform::MbOk | platform::MbIconError);
    return 0;
  }
  if (saved) {
    std::snprintf(canvas->fileName, kFileNameChars, "%s", path.c_str());
    fileNamedHooks.Run(path);
  }
  MarkSaved(canvas);
  return 1;
}
