#include "selection/win/selection_windows_win.h"

#include <windows.h>

#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"
#include "selection/selection_windows.h"
#include "selection/win/detect_selection_win.h"
#include "selection/win/draft_cursors.h"
#include "selection/win/number_dialog.h"
#include "selection/win/outline_drawing.h"
#include "selection/win/radius_dialog_win.h"
#include "selection/win/selection_files_win.h"

namespace {

// The view's class cursor is the one its every move sets, so the chosen
// one stays until the pointer earns another.
void ShowCursorNamed(const std::string& name) {
  HCURSOR cursor = name.empty() ? nullptr : DraftCursor(name);
  if (!cursor) cursor = LoadCursor(nullptr, IDC_ARROW);
  if (HWND view = platform::BoundWindow(platform::Window::CanvasView))
    SetClassLongPtrW(view, GCLP_HCURSOR, reinterpret_cast<LONG_PTR>(cursor));
  SetCursor(cursor);
}

int PopupMenu(Canvas* canvas, const std::string& name, const std::vector<MenuItemState>& items) {
  HMENU menu = LoadMenuW(win32::ProgramInstance(), platform::Widen(name).c_str());
  if (!menu) return 0;
  HMENU popup = GetSubMenu(menu, 0);
  for (const MenuItemState& item : items)
    EnableMenuItem(popup, static_cast<UINT>(item.id),
                   MF_BYCOMMAND | (item.enabled ? MF_ENABLED : MF_GRAYED));
  POINT at;
  GetCursorPos(&at);
  const int chosen =
      static_cast<int>(TrackPopupMenu(popup, TPM_RETURNCMD | TPM_RIGHTBUTTON, at.x, at.y, 0,
                                      static_cast<HWND>(canvas->displayWnd), nullptr));
  DestroyMenu(menu);
  return chosen;
}

// The click tools' own loop: the pointer's moves, the left press, the
// right release and Backspace are answered, anything else dropped. Paint
// goes through, so that the windows stay drawn; the Draft's overlay keeps
// the rubber band across it. A quit ends the run and is kept for the main
// loop.
ClickEvent NextClickEvent(Canvas*) {
  MSG msg;
  for (;;) {
    const BOOL got = GetMessageW(&msg, nullptr, 0, 0);
    if (got <= 0) {
      PostQuitMessage(static_cast<int>(msg.wParam));
      return {ClickEvent::RightUp};
    }
    switch (msg.message) {
      case WM_MOUSEMOVE:
        return {ClickEvent::Move};
      case WM_LBUTTONDOWN:
        return {ClickEvent::LeftDown};
      case WM_RBUTTONUP:
        return {ClickEvent::RightUp};
      case WM_KEYDOWN:
        if (msg.wParam == VK_BACK) return {ClickEvent::Backspace};
        break;
      case WM_PAINT:
        DispatchMessageW(&msg);
        break;
    }
  }
}

void FrameCommand(int id, bool post) {
  HWND frame = platform::BoundWindow(platform::Window::Frame);
  if (!frame) return;
  if (post)
    PostMessageW(frame, WM_COMMAND, static_cast<WPARAM>(id), 0);
  else
    SendMessageW(frame, WM_COMMAND, static_cast<WPARAM>(id), 0);
}

}  // namespace

void InstallSelectionWindows() {
  InstallDetectSelectionWindow();
  SelectionWindows& w = selectionWindows;
  w.invertLine = InvertLine;
  w.invertBox = InvertBox;
  w.invertArc = InvertArc;
  w.colouredLine = ColouredLine;
  w.colouredBox = ColouredBox;
  w.invertText = InvertText;
  w.showCursor = ShowCursorNamed;
  w.popupMenu = PopupMenu;
  w.sendCommand = [](int id) { FrameCommand(id, false); };
  w.postCommand = [](int id) { FrameCommand(id, true); };
  w.nextClickEvent = NextClickEvent;
  w.numberDialog = RunNumberDialog;
  w.radiusDialog = RunRadiusDialog;
  InstallSelectionFileDialog();
  InstallSettingsPanel();
}
