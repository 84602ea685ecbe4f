#include "selection/win/radius_dialog_win.h"

#include <windows.h>
#include <commctrl.h>

#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"
#include "selection/win/radius_dialog_ids.h"

namespace {

constexpr int kFieldChars = 16;

std::string FieldText(HWND dialog, int control) {
  wchar_t text[kFieldChars] = {};
  GetDlgItemTextW(dialog, control, text, kFieldChars);
  return platform::Narrow(text);
}

}  // namespace

int RunRadiusDialog(const char* dialogTemplate, RadiusChoice* choice) {
  win32::Dialog dialog;
  dialog.init = [choice](HWND window) {
    SendDlgItemMessageW(window, IDC_SELRADIUS_SPIN, UDM_SETRANGE32, kMinRadius, kMaxRadius);
    SendDlgItemMessageW(window, IDC_SELRADIUS_SPIN, UDM_SETPOS32, 0, choice->radius);
    // Only tsl_sellow has the radios; the others ignore this.
    CheckRadioButton(window, IDC_SELBLUR_THICK, IDC_SELBLUR_DITHER,
                     choice->blurKind == kBlurDither ? IDC_SELBLUR_DITHER : IDC_SELBLUR_THICK);
  };
  dialog.accept = [choice](HWND window) {
    choice->radius = RadiusOfText(FieldText(window, IDC_SELRADIUS));
    if (GetDlgItem(window, IDC_SELBLUR_DITHER))
      choice->blurKind =
          IsDlgButtonChecked(window, IDC_SELBLUR_DITHER) == BST_CHECKED ? kBlurDither : kBlurThick;
    return true;
  };
  return win32::RunDialog(platform::Widen(dialogTemplate).c_str(),
                          platform::BoundWindow(platform::Window::Frame), dialog)
             ? 1
             : 0;
}
