#include "platform/win32/win32_windows.h"

#include <algorithm>

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
  if (!dialog) return FALSE;
  if (message != WM_COMMAND) {
    INT_PTR result = FALSE;
    return dialog->other && dialog->other(window, message, wParam, lParam, &result) ? result
                                                                                    : FALSE;
  }
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

int ScreenBits() {
  WindowDc screen(nullptr);
  return GetDeviceCaps(screen.get(), BITSPIXEL) * GetDeviceCaps(screen.get(), PLANES);
}

void CentreOnOwner(HWND window) {
  HWND owner = GetWindow(window, GW_OWNER);
  RECT own, rect;
  if (!owner || !GetWindowRect(owner, &own) || !GetWindowRect(window, &rect)) return;
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(owner, MONITOR_DEFAULTTONEAREST), &monitor);
  const RECT& work = monitor.rcWork;
  const LONG width = rect.right - rect.left, height = rect.bottom - rect.top;
  LONG x = (own.left + own.right - width) / 2, y = (own.top + own.bottom - height) / 2;
  x = std::max(work.left, std::min(x, work.right - width));
  y = std::max(work.top, std::min(y, work.bottom - height));
  SetWindowPos(window, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace win32
