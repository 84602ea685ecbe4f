#include "display/win/grid_dialog.h"

#include <windows.h>

#include "display/win/grid_dialog_ids.h"
#include "platform/win32/win32_platform.h"

namespace {

GridChoice* ChoiceOf(HWND dialog) {
  return reinterpret_cast<GridChoice*>(GetWindowLongPtrW(dialog, DWLP_USER));
}

// A field left empty reads as 0, which the command takes up to the least
// pitch.
INT_PTR CALLBACK GridProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_INITDIALOG: {
      SetWindowLongPtrW(dialog, DWLP_USER, lParam);
      const GridChoice* choice = ChoiceOf(dialog);
      SetDlgItemInt(dialog, IDC_GRID_PITCH_X, choice->pitchX, FALSE);
      SetDlgItemInt(dialog, IDC_GRID_PITCH_Y, choice->pitchY, FALSE);
      CheckDlgButton(dialog, IDC_GRID_SNAP, choice->snap ? BST_CHECKED : BST_UNCHECKED);
      return TRUE;
    }
    case WM_COMMAND:
      if (LOWORD(wParam) == IDOK) {
        GridChoice* choice = ChoiceOf(dialog);
        choice->pitchX = static_cast<int>(GetDlgItemInt(dialog, IDC_GRID_PITCH_X, nullptr, FALSE));
        choice->pitchY = static_cast<int>(GetDlgItemInt(dialog, IDC_GRID_PITCH_Y, nullptr, FALSE));
        choice->snap = IsDlgButtonChecked(dialog, IDC_GRID_SNAP) == BST_CHECKED;
        EndDialog(dialog, IDOK);
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

int RunGridDialog(GridChoice* choice) {
  HWND frame = platform::BoundWindow(platform::Window::Frame);
  auto instance = reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(frame, GWLP_HINSTANCE));
  return DialogBoxParamW(instance, L"tsl_grid", frame, GridProc,
                         reinterpret_cast<LPARAM>(choice)) == IDOK;
}
