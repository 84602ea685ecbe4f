#include "shell/win/help_command.h"

#include <windows.h>
#include <shellapi.h>

#include "platform/win32/win32_platform.h"
#include "base/command_ids.h"
#include "shell/command_routing.h"
#include "shell/help_file.h"
#include "shell/win/shell_globals.h"

namespace {

// ShellExecute answers above 32 when it found a program for the document.
constexpr INT_PTR kShellExecuteFailedMax = 32;

bool OpenWithShell(const std::string& path) {
  const auto result = reinterpret_cast<INT_PTR>(ShellExecuteW(
      frameWnd, L"open", platform::Widen(path).c_str(), nullptr, nullptr, SW_SHOWNORMAL));
  return result > kShellExecuteFailedMax;
}

}  // namespace

void RegisterHelpCommand() {
  RegisterFrameCommand(cmd::kHelp, [](intptr_t) { OpenHelp(startFolder, OpenWithShell); });
}
