// The frame's bars: the status bar with the texts of message 1024, the
// tool bar and the control panel, which stand in their places and receive
// their buttons and pages from their own parts of the program.
#include "shell/win/side_windows.h"

#include "paint/tip/stored_pen.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"
#include "settings/settings.h"
#include "shell/input_rules.h"
#include "shell/status_text.h"
#include "shell/win/panel_pages.h"
#include "shell/win/shell_globals.h"

namespace {

constexpr wchar_t kStatusBarClass[] = L"StatusBarClass";
constexpr wchar_t kToolBarClass[] = L"ToolBarClass";
constexpr wchar_t kCtrlPanelClass[] = L"CtrlPanelClass";
constexpr int kStatusBarId = 2;
constexpr int kToolBarId = 3;
constexpr int kCtrlPanelId = 4;
constexpr int kToggleDisplayPosition = 110;

// Icon edges of the two icon sizes; a button adds room for its pressed
// offset and its frame.
constexpr int kIconEdge = 26;
constexpr int kSmallIconEdge = 15;
constexpr int kButtonFrame = 4;

StatusBarState statusState;

void PaintStatusBar(HWND bar) {
  PAINTSTRUCT ps;
  HDC dc = BeginPaint(bar, &ps);
  RECT r;
  GetClientRect(bar, &r);
  DrawEdge(dc, &r, BDR_SUNKENOUTER, BF_RECT);
  InflateRect(&r, -4, -1);
  SetBkMode(dc, TRANSPARENT);
  SelectObject(dc, GetStockObject(DEFAULT_GUI_FONT));
  const std::wstring text = platform::Widen(statusState.shown);
  DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &r,
            DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
  EndPaint(bar, &ps);
}

LRESULT CALLBACK StatusBarProc(HWND bar, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      PaintStatusBar(bar);
      return 0;
    case platform::MsgStatus:
      if (ApplyStatusMessage(statusState, static_cast<intptr_t>(wParam), lParam))
        InvalidateRect(bar, nullptr, TRUE);
      return 0;
    case WM_COMMAND:
      if (LOWORD(wParam) == kToggleDisplayPosition) {
        settings.displayPosition = !settings.displayPosition;
        InvalidateRect(bar, nullptr, TRUE);
      }
      return 0;
  }
  return DefWindowProcW(bar, message, wParam, lParam);
}

// The bar and the panel draw only their frame until buttons and pages
// stand in them.
LRESULT CALLBACK BarProc(HWND bar, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_PAINT) {
    PAINTSTRUCT ps;
    HDC dc = BeginPaint(bar, &ps);
    RECT r;
    GetClientRect(bar, &r);
    DrawEdge(dc, &r, BDR_RAISEDINNER, BF_RECT);
    EndPaint(bar, &ps);
    return 0;
  }
  return DefWindowProcW(bar, message, wParam, lParam);
}

// The control panel holds its pages behind their tabs.
LRESULT CALLBACK CtrlPanelProc(HWND panel, UINT message, WPARAM wParam, LPARAM lParam) {
  if (PanelPagesMessage(panel, message, wParam, lParam)) return 0;
  return BarProc(panel, message, wParam, lParam);
}

// Keys 1 to 9 in a picture load the stored pens, with Shift they store them.
void HandlePenKeys(Canvas*, DocumentKey key) {
  if (key.kind == DocumentKeyKind::ChoosePen || key.kind == DocumentKeyKind::StorePen)
    StoredPenKey(startFolder, key.value, key.kind == DocumentKeyKind::StorePen);
}

bool Register(const wchar_t* name, WNDPROC proc) {
  return win32::RegisterWindowClass(
      {name, proc, reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1), CS_HREDRAW | CS_VREDRAW});
}

HWND CreateBar(const wchar_t* name, HWND frame, int id) {
  return CreateWindowExW(0, name, nullptr, WS_CHILD | WS_CLIPSIBLINGS, 0, 0, 0, 0, frame,
                         reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                         win32::ProgramInstance(), nullptr);
}

}  // namespace

bool RegisterSideWindowClasses() {
  return Register(kStatusBarClass, StatusBarProc) && Register(kToolBarClass, BarProc) &&
         Register(kCtrlPanelClass, CtrlPanelProc);
}

bool CreateSideWindows(HWND frame) {
  statusBar = CreateBar(kStatusBarClass, frame, kStatusBarId);
  toolBar = CreateBar(kToolBarClass, frame, kToolBarId);
  ctrlPanel = CreateBar(kCtrlPanelClass, frame, kCtrlPanelId);
  if (!statusBar || !toolBar || !ctrlPanel) return false;
  // Without its pages the panel stays a strip in the corner.
  if (CreatePanelPages(ctrlPanel)) documentKeyHooks.Add(HandlePenKeys);
  return true;
}

int ToolButtonHeight() {
  return (settings.smallIcons ? kSmallIconEdge : kIconEdge) + kButtonFrame;
}
