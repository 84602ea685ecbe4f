#include "shell/win/frame_menus.h"

#include <string>

#include "document/active_canvas.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"
#include "base/command_ids.h"
#include "shell/history_menu.h"
#include "settings/settings.h"
#include "shell/win/shell_globals.h"

namespace {

constexpr int kWindowMenuPosition = 6;

// Loaded by name; two of them name no resource and stay null.
constexpr const wchar_t* kPopupMenuNames[kPopupMenuCount] = {
    L"tsChannelModeMenu", L"tsTapSubMenu",   L"daZoomSel",        L"daNewPaper",
    L"tsDraftPoly",       L"tsWireSub",      L"tsDraftExec",      L"tsPlaneMenu",
    L"tsBeziePegSub",     L"tsBezieLineSub", L"tsPasteMenu",      L"tsDispMenu",
    L"tsDispMenu2",       L"tsFileColorMenu", L"tsProcMenu",      L"tsSextChannel",
    L"tsSextLayer",       L"tsSextExt",      L"tsLoopeZoom",      L"tsLoopeSize",
    L"tsBrushSize",       L"tsLayPartsMenu", L"tsLayPartsMenu2",  L"tsLayPartsMenuAlp",
};

// The File submenu, found by its New item: a maximized document puts its
// own system menu in front of the others.
HMENU FileMenuOf(HMENU bar) {
  for (int i = 0, n = GetMenuItemCount(bar); i < n; ++i)
    if (HMENU sub = GetSubMenu(bar, i); sub && GetMenuState(sub, cmd::kNew, MF_BYCOMMAND) != ~0u)
      return sub;
  return nullptr;
}

// A path is shown as it stands: an ampersand is no mnemonic here.
std::wstring PlainItemText(const std::string& text) {
  std::wstring wide = platform::Widen(text);
  for (size_t at = wide.find(L'&'); at != std::wstring::npos; at = wide.find(L'&', at + 2))
    wide.insert(at, 1, L'&');
  return wide;
}

void ReplaceHistoryItems(HMENU file) {
  for (int id = cmd::kHistoryFirst; id <= cmd::kHistoryLast; ++id)
    DeleteMenu(file, id, MF_BYCOMMAND);
  DeleteMenu(file, cmd::kHistorySeparator, MF_BYCOMMAND);
  const std::vector<HistoryMenuItem> items = HistoryMenuItems();
  if (items.empty()) return;
  AppendMenuW(file, MF_SEPARATOR, cmd::kHistorySeparator, nullptr);
  for (const HistoryMenuItem& item : items)
    AppendMenuW(file, MF_STRING, static_cast<UINT_PTR>(item.id), PlainItemText(item.text).c_str());
}

MenuFlags CurrentMenuFlags() {
  MenuFlags flags;
  flags.clipboardHasImage =
      IsClipboardFormatAvailable(CF_DIB) || IsClipboardFormatAvailable(CF_BITMAP);
  flags.settingsPanelOpen = settings.settingsPanelOpen != 0;
  return flags;
}

}  // namespace

void LoadMenus() {
  menuInit = LoadMenuW(win32::ProgramInstance(), L"nnMenuInit");
  menuChild = LoadMenuW(win32::ProgramInstance(), L"nnMenuChild");
  windowMenu = GetSubMenu(menuChild, kWindowMenuPosition);
  for (int i = 0; i < kPopupMenuCount; ++i)
    popupMenus[i] = LoadMenuW(win32::ProgramInstance(), kPopupMenuNames[i]);
  accelerators = LoadAcceleratorsW(win32::ProgramInstance(), L"daAccel");
}

void DestroyMenus() {
  // The frame's present menu went with the frame; the other one is ours.
  for (HMENU* menu : {&menuInit, &menuChild}) {
    if (*menu && IsMenu(*menu)) DestroyMenu(*menu);
    *menu = nullptr;
  }
  for (HMENU& popup : popupMenus) {
    if (popup) DestroyMenu(popup);
    popup = nullptr;
  }
}

HMENU PopupMenuNamed(const wchar_t* name) {
  for (int i = 0; i < kPopupMenuCount; ++i)
    if (lstrcmpW(kPopupMenuNames[i], name) == 0) return popupMenus[i];
  return nullptr;
}

void SetMainMenu(MainMenu menu) {
  const bool child = menu == MainMenu::Child;
  SendMessageW(mdiClient, WM_MDISETMENU, reinterpret_cast<WPARAM>(child ? menuChild : menuInit),
               reinterpret_cast<LPARAM>(child ? windowMenu : nullptr));
  DrawMenuBar(frameWnd);
}

void ShowHistoryInMenus() {
  for (HMENU bar : {menuInit, menuChild})
    if (HMENU file = FileMenuOf(bar)) ReplaceHistoryItems(file);
  if (frameWnd) DrawMenuBar(frameWnd);
}

void UpdateMenuStates(HMENU popup) {
  const MenuFlags flags = CurrentMenuFlags();
  const Canvas* canvas = ActiveCanvas();
  for (int i = 0, n = GetMenuItemCount(popup); i < n; ++i) {
    const UINT id = GetMenuItemID(popup, i);
    if (id == ~0u) continue;  // a submenu
    const MenuItemState state = MenuStateOf(static_cast<int>(id), canvas, flags);
    if (!state.governed) continue;
    EnableMenuItem(popup, i, MF_BYPOSITION | (state.enabled ? MF_ENABLED : MF_GRAYED));
    CheckMenuItem(popup, i, MF_BYPOSITION | (state.checked ? MF_CHECKED : MF_UNCHECKED));
  }
}
