#include "layers/win/layer_resize_win.h"

#include <algorithm>

#include "layers/layer_command.h"
#include "layers/layer_resize.h"
#include "layers/layer_windows.h"
#include "layers/win/layer_resize_ids.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"

namespace {

HWND dialog = nullptr;
// Set while the fields are written from the session, so that their change
// notifications aren't taken for the user's.
bool showing = false;

void ShowSides(const SideChoice& sides) {
  showing = true;
  for (int side = 0; side < 4; ++side) {
    CheckDlgButton(dialog, IDC_LAYRESIZE_CHECK + side,
                   sides.checked[side] ? BST_CHECKED : BST_UNCHECKED);
    SetDlgItemInt(dialog, IDC_LAYRESIZE_AMOUNT + side, static_cast<UINT>(sides.amount[side]),
                  FALSE);
    CheckRadioButton(dialog, IDC_LAYRESIZE_EXPAND + side, IDC_LAYRESIZE_SHRINK + side,
                     (sides.shrink[side] ? IDC_LAYRESIZE_SHRINK : IDC_LAYRESIZE_EXPAND) + side);
  }
  showing = false;
}

// An amount left empty or out of range is taken at the nearest limit.
SideChoice ReadSides() {
  SideChoice sides;
  for (int side = 0; side < 4; ++side) {
    sides.checked[side] = IsDlgButtonChecked(dialog, IDC_LAYRESIZE_CHECK + side) == BST_CHECKED;
    const UINT amount = GetDlgItemInt(dialog, IDC_LAYRESIZE_AMOUNT + side, nullptr, FALSE);
    sides.amount[side] = static_cast<int>(std::clamp<UINT>(amount, 1, kMaxSideAmount));
    sides.shrink[side] = IsDlgButtonChecked(dialog, IDC_LAYRESIZE_SHRINK + side) == BST_CHECKED;
  }
  return sides;
}

void Close() {
  HWND closing = dialog;
  dialog = nullptr;
  DestroyWindow(closing);
}

INT_PTR CALLBACK DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM) {
  switch (message) {
    case WM_INITDIALOG:
      dialog = window;
      ShowSides(resizeSides);
      win32::CentreOnOwner(window);
      return TRUE;
    case WM_COMMAND: {
      const int control = LOWORD(wParam), notification = HIWORD(wParam);
      if (control == IDOK) {
        // Refused below one pixel: the message is shown and the dialog stays.
        if (ApplyResizeBySides()) Close();
        return TRUE;
      }
      if (control == IDCANCEL) {
        CloseResizeBySides();
        Close();
        return TRUE;
      }
      const bool edited = notification == EN_CHANGE || notification == BN_CLICKED;
      if (edited && !showing && dialog) ResizeSidesChanged(ReadSides());
      return TRUE;
    }
    default:
      return FALSE;
  }
}

void Open(Canvas*, int) {
  if (dialog) return;
  CreateDialogParamW(win32::ProgramInstance(), L"tsl_layresize",
                     platform::BoundWindow(platform::Window::Frame), DialogProc, 0);
  if (!dialog) CloseResizeBySides();
}

}  // namespace

void InstallLayerResizeWindow() {
  layerWindows.openResizeBySides = Open;
  layerWindows.resizeSidesShown = [](const SideChoice& sides) {
    if (dialog) ShowSides(sides);
  };
  layerWindows.closeResizeBySides = [] {
    if (dialog) Close();
  };
}

bool LayerResizeDialogMessage(MSG* message) { return dialog && IsDialogMessageW(dialog, message); }
