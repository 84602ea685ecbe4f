#include "display/win/document_window.h"

#include "base/command_ids.h"
#include "display/view_layout.h"
#include "display/win/document_parts.h"
#include "display/zoom.h"
#include "document/canvas_manager.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"

namespace {

HWND CreatePart(const wchar_t* className, DWORD style, HWND parent, int id) {
  return CreateWindowExW(0, className, nullptr, WS_CHILD | style, 0, 0, 0, 0, parent,
                         reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                         win32::ProgramInstance(), nullptr);
}

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

void ShowZoomOf(const Canvas* canvas) {
  if (!viewWindows.showZoom) return;
  viewWindows.showZoom(canvas ? ZoomReadoutOf(canvas->zoomStep) : ZoomReadout{});
}

}  // namespace

bool RegisterDocumentViewClasses() { return RegisterViewClasses() && RegisterRulerClasses(); }

void SetCanvasOfDocument(HWND documentWnd, Canvas* canvas) {
  SetWindowLongPtrW(documentWnd, 0, reinterpret_cast<LONG_PTR>(canvas));
}

bool CreateDocumentViews(HWND window, Canvas* canvas) {
  HWND frame = CreatePart(kViewFrameClass, WS_VISIBLE | WS_HSCROLL | WS_VSCROLL | WS_CLIPCHILDREN,
                          window, kViewFrameId);
  HWND hRuler = CreatePart(kHorizontalRulerClass, 0, window, kHorizontalRulerId);
  HWND vRuler = CreatePart(kVerticalRulerClass, 0, window, kVerticalRulerId);
  if (!frame || !hRuler || !vRuler) return false;
  canvas->frameWnd = frame;
  canvas->displayWnd = GetWindow(frame, GW_CHILD);
  canvas->hRuler = hRuler;
  canvas->vRuler = vRuler;
  PostMessageW(window, WM_COMMAND, cmd::kAdjustWindowSize, 0);
  SetWindowTextW(window, platform::Widen(CanvasManager.TitleText(canvas)).c_str());
  return true;
}

void PlaceDocumentViews(HWND window, int width, int height) {
  Canvas* canvas = CanvasOfDocument(window);
  if (!canvas || !canvas->frameWnd) return;
  const Rect r = FramePlacement(canvas, width, height);
  MoveWindow(static_cast<HWND>(canvas->frameWnd), r.left, r.top, r.Width(), r.Height(), TRUE);
}

void ShowDocumentActive(Canvas* canvas, bool active, bool anotherFollows) {
  if (active) {
    BindActiveView(canvas);
    ShowZoomOf(canvas);
  } else {
    Unbind(canvas);
    if (!anotherFollows) ShowZoomOf(nullptr);
  }
}

void ReleaseDocumentViews(const Canvas* canvas) { Unbind(canvas); }

Canvas* CanvasOfDocument(HWND documentWnd) {
  if (!documentWnd) return nullptr;
  wchar_t name[16];
  if (!GetClassNameW(documentWnd, name, 16) || lstrcmpW(name, kDocumentClass) != 0) return nullptr;
  auto* canvas = reinterpret_cast<Canvas*>(GetWindowLongPtrW(documentWnd, 0));
  return canvas && !canvas->closing ? canvas : nullptr;
}
