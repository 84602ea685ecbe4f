#include "shell/start_folder.h"

std::string StartFolderOf(const char* modulePath, NextCharFn next) {
  const char* cut = nullptr;
  for (const char* p = modulePath; *p; p = next(p))
    if (*p == '\\') cut = p + 1;
  return cut ? std::string(modulePath, cut) : std::string();
}
