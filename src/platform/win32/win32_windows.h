// What every win/ folder needs of Win32 to make its windows: the module
// that holds the program's resources, window classes, modal dialogs with
// OK and Cancel, and where a new window stands.
#pragma once

#include <windows.h>

#include <functional>

namespace win32 {

// The module that holds the program's classes, resources and dialogs.
HINSTANCE ProgramInstance();

// A window class of the program. The cursor is the arrow unless named.
struct WindowClass {
  const wchar_t* name;
  WNDPROC proc;
  HBRUSH background = nullptr;  // none: the window paints all of itself
  UINT style = 0;
  int windowBytes = 0;  // cbWndExtra
  HCURSOR cursor = nullptr;
  HICON icon = nullptr;
};

// Registers the class; a class of that name that exists already (a second
// panel made after the first) counts as registered.
bool RegisterWindowClass(const WindowClass& windowClass);

// A modal dialog from the program's resources. `init` fills it; `command`
// takes its controls' WM_COMMAND (control id and notification code) and
// answers whether it handled one. OK asks `accept`, which reads the fields
// and answers whether the dialog may close (after telling what is wrong);
// Cancel and Esc close it. `other` sees every other message (timers,
// scroll bars, colours, drawing) and answers whether it handled one, with
// the dialog procedure's result in *result. Any member may be empty.
struct Dialog {
  std::function<void(HWND dialog)> init;
  std::function<bool(HWND dialog)> accept;
  std::function<bool(HWND dialog, int control, int notification)> command;
  std::function<bool(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam, INT_PTR* result)>
      other;
};

// Runs it owned by `owner`; true when it closed with OK.
bool RunDialog(const wchar_t* name, HWND owner, const Dialog& dialog);

// Moves a window so that it stands centred on its owner, kept inside the
// work area of the owner's monitor.
void CentreOnOwner(HWND window);

// The screen's colour depth: bits per plane times planes.
int ScreenBits();

// A device context of a window (null: the screen) for drawing straight to
// it, outside WM_PAINT; get() is null when none could be had.
class WindowDc {
 public:
  explicit WindowDc(HWND window) : window_(window), dc_(GetDC(window)) {}
  ~WindowDc() {
    if (dc_) ReleaseDC(window_, dc_);
  }
  WindowDc(const WindowDc&) = delete;
  WindowDc& operator=(const WindowDc&) = delete;
  HDC get() const { return dc_; }

 private:
  HWND window_;
  HDC dc_;
};

// One that draws by inversion, with outlines only: drawn twice, a drawing
// is gone.
class InvertingDc : public WindowDc {
 public:
  explicit InvertingDc(HWND window) : WindowDc(window) {
    if (!get()) return;
    SetROP2(get(), R2_NOT);
    oldBrush_ = SelectObject(get(), GetStockObject(NULL_BRUSH));
  }
  ~InvertingDc() {
    if (get()) SelectObject(get(), oldBrush_);
  }

 private:
  HGDIOBJ oldBrush_ = nullptr;
};

}  // namespace win32
