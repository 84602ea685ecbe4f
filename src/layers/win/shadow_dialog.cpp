// tsl_addshadow: the shadow's offsets, its blur, and its colour from the
// colour mixer, shown in a swatch beside the button.
#include <windows.h>

#include "layers/dialog_fields.h"
#include "layers/win/dialog_controls.h"
#include "layers/win/layer_dialog_ids.h"
#include "layers/win/layer_dialogs_win.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"
#include "resources/strings.h"

namespace {

constexpr int kStringShadowColor = 1003;

struct ShadowDialog {
  ShadowChoice* choice;
  HBRUSH swatch = nullptr;

  ~ShadowDialog() {
    if (swatch) DeleteObject(swatch);
  }
  void PaintSwatch(HWND dialog) {
    if (swatch) DeleteObject(swatch);
    swatch = CreateSolidBrush(RGB(choice->red, choice->green, choice->blue));
    InvalidateRect(GetDlgItem(dialog, IDC_SHADOW_SWATCH), nullptr, TRUE);
  }
};

}  // namespace

bool RunDropShadowDialog(ShadowChoice* choice) {
  ShadowDialog state{choice};
  win32::Dialog dialog;
  dialog.init = [&state](HWND window) {
    SetControlNumber(window, IDC_SHADOW_DX, state.choice->dx);
    SetControlNumber(window, IDC_SHADOW_DY, state.choice->dy);
    SetControlNumber(window, IDC_SHADOW_BLUR, state.choice->blur);
    state.PaintSwatch(window);
  };
  dialog.command = [&state](HWND window, int control, int) {
    if (control != IDC_SHADOW_COLOR) return false;
    ShadowChoice& c = *state.choice;
    if (layerWindows.chooseColor &&
        layerWindows.chooseColor(StringText(kStringShadowColor), &c.red, &c.green, &c.blue))
      state.PaintSwatch(window);
    return true;
  };
  dialog.other = [&state](HWND, UINT message, WPARAM, LPARAM lParam, INT_PTR* result) {
    if (message != WM_CTLCOLORSTATIC ||
        GetDlgCtrlID(reinterpret_cast<HWND>(lParam)) != IDC_SHADOW_SWATCH)
      return false;
    *result = reinterpret_cast<INT_PTR>(state.swatch);
    return true;
  };
  dialog.accept = [&state](HWND window) {
    ShadowChoice& c = *state.choice;
    c.dx = ControlNumber(window, IDC_SHADOW_DX, -kMaxShadowOffset, kMaxShadowOffset, c.dx);
    c.dy = ControlNumber(window, IDC_SHADOW_DY, -kMaxShadowOffset, kMaxShadowOffset, c.dy);
    c.blur = ControlNumber(window, IDC_SHADOW_BLUR, 0, kMaxShadowBlur, c.blur);
    return true;
  };
  return win32::RunDialog(L"tsl_addshadow", platform::BoundWindow(platform::Window::Frame), dialog);
}
