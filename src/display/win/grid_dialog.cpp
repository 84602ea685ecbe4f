#include "display/win/grid_dialog.h"

#include <windows.h>

#include "display/win/grid_dialog_ids.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"

int RunGridDialog(GridChoice* choice) {
  win32::Dialog dialog;
  dialog.init = [choice](HWND window) {
    SetDlgItemInt(window, IDC_GRID_PITCH_X, choice->pitchX, FALSE);
    SetDlgItemInt(window, IDC_GRID_PITCH_Y, choice->pitchY, FALSE);
    CheckDlgButton(window, IDC_GRID_SNAP, choice->snap ? BST_CHECKED : BST_UNCHECKED);
  };
  // A field left empty reads as 0, which the command takes up to the least
  // pitch.
  dialog.accept = [choice](HWND window) {
    choice->pitchX = static_cast<int>(GetDlgItemInt(window, IDC_GRID_PITCH_X, nullptr, FALSE));
    choice->pitchY = static_cast<int>(GetDlgItemInt(window, IDC_GRID_PITCH_Y, nullptr, FALSE));
    choice->snap = IsDlgButtonChecked(window, IDC_GRID_SNAP) == BST_CHECKED;
    return true;
  };
  return win32::RunDialog(L"tsl_grid", platform::BoundWindow(platform::Window::Frame), dialog);
}
