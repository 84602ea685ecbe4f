#include "shell/win/panel_pages.h"

#include <commctrl.h>

#include <algorithm>
#include <iterator>
#include <string>

#include "paint/win/control_page_win.h"
#include "panels/win/layer_page_win.h"
#include "panels/win/palette_page_win.h"
#include "platform/platform.h"
#include "platform/win32/win32_windows.h"
#include "settings/settings.h"
#include "shell/win/shell_globals.h"

namespace {

struct PanelPage {
  const wchar_t* title;
  int number;  // as message 1033 names the page, and the settings keep it
  HWND (*create)(HWND panel, const std::string& programFolder);
};
// In the order of their tabs.
constexpr PanelPage kPanelPages[] = {
    {L"PALETTE", 1, CreatePalettePage},
    {L"LAYER", 2, CreateLayerPage},
    {L"CONTROL", 3, CreateControlPage},
};
constexpr int kPageCount = int(std::size(kPanelPages));
constexpr int kTabHeight = 22;
constexpr int kTabMargin = 6;  // the strip's own edges

struct PagesState {
  HWND tabs = nullptr;
  HWND pages[kPageCount] = {};  // by tab: the pages that could be made
  int numbers[kPageCount] = {};
  int count = 0;
};
PagesState state;

void ShowPage(int tab) {
  TabCtrl_SetCurSel(state.tabs, tab);
  for (int i = 0; i < state.count; ++i) ShowWindow(state.pages[i], i == tab ? SW_SHOWNA : SW_HIDE);
  settings.ctrlPanelPage = state.numbers[tab];
}

// The tab of the page the settings name; the first when none has it.
int SavedTab() {
  for (int tab = 0; tab < state.count; ++tab)
    if (state.numbers[tab] == settings.ctrlPanelPage) return tab;
  return 0;
}

// The tabs share the panel's width, so that all of them show at once.
void Resize(int width, int height) {
  MoveWindow(state.tabs, 0, 0, width, kTabHeight, TRUE);
  TabCtrl_SetItemSize(state.tabs, std::max(1, (width - kTabMargin) / state.count), kTabHeight - 2);
  for (int i = 0; i < state.count; ++i)
    MoveWindow(state.pages[i], 0, kTabHeight, width, std::max(0, height - kTabHeight), TRUE);
}

}  // namespace

bool CreatePanelPages(HWND panel) {
  const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_TAB_CLASSES};
  InitCommonControlsEx(&controls);
  state.tabs = CreateWindowExW(0, WC_TABCONTROLW, nullptr, WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | TCS_FIXEDWIDTH,
                               0, 0, 0, 0, panel, nullptr, win32::ProgramInstance(), nullptr);
  if (!state.tabs) return false;
  SendMessageW(state.tabs, WM_SETFONT, WPARAM(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
  for (const PanelPage& page : kPanelPages) {
    HWND made = page.create(panel, startFolder);
    if (!made) continue;
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = const_cast<wchar_t*>(page.title);
    SendMessageW(state.tabs, TCM_INSERTITEMW, WPARAM(state.count), LPARAM(&item));
    state.numbers[state.count] = page.number;
    state.pages[state.count++] = made;
  }
  if (!state.count) {
    DestroyWindow(state.tabs);
    state = {};
    return false;
  }
  ShowPage(SavedTab());
  return true;
}

bool PanelPagesMessage(HWND, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SIZE:
      Resize(LOWORD(lParam), HIWORD(lParam));
      return true;
    case WM_NOTIFY:
      if (reinterpret_cast<const NMHDR*>(lParam)->code == TCN_SELCHANGE)
        ShowPage(TabCtrl_GetCurSel(state.tabs));
      return true;
    case platform::MsgPanelRefresh:
    case platform::MsgPanelsRepaint:
      for (int i = 0; i < state.count; ++i) SendMessageW(state.pages[i], message, wParam, lParam);
      return true;
  }
  return false;
}
