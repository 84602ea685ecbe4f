#include "panels/win/pick_area_win.h"

#include "platform/win32/win32_windows.h"

namespace {

constexpr wchar_t kPickAreaClass[] = L"tsPickArea";
constexpr UINT_PTR kRepeatTimer = 1;
constexpr LONG_PTR kRightHeld = 1;
constexpr wchar_t kRepeatProp[] = L"tsPickAreaRepeat";

void Tell(HWND area, UINT message, bool right, LPARAM point) {
  const int id = GetDlgCtrlID(area);
  SendMessageW(GetParent(area), message, MAKEWPARAM(id, right ? 1 : 0), point);
}

LPARAM PointerNow(HWND area) {
  POINT p;
  GetCursorPos(&p);
  ScreenToClient(area, &p);
  return MAKELPARAM(short(p.x), short(p.y));
}

void Paint(HWND area) {
  PAINTSTRUCT ps;
  HDC dc = BeginPaint(area, &ps);
  DRAWITEMSTRUCT item{};
  item.CtlType = ODT_STATIC;
  item.CtlID = UINT(GetDlgCtrlID(area));
  item.itemAction = ODA_DRAWENTIRE;
  item.hwndItem = area;
  item.hDC = dc;
  GetClientRect(area, &item.rcItem);
  SendMessageW(GetParent(area), WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
  EndPaint(area, &ps);
}

LRESULT CALLBACK PickAreaProc(HWND area, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      Paint(area);
      return 0;
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN: {
      const bool right = message == WM_RBUTTONDOWN;
      SetCapture(area);
      SetWindowLongPtrW(area, GWLP_USERDATA, right ? kRightHeld : 0);
      const UINT repeat = UINT(reinterpret_cast<UINT_PTR>(GetPropW(area, kRepeatProp)));
      if (right && repeat) SetTimer(area, kRepeatTimer, repeat, nullptr);
      Tell(area, kMsgAreaPointer, right, lParam);
      return 0;
    }
    case WM_MOUSEMOVE:
      if (GetCapture() == area)
        Tell(area, kMsgAreaPointer, GetWindowLongPtrW(area, GWLP_USERDATA) == kRightHeld, lParam);
      return 0;
    case WM_TIMER:
      if (wParam == kRepeatTimer && GetCapture() == area)
        Tell(area, kMsgAreaPointer, true, PointerNow(area));
      return 0;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
      if (GetCapture() == area) ReleaseCapture();
      return 0;
    case WM_CAPTURECHANGED:
      KillTimer(area, kRepeatTimer);
      Tell(area, kMsgAreaRelease, false, 0);
      return 0;
    case WM_DESTROY:
      RemovePropW(area, kRepeatProp);
      return 0;
  }
  return DefWindowProcW(area, message, wParam, lParam);
}

}  // namespace

bool RegisterPickArea() {
  return win32::RegisterWindowClass(
      {kPickAreaClass, PickAreaProc, nullptr, CS_HREDRAW | CS_VREDRAW});
}

void SetPickAreaRepeat(HWND area, UINT ms) {
  SetPropW(area, kRepeatProp, reinterpret_cast<HANDLE>(UINT_PTR(ms)));
}

SIZE PickAreaSize(HWND area) {
  RECT r;
  GetClientRect(area, &r);
  return {r.right - r.left, r.bottom - r.top};
}
