#include "shell/file_history.h"

#include <cstdio>
#include <cstring>

#include "platform/platform.h"

char fileHistory[kHistoryEntries][kHistorySlotChars];

namespace {

std::string HistoryPath(const std::string& folder) { return folder + "fhist.dat"; }

}  // namespace

int ReadFileHistory(const std::string& folder) {
  // Clearing first also ends every entry at its byte 256, so an entry that
  // fills all its bytes in the file is still a string in memory.
  std::memset(fileHistory, 0, sizeof fileHistory);
  FILE* file = platform::OpenFile(HistoryPath(folder), "rb");
  if (!file) return 0;
  for (char* slot : fileHistory)
    if (std::fread(slot, 1, kHistoryFileChars, file) < kHistoryFileChars) break;
  std::fclose(file);
  return 1;
}

int WriteFileHistory(const std::string& folder) {
  FILE* file = platform::OpenFile(HistoryPath(folder), "wb");
  if (!file) return 0;
  for (const char* slot : fileHistory) std::fwrite(slot, 1, kHistoryFileChars, file);
  std::fclose(file);
  return 1;
}
