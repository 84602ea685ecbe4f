#include "adjust/win/adjust_windows_win.h"

#include <windows.h>

#include "adjust/adjust_windows.h"
#include "adjust/win/channel_copy_dialog_ids.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"

namespace {

// Fills a list with the names and selects `chosen`, or the first name.
void FillList(HWND dialog, int list, const std::vector<std::string>& names,
              const std::string& chosen) {
  LRESULT selected = 0;
  for (const std::string& name : names) {
    const LRESULT at = SendDlgItemMessageW(dialog, list, LB_ADDSTRING, 0,
                                           reinterpret_cast<LPARAM>(platform::Widen(name).c_str()));
    if (name == chosen) selected = at;
  }
  SendDlgItemMessageW(dialog, list, LB_SETCURSEL, static_cast<WPARAM>(selected), 0);
}

std::string ListText(HWND dialog, int list) {
  const LRESULT at = SendDlgItemMessageW(dialog, list, LB_GETCURSEL, 0, 0);
  if (at == LB_ERR) return {};
  std::wstring text(static_cast<size_t>(SendDlgItemMessageW(dialog, list, LB_GETTEXTLEN,
                                                            static_cast<WPARAM>(at), 0)),
                    L'\0');
  SendDlgItemMessageW(dialog, list, LB_GETTEXT, static_cast<WPARAM>(at),
                      reinterpret_cast<LPARAM>(text.data()));
  return platform::Narrow(text);
}

bool RunChannelCopyDialog(const std::vector<std::string>& names, ChannelCopyChoice* choice) {
  win32::Dialog dialog;
  dialog.init = [&names, choice](HWND window) {
    FillList(window, IDC_CHCOPY_ORIGIN, names, choice->originName);
    FillList(window, IDC_CHCOPY_DESTINATION, names, choice->destinationName);
    CheckDlgButton(window, IDC_CHCOPY_INVERTED, choice->inverted ? BST_CHECKED : BST_UNCHECKED);
    CheckDlgButton(window, IDC_CHCOPY_INSIDE_ONLY,
                   choice->insideOnly ? BST_CHECKED : BST_UNCHECKED);
  };
  dialog.accept = [choice](HWND window) {
    choice->originName = ListText(window, IDC_CHCOPY_ORIGIN);
    choice->destinationName = ListText(window, IDC_CHCOPY_DESTINATION);
    choice->inverted = IsDlgButtonChecked(window, IDC_CHCOPY_INVERTED) == BST_CHECKED;
    choice->insideOnly = IsDlgButtonChecked(window, IDC_CHCOPY_INSIDE_ONLY) == BST_CHECKED;
    return true;
  };
  return win32::RunDialog(L"tsl_chcopy", platform::BoundWindow(platform::Window::Frame), dialog);
}

}  // namespace

void InstallAdjustWindows() { adjustWindows.channelCopyDialog = RunChannelCopyDialog; }
