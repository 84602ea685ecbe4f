// The Windows side of the portable shell: what its command handlers ask of
// the windows, and what the document windows ask of it.
#include "shell/win/shell_windows_win.h"

#include "display/win/document_window.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"
#include "shell/frame_geometry.h"
#include "shell/shell_windows.h"
#include "shell/win/dialogs.h"
#include "shell/win/frame_menus.h"
#include "shell/win/shell_globals.h"

namespace {

HWND DocumentOf(const Canvas* canvas) { return static_cast<HWND>(canvas->documentWnd); }

HWND ActiveDocument() {
  auto active = reinterpret_cast<HWND>(SendMessageW(mdiClient, WM_MDIGETACTIVE, 0, 0));
  return active && IsWindow(active) ? active : nullptr;
}

int CreateDocument() {
  const int at = NextCascadePosition();
  MDICREATESTRUCTW create{};
  create.szClass = kDocumentClass;
  create.szTitle = L"test";
  create.hOwner = win32::ProgramInstance();
  create.x = at;
  create.y = at;
  create.cx = kDocumentWidth;
  create.cy = kDocumentHeight;
  return SendMessageW(mdiClient, WM_MDICREATE, 0, reinterpret_cast<LPARAM>(&create)) != 0;
}

std::vector<WindowHandle> Documents() {
  std::vector<WindowHandle> documents;
  for (HWND child = GetWindow(mdiClient, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
    if (CanvasOfDocument(child)) documents.push_back(child);
  return documents;
}

int AskToClose(WindowHandle document) {
  auto window = static_cast<HWND>(document);
  SendMessageW(window, WM_CLOSE, 0, 0);
  return !IsWindow(window);
}

DocumentFrame FrameOf(Canvas* canvas) {
  HWND document = DocumentOf(canvas);
  RECT client, mdi;
  GetClientRect(document, &client);
  GetClientRect(mdiClient, &mdi);
  return {IsZoomed(document) ? 1 : 0,  client.right, client.bottom,
          GetSystemMetrics(SM_CXFRAME), GetSystemMetrics(SM_CYCAPTION),
          mdi.right,                    mdi.bottom};
}

// A new size with the window's place in the MDI client kept.
void MoveDocument(Canvas* canvas, int width, int height) {
  HWND document = DocumentOf(canvas);
  RECT r;
  GetWindowRect(document, &r);
  MapWindowPoints(nullptr, mdiClient, reinterpret_cast<POINT*>(&r), 2);
  MoveWindow(document, r.left, r.top, width, height, TRUE);
}

// Q and the context key: a right press on the program's window under the
// pointer, with the keys held now.
void RightClickAtPointer() {
  POINT at;
  GetCursorPos(&at);
  HWND under = WindowFromPoint(at);
  if (!under || GetWindowThreadProcessId(under, nullptr) != GetCurrentThreadId()) return;
  ScreenToClient(under, &at);
  WPARAM keys = MK_RBUTTON;
  if (GetKeyState(VK_SHIFT) < 0) keys |= MK_SHIFT;
  if (GetKeyState(VK_CONTROL) < 0) keys |= MK_CONTROL;
  SendMessageW(under, WM_RBUTTONDOWN, keys, MAKELPARAM(at.x, at.y));
}

}  // namespace

void ConnectShellWindows() {
  ShellWindows& w = shellWindows;
  w.newDialog = RunNewDialog;
  w.createDocument = CreateDocument;
  w.closeActiveDocument = [] {
    if (HWND active = ActiveDocument()) SendMessageW(active, WM_CLOSE, 0, 0);
  };
  w.closeFrame = [] { PostMessageW(frameWnd, WM_CLOSE, 0, 0); };
  w.mdiClientMessage = [](uint32_t message) { SendMessageW(mdiClient, message, 0, 0); };
  w.documents = Documents;
  w.askDocumentToClose = AskToClose;
  w.activeDocument = []() -> WindowHandle { return ActiveDocument(); };
  w.sendCommand = [](WindowHandle document, int id, intptr_t lParam) {
    SendMessageW(static_cast<HWND>(document), WM_COMMAND, static_cast<WPARAM>(id), lParam);
  };
  w.showAbout = ShowAboutBox;
  w.historyChanged = ShowHistoryInMenus;
  w.viewChanged = RefreshDocumentView;
  w.setTitle = [](Canvas* canvas, const std::string& title) {
    SetWindowTextW(DocumentOf(canvas), platform::Widen(title).c_str());
  };
  w.documentFrame = FrameOf;
  w.sendDocumentSize = [](Canvas* canvas, int width, int height) {
    SendMessageW(DocumentOf(canvas), WM_SIZE, SIZE_MAXIMIZED, MAKELPARAM(width, height));
  };
  w.moveDocument = MoveDocument;
  w.toolButtonsChanged = [](int, int) { InvalidateRect(toolBar, nullptr, TRUE); };
  w.rightClickAtPointer = RightClickAtPointer;
}
