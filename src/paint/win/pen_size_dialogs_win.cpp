#include "paint/win/pen_size_dialogs_win.h"

#include <commctrl.h>

#include "paint/tip/pen_sizes.h"
#include "paint/win/panel_common_win.h"
#include "paint/win/pen_panel_ids.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"
#include "settings/number_lists.h"

namespace {

constexpr int kFieldChars = 16;

void FillList(HWND dialog) {
  HWND list = GetDlgItem(dialog, IDC_PEN_SIZE_LIST);
  SendMessageW(list, LB_RESETCONTENT, 0, 0);
  for (int i = 0, n = penSizes.Count(); i < n; ++i)
    SendMessageW(list, LB_ADDSTRING, 0,
                 reinterpret_cast<LPARAM>(platform::Widen(PenSizeLabel(i)).c_str()));
}

std::string FieldText(HWND dialog, int control) {
  wchar_t text[kFieldChars] = {};
  GetDlgItemTextW(dialog, control, text, kFieldChars);
  return platform::Narrow(text);
}

// Width and height start at 1; a bad one is told and the dialog stays.
bool RunAddDialog(HWND owner) {
  win32::Dialog dialog;
  dialog.init = [](HWND window) {
    for (int spin : {IDC_ADD_WIDTH_SPIN, IDC_ADD_HEIGHT_SPIN}) {
      SendDlgItemMessageW(window, spin, UDM_SETRANGE32, 1, 255);
      SendDlgItemMessageW(window, spin, UDM_SETPOS32, 0, 1);
    }
  };
  dialog.accept = [](HWND window) {
    return AddTypedPenSize(FieldText(window, IDC_ADD_WIDTH), FieldText(window, IDC_ADD_HEIGHT));
  };
  return win32::RunDialog(L"tsl_addpen", owner, dialog);
}

void DeleteChosen(HWND dialog) {
  const auto chosen = SendDlgItemMessageW(dialog, IDC_PEN_SIZE_LIST, LB_GETCURSEL, 0, 0);
  if (chosen != LB_ERR && DeletePenSize(int(chosen))) FillList(dialog);
}

}  // namespace

// The list is edited in place: OK and Cancel both just close it.
void RunPenSizeListDialog(HWND owner) {
  win32::Dialog dialog;
  dialog.init = FillList;
  dialog.command = [](HWND window, int control, int) {
    switch (control) {
      case IDC_PEN_SIZE_ADD:
        if (RunAddDialog(window)) FillList(window);
        return true;
      case IDC_PEN_SIZE_DELETE:
        DeleteChosen(window);
        return true;
      default:
        return false;
    }
  };
  win32::RunDialog(L"tsl_brushlist", owner, dialog);
}
