#include "paint/win/pen_size_dialogs_win.h"

#include <commctrl.h>

#include "paint/pen_sizes.h"
#include "paint/win/panel_common_win.h"
#include "paint/win/pen_panel_ids.h"
#include "platform/win32/win32_platform.h"
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
INT_PTR CALLBACK AddProc(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
  switch (message) {
    case WM_INITDIALOG:
      for (int spin : {IDC_ADD_WIDTH_SPIN, IDC_ADD_HEIGHT_SPIN}) {
        SendDlgItemMessageW(dialog, spin, UDM_SETRANGE32, 1, 255);
        SendDlgItemMessageW(dialog, spin, UDM_SETPOS32, 0, 1);
      }
      return TRUE;
    case WM_COMMAND:
      if (LOWORD(wParam) == IDOK) {
        if (AddTypedPenSize(FieldText(dialog, IDC_ADD_WIDTH), FieldText(dialog, IDC_ADD_HEIGHT)))
          EndDialog(dialog, IDOK);
        return TRUE;
      }
      if (LOWORD(wParam) == IDCANCEL) {
        EndDialog(dialog, IDCANCEL);
        return TRUE;
      }
      break;
  }
  return FALSE;
}

void DeleteChosen(HWND dialog) {
  const auto chosen = SendDlgItemMessageW(dialog, IDC_PEN_SIZE_LIST, LB_GETCURSEL, 0, 0);
  if (chosen != LB_ERR && DeletePenSize(int(chosen))) FillList(dialog);
}

INT_PTR CALLBACK ListProc(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
  switch (message) {
    case WM_INITDIALOG:
      FillList(dialog);
      return TRUE;
    case WM_COMMAND:
      switch (LOWORD(wParam)) {
        case IDC_PEN_SIZE_ADD:
          if (DialogBoxW(ProgramInstance(), L"tsl_addpen", dialog, AddProc) == IDOK)
            FillList(dialog);
          return TRUE;
        case IDC_PEN_SIZE_DELETE: DeleteChosen(dialog); return TRUE;
        case IDOK:
        case IDCANCEL: EndDialog(dialog, IDOK); return TRUE;
      }
      break;
  }
  return FALSE;
}

}  // namespace

void RunPenSizeListDialog(HWND owner) {
  DialogBoxW(ProgramInstance(), L"tsl_brushlist", owner, ListProc);
}
