// The frame window (class da00): its messages, each turned into a call of
// the portable shell.
#include "shell/win/frame_window.h"

#include "paint/tip/pen_state.h"
#include "panels/win/thumbnail_win.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"
#include "shell/command_routing.h"
#include "shell/documents.h"
#include "shell/key_polling.h"
#include "shell/win/frame_input.h"
#include "shell/win/frame_menus.h"
#include "shell/win/document_window.h"
#include "shell/win/key_poll_timer.h"
#include "shell/win/shell_globals.h"
#include "shell/win/shell_windows_win.h"
#include "shell/win/side_windows.h"

namespace {

constexpr UINT kTwainBitmapMessage = 1034;

// Menu items of the MDI client's own: the child list of the window menu
// (numbered from the first child id) and the system menu of a maximized
// child. Every command of the program is numbered above them.
constexpr int kFirstChildId = 100;
constexpr int kFirstCommand = 1000;
constexpr int kSystemCommands = 0xF000;

bool IsMdiItem(int id) { return (id >= kFirstChildId && id < kFirstCommand) || id >= kSystemCommands; }

FramePlacementRecord Placement(HWND frame) {
  WINDOWPLACEMENT placement{};
  placement.length = sizeof placement;
  GetWindowPlacement(frame, &placement);
  const RECT& r = placement.rcNormalPosition;
  return {IsZoomed(frame) ? 1 : 0, r.left, r.top, r.right - r.left, r.bottom - r.top};
}

// Settings, the pen among them, are saved first; a document that refuses
// to close keeps the frame open.
bool MayClose(HWND frame) {
  StorePenState();
  return FrameClosing(Placement(frame), startFolder) != 0;
}

void DeleteTemporaryFiles() {
  const std::wstring folder = platform::Widen(tempFolder);
  WIN32_FIND_DATAW found;
  HANDLE search = FindFirstFileW((folder + L"*.tmp").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return;
  do {
    DeleteFileW((folder + found.cFileName).c_str());
  } while (FindNextFileW(search, &found));
  FindClose(search);
}

LRESULT CALLBACK FrameProc(HWND frame, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == wheelMessage && wheelMessage) {
    OnWheel(static_cast<short>(HIWORD(wParam)));
    return 0;
  }
  switch (message) {
    case WM_CREATE:
      return OnFrameCreate(frame, reinterpret_cast<CREATESTRUCTW*>(lParam)) ? 0 : -1;
    case WM_DESTROY:
      StopKeyPolling(frame);
      frameDestroyHooks.Run();
      DeleteTemporaryFiles();
      PostQuitMessage(0);
      return 0;
    case WM_SIZE:
      // Not to the default: it would give the MDI client the whole frame.
      LayOutFrameWindows();
      return 0;
    case WM_CLOSE:
      if (MayClose(frame)) DestroyWindow(frame);
      return 0;
    case WM_QUERYENDSESSION:
      return MayClose(frame);
    case WM_COMMAND:
      if (IsMdiItem(LOWORD(wParam))) break;
      // A command may change the plane the layer panel's worker reads.
      StopThumbnailWorker();
      RouteCommand(LOWORD(wParam), lParam);
      return 0;
    case WM_TIMER:
      if (OnKeyPollTimer(wParam)) return 0;
      break;
    case WM_ACTIVATEAPP:
      appActive = wParam != 0;
      break;
    case WM_MOUSEMOVE:
      // A tool's cursor that outlived the pointer's stay on the view gives
      // way here; the tool shows it again when the pointer comes back.
      if (platform::CustomCursorShown()) platform::SetCustomCursor(nullptr);
      return 0;
    case WM_INITMENUPOPUP:
      if (!HIWORD(lParam)) UpdateMenuStates(reinterpret_cast<HMENU>(wParam));
      break;
    case WM_MOUSEWHEEL:
      OnWheel(GET_WHEEL_DELTA_WPARAM(wParam));
      return 0;
    case WM_DROPFILES:
      OnDropFiles(reinterpret_cast<HDROP>(wParam));
      return 0;
    case WM_DISPLAYCHANGE:
      OnDisplayChange(LOWORD(lParam), HIWORD(lParam), static_cast<int>(wParam));
      return 0;
    case WM_KEYDOWN:
      return 0;
    case platform::MsgStatus:
      return SendMessageW(statusBar, message, wParam, lParam);
    case kTwainBitmapMessage:
      RouteCommand(kTwainBitmapMessage, static_cast<intptr_t>(wParam));
      return 0;
  }
  return DefFrameProcW(frame, mdiClient, message, wParam, lParam);
}

}  // namespace

bool RegisterWindowClasses() {
  win32::WindowClass frame{kFrameClass, FrameProc,
                           reinterpret_cast<HBRUSH>(COLOR_APPWORKSPACE + 1)};
  frame.icon = LoadIcon(nullptr, IDI_APPLICATION);
  return win32::RegisterWindowClass(frame) && RegisterSideWindowClasses() &&
         RegisterDocumentWindows();
}
