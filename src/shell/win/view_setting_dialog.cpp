// da00_dispopt: the tool bar, the status bar and the control panel, each
// shown or not; OK lays the frame out anew.
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

INT_PTR CALLBACK ViewSettingProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    for (const BarSwitch& s : kSwitches)
      CheckDlgButton(dialog, s.control, settings.*s.field ? BST_CHECKED : BST_UNCHECKED);
    return TRUE;
  }
  if (message == WM_COMMAND && LOWORD(wParam) == IDOK) {
    for (const BarSwitch& s : kSwitches)
      settings.*s.field = IsDlgButtonChecked(dialog, s.control) == BST_CHECKED;
    EndDialog(dialog, IDOK);
    return TRUE;
  }
  return PlainDialogProc(dialog, message, wParam, lParam);
}

}  // namespace

void RunViewSettingDialog() {
  if (DialogBoxW(instance, L"da00_dispopt", frameWnd, ViewSettingProc) == IDOK)
    LayOutFrameWindows();
}
