#include "settings/settings.h"
#include "shell/frame_layout.h"
#include "shell/win/frame_window.h"
#include "shell/win/shell_globals.h"
#include "shell/win/side_windows.h"

namespace {

// An empty rectangle hides the window.
void Place(HWND window, const Rect& r) {
  if (r.Empty()) {
    ShowWindow(window, SW_HIDE);
    return;
  }
  MoveWindow(window, r.left, r.top, r.Width(), r.Height(), TRUE);
  ShowWindow(window, SW_SHOWNA);
}

}  // namespace

void LayOutFrameWindows() {
  RECT client;
  GetClientRect(frameWnd, &client);
  FrameLayoutInput in{};
  in.clientWidth = client.right;
  in.clientHeight = client.bottom;
  in.toolBarOn = settings.toolBarOn != 0;
  in.statusBarOn = settings.statusBarOn != 0;
  in.ctrlPanelOn = settings.ctrlPanelOn != 0;
  in.panelOnLeft = settings.ctrlPanelSide != 0;
  in.panelPageDocked = GetWindow(ctrlPanel, GW_CHILD) != nullptr;
  in.buttonHeight = ToolButtonHeight();
  const FrameLayout layout = LayOutFrame(in);
  Place(ctrlPanel, layout.ctrlPanel);
  Place(toolBar, layout.toolBar);
  Place(statusBar, layout.statusBar);
  Place(mdiClient, layout.mdiClient);
}
