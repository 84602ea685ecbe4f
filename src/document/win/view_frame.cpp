// The view frame of a document (CanvWndClass) with its scroll bars, and
// the view (CanvWndDispClass) inside it, as large as the zoomed canvas and
// moved against the frame to scroll. The view's drawing of the picture
// belongs to the display; until it paints, the view shows a white sheet.
#include <algorithm>

#include "document/win/document_parts.h"

namespace {

Canvas* CanvasOfFrame(HWND frame) { return CanvasOfDocument(GetParent(frame)); }

// Scroll offsets stay within what the extent leaves beyond the window.
int ClampScroll(int scroll, int extent, int client) {
  if (scroll < 0) return 0;
  return std::min(scroll, std::max(0, extent - client));
}

void SetBar(HWND frame, int bar, int extent, int client, int position) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.nMin = 0;
  info.nMax = extent - 1;
  info.nPage = static_cast<UINT>(std::max(client, 0));
  info.nPos = position;
  SetScrollInfo(frame, bar, &info, TRUE);
}

// The frame's size decides the extents, the scroll state, where the view
// stands (centred while it is smaller than the frame) and the rulers.
void LayOut(HWND frame, Canvas* canvas, int width, int height) {
  canvas->clientWidth = width;
  canvas->clientHeight = height;
  const SIZE zoomed = documentHandlers.zoomedSize(canvas);
  canvas->extentX = zoomed.cx + 2 * canvas->marginX;
  canvas->extentY = zoomed.cy + 2 * canvas->marginY;
  canvas->scrollX = ClampScroll(canvas->scrollX, canvas->extentX, width);
  canvas->scrollY = ClampScroll(canvas->scrollY, canvas->extentY, height);
  SetBar(frame, SB_HORZ, canvas->extentX, width, canvas->scrollX);
  SetBar(frame, SB_VERT, canvas->extentY, height, canvas->scrollY);
  // A bar that came or went changed the client size, and the WM_SIZE it
  // caused has laid everything out for the new size already.
  RECT client;
  GetClientRect(frame, &client);
  if (client.right != width || client.bottom != height) return;
  int x = canvas->marginX;
  int y = canvas->marginY;
  if (width > canvas->extentX) x += (width - canvas->extentX) / 2;
  if (height > canvas->extentY) y += (height - canvas->extentY) / 2;
  MoveWindow(static_cast<HWND>(canvas->displayWnd), x - canvas->scrollX, y - canvas->scrollY,
             zoomed.cx, zoomed.cy, TRUE);
  auto hRuler = static_cast<HWND>(canvas->hRuler);
  auto vRuler = static_cast<HWND>(canvas->vRuler);
  MoveWindow(hRuler, x + canvas->marginX, 0, zoomed.cx, canvas->marginY - 1, TRUE);
  MoveWindow(vRuler, 0, canvas->marginY + y, canvas->marginX - 1, zoomed.cy, TRUE);
  const int show = canvas->rulersOn ? SW_SHOWNA : SW_HIDE;
  ShowWindow(hRuler, show);
  ShowWindow(vRuler, show);
}

LRESULT CALLBACK ViewFrameProc(HWND frame, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      return CreateWindowExW(0, kViewClass, nullptr, WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, frame,
                             nullptr,
                             reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(frame, GWLP_HINSTANCE)),
                             nullptr)
                 ? 0
                 : -1;
    case WM_SIZE:
      if (Canvas* canvas = CanvasOfFrame(frame); canvas && canvas->displayWnd)
        LayOut(frame, canvas, LOWORD(lParam), HIWORD(lParam));
      return 0;
  }
  return DefWindowProcW(frame, message, wParam, lParam);
}

bool Register(HINSTANCE instance, const wchar_t* name, WNDPROC proc, HBRUSH background) {
  WNDCLASSEXW wc{};
  wc.cbSize = sizeof wc;
  wc.lpfnWndProc = proc;
  wc.hInstance = instance;
  wc.hCursor = LoadCursor(nullptr, IDC_ARROW);
  wc.hbrBackground = background;
  wc.lpszClassName = name;
  return RegisterClassExW(&wc) != 0;
}

}  // namespace

bool RegisterViewClasses(HINSTANCE instance) {
  return Register(instance, kViewFrameClass, ViewFrameProc,
                  reinterpret_cast<HBRUSH>(COLOR_APPWORKSPACE + 1)) &&
         Register(instance, kViewClass, DefWindowProcW,
                  static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
}

void RefreshDocumentView(Canvas* canvas) {
  auto frame = static_cast<HWND>(canvas->frameWnd);
  RECT client;
  GetClientRect(frame, &client);
  LayOut(frame, canvas, client.right, client.bottom);
  RedrawWindow(static_cast<HWND>(canvas->documentWnd), nullptr, nullptr,
               RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}
