#include "panels/win/layer_menus_win.h"

#include "document/active_canvas.h"
#include "panels/layer_menus.h"
#include "panels/win/layer_list_win.h"
#include "platform/win32/win32_windows.h"

int TrackNamedMenu(const wchar_t* name, HWND owner, POINT at,
                   const std::function<void(HMENU popup)>& prepare) {
  HMENU menu = LoadMenuW(win32::ProgramInstance(), name);
  if (!menu) return 0;
  HMENU popup = GetSubMenu(menu, 0);
  if (prepare) prepare(popup);
  const int chosen =
      TrackPopupMenu(popup, TPM_RETURNCMD | TPM_LEFTALIGN | TPM_TOPALIGN | TPM_NONOTIFY, at.x, at.y,
                     0, owner, nullptr);
  DestroyMenu(menu);
  return chosen;
}

void PopupRowMenu(HWND list, HWND owner, int row, POINT at) {
  const Canvas* canvas = ActiveCanvas();
  if (!canvas) return;
  const RowMenu menu = RightPressMenu(canvas, row);
  const wchar_t* name = menu.kind == RowMenuKind::Layer          ? L"tsLayPartsMenu"
                        : menu.kind == RowMenuKind::LayerPlanes  ? L"tsLayPartsMenu2"
                        : menu.kind == RowMenuKind::FurtherPlane ? L"tsLayPartsMenuAlp"
                                                                 : nullptr;
  if (!name) return;
  const int chosen = TrackNamedMenu(name, owner, at, [&](HMENU popup) {
    for (int item : menu.greyed) EnableMenuItem(popup, UINT(item), MF_BYCOMMAND | MF_GRAYED);
  });
  if (!chosen) return;
  if (menu.kind == RowMenuKind::FurtherPlane)
    PostMessageW(list, kMsgDeletePlane, 0, row);
  else
    PostMessageW(list, kMsgLayerItem, WPARAM(chosen), row);
}
