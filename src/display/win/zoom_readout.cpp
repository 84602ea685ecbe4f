#include "display/win/zoom_readout.h"

#include <windows.h>
#include <commctrl.h>

#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"

namespace {

constexpr wchar_t kReadoutClass[] = L"ZoomFieldClass";
constexpr int kReadoutWidth = 56;
constexpr int kReadoutId = 1;
constexpr UINT_PTR kSubclassId = 1;

HWND readout;
COLORREF readoutColour = RGB(0xFF, 0xFF, 0xFF);

// At the right end of the bar, inside its sunken edge.
void PlaceReadout(HWND bar) {
  RECT r;
  GetClientRect(bar, &r);
  MoveWindow(readout, r.right - kReadoutWidth - 2, 2, kReadoutWidth, r.bottom - 4, TRUE);
}

void Paint(HWND field) {
  PAINTSTRUCT ps;
  HDC dc = BeginPaint(field, &ps);
  RECT r;
  GetClientRect(field, &r);
  SetBkColor(dc, readoutColour);
  ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &r, nullptr, 0, nullptr);
  wchar_t text[16] = {};
  GetWindowTextW(field, text, 16);
  SelectObject(dc, GetStockObject(DEFAULT_GUI_FONT));
  DrawTextW(dc, text, -1, &r, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
  EndPaint(field, &ps);
}

LRESULT CALLBACK ReadoutProc(HWND field, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_PAINT) {
    Paint(field);
    return 0;
  }
  return DefWindowProcW(field, message, wParam, lParam);
}

// The status bar is laid out by the frame; the read-out keeps to its end.
LRESULT CALLBACK StatusBarSized(HWND bar, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                DWORD_PTR) {
  if (message == WM_SIZE && readout) PlaceReadout(bar);
  return DefSubclassProc(bar, message, wParam, lParam);
}

// Made at the first read-out, when the status bar stands.
HWND CreateReadout() {
  HWND bar = platform::BoundWindow(platform::Window::StatusBar);
  if (!bar) return nullptr;
  if (!win32::RegisterWindowClass({kReadoutClass, ReadoutProc})) return nullptr;
  readout = CreateWindowExW(0, kReadoutClass, nullptr, WS_CHILD, 0, 0, 0, 0, bar,
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(kReadoutId)),
                            win32::ProgramInstance(), nullptr);
  if (!readout) return nullptr;
  SetWindowSubclass(bar, StatusBarSized, kSubclassId, 0);
  PlaceReadout(bar);
  return readout;
}

}  // namespace

void ShowZoomReadout(const ZoomReadout& shown) {
  if (!readout && !CreateReadout()) return;
  readoutColour = RGB(shown.red, shown.green, shown.blue);
  SetWindowTextW(readout, platform::Widen(shown.text).c_str());
  ShowWindow(readout, shown.text.empty() ? SW_HIDE : SW_SHOWNA);
  InvalidateRect(readout, nullptr, TRUE);
}
