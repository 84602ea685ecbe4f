// tsl_subopt, the settings panel: a modeless tool window with its pages
// behind tabs. Its one page, ts_selhist, lists the selection history; a
// choice in the list recalls that selection onto the active picture.
#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <string>
#include <vector>

#include "document/active_canvas.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"
#include "resources/strings.h"
#include "selection/selection_history.h"
#include "selection/selection_windows.h"
#include "selection/win/selection_file_ids.h"
#include "selection/win/selection_files_win.h"
#include "settings/settings.h"
#include "settings/word_halves.h"

namespace {

constexpr int kStringHistoryTab = 25003;

HWND panel = nullptr;
HWND historyPage = nullptr;
// The files behind the list's rows, in their order.
std::vector<std::string> rowNames;

HWND HistoryList() { return GetDlgItem(historyPage, IDC_SELHIST_LIST); }

void FillHistoryList() {
  if (!historyPage) return;
  HWND list = HistoryList();
  SendMessageW(list, WM_SETREDRAW, FALSE, 0);
  SendMessageW(list, LB_RESETCONTENT, 0, 0);
  rowNames.clear();
  for (const HistoryLine& line : HistoryLines()) {
    rowNames.push_back(line.name);
    SendMessageW(list, LB_ADDSTRING, 0,
                 reinterpret_cast<LPARAM>(platform::Widen(line.label).c_str()));
  }
  SendMessageW(list, WM_SETREDRAW, TRUE, 0);
  InvalidateRect(list, nullptr, TRUE);
}

void Recall() {
  const LRESULT row = SendMessageW(HistoryList(), LB_GETCURSEL, 0, 0);
  Canvas* canvas = ActiveCanvas();
  if (row < 0 || static_cast<size_t>(row) >= rowNames.size() || !canvas) return;
  if (RecallHistoryEntry(rowNames[static_cast<size_t>(row)], canvas))
    SendMessageW(HistoryList(), LB_SETCURSEL, 0, 0);
}

void AskHistoryLimit() {
  win32::Dialog dialog;
  dialog.init = [](HWND window) {
    SendDlgItemMessageW(window, IDC_HISTOPT_SPIN, UDM_SETRANGE32, kHistoryLimitLow,
                        kHistoryLimitHigh);
    SetDlgItemInt(window, IDC_HISTOPT_COUNT, static_cast<UINT>(settings.selectionHistorySize),
                  FALSE);
  };
  dialog.accept = [](HWND window) {
    const UINT count = GetDlgItemInt(window, IDC_HISTOPT_COUNT, nullptr, FALSE);
    settings.selectionHistorySize =
        std::clamp(static_cast<int>(std::min<UINT>(count, kHistoryLimitHigh)), kHistoryLimitLow,
                   kHistoryLimitHigh);
    return true;
  };
  win32::RunDialog(L"tsl_histopt", panel, dialog);
}

INT_PTR CALLBACK HistoryPageProc(HWND, UINT message, WPARAM wParam, LPARAM) {
  if (message == WM_INITDIALOG) return TRUE;
  if (message != WM_COMMAND) return FALSE;
  if (LOWORD(wParam) == IDC_SELHIST_LIST && HIWORD(wParam) == LBN_SELCHANGE) Recall();
  if (LOWORD(wParam) == IDC_SELHIST_SETTINGS && HIWORD(wParam) == BN_CLICKED) AskHistoryLimit();
  return TRUE;
}

// The page fills the tab control's display area.
void PlacePage(HWND tabs) {
  RECT area;
  GetClientRect(tabs, &area);
  TabCtrl_AdjustRect(tabs, FALSE, &area);
  MapWindowPoints(tabs, panel, reinterpret_cast<POINT*>(&area), 2);
  SetWindowPos(historyPage, HWND_TOP, area.left, area.top, area.right - area.left,
               area.bottom - area.top, SWP_SHOWWINDOW);
  RECT client;
  GetClientRect(historyPage, &client);
  RECT button;
  HWND settingsButton = GetDlgItem(historyPage, IDC_SELHIST_SETTINGS);
  GetWindowRect(settingsButton, &button);
  const int buttonW = button.right - button.left, buttonH = button.bottom - button.top;
  SetWindowPos(settingsButton, nullptr, client.right - buttonW, client.bottom - buttonH, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER);
  SetWindowPos(HistoryList(), nullptr, 0, 0, client.right, client.bottom - buttonH - 4,
               SWP_NOZORDER);
}

void Close() {
  HWND closing = panel;
  panel = historyPage = nullptr;
  rowNames.clear();
  settings.settingsPanelOpen = 0;
  DestroyWindow(closing);
}

INT_PTR CALLBACK PanelProc(HWND window, UINT message, WPARAM wParam, LPARAM) {
  switch (message) {
    case WM_INITDIALOG: {
      panel = window;
      HWND tabs = GetDlgItem(window, IDC_SUBOPT_TABS);
      std::wstring text = platform::Widen(StringText(kStringHistoryTab));
      TCITEMW item{};
      item.mask = TCIF_TEXT;
      item.pszText = text.data();
      TabCtrl_InsertItem(tabs, 0, &item);
      historyPage =
          CreateDialogParamW(win32::ProgramInstance(), L"ts_selhist", window, HistoryPageProc, 0);
      if (historyPage) PlacePage(tabs);
      SetWindowPos(window, nullptr, LowHalf(settings.settingsPanelPosition),
                   HighHalf(settings.settingsPanelPosition), 0, 0, SWP_NOSIZE | SWP_NOZORDER);
      FillHistoryList();
      return TRUE;
    }
    case WM_MOVE: {
      // Moves while the dialog is being made come before its saved place.
      if (window != panel) return FALSE;
      RECT place;
      GetWindowRect(window, &place);
      settings.settingsPanelPosition = Halves(place.left, place.top);
      return FALSE;
    }
    case WM_COMMAND:
      if (LOWORD(wParam) == IDCANCEL) Close();
      return TRUE;
    case WM_CLOSE:
      Close();
      return TRUE;
    default:
      return FALSE;
  }
}

void Toggle() {
  if (panel) {
    Close();
    return;
  }
  CreateDialogParamW(win32::ProgramInstance(), L"tsl_subopt",
                     platform::BoundWindow(platform::Window::Frame), PanelProc, 0);
  if (!panel) return;
  settings.settingsPanelOpen = 1;
  ShowWindow(panel, SW_SHOWNOACTIVATE);
}

}  // namespace

void InstallSettingsPanel() {
  selectionWindows.toggleSettingsPanel = Toggle;
  selectionWindows.refillHistoryList = FillHistoryList;
}
