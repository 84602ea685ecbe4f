// da00_dispopt: the tool bar, the status bar and the control panel, each
// shown or not; OK lays the frame out anew.
#include "platform/win32/win32_windows.h"
#include "resources/win/resource_ids.h"
#include "settings/settings.h"
#include "shell/win/dialogs.h"
#include "shell/win/frame_window.h"
#include "shell/win/shell_globals.h"

namespace {

struct BarSwitch {
  int control;
  int32_t Settings::*field;
};

constexpr BarSwitch kSwitches[] = {
    {IDC_DISP_TOOLBAR, &Settings::toolBarOn},
    {IDC_DISP_STATUSBAR, &Settings::statusBarOn},
    {IDC_DISP_CTRLPANEL, &Settings::ctrlPanelOn},
};

}  // namespace

void RunViewSettingDialog() {
  win32::Dialog dialog;
  dialog.init = [](HWND window) {
    for (const BarSwitch& s : kSwitches)
      CheckDlgButton(window, s.control, settings.*s.field ? BST_CHECKED : BST_UNCHECKED);
  };
  dialog.accept = [](HWND window) {
    for (const BarSwitch& s : kSwitches)
      settings.*s.field = IsDlgButtonChecked(window, s.control) == BST_CHECKED;
    return true;
  };
  if (win32::RunDialog(L"da00_dispopt", frameWnd, dialog)) LayOutFrameWindows();
}
