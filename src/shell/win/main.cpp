// The entry point: the start of the program in its order, the message
// loop, and what is released after it.
#include <windows.h>
#include <shellapi.h>
#include <commctrl.h>

#include <clocale>
#include <cstdlib>
#include <string>
#include <vector>

#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"
#include "resources/strings.h"
#include "settings/number_lists.h"
#include "settings/settings.h"
#include "shell/frame_geometry.h"
#include "shell/settings_files.h"
#include "shell/start_folder.h"
#include "shell/win/frame_menus.h"
#include "shell/win/frame_window.h"
#include "shell/win/message_loop.h"
#include "shell/win/shell_globals.h"
#include "shell/win/single_instance.h"

namespace {

constexpr int kStringDoubleStart = 1308;
constexpr int kStringNoStartFolder = 1309;
constexpr int kStringLocale = 26210;

void ShowStartBox(int id) {
  platform::ShowMessageBox(platform::Window::None, StringText(id), kProductName,
                           platform::MbOk | platform::MbIconError);
}

// The file names of the command line; the first argument is the program.
std::vector<std::string> CommandLineFiles() {
  std::vector<std::string> files;
  int count = 0;
  wchar_t** args = CommandLineToArgvW(GetCommandLineW(), &count);
  if (!args) return files;
  for (int i = 1; i < count; ++i) files.push_back(platform::Narrow(args[i]));
  LocalFree(args);
  return files;
}

// Paths are UTF-8 inside the program, whose trail bytes never look like a
// backslash; stepping over them keeps a multi-byte character whole.
const char* NextUtf8Char(const char* p) {
  ++p;
  while ((static_cast<unsigned char>(*p) & 0xC0) == 0x80) ++p;
  return p;
}

bool FindStartFolder() {
  std::wstring path(MAX_PATH, L'\0');
  DWORD length;
  while ((length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()))) ==
         path.size())
    path.resize(path.size() * 2);
  if (length == 0) return false;
  path.resize(length);
  startFolder = StartFolderOf(platform::Narrow(path).c_str(), NextUtf8Char);
  return !startFolder.empty();
}

std::string SystemTempFolder() {
  wchar_t path[MAX_PATH + 1];
  const DWORD length = GetTempPathW(MAX_PATH + 1, path);
  return length ? platform::Narrow(std::wstring(path, length)) : std::string();
}

void ReadSettingsFiles() {
  LoadSettings(startFolder);
  ReadPenSizes(startFolder);
  ReadCanvasSizes(startFolder);
  ReadTList(startFolder, 0);
  ReadTList(startFolder, 1);
}

void RegisterClipboardFormats() {
  clipTransparency = RegisterClipboardFormatW(L"Tesel_Transp");
  clipSelArea = RegisterClipboardFormatW(L"Tesel_SelArea");
  clipMask = RegisterClipboardFormatW(L"Tesel_Mask");
}

void ReadScreenFacts() {
  screenWidth = GetSystemMetrics(SM_CXSCREEN);
  screenHeight = GetSystemMetrics(SM_CYSCREEN);
  screenBits = win32::ScreenBits();
}

// The saved place, brought onto the screen, with the title "Tesel".
HWND CreateFrame(int show, std::vector<std::string>* files) {
  const Rect place =
      ClampFramePlacement(settings.framePosition, settings.frameSize, screenWidth, screenHeight);
  HWND frame = CreateWindowExW(0, kFrameClass, platform::Widen(kProductName).c_str(),
                               WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, place.left, place.top,
                               place.Width(), place.Height(), nullptr, menuInit, win32::ProgramInstance(), files);
  if (frame) ShowWindow(frame, settings.maximized ? SW_SHOWMAXIMIZED : show);
  return frame;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int show) {
  // The names stay alive for the run: the frame posts them to itself.
  static std::vector<std::string> files = CommandLineFiles();
  if (HWND running = FindWindowW(kFrameClass, nullptr)) {
    if (files.empty())
      ShowStartBox(kStringDoubleStart);
    else
      HandOverFiles(running, files);
    return 0;
  }
  std::setlocale(LC_ALL, StringText(kStringLocale));
  const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_STANDARD_CLASSES | ICC_UPDOWN_CLASS};
  InitCommonControlsEx(&controls);
  if (!FindStartFolder()) {
    ShowStartBox(kStringNoStartFolder);
    return 0;
  }
  // Temporary files go beside the program, whatever the system offers.
  tempFolder = SystemTempFolder();
  tempFolder = startFolder;
  if (!RegisterWindowClasses()) return 0;
  ReadSettingsFiles();
  LoadMenus();
  largeBuffer = std::calloc(1, kLargeBufferBytes);
  if (!largeBuffer) return 0;
  RegisterClipboardFormats();
  ReadScreenFacts();
  int code = 0;
  if (HWND frame = CreateFrame(show, &files)) {
    UpdateWindow(frame);
    wheelMessage = RegisterWindowMessageW(L"MSWHEEL_ROLLMSG");
    code = RunMessageLoop();
  }
  DestroyMenus();
  std::free(largeBuffer);
  largeBuffer = nullptr;
  return code;
}
