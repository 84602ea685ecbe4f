#include "shell/win/key_poll_timer.h"

#include "shell/input_rules.h"
#include "shell/key_polling.h"

namespace {

constexpr UINT_PTR kLastKeyPollTimer = kFirstKeyPollTimer + 20;
constexpr DWORD kReleasePauseMilliseconds = 10;

UINT_PTR timer = 0;

bool ModalDialogActive(HWND frame) {
  HWND active = GetActiveWindow();
  if (!active || active == frame || IsWindowEnabled(frame)) return false;
  wchar_t name[8];
  return GetClassNameW(active, name, 8) && lstrcmpW(name, L"#32770") == 0;
}

void DropKeyMessages() {
  MSG msg;
  while (PeekMessageW(&msg, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE)) {
  }
}

// lParam as the keyboard would give it: a repeat count of 1, the scan
// code, and for WM_SYSKEYDOWN the context bit (Alt held).
void SendKey(WindowHandle document, uint32_t message, int key) {
  const UINT scan = MapVirtualKeyW(static_cast<UINT>(key), MAPVK_VK_TO_VSC);
  LPARAM lParam = 1 | static_cast<LPARAM>(scan & 0xFF) << 16;
  if (message == WM_SYSKEYDOWN) lParam |= LPARAM{1} << 29;
  SendMessageW(static_cast<HWND>(document), message, static_cast<WPARAM>(key), lParam);
}

void PaintNow(WindowHandle document) {
  RedrawWindow(static_cast<HWND>(document), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

}  // namespace

void StartKeyPolling(HWND frame) {
  KeyPollWindows& w = keyPollWindows;
  w.keyDown = [](int key) { return (GetAsyncKeyState(key) & 0x8000) != 0; };
  w.modalDialogActive = [frame] { return ModalDialogActive(frame); };
  w.dropKeyMessages = DropKeyMessages;
  w.pause = [] { Sleep(kReleasePauseMilliseconds); };
  w.sendKey = SendKey;
  w.paintNow = PaintNow;
  for (UINT_PTR id = kFirstKeyPollTimer; id <= kLastKeyPollTimer && !timer; ++id)
    if (SetTimer(frame, id, kKeyPollMilliseconds, nullptr)) timer = id;
}

void StopKeyPolling(HWND frame) {
  if (timer) KillTimer(frame, timer);
  timer = 0;
}

bool OnKeyPollTimer(UINT_PTR id) {
  if (!timer || id != timer) return false;
  KeyPollTick();
  return true;
}
