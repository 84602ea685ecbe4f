#include "selection/win/number_dialog.h"

#include <windows.h>

#include <algorithm>

#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"
#include "selection/win/selection_ids.h"

// The value shown may lie outside the range; the one taken is held to it.
int RunNumberDialog(const std::string& title, int low, int high, int* value) {
  win32::Dialog dialog;
  dialog.init = [&](HWND window) {
    SetWindowTextW(window, platform::Widen(title).c_str());
    SetDlgItemInt(window, IDC_NUMBER_VALUE, static_cast<UINT>(*value), TRUE);
    SetDlgItemTextW(window, IDC_NUMBER_RANGE,
                    platform::Widen(std::to_string(low) + " - " + std::to_string(high)).c_str());
  };
  dialog.accept = [&](HWND window) {
    BOOL read = FALSE;
    const int typed = static_cast<int>(GetDlgItemInt(window, IDC_NUMBER_VALUE, &read, TRUE));
    if (!read) return false;
    *value = std::clamp(typed, low, high);
    return true;
  };
  return win32::RunDialog(L"tsl_number", platform::BoundWindow(platform::Window::Frame), dialog)
             ? 1
             : 0;
}
