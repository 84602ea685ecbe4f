#include "shell/help_file.h"

#include <cstdio>

#include "platform/platform.h"
#include "resources/strings.h"
#include "settings/side_path.h"

namespace {

constexpr int kStringNoHelp = 1311;

bool Readable(const std::string& path) {
  FILE* file = platform::OpenFile(path, "rb");
  if (!file) return false;
  std::fclose(file);
  return true;
}

}  // namespace

int OpenHelp(const std::string& programFolder,
             const std::function<bool(const std::string& path)>& openWithShell) {
  const std::string path = SidePath(programFolder, kHelpFileName);
  if (Readable(path) && openWithShell(path)) return 1;
  platform::ShowMessageBox(platform::Window::Frame, FormatString(kStringNoHelp, path.c_str()),
                           kProductName, platform::MbOk | platform::MbIconWarning);
  return 0;
}
