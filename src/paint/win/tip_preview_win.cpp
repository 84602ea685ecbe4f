#include "paint/win/tip_preview_win.h"

#include <windowsx.h>

#include "paint/control/tip_preview.h"
#include "paint/tip/pen_record.h"
#include "paint/tip/tip.h"
#include "paint/tip/tip_panels.h"
#include "paint/win/panel_common_win.h"
#include "paint/win/pen_panel_ids.h"
#include "paint/win/picture_win.h"
#include "platform/win32/win32_windows.h"

namespace {

// One drag at a time: the box holds the capture while it lasts.
bool dragging = false;
bool rightDrag = false;

COLORREF Background() {
  return RGB((kTipPreviewBackground >> 16) & 0xFF, (kTipPreviewBackground >> 8) & 0xFF,
             kTipPreviewBackground & 0xFF);
}

void Notify(HWND box) {
  SendMessageW(GetParent(box), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(box), kPreviewSized),
               reinterpret_cast<LPARAM>(box));
}

// While dragging only the ellipse of the radii shows.
void Paint(HWND box) {
  PAINTSTRUCT ps;
  HDC dc = BeginPaint(box, &ps);
  RECT r;
  GetClientRect(box, &r);
  if (dragging) {
    HBRUSH grey = CreateSolidBrush(Background());
    FillRect(dc, &r, grey);
    DeleteObject(grey);
    const int cx = r.right / 2, cy = r.bottom / 2;
    const int rx = int(pen.radiusX), ry = int(pen.radiusY);
    HGDIOBJ oldBrush = SelectObject(dc, GetStockObject(NULL_BRUSH));
    HGDIOBJ oldPen = SelectObject(dc, GetStockObject(BLACK_PEN));
    Ellipse(dc, cx - rx, cy - ry, cx + rx + 1, cy + ry + 1);
    SelectObject(dc, oldPen);
    SelectObject(dc, oldBrush);
  } else {
    DrawPicture(dc, 0, 0, r.right, r.bottom, TipPreview(r.right, r.bottom));
  }
  EndPaint(box, &ps);
}

// The pointer's distance from the centre of the box gives the radii.
void Track(HWND box, LPARAM at) {
  RECT r;
  GetClientRect(box, &r);
  DragTipRadii(GET_X_LPARAM(at) - r.right / 2, GET_Y_LPARAM(at) - r.bottom / 2, rightDrag,
               GetKeyState(VK_SHIFT) < 0);
  InvalidateRect(box, nullptr, FALSE);
  Notify(box);
}

// On release the tip is built for the new radii and shown.
void Finish(HWND box) {
  dragging = false;
  BuildTip();
  InvalidateRect(box, nullptr, FALSE);
  Notify(box);
  GiveFocusBack();
}

LRESULT CALLBACK PreviewProc(HWND box, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      Paint(box);
      return 0;
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
      if (dragging) return 0;
      dragging = true;
      rightDrag = message == WM_RBUTTONDOWN;
      SetCapture(box);
      Track(box, lParam);
      return 0;
    case WM_MOUSEMOVE:
      if (dragging) Track(box, lParam);
      return 0;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
      if (dragging && rightDrag == (message == WM_RBUTTONUP)) {
        Finish(box);
        ReleaseCapture();
      }
      return 0;
    case WM_CAPTURECHANGED:
      if (dragging) Finish(box);
      return 0;
  }
  return DefWindowProcW(box, message, wParam, lParam);
}

}  // namespace

bool RegisterTipPreviewClass() {
  win32::WindowClass preview{TIP_PREVIEW_CLASS, PreviewProc};
  preview.cursor = LoadCursor(nullptr, IDC_CROSS);
  return win32::RegisterWindowClass(preview);
}
