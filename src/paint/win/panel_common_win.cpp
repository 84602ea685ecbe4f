#include "paint/win/panel_common_win.h"

#include "platform/win32/win32_platform.h"

void FitDialogToWidth(HWND dialog, int width) {
  RECT client;
  GetClientRect(dialog, &client);
  if (client.right <= 0 || client.right == width) return;
  auto scaled = [&](LONG v) { return int(MulDiv(v, width, client.right)); };
  for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    RECT r;
    GetWindowRect(child, &r);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&r), 2);
    MoveWindow(child, scaled(r.left), scaled(r.top), scaled(r.right) - scaled(r.left),
               scaled(r.bottom) - scaled(r.top), FALSE);
  }
  SetWindowPos(dialog, nullptr, 0, 0, width, scaled(client.bottom),
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void GiveFocusBack() {
  HWND client = platform::BoundWindow(platform::Window::MdiClient);
  if (!client) return;
  if (auto active = reinterpret_cast<HWND>(SendMessageW(client, WM_MDIGETACTIVE, 0, 0)))
    SetFocus(active);
}

int PopupUnder(HWND button, HMENU menu) {
  RECT r;
  GetWindowRect(button, &r);
  return TrackPopupMenu(menu, TPM_RETURNCMD | TPM_LEFTALIGN | TPM_TOPALIGN | TPM_NONOTIFY, r.left,
                        r.bottom, 0, button, nullptr);
}
