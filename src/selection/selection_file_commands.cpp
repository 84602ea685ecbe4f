#include "selection/selection_file_commands.h"

#include "base/command_ids.h"
#include "base/command_registry.h"
#include "resources/strings.h"
#include "selection/draft_engine.h"
#include "selection/selection_file.h"
#include "selection/selection_history.h"
#include "selection/selection_windows.h"

namespace {

constexpr int kStringSelectionFilter = 20003;
constexpr const char* kSelectionExtension = "tss";

bool AskPath(bool save, std::string* path) {
  return selectionWindows.fileDialog &&
         selectionWindows.fileDialog(save, StringText(kStringSelectionFilter), kSelectionExtension,
                                     path);
}

}  // namespace

void InstallSelectionFiles(const std::string& programFolder) {
  ChooseHistoryFolder(programFolder);
  historyHooks.Add(AddHistoryEntry);
  RegisterCanvasCommand(cmd::kLoadSelection, [](Canvas* canvas, intptr_t) {
    std::string path;
    if (AskPath(false, &path)) LoadSelection(path, canvas);
  });
  RegisterCanvasCommand(cmd::kSaveSelection, [](Canvas* canvas, intptr_t) {
    std::string path;
    if (AskPath(true, &path)) SaveSelection(path, canvas);
  });
  RegisterFrameCommand(cmd::kSettingsPanel, [](intptr_t) {
    if (selectionWindows.toggleSettingsPanel) selectionWindows.toggleSettingsPanel();
  });
}
