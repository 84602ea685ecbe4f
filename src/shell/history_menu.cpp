#include "shell/history_menu.h"

#include <cstring>

#include "base/command_ids.h"
#include "shell/file_history.h"
#include "shell/shell_windows.h"

namespace {

void HistoryChanged() {
  if (shellWindows.historyChanged) shellWindows.historyChanged();
}

// The index of path in the history, or the last slot when it isn't listed:
// either way the entries before it move back by one.
int VacatedSlot(const char* path) {
  for (int i = 0; i < kHistoryEntries; ++i)
    if (std::strcmp(fileHistory[i], path) == 0) return i;
  return kHistoryEntries - 1;
}

}  // namespace

void AddToFileHistory(const std::string& path) {
  if (path.empty()) return;
  char entry[kHistorySlotChars] = {};
  path.copy(entry, kHistorySlotChars - 1);
  const int vacated = VacatedSlot(entry);
  std::memmove(fileHistory[1], fileHistory[0], static_cast<size_t>(vacated) * kHistorySlotChars);
  std::memcpy(fileHistory[0], entry, kHistorySlotChars);
  HistoryChanged();
}

void ClearFileHistory() {
  std::memset(fileHistory, 0, sizeof fileHistory);
  HistoryChanged();
}

std::string HistoryPath(int id) {
  const int entry = id - cmd::kHistoryFirst;
  if (entry < 0 || entry >= kHistoryEntries) return {};
  return std::string(fileHistory[entry], strnlen(fileHistory[entry], kHistorySlotChars));
}

std::vector<HistoryMenuItem> HistoryMenuItems() {
  std::vector<HistoryMenuItem> items;
  for (int entry = 0; entry < kHistoryEntries; ++entry)
    if (fileHistory[entry][0])
      items.push_back({cmd::kHistoryFirst + entry, HistoryPath(cmd::kHistoryFirst + entry)});
  return items;
}
