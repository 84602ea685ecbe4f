// The dialogs that only show something: the display change notice and the
// about box; and the frame commands of the dialogs.
#include "resources/win/resource_ids.h"
#include "shell/command_routing.h"
#include "shell/win/dialogs.h"
#include "shell/win/shell_globals.h"

namespace {

constexpr int kViewSetting = 11000;
constexpr int kPreference = 11012;
constexpr wchar_t kVersion[] = L"Version 0.1";

INT_PTR CALLBACK AboutProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    SetDlgItemTextW(dialog, IDC_ABOUT_VERSION, kVersion);
    return TRUE;
  }
  return PlainDialogProc(dialog, message, wParam, lParam);
}

}  // namespace

INT_PTR CALLBACK PlainDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
  switch (message) {
    case WM_INITDIALOG:
      return TRUE;
    case WM_COMMAND:
      if (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL) {
        EndDialog(dialog, LOWORD(wParam));
        return TRUE;
      }
      break;
  }
  return FALSE;
}

void ShowScreenChangeNotice() {
  DialogBoxW(instance, L"da_screenchange", frameWnd, PlainDialogProc);
}

void ShowAboutBox() { DialogBoxW(instance, L"tsl_about", frameWnd, AboutProc); }

void RegisterFrameDialogs() {
  RegisterFrameCommand(kViewSetting, [](intptr_t) { RunViewSettingDialog(); });
  RegisterFrameCommand(kPreference, [](intptr_t) { ShowPreferences(frameWnd); });
}
