#include "display/win/smooth_zoom_win.h"

#include <windows.h>

#include <string>

#include "display/smooth_zoom_frame.h"
#include "display/win/smooth_zoom_ids.h"
#include "platform/win32/win32_platform.h"

static_assert(IDM_ZOOMFRAME_ENTER == kZoomFrameEnter && IDM_ZOOMFRAME_CANCEL == kZoomFrameCancel);

namespace {

HINSTANCE Instance() {
  HWND frame = platform::BoundWindow(platform::Window::Frame);
  return reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(frame, GWLP_HINSTANCE));
}

SmoothZoomDialogFields* FieldsOf(HWND dialog) {
  return reinterpret_cast<SmoothZoomDialogFields*>(GetWindowLongPtrW(dialog, DWLP_USER));
}

// The list sorts what it is given; the row's index is what the choice
// keeps, whatever the row reads.
void Fill(HWND dialog, const SmoothZoomDialogFields& fields) {
  HWND list = GetDlgItem(dialog, IDC_SZOOM_FACTORS);
  for (const std::string& row : SmoothZoomListRows())
    SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(platform::Widen(row).c_str()));
  SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(fields.row), 0);
  CheckDlgButton(dialog, IDC_SZOOM_SMOOTH, fields.smooth ? BST_CHECKED : BST_UNCHECKED);
}

void Accept(HWND dialog) {
  SmoothZoomDialogFields* fields = FieldsOf(dialog);
  const LRESULT row = SendDlgItemMessageW(dialog, IDC_SZOOM_FACTORS, LB_GETCURSEL, 0, 0);
  fields->row = row == LB_ERR ? 0 : static_cast<int>(row);
  fields->smooth = IsDlgButtonChecked(dialog, IDC_SZOOM_SMOOTH) == BST_CHECKED;
  EndDialog(dialog, IDOK);
}

INT_PTR CALLBACK SmoothZoomProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_INITDIALOG:
      SetWindowLongPtrW(dialog, DWLP_USER, lParam);
      Fill(dialog, *FieldsOf(dialog));
      return TRUE;
    case WM_COMMAND:
      // A double click on a row takes it at once.
      if (LOWORD(wParam) == IDOK ||
          (LOWORD(wParam) == IDC_SZOOM_FACTORS && HIWORD(wParam) == LBN_DBLCLK)) {
        Accept(dialog);
        return TRUE;
      }
      if (LOWORD(wParam) == IDCANCEL) {
        EndDialog(dialog, IDCANCEL);
        return TRUE;
      }
      break;
  }
  return FALSE;
}

}  // namespace

int RunSmoothZoomDialog(SmoothZoomDialogFields* fields) {
  return DialogBoxParamW(Instance(), L"tsl_szoom", platform::BoundWindow(platform::Window::Frame),
                         SmoothZoomProc, reinterpret_cast<LPARAM>(fields)) == IDOK;
}

int RunZoomFrameMenu(Canvas* canvas) {
  HMENU menu = LoadMenuW(Instance(), L"daZoomSel");
  if (!menu) return 0;
  POINT at;
  GetCursorPos(&at);
  const int item = static_cast<int>(
      TrackPopupMenu(GetSubMenu(menu, 0), TPM_RETURNCMD | TPM_RIGHTBUTTON, at.x, at.y, 0,
                     static_cast<HWND>(canvas->displayWnd), nullptr));
  DestroyMenu(menu);
  return item;
}
