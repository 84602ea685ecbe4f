#include "panels/win/color_mixer_win.h"

#include <commctrl.h>
#include <windowsx.h>

#include "layers/layer_windows.h"
#include "panels/mix_color.h"
#include "panels/swatches.h"
#include "panels/win/color_drawing_win.h"
#include "panels/win/panels_ids.h"
#include "panels/win/pick_area_win.h"
#include "pixel/hsv.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"

namespace {

// The pauses of the right button's approach on the value and colour bars.
constexpr UINT kValueStepMs = 10;
constexpr UINT kChannelStepMs = 15;

struct MixerDialog {
  MixerSession* session = nullptr;
  bool showing = false;  // the dialog writes its fields: their notices are its own
  int markedSwatch = -1;
};
MixerDialog mixer;
std::string folder;

MixerColor& Color() { return mixer.session->color; }

// The number fields but `except`, and the pictures, brought in line.
void ShowColor(HWND dialog, int except) {
  mixer.showing = true;
  for (int field = kFirstMixerField; field < kFirstMixerField + kMixerFields; ++field) {
    if (field == except) continue;  // what is being typed stays as typed
    const int shown = FieldShown(Color(), field);
    SetDlgItemInt(dialog, field, UINT(shown), FALSE);
    SendDlgItemMessageW(dialog, field + kSpinOffset, UDM_SETPOS32, 0, shown);
  }
  mixer.showing = false;
  for (int id : {IDC_MIX_WHEEL, IDC_MIX_VALUE_BAR, IDC_MIX_RED_BAR, IDC_MIX_GREEN_BAR,
                 IDC_MIX_BLUE_BAR, IDC_MIX_PREVIEW})
    InvalidateRect(GetDlgItem(dialog, id), nullptr, FALSE);
}

// The wheel shows the value a pick would take: 0 shows as full.
int WheelValue() { return Color().value == 0 ? 255 : Color().value; }

MixerColor FromHsv(int hue, int saturation, int value) {
  MixerColor c;
  SetFromHsv(&c, hue, saturation, value);
  return c;
}

void DrawWheel(const DRAWITEMSTRUCT& item) {
  const int width = item.rcItem.right - item.rcItem.left;
  const int height = item.rcItem.bottom - item.rcItem.top;
  const int radius = width / 2;
  const COLORREF face = GetSysColor(COLOR_BTNFACE);
  MixerColor outside;
  outside.red = GetRValue(face), outside.green = GetGValue(face), outside.blue = GetBValue(face);
  const int value = WheelValue();
  DrawColorPicture(item, [&](int x, int y) {
    const int dx = x - width / 2, dy = y - height / 2;
    if (dx * dx + dy * dy > radius * radius) return outside;
    int hue, saturation;
    WheelHueAt(dx, dy, width, &hue, &saturation);
    return FromHsv(hue, saturation, value);
  });
  int dx, dy;
  WheelPoint(Color().hue, Color().saturation, width, &dx, &dy);
  DrawMark(item.hDC, width / 2 + dx, height / 2 + dy);
}

void DrawValueBar(const DRAWITEMSTRUCT& item) {
  const int height = item.rcItem.bottom - item.rcItem.top;
  DrawColorPicture(item, [&](int, int y) {
    return FromHsv(Color().hue, Color().saturation, ValueBarAt(y, height));
  });
  DrawBarMark(item, (255 - Color().value) * (height - 1) / 255, true);
}

void DrawChannelBar(const DRAWITEMSTRUCT& item, int channel) {
  const int width = item.rcItem.right - item.rcItem.left;
  DrawColorPicture(item, [&](int x, int) {
    MixerColor c = Color();
    SetChannel(&c, channel, ColorBarAt(x, width));
    return c;
  });
  const int level = channel == 0 ? Color().red : channel == 1 ? Color().green : Color().blue;
  DrawBarMark(item, level * (width - 1) / 255, false);
}

void Draw(const DRAWITEMSTRUCT& item) {
  const int id = int(item.CtlID);
  if (id >= IDC_MIX_SWATCH && id < IDC_MIX_SWATCH + kSwatchesShown) {
    const uint32_t word = swatches[id - IDC_MIX_SWATCH];
    DrawColorBox(item, SwatchRed(word), SwatchGreen(word), SwatchBlue(word),
                 mixer.markedSwatch == id - IDC_MIX_SWATCH);
    return;
  }
  switch (id) {
    case IDC_MIX_WHEEL:
      DrawWheel(item);
      return;
    case IDC_MIX_VALUE_BAR:
      DrawValueBar(item);
      return;
    case IDC_MIX_RED_BAR:
    case IDC_MIX_GREEN_BAR:
    case IDC_MIX_BLUE_BAR:
      DrawChannelBar(item, id - IDC_MIX_RED_BAR);
      return;
    case IDC_MIX_PREVIEW:
      DrawColorBox(item, Color().red, Color().green, Color().blue, false);
      return;
  }
}

void Pointer(HWND dialog, int id, bool right, int x, int y) {
  const SIZE size = PickAreaSize(GetDlgItem(dialog, id));
  if (id >= IDC_MIX_SWATCH && id < IDC_MIX_SWATCH + kSwatchesShown) {
    const int swatch = id - IDC_MIX_SWATCH;
    if (right)
      swatches[swatch] = SwatchWord(Color().red, Color().green, Color().blue);
    else
      mixer.markedSwatch = swatch;
    InvalidateRect(GetDlgItem(dialog, id), nullptr, FALSE);
    return;
  }
  switch (id) {
    case IDC_MIX_WHEEL:
      PickWheel(&Color(), x - size.cx / 2, y - size.cy / 2, size.cx, right);
      break;
    case IDC_MIX_VALUE_BAR: {
      const int target = ValueBarAt(y, size.cy);
      SetValue(&Color(), right ? StepToward(Color().value, target) : target);
      break;
    }
    case IDC_MIX_RED_BAR:
    case IDC_MIX_GREEN_BAR:
    case IDC_MIX_BLUE_BAR: {
      const int channel = id - IDC_MIX_RED_BAR;
      const int now = channel == 0 ? Color().red : channel == 1 ? Color().green : Color().blue;
      const int target = ColorBarAt(x, size.cx);
      SetChannel(&Color(), channel, right ? StepToward(now, target) : target);
      break;
    }
    default:
      return;
  }
  ShowColor(dialog, 0);
}

// A marked swatch gives its colour when the button is let go.
void Released(HWND dialog, int id) {
  if (mixer.markedSwatch < 0 || id != IDC_MIX_SWATCH + mixer.markedSwatch) return;
  const uint32_t word = swatches[mixer.markedSwatch];
  mixer.markedSwatch = -1;
  SetFromRgb(&Color(), SwatchRed(word), SwatchGreen(word), SwatchBlue(word));
  InvalidateRect(GetDlgItem(dialog, id), nullptr, FALSE);
  ShowColor(dialog, 0);
}

void FieldCommand(HWND dialog, int field, int code) {
  if (field < kFirstMixerField || field >= kFirstMixerField + kMixerFields) return;
  if (code == EN_CHANGE && !mixer.showing) {
    BOOL read = FALSE;
    const int typed = int(GetDlgItemInt(dialog, field, &read, FALSE));
    if (!read) return;
    FieldTyped(&Color(), field, typed);
    ShowColor(dialog, field);
  } else if (code == EN_KILLFOCUS) {
    ShowColor(dialog, 0);  // the number as it was taken, within its range
  }
}

void Initialize(HWND dialog) {
  if (mixer.session->title) SetWindowTextW(dialog, platform::Widen(mixer.session->title).c_str());
  for (int field = kFirstMixerField; field < kFirstMixerField + kMixerFields; ++field)
    SendDlgItemMessageW(dialog, field + kSpinOffset, UDM_SETRANGE32, 0, FieldTop(field));
  SetPickAreaRepeat(GetDlgItem(dialog, IDC_MIX_VALUE_BAR), kValueStepMs);
  for (int id : {IDC_MIX_RED_BAR, IDC_MIX_GREEN_BAR, IDC_MIX_BLUE_BAR})
    SetPickAreaRepeat(GetDlgItem(dialog, id), kChannelStepMs);
  ShowColor(dialog, 0);
  win32::CentreOnOwner(dialog);
}

INT_PTR CALLBACK MixerProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_INITDIALOG:
      Initialize(dialog);
      return TRUE;
    case WM_DRAWITEM:
      Draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
      return TRUE;
    case kMsgAreaPointer:
      Pointer(dialog, LOWORD(wParam), HIWORD(wParam) != 0, GET_X_LPARAM(lParam),
              GET_Y_LPARAM(lParam));
      return TRUE;
    case kMsgAreaRelease:
      Released(dialog, LOWORD(wParam));
      return TRUE;
    case WM_COMMAND:
      if (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL) {
        EndDialog(dialog, LOWORD(wParam));
        return TRUE;
      }
      FieldCommand(dialog, LOWORD(wParam), HIWORD(wParam));
      return TRUE;
  }
  return FALSE;
}

}  // namespace

void InstallColorMixer(const std::string& programFolder) {
  folder = programFolder;
  layerWindows.chooseColor = [](const char* title, int* red, int* green, int* blue) {
    return MixColor(platform::BoundWindow(platform::Window::Frame), red, green, blue, title);
  };
}

bool MixColor(HWND owner, int* red, int* green, int* blue, const char* title) {
  if (!RegisterPickArea()) return false;
  mixerWindows.colorMixerDialog = [owner](MixerSession* session) {
    mixer = MixerDialog{};
    mixer.session = session;
    const INT_PTR answer = DialogBoxParamW(win32::ProgramInstance(), L"colorseldlg",
                                           GetAncestor(owner, GA_ROOT), MixerProc, 0);
    mixer = MixerDialog{};
    return answer == IDOK;
  };
  return MixColor(folder, red, green, blue, title);
}
