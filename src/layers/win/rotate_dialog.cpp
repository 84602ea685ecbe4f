// tsl_rotate: a quarter turn either way, a half turn, or any angle, with a
// preview of the active layer turned so. Positive degrees turn clockwise.
#include <windows.h>

#include <cmath>
#include <cstdio>

#include "layers/dialog_fields.h"
#include "layers/rotate_preview.h"
#include "layers/win/dialog_controls.h"
#include "layers/win/layer_dialog_ids.h"
#include "layers/win/layer_dialogs_win.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"

namespace {

// The angles of the three fixed choices, in the order of their buttons.
constexpr double kFixedAngles[] = {90, -90, 180};
constexpr int kFixedCount = 3;
// Dark enough that a white layer stands out from where it isn't.
constexpr uint32_t kPreviewBackground = 0x505050;

struct RotateDialog {
  Canvas* canvas;
  RotateChoice* choice;

  double Angle(HWND dialog) const {
    for (int i = 0; i < kFixedCount; ++i)
      if (IsChecked(dialog, IDC_ROTATE_CW + i)) return kFixedAngles[i];
    return FieldAngle(ControlText(dialog, IDC_ROTATE_ANGLE), 0);
  }
};

void Init(RotateDialog& state, HWND dialog) {
  // A turn of nothing is no choice: the dialog then starts on a quarter turn.
  if (state.choice->degrees == 0) state.choice->degrees = kFixedAngles[0];
  int chosen = IDC_ROTATE_ARBITRARY;
  for (int i = 0; i < kFixedCount; ++i)
    if (std::remainder(state.choice->degrees - kFixedAngles[i], 360) == 0)
      chosen = IDC_ROTATE_CW + i;
  SetChecked(dialog, chosen, true);
  char angle[32];
  std::snprintf(angle, sizeof angle, "%g", state.choice->degrees);
  SetControlText(dialog, IDC_ROTATE_ANGLE, angle);
  EnableWindow(GetDlgItem(dialog, IDC_ROTATE_ANGLE), chosen == IDC_ROTATE_ARBITRARY);
}

// The turned layer in the largest square of the control whose rows need
// no padding (a side of a multiple of four), centred on the background.
void DrawPreview(RotateDialog& state, HWND dialog, const DRAWITEMSTRUCT& item) {
  const RECT& r = item.rcItem;
  const int side = std::min(r.right - r.left, r.bottom - r.top) / 4 * 4;
  HBRUSH face = GetSysColorBrush(COLOR_BTNFACE);
  FillRect(item.hDC, &r, face);
  if (side <= 0) return;
  const std::vector<uint8_t> picture =
      RotatePreview(state.canvas, LayerOf(state.canvas->activePlane), state.Angle(dialog), side,
                    kPreviewBackground);
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = side;
  info.bmiHeader.biHeight = -side;  // rows from the top
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 24;
  info.bmiHeader.biCompression = BI_RGB;
  const int x = r.left + (r.right - r.left - side) / 2, y = r.top + (r.bottom - r.top - side) / 2;
  SetDIBitsToDevice(item.hDC, x, y, side, side, 0, 0, 0, side, picture.data(), &info,
                    DIB_RGB_COLORS);
}

bool Command(HWND dialog, int control, int code) {
  if (control >= IDC_ROTATE_CW && control <= IDC_ROTATE_ARBITRARY) {
    EnableWindow(GetDlgItem(dialog, IDC_ROTATE_ANGLE), IsChecked(dialog, IDC_ROTATE_ARBITRARY));
  } else if (control != IDC_ROTATE_ANGLE || code != EN_CHANGE) {
    return false;
  }
  InvalidateRect(GetDlgItem(dialog, IDC_ROTATE_PREVIEW), nullptr, FALSE);
  return true;
}

}  // namespace

bool RunRotateDialog(Canvas* canvas, RotateChoice* choice) {
  RotateDialog state{canvas, choice};
  win32::Dialog dialog;
  dialog.init = [&state](HWND window) { Init(state, window); };
  dialog.command = Command;
  dialog.other = [&state](HWND window, UINT message, WPARAM, LPARAM lParam, INT_PTR* result) {
    const auto* item = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
    if (message != WM_DRAWITEM || item->CtlID != IDC_ROTATE_PREVIEW) return false;
    DrawPreview(state, window, *item);
    *result = TRUE;
    return true;
  };
  dialog.accept = [&state](HWND window) {
    state.choice->degrees = state.Angle(window);
    return true;
  };
  return win32::RunDialog(L"tsl_rotate", platform::BoundWindow(platform::Window::Frame), dialog);
}
