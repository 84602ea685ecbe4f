// WM_CREATE of the frame, in its order.
#include <windows.h>
#include <shellapi.h>

#include <string>
#include <vector>

#include "adjust/win/adjust_windows_win.h"
#include "selection/win/selection_windows_win.h"
#include "base/command_ids.h"
#include "display/win/view_windows_win.h"
#include "layers/win/layer_resize_win.h"
#include "paint/win/stroke_windows_win.h"
#include "panels/win/color_mixer_win.h"
#include "platform/win32/win32_platform.h"
#include "file/win/file_dialogs_win.h"
#include "layers/win/layer_windows_win.h"
#include "platform/win32/win32_windows.h"
#include "resources/strings.h"
#include "settings/settings.h"
#include "shell/frame_layout.h"
#include "shell/install.h"
#include "shell/win/dialogs.h"
#include "shell/win/frame_menus.h"
#include "shell/win/frame_window.h"
#include "shell/win/help_command.h"
#include "shell/win/key_poll_timer.h"
#include "shell/win/shell_globals.h"
#include "shell/win/shell_windows_win.h"
#include "shell/win/side_windows.h"
#include "shell/win/title_splash.h"

namespace {

constexpr int kStringFewColours = 1310;
constexpr int kMdiClientId = 1;
constexpr UINT kFirstChildId = 100;


bool CreateMdiClient(HWND frame) {
  CLIENTCREATESTRUCT client{windowMenu, kFirstChildId};
  mdiClient =
      CreateWindowExW(WS_EX_CLIENTEDGE, L"MDICLIENT", nullptr,
                      WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS | WS_VSCROLL | WS_HSCROLL, 0, 0,
                      0, 0, frame, reinterpret_cast<HMENU>(static_cast<INT_PTR>(kMdiClientId)),
                      win32::ProgramInstance(), &client);
  return mdiClient != nullptr;
}

void BindWindows() {
  platform::BindWindow(platform::Window::MdiClient, mdiClient);
  platform::BindWindow(platform::Window::StatusBar, statusBar);
  platform::BindWindow(platform::Window::ToolBar, toolBar);
  platform::BindWindow(platform::Window::ControlPanel, ctrlPanel);
}

void PostCommand(HWND frame, int id, const void* lParam = nullptr) {
  PostMessageW(frame, WM_COMMAND, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(lParam));
}

}  // namespace

bool OnFrameCreate(HWND frame, const CREATESTRUCTW* create) {
  frameWnd = frame;
  platform::BindWindow(platform::Window::Frame, frame);
  ShowTitleSplash(frame, RECT{create->x, create->y, create->x + create->cx, create->y + create->cy});
  if (win32::ScreenBits() < kMinColourDepth) {
    platform::ShowMessageBox(platform::Window::Frame, StringText(kStringFewColours), kProductName,
                             platform::MbOk | platform::MbIconError);
    return false;
  }
  if (!CreateMdiClient(frame) || !CreateSideWindows(frame)) return false;
  BindWindows();
  ConnectShellWindows();
  InstallViewWindows();
  InstallLayerResizeWindow();
  InstallColorMixer(startFolder);
  InstallStrokeWindows();
  InstallAdjustWindows();
  InstallSelectionWindows();
  InstallFileWindows();
  InstallLayerWindows();
  // The settings are read by now.
  InstallSubsystems(startFolder, tempFolder);
  RegisterFrameDialogs();
  RegisterHelpCommand();
  DragAcceptFiles(frame, TRUE);
  ShowHistoryInMenus();
  // The files of the command line open once the loop runs.
  const auto* files = static_cast<const std::vector<std::string>*>(create->lpCreateParams);
  if (files)
    for (const std::string& file : *files) PostCommand(frame, cmd::kOpenPath, file.c_str());
  if (settings.filterPanelOpen) PostCommand(frame, cmd::kFilterPanel);
  if (settings.settingsPanelOpen) PostCommand(frame, cmd::kSettingsPanel);
  StartKeyPolling(frame);
  return true;
}
