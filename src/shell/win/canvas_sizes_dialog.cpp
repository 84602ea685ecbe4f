// tesel_sizes: the list of canvas sizes that New offers ("Edit..." in its
// pixel List). Changes go to the live list, which is saved at exit.
#include <cstdio>

#include "document/new_canvas_size.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"
#include "resources/win/resource_ids.h"
#include "settings/number_lists.h"
#include "shell/win/dialogs.h"
#include "shell/win/shell_globals.h"

namespace {

void FillList(HWND dialog) {
  HWND list = GetDlgItem(dialog, IDC_SIZES_LIST);
  SendMessageW(list, LB_RESETCONTENT, 0, 0);
  for (int i = 0, n = canvasSizes.Count(); i < n; ++i) {
    wchar_t text[48];
    std::swprintf(text, 48, L"%d x %d", canvasSizes.column[0][i], canvasSizes.column[1][i]);
    SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
  }
}

std::string FieldText(HWND dialog, int control) {
  wchar_t text[32] = {};
  GetDlgItemTextW(dialog, control, text, 32);
  return platform::Narrow(text);
}

// At the end of the list, while it has room.
void AddSize(HWND dialog) {
  const int n = canvasSizes.Count();
  if (n >= kListLimit) return;
  canvasSizes.column[0][n] = TypedPixels(FieldText(dialog, IDC_SIZES_WIDTH));
  canvasSizes.column[1][n] = TypedPixels(FieldText(dialog, IDC_SIZES_HEIGHT));
  FillList(dialog);
}

// The entries after it move up; the last place becomes free.
void DeleteSize(HWND dialog) {
  const auto chosen = SendDlgItemMessageW(dialog, IDC_SIZES_LIST, LB_GETCURSEL, 0, 0);
  const int n = canvasSizes.Count();
  if (chosen < 0 || chosen >= n) return;
  for (int column = 0; column < 2; ++column) {
    for (int i = static_cast<int>(chosen); i + 1 < n; ++i)
      canvasSizes.column[column][i] = canvasSizes.column[column][i + 1];
    canvasSizes.column[column][n - 1] = -1;
  }
  FillList(dialog);
}

}  // namespace

void RunCanvasSizesDialog(HWND owner) {
  win32::Dialog dialog;
  dialog.init = FillList;
  dialog.command = [](HWND window, int control, int) {
    switch (control) {
      case IDC_SIZES_ADD:
        AddSize(window);
        return true;
      case IDC_SIZES_DELETE:
        DeleteSize(window);
        return true;
      default:
        return false;
    }
  };
  win32::RunDialog(L"tesel_sizes", owner, dialog);
}
