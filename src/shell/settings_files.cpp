#include "shell/settings_files.h"

#include <cstdio>

#include "panels/palette_cells.h"
#include "panels/palette_file.h"
#include "platform/platform.h"
#include "settings/number_lists.h"
#include "settings/settings.h"
#include "settings/start_rules.h"
#include "shell/file_history.h"
#include "shell/tool_bar_table.h"

namespace {

constexpr const char* kSettingsFile = "env__.env";
constexpr const char* kShippedSettingsFile = "env__2.env";

FILE* OpenSettingsForReading(const std::string& folder) {
  FILE* file = platform::OpenFile(folder + kSettingsFile, "rb");
  return file ? file : platform::OpenFile(folder + kShippedSettingsFile, "rb");
}

void ReadToolBarTable() {
  for (int row = 0; toolItems[row].command != kToolListEnd; ++row)
    toolItems[row].shown = !settings.toolButtonOff[row];
}

void StoreToolBarTable() {
  for (int row = 0; toolItems[row].command != kToolListEnd; ++row)
    settings.toolButtonOff[row] = !toolItems[row].shown;
}

}  // namespace

int LoadSettings(const std::string& folder) {
  if (FILE* file = OpenSettingsForReading(folder)) {
    std::fread(&settings, 1, sizeof settings, file);
    std::fclose(file);
  }
  ReadToolBarTable();
  ApplyStartRules(settings);
  ReadFileHistory(folder);
  // No palette yet: the first run starts with a seeded one.
  if (LoadPaletteFile(folder)) return 1;
  SeedPalette();
  return 0;
}

int SaveSettings(const std::string& folder) {
  StoreToolBarTable();
  FILE* file = platform::OpenFile(folder + kSettingsFile, "wb");
  if (!file) return 0;
  std::fwrite(&settings, 1, sizeof settings, file);
  std::fclose(file);
  WriteFileHistory(folder);
  SavePaletteFile(folder);
  WritePenSizes(folder);
  WriteCanvasSizes(folder);
  WriteTList(folder, 0);
  WriteTList(folder, 1);
  return 1;
}
