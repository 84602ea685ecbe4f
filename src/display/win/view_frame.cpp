// The view frame of a document (CanvWndClass) with its scroll bars, and
// the view (CanvWndDispClass) inside it, as large as the zoomed canvas and
// moved against the frame to scroll. Where everything stands, how far a
// scroll goes, what the view shows and where a press goes are the
// display's; this side passes the messages on and places the windows.
#include <windows.h>
#include <windowsx.h>

#include "base/current_tool.h"
#include "display/pointer_routing.h"
#include "display/view_layout.h"
#include "display/view_paint.h"
#include "display/view_scroll.h"
#include "display/win/document_parts.h"
#include "platform/win32/win32_windows.h"

namespace {

Canvas* CanvasOfFrame(HWND frame) { return CanvasOfDocument(GetParent(frame)); }

void Place(void* window, const Rect& r) {
  MoveWindow(static_cast<HWND>(window), r.left, r.top, r.Width(), r.Height(), TRUE);
}

void LayOut(HWND frame, Canvas* canvas, int width, int height) {
  const ViewLayout layout = LayOutView(canvas, width, height);
  if (layout.shiftX || layout.shiftY)
    ScrollWindowEx(frame, layout.shiftX, layout.shiftY, nullptr, nullptr, nullptr, nullptr,
                   SW_SCROLLCHILDREN | SW_INVALIDATE | SW_ERASE);
  SetViewScrollBar(canvas, Axis::Horizontal, layout.horizontal);
  SetViewScrollBar(canvas, Axis::Vertical, layout.vertical);
  // A bar that came or went changed the client size, and the WM_SIZE it
  // caused has laid everything out for the new size already.
  RECT client;
  GetClientRect(frame, &client);
  if (client.right != width || client.bottom != height) return;
  Place(canvas->displayWnd, layout.display);
  Place(canvas->hRuler, layout.hRuler);
  Place(canvas->vRuler, layout.vRuler);
  const int show = canvas->rulersOn ? SW_SHOWNA : SW_HIDE;
  ShowWindow(static_cast<HWND>(canvas->hRuler), show);
  ShowWindow(static_cast<HWND>(canvas->vRuler), show);
}

// The thumb requests carry a 16-bit position; the bar keeps all 32 bits.
void Scroll(HWND frame, Canvas* canvas, Axis axis, int request) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_TRACKPOS;
  GetScrollInfo(frame, axis == Axis::Horizontal ? SB_HORZ : SB_VERT, &info);
  ScrollView(canvas, axis, request, info.nTrackPos);
}

LRESULT CALLBACK ViewFrameProc(HWND frame, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      return CreateWindowExW(0, kViewClass, nullptr, WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, frame,
                             nullptr, win32::ProgramInstance(), nullptr)
                 ? 0
                 : -1;
    case WM_SIZE:
      if (Canvas* canvas = CanvasOfFrame(frame); canvas && canvas->displayWnd)
        LayOut(frame, canvas, LOWORD(lParam), HIWORD(lParam));
      return 0;
    case WM_HSCROLL:
    case WM_VSCROLL:
      if (Canvas* canvas = CanvasOfFrame(frame))
        Scroll(frame, canvas, message == WM_HSCROLL ? Axis::Horizontal : Axis::Vertical,
               LOWORD(wParam));
      return 0;
  }
  return DefWindowProcW(frame, message, wParam, lParam);
}

// The keys held at a press, as the routing asks for them, and where on
// the screen the press happened.
PointerPress PressOf(WPARAM keys) {
  const DWORD at = GetMessagePos();
  return {currentTool, (keys & MK_SHIFT) != 0, (keys & MK_CONTROL) != 0,
          GetKeyState(VK_SPACE) < 0, GET_X_LPARAM(at), GET_Y_LPARAM(at)};
}

// The update region is taken and validated first; the tiles and overlays
// then draw on the window directly.
void Paint(HWND view, Canvas* canvas) {
  PAINTSTRUCT ps;
  BeginPaint(view, &ps);
  EndPaint(view, &ps);
  const RECT& r = ps.rcPaint;
  PaintView(canvas, r.left, r.top, r.right, r.bottom);
}

LRESULT CALLBACK ViewProc(HWND view, UINT message, WPARAM wParam, LPARAM lParam) {
  Canvas* canvas = CanvasOfFrame(GetParent(view));
  if (!canvas) return DefWindowProcW(view, message, wParam, lParam);
  switch (message) {
    case WM_PAINT:
      Paint(view, canvas);
      return 0;
    case WM_LBUTTONDOWN:
      LeftButtonDown(canvas, PressOf(wParam));
      return 0;
    case WM_RBUTTONDOWN:
      RightButtonDown(canvas, PressOf(wParam));
      return 0;
    case WM_MBUTTONDOWN:
      MiddleButtonDown(canvas, PressOf(wParam));
      return 0;
    case WM_MOUSEMOVE: {
      // Ask for WM_MOUSELEAVE, so what follows the pointer can go with it.
      TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, view, 0};
      TrackMouseEvent(&track);
      PointerMoved(canvas);
      return 0;
    }
    case WM_MOUSELEAVE:
      PointerLeft(canvas);
      return 0;
  }
  return DefWindowProcW(view, message, wParam, lParam);
}

}  // namespace

// The view has no background: every pixel of it is a tile of the picture.
bool RegisterViewClasses() {
  return win32::RegisterWindowClass(
             {kViewFrameClass, ViewFrameProc, reinterpret_cast<HBRUSH>(COLOR_APPWORKSPACE + 1)}) &&
         win32::RegisterWindowClass({kViewClass, ViewProc});
}

void SetViewScrollBar(Canvas* canvas, Axis axis, const ScrollBarState& bar) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.nMin = 0;
  info.nMax = bar.max;
  info.nPage = static_cast<UINT>(bar.page > 0 ? bar.page : 0);
  info.nPos = bar.position;
  SetScrollInfo(static_cast<HWND>(canvas->frameWnd), axis == Axis::Horizontal ? SB_HORZ : SB_VERT,
                &info, TRUE);
}

void RefreshDocumentView(Canvas* canvas) {
  auto frame = static_cast<HWND>(canvas->frameWnd);
  RECT client;
  GetClientRect(frame, &client);
  LayOut(frame, canvas, client.right, client.bottom);
  RedrawWindow(static_cast<HWND>(canvas->documentWnd), nullptr, nullptr,
               RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}
