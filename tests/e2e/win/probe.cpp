// Lists the windows a user of Tesel sees, for the end-to-end tests: every
// visible top-level window of the program (the frame, dialogs, message
// boxes) and the windows inside it, one a line:
//   <depth> <class>#<control id> "<text>" <width>x<height> @<x>,<y>
// with the place relative to the parent's client area, or with the
// argument "screen" the place on the screen, where a screenshot shows it.
// Run under Wine in the same prefix as the program. The frame's MDI
// children are no windows of the X server, so this is how a test reads
// their titles, sizes and places, and the fields of a dialog. With the
// arguments "command <id>" it posts that command to the frame instead, as
// a tool bar button would, for what has no key.
#include <windows.h>

#include <cstdio>
#include <string>

namespace {

std::string Utf8(const wchar_t* text) {
  const int n = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
  std::string out(n > 0 ? n - 1 : 0, '\0');
  if (n > 1) WideCharToMultiByte(CP_UTF8, 0, text, -1, out.data(), n, nullptr, nullptr);
  return out;
}

constexpr UINT kAnswerWithin = 2000;  // milliseconds

bool onScreen = false;

void Print(HWND window, int depth) {
  wchar_t name[128] = {};
  wchar_t text[512] = {};
  GetClassNameW(window, name, 128);
  // Asked of the window itself: an edit field keeps its text to itself.
  DWORD_PTR copied = 0;
  SendMessageTimeoutW(window, WM_GETTEXT, 512, reinterpret_cast<LPARAM>(text), SMTO_ABORTIFHUNG,
                      kAnswerWithin, &copied);
  RECT r{};
  GetWindowRect(window, &r);
  POINT at{r.left, r.top};
  const bool child = GetWindowLongW(window, GWL_STYLE) & WS_CHILD;
  if (child && !onScreen) ScreenToClient(GetParent(window), &at);
  std::printf("%d %s#%d \"%s\" %ldx%ld @%ld,%ld\n", depth, Utf8(name).c_str(),
              child ? GetDlgCtrlID(window) : 0, Utf8(text).c_str(), r.right - r.left,
              r.bottom - r.top, at.x, at.y);
}

void PrintChildren(HWND parent, int depth) {
  for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    if (!IsWindowVisible(child)) continue;
    Print(child, depth);
    PrintChildren(child, depth + 1);
  }
}

BOOL CALLBACK TopLevel(HWND window, LPARAM) {
  wchar_t name[64] = {};
  GetClassNameW(window, name, 64);
  const bool program = lstrcmpW(name, L"da00") == 0 || lstrcmpW(name, L"#32770") == 0;
  if (program && IsWindowVisible(window)) {
    Print(window, 0);
    PrintChildren(window, 1);
  }
  return TRUE;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 2 && std::string(argv[1]) == "command") {
    HWND frame = FindWindowW(L"da00", nullptr);
    return frame && PostMessageW(frame, WM_COMMAND, std::stoi(argv[2]), 0) ? 0 : 1;
  }
  onScreen = argc > 1 && std::string(argv[1]) == "screen";
  EnumWindows(TopLevel, 0);
  std::fflush(stdout);
  return 0;
}
