// The MDI child of one picture: it owns the Canvas (its first extra word)
// from WM_CREATE to WM_DESTROY, passes commands and keys to it, and asks
// before it closes. The views inside it are the display's.
#include "shell/win/document_window.h"

#include "display/win/document_window.h"
#include "platform/win32/win32_windows.h"
#include "shell/command_routing.h"
#include "shell/documents.h"
#include "shell/input_rules.h"
#include "shell/menu_state.h"
#include "shell/win/frame_menus.h"

namespace {

// The record first, then the views; a view that can't be made fails the
// creation, as destroying the window from here would skip the release.
LRESULT Create(HWND window) {
  Canvas* canvas = OpenDocument(window);
  if (!canvas) return -1;
  SetCanvasOfDocument(window, canvas);
  if (CreateDocumentViews(window, canvas)) return 0;
  CloseDocument(canvas);
  SetCanvasOfDocument(window, nullptr);
  return -1;
}

void Close(HWND window, Canvas* canvas) {
  ReleaseDocumentViews(canvas);
  CloseDocument(canvas);
  SetCanvasOfDocument(window, nullptr);
  if (OpenDocumentCount() == 0) SetMainMenu(MainMenu::Init);
}

void Activate(HWND window, HWND deactivated, HWND activated) {
  Canvas* canvas = CanvasOfDocument(window);
  if (!canvas || (activated != window && deactivated != window)) return;
  const bool active = activated == window;
  ShowDocumentActive(canvas, active, activated != nullptr);
  ActivateDocument(canvas, active);
  if (active) SetMainMenu(MainMenuFor(OpenDocumentCount()));
}

LRESULT CALLBACK DocumentProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      return Create(window);
    case WM_SIZE:
      PlaceDocumentViews(window, LOWORD(lParam), HIWORD(lParam));
      break;  // the MDI client needs it too
    case WM_MDIACTIVATE:
      Activate(window, reinterpret_cast<HWND>(wParam), reinterpret_cast<HWND>(lParam));
      break;
    case WM_COMMAND:
      if (Canvas* canvas = CanvasOfDocument(window)) CanvasCommand(canvas, LOWORD(wParam), lParam);
      return 0;
    case WM_KEYDOWN:
      if (Canvas* canvas = CanvasOfDocument(window))
        DocumentKeyDown(canvas, static_cast<int>(wParam), GetKeyState(VK_SHIFT) < 0);
      return 0;
    case WM_CLOSE:
      if (Canvas* canvas = CanvasOfDocument(window))
        if (!QueryCloseDocument(canvas)) return 0;
      break;
    case WM_DESTROY:
      if (Canvas* canvas = CanvasOfDocument(window)) Close(window, canvas);
      break;
  }
  return DefMDIChildProcW(window, message, wParam, lParam);
}

}  // namespace

bool RegisterDocumentWindows() {
  return win32::RegisterWindowClass({kDocumentClass, DocumentProc,
                                     reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1),
                                     CS_HREDRAW | CS_VREDRAW, sizeof(Canvas*)}) &&
         RegisterDocumentViewClasses();
}
