// The MDI child of one picture: it owns the Canvas (its first extra word)
// from WM_CREATE to WM_DESTROY and passes commands and keys to it.
#include "display/win/document_window.h"

#include "display/view_layout.h"
#include "display/zoom.h"
#include "document/canvas_manager.h"
#include "display/win/document_parts.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"
#include "base/command_ids.h"

DocumentWindowHandlers documentHandlers;

namespace {

void SetCanvasWord(HWND window, Canvas* canvas) {
  SetWindowLongPtrW(window, 0, reinterpret_cast<LONG_PTR>(canvas));
}

HWND CreatePart(const wchar_t* className, DWORD style, HWND parent, int id) {
  return CreateWindowExW(0, className, nullptr, WS_CHILD | style, 0, 0, 0, 0, parent,
                         reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                         win32::ProgramInstance(), nullptr);
}

// The record first, then the view frame and the rulers; the window fits
// itself to the picture once the MDI client has shown it.
LRESULT Create(HWND window) {
  Canvas* canvas = documentHandlers.open(window);
  if (!canvas) return -1;
  SetCanvasWord(window, canvas);
  HWND frame = CreatePart(kViewFrameClass, WS_VISIBLE | WS_HSCROLL | WS_VSCROLL | WS_CLIPCHILDREN,
                          window, kViewFrameId);
  HWND hRuler = CreatePart(kHorizontalRulerClass, 0, window, kHorizontalRulerId);
  HWND vRuler = CreatePart(kVerticalRulerClass, 0, window, kVerticalRulerId);
  if (!frame || !hRuler || !vRuler) {
    // Destroying the window from here would skip the release: unmake the
    // record and fail the creation instead.
    documentHandlers.close(canvas);
    SetCanvasWord(window, nullptr);
    return -1;
  }
  canvas->frameWnd = frame;
  canvas->displayWnd = GetWindow(frame, GW_CHILD);
  canvas->hRuler = hRuler;
  canvas->vRuler = vRuler;
  PostMessageW(window, WM_COMMAND, cmd::kAdjustWindowSize, 0);
  SetWindowTextW(window, platform::Widen(CanvasManager.TitleText(canvas)).c_str());
  return 0;
}

// The view frame stands inside the margins, where the rulers are not.
void Size(HWND window, int width, int height) {
  Canvas* canvas = CanvasOfDocument(window);
  if (!canvas || !canvas->frameWnd) return;
  const Rect r = FramePlacement(canvas, width, height);
  MoveWindow(static_cast<HWND>(canvas->frameWnd), r.left, r.top, r.Width(), r.Height(), TRUE);
}

// The pointer's origin and the rulers that portable code addresses by role
// are those of the active document; none once it has gone.
void BindActiveView(const Canvas* canvas) {
  platform::BindWindow(platform::Window::CanvasView,
                       canvas ? static_cast<HWND>(canvas->displayWnd) : nullptr);
  platform::BindWindow(platform::Window::HorizontalRuler,
                       canvas ? static_cast<HWND>(canvas->hRuler) : nullptr);
  platform::BindWindow(platform::Window::VerticalRuler,
                       canvas ? static_cast<HWND>(canvas->vRuler) : nullptr);
}

void Unbind(const Canvas* canvas) {
  if (platform::BoundWindow(platform::Window::CanvasView) == canvas->displayWnd)
    BindActiveView(nullptr);
}

// The zoom read-out follows the active document, and goes with the last.
void ShowZoomOf(const Canvas* canvas) {
  if (!viewWindows.showZoom) return;
  viewWindows.showZoom(canvas ? ZoomReadoutOf(canvas->zoomStep) : ZoomReadout{});
}

void Activate(HWND window, HWND deactivated, HWND activated) {
  Canvas* canvas = CanvasOfDocument(window);
  if (!canvas) return;
  if (activated == window) {
    BindActiveView(canvas);
    ShowZoomOf(canvas);
    documentHandlers.activate(canvas, true);
  } else if (deactivated == window) {
    Unbind(canvas);
    if (!activated) ShowZoomOf(nullptr);
    documentHandlers.activate(canvas, false);
  }
}

LRESULT CALLBACK DocumentProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      return Create(window);
    case WM_SIZE:
      Size(window, LOWORD(lParam), HIWORD(lParam));
      break;  // the MDI client needs it too
    case WM_MDIACTIVATE:
      Activate(window, reinterpret_cast<HWND>(wParam), reinterpret_cast<HWND>(lParam));
      break;
    case WM_COMMAND:
      if (Canvas* canvas = CanvasOfDocument(window))
        documentHandlers.command(canvas, LOWORD(wParam), lParam);
      return 0;
    case WM_KEYDOWN:
      if (Canvas* canvas = CanvasOfDocument(window))
        documentHandlers.keyDown(canvas, static_cast<int>(wParam), GetKeyState(VK_SHIFT) < 0);
      return 0;
    case WM_CLOSE:
      if (Canvas* canvas = CanvasOfDocument(window))
        if (!documentHandlers.queryClose(canvas)) return 0;
      break;
    case WM_DESTROY:
      if (Canvas* canvas = CanvasOfDocument(window)) {
        Unbind(canvas);
        documentHandlers.close(canvas);
        SetCanvasWord(window, nullptr);
      }
      break;
  }
  return DefMDIChildProcW(window, message, wParam, lParam);
}

}  // namespace

Canvas* CanvasOfDocument(HWND documentWnd) {
  if (!documentWnd) return nullptr;
  wchar_t name[16];
  if (!GetClassNameW(documentWnd, name, 16) || lstrcmpW(name, kDocumentClass) != 0) return nullptr;
  auto* canvas = reinterpret_cast<Canvas*>(GetWindowLongPtrW(documentWnd, 0));
  return canvas && !canvas->closing ? canvas : nullptr;
}

bool RegisterDocumentClasses(const DocumentWindowHandlers& handlers) {
  documentHandlers = handlers;
  return win32::RegisterWindowClass({kDocumentClass, DocumentProc,
                                     reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1),
                                     CS_HREDRAW | CS_VREDRAW, sizeof(Canvas*)}) &&
         RegisterViewClasses() && RegisterRulerClasses();
}
