#include "display/win/smooth_zoom_win.h"

#include <windows.h>

#include <string>

#include "display/smooth_zoom_frame.h"
#include "display/win/smooth_zoom_ids.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"

static_assert(IDM_ZOOMFRAME_ENTER == kZoomFrameEnter && IDM_ZOOMFRAME_CANCEL == kZoomFrameCancel);

namespace {

// The list sorts what it is given; the row's index is what the choice
// keeps, whatever the row reads.
void Fill(HWND dialog, const SmoothZoomDialogFields& fields) {
  HWND list = GetDlgItem(dialog, IDC_SZOOM_FACTORS);
  for (const std::string& row : SmoothZoomListRows())
    SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(platform::Widen(row).c_str()));
  SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(fields.row), 0);
  CheckDlgButton(dialog, IDC_SZOOM_SMOOTH, fields.smooth ? BST_CHECKED : BST_UNCHECKED);
}

void Read(HWND dialog, SmoothZoomDialogFields* fields) {
  const LRESULT row = SendDlgItemMessageW(dialog, IDC_SZOOM_FACTORS, LB_GETCURSEL, 0, 0);
  fields->row = row == LB_ERR ? 0 : static_cast<int>(row);
  fields->smooth = IsDlgButtonChecked(dialog, IDC_SZOOM_SMOOTH) == BST_CHECKED;
}

}  // namespace

int RunSmoothZoomDialog(SmoothZoomDialogFields* fields) {
  win32::Dialog dialog;
  dialog.init = [fields](HWND window) { Fill(window, *fields); };
  dialog.accept = [fields](HWND window) {
    Read(window, fields);
    return true;
  };
  // A double click on a row takes it at once.
  dialog.command = [fields](HWND window, int control, int notification) {
    if (control != IDC_SZOOM_FACTORS || notification != LBN_DBLCLK) return false;
    Read(window, fields);
    EndDialog(window, IDOK);
    return true;
  };
  return win32::RunDialog(L"tsl_szoom", platform::BoundWindow(platform::Window::Frame), dialog);
}

int RunZoomFrameMenu(Canvas* canvas) {
  HMENU menu = LoadMenuW(win32::ProgramInstance(), L"daZoomSel");
  if (!menu) return 0;
  POINT at;
  GetCursorPos(&at);
  const int item = static_cast<int>(
      TrackPopupMenu(GetSubMenu(menu, 0), TPM_RETURNCMD | TPM_RIGHTBUTTON, at.x, at.y, 0,
                     static_cast<HWND>(canvas->displayWnd), nullptr));
  DestroyMenu(menu);
  return item;
}
