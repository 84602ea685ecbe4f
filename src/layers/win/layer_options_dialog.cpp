// tsl_layeropt: the layer's name, mix mode and opacity, written into the
// layer as they change; a short timer gathers the changes into one repaint.
#include <windows.h>
#include <commctrl.h>

#include "layers/layer_options.h"
#include "layers/win/dialog_controls.h"
#include "layers/win/layer_dialog_ids.h"
#include "layers/win/layer_dialogs_win.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"
#include "resources/strings.h"

namespace {

constexpr UINT_PTR kRepaintTimer = 1;
constexpr UINT kRepaintDelayMs = 120;

struct OptionsDialog {
  LayerOptionsSession session;
  bool writing = false;  // the dialog fills a field itself: no change of the layer

  void Show(HWND dialog, int control, const std::string& text) {
    writing = true;
    SetControlText(dialog, control, text);
    writing = false;
  }
  void ShowSlider(HWND dialog) {
    SendDlgItemMessageW(dialog, IDC_LAYOPT_SLIDER, TBM_SETPOS, TRUE, session.Opacity());
  }
};

void Init(OptionsDialog& state, HWND dialog) {
  SendDlgItemMessageW(dialog, IDC_LAYOPT_NAME, EM_LIMITTEXT, kLayerNameTypedChars, 0);
  state.Show(dialog, IDC_LAYOPT_NAME, state.session.Name());
  HWND modes = GetDlgItem(dialog, IDC_LAYOPT_MODE);
  for (int mode = 0; mode < kMixModeCount; ++mode)
    SendMessageW(
        modes, CB_ADDSTRING, 0,
        reinterpret_cast<LPARAM>(platform::Widen(StringText(kFirstMixModeString + mode)).c_str()));
  SendMessageW(modes, CB_SETCURSEL, static_cast<WPARAM>(state.session.MixMode()), 0);
  SendDlgItemMessageW(dialog, IDC_LAYOPT_SLIDER, TBM_SETRANGE, TRUE, MAKELPARAM(0, 100));
  state.ShowSlider(dialog);
  state.Show(dialog, IDC_LAYOPT_OPACITY, std::to_string(state.session.Opacity()));
}

bool Command(OptionsDialog& state, HWND dialog, int control, int code) {
  const bool typed = code == EN_CHANGE && !state.writing;
  if (control == IDC_LAYOPT_NAME && typed) {
    state.session.SetName(ControlText(dialog, control));
  } else if (control == IDC_LAYOPT_MODE && code == CBN_SELCHANGE) {
    state.session.SetMixMode(
        static_cast<int>(SendDlgItemMessageW(dialog, control, CB_GETCURSEL, 0, 0)));
  } else if (control == IDC_LAYOPT_OPACITY && typed) {
    state.session.SetOpacityText(ControlText(dialog, control));
    state.ShowSlider(dialog);
  } else if (control == IDC_LAYOPT_OPACITY && code == EN_KILLFOCUS) {
    state.Show(dialog, control, std::to_string(state.session.Opacity()));
    return true;
  } else {
    return false;
  }
  SetTimer(dialog, kRepaintTimer, kRepaintDelayMs, nullptr);
  return true;
}

bool Other(OptionsDialog& state, HWND dialog, UINT message, WPARAM wParam) {
  if (message == WM_HSCROLL) {
    state.session.SetOpacity(
        static_cast<int>(SendDlgItemMessageW(dialog, IDC_LAYOPT_SLIDER, TBM_GETPOS, 0, 0)));
    state.Show(dialog, IDC_LAYOPT_OPACITY, std::to_string(state.session.Opacity()));
    SetTimer(dialog, kRepaintTimer, kRepaintDelayMs, nullptr);
    return true;
  }
  if (message == WM_TIMER && wParam == kRepaintTimer) {
    KillTimer(dialog, kRepaintTimer);
    if (state.session.TakeRepaintDue()) state.session.Repaint();
    return true;
  }
  return false;
}

}  // namespace

bool RunLayerOptionsDialog(Canvas* canvas, int layer) {
  if (layer < 0 || layer >= kMaxLayers || !canvas->planes[SlotIndex(layer, 0)].plane) return false;
  OptionsDialog state{LayerOptionsSession(canvas, layer)};
  win32::Dialog dialog;
  dialog.init = [&state](HWND window) { Init(state, window); };
  dialog.command = [&state](HWND window, int control, int code) {
    return Command(state, window, control, code);
  };
  dialog.other = [&state](HWND window, UINT message, WPARAM wParam, LPARAM, INT_PTR* result) {
    *result = TRUE;
    return Other(state, window, message, wParam);
  };
  const bool ok =
      win32::RunDialog(L"tsl_layeropt", platform::BoundWindow(platform::Window::Frame), dialog);
  if (ok)
    state.session.Keep();
  else
    state.session.Restore();
  return ok;
}
