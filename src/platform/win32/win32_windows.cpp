#include "platform/win32/win32_windows.h"

namespace win32 {

namespace {

INT_PTR CALLBACK DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(window, DWLP_USER, lParam);
    const auto* dialog = reinterpret_cast<const Dialog*>(lParam);
    if (dialog->init) dialog->init(window);
    return TRUE;
  }
  const auto* dialog = reinterpret_cast<const Dialog*>(GetWindowLongPtrW(window, DWLP_USER));
  if (message != WM_COMMAND || !dialog) return FALSE;
  const int control = LOWORD(wParam);
  if (dialog->command && dialog->command(window, control, HIWORD(wParam))) return TRUE;
  if (control == IDOK && (!dialog->accept || dialog->accept(window))) {
    EndDialog(window, IDOK);
    return TRUE;
  }
  if (control == IDCANCEL) {
    EndDialog(window, IDCANCEL);
    return TRUE;
  }
  return control == IDOK;
}

}  // namespace

HINSTANCE ProgramInstance() { return GetModuleHandleW(nullptr); }

bool RegisterWindowClass(const WindowClass& c) {
  WNDCLASSEXW wc{};
  wc.cbSize = sizeof wc;
  wc.style = c.style;
  wc.lpfnWndProc = c.proc;
  wc.cbWndExtra = c.windowBytes;
  wc.hInstance = ProgramInstance();
  wc.hIcon = c.icon;
  wc.hCursor = c.cursor ? c.cursor : LoadCursor(nullptr, IDC_ARROW);
  wc.hbrBackground = c.background;
  wc.lpszClassName = c.name;
  return RegisterClassExW(&wc) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

bool RunDialog(const wchar_t* name, HWND owner, const Dialog& dialog) {
  return DialogBoxParamW(ProgramInstance(), name, owner, DialogProc,
                         reinterpret_cast<LPARAM>(&dialog)) == IDOK;
}

}  // namespace win32
