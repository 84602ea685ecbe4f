// The dialogs that only show something: the display change notice and the
// about box; and the frame commands of the dialogs.
#include "platform/win32/win32_windows.h"
#include "resources/win/resource_ids.h"
#include "shell/command_routing.h"
#include "shell/win/dialogs.h"
#include "shell/win/shell_globals.h"
#include "base/command_ids.h"

namespace {

constexpr wchar_t kVersion[] = L"Version 0.1";

}  // namespace

void ShowScreenChangeNotice() { win32::RunDialog(L"da_screenchange", frameWnd, {}); }

void ShowAboutBox() {
  win32::Dialog dialog;
  dialog.init = [](HWND window) { SetDlgItemTextW(window, IDC_ABOUT_VERSION, kVersion); };
  win32::RunDialog(L"tsl_about", frameWnd, dialog);
}

void RegisterFrameDialogs() {
  RegisterFrameCommand(cmd::kViewSetting, [](intptr_t) { RunViewSettingDialog(); });
  RegisterFrameCommand(cmd::kPreference, [](intptr_t) { ShowPreferences(frameWnd); });
}
