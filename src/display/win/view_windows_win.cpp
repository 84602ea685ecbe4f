#include "display/win/view_windows_win.h"

#include <windows.h>

#include "display/grid_command.h"
#include "display/smooth_zoom_frame.h"
#include "display/view_windows.h"
#include "display/win/grid_dialog.h"
#include "display/win/hand_cursor.h"
#include "display/win/smooth_zoom_win.h"
#include "display/win/view_drawing.h"
#include "display/win/zoom_readout.h"
#include "display/win/document_window.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"

namespace {

HWND Hwnd(WindowHandle window) { return static_cast<HWND>(window); }

PointerState Pointer(Canvas* canvas) {
  POINT screen{};
  GetCursorPos(&screen);
  POINT view = screen;
  ScreenToClient(Hwnd(canvas->displayWnd), &view);
  RECT document{};
  GetWindowRect(Hwnd(canvas->documentWnd), &document);
  return {view.x, view.y, screen.x, screen.y, PtInRect(&document, screen) ? 1 : 0};
}

int VirtualKeyOf(PointerButton button) {
  switch (button) {
    case PointerButton::Left: return VK_LBUTTON;
    case PointerButton::Right: return VK_RBUTTON;
    case PointerButton::Middle: return VK_MBUTTON;
  }
  return VK_LBUTTON;
}

// The drag loops run inside a press handler: the input is taken in, so that
// the button's state is current, and what they scrolled into view paints.
bool ButtonHeld(PointerButton button) {
  MSG msg;
  PeekMessageW(&msg, nullptr, 0, 0, PM_NOREMOVE | PM_QS_INPUT);
  if (PeekMessageW(&msg, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE)) DispatchMessageW(&msg);
  return (GetAsyncKeyState(VirtualKeyOf(button)) & 0x8000) != 0;
}

// ScrollWindow of frameWnd moves displayWnd with the pixels it shows.
void ScrollFrame(Canvas* canvas, int dx, int dy) {
  ScrollWindowEx(Hwnd(canvas->frameWnd), dx, dy, nullptr, nullptr, nullptr, nullptr,
                 SW_SCROLLCHILDREN | SW_INVALIDATE | SW_ERASE);
}

void RepaintRuler(Canvas* canvas, Axis axis) {
  InvalidateRect(Hwnd(axis == Axis::Horizontal ? canvas->hRuler : canvas->vRuler), nullptr, FALSE);
}

// The frame size changes twice, so that frameWnd sizes (and lays out)
// even when the document keeps its size.
void ResendDocumentSize(Canvas* canvas) {
  HWND document = Hwnd(canvas->documentWnd);
  RECT r;
  GetClientRect(document, &r);
  const WPARAM type = IsZoomed(document) ? SIZE_MAXIMIZED : SIZE_RESTORED;
  SendMessageW(document, WM_SIZE, type, MAKELPARAM(2 * r.right, 2 * r.bottom));
  SendMessageW(document, WM_SIZE, type, MAKELPARAM(r.right, r.bottom));
}

void ShowPosition(const std::string& text) {
  platform::SendToWindow(platform::Window::StatusBar, platform::MsgStatus, platform::kStatusText,
                         reinterpret_cast<intptr_t>(text.c_str()));
}

}  // namespace

void InstallViewWindows() {
  ViewWindows& w = viewWindows;
  w.pointer = Pointer;
  w.buttonHeld = ButtonHeld;
  w.scrollWindow = ScrollFrame;
  w.setScrollBar = SetViewScrollBar;
  w.repaintRuler = RepaintRuler;
  w.updateNow = [](Canvas* canvas) { UpdateWindow(Hwnd(canvas->displayWnd)); };
  w.invalidate = [](Canvas* canvas) { InvalidateRect(Hwnd(canvas->displayWnd), nullptr, FALSE); };
  w.resendDocumentSize = ResendDocumentSize;
  w.sendCommand = [](Canvas* canvas, int id) {
    SendMessageW(Hwnd(canvas->documentWnd), WM_COMMAND, static_cast<WPARAM>(id), 0);
  };
  w.showZoom = ShowZoomReadout;
  w.showPosition = ShowPosition;
  w.displayBits = win32::ScreenBits;
  w.drawPicture = DrawViewPicture;
  w.drawGridLine = DrawGridLine;
  w.invertBox = InvertViewBox;
  w.handCursor = ShowHandCursor;
  w.gridDialog = RunGridDialog;
  w.smoothZoomDialog = RunSmoothZoomDialog;
  w.zoomFrameMenu = RunZoomFrameMenu;
}
