#include "paint/win/control_page_win.h"

#include <commctrl.h>

#include <string>

#include "base/current_tool.h"
#include "paint/control/control_page.h"
#include "paint/control/pen_options.h"
#include "paint/modes/color_mask.h"
#include "paint/tip/pen_data_list.h"
#include "paint/tip/pen_record.h"
#include "paint/tip/tip_panels.h"
#include "paint/win/mode_icons_win.h"
#include "paint/win/option_panels_win.h"
#include "paint/win/panel_common_win.h"
#include "paint/win/pen_panel_ids.h"
#include "paint/win/tip_preview_win.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"

namespace {

constexpr int kPageWidth = 180;  // the control panel's column

struct PageState {
  HWND optionPanel = nullptr;
  OptionPanel shown = OptionPanel::Brush;
  bool showing = false;  // the page writes its controls: their notices are its own
};
PageState state;

// A slider with the number beside it that shows and sets the same value.
struct NumberSlider {
  int slider, field, top;
  int (*read)();
  void (*write)(int);
};
const NumberSlider kNumberSliders[] = {
    {IDC_THICK_SLIDER, IDC_THICK_VALUE, 255, [] { return int(pen.colorThickness); },
     SetColorThickness},
    {IDC_DENSITY_SLIDER, IDC_DENSITY_VALUE, 255, [] { return int(pen.density); }, SetDensity},
    {IDC_VAGUENESS_SLIDER, IDC_VAGUENESS_VALUE, kVaguenessMax,
     [] { return int(colorMask.vagueness); }, SetVagueness},
};

struct FlagBox {
  int id;
  PaintFlag flag;
};
constexpr FlagBox kFlagBoxes[] = {{IDC_ANTI_ALIAS, PaintFlag::AntiAlias},
                                  {IDC_AUTO_SMOOTH, PaintFlag::AutoSmooth},
                                  {IDC_REFLECT_THICK, PaintFlag::ReflectThick},
                                  {IDC_REFLECT_DENSITY, PaintFlag::ReflectDensity},
                                  {IDC_REFLECT_SIZE, PaintFlag::ReflectSize},
                                  {IDC_MASK_OUTSIDE, PaintFlag::MaskOutsideSelection}};

void SetSlider(HWND page, int id, int value) {
  SendDlgItemMessageW(page, id, TBM_SETPOS, TRUE, value);
}

void ShowNumber(HWND page, const NumberSlider& n) {
  SetSlider(page, n.slider, n.read());
  SetDlgItemInt(page, n.field, UINT(n.read()), FALSE);
}

void ShowMode(HWND page) {
  const std::wstring text = platform::Widen(PenModeLabel(int(pen.mode))) + kPopupMark;
  SetDlgItemTextW(page, IDC_MODE_POPUP, text.c_str());
  for (int i = 0; i < kModeButtonCount; ++i)
    InvalidateRect(GetDlgItem(page, IDC_MODE_BUTTON + i), nullptr, FALSE);
}

void ShowPen(HWND page) {
  state.showing = true;
  ShowMode(page);
  for (const NumberSlider& n : kNumberSliders) ShowNumber(page, n);
  SetSlider(page, IDC_SPEED_SLIDER, SpeedSliderPosition());
  for (const FlagBox& box : kFlagBoxes)
    CheckDlgButton(page, box.id, PaintFlagOn(box.flag) ? BST_CHECKED : BST_UNCHECKED);
  SendDlgItemMessageW(page, IDC_COLOR_MASK, CB_SETCURSEL, WPARAM(colorMask.choice), 0);
  SendDlgItemMessageW(page, IDC_SHAPE_FINISH, CB_SETCURSEL, WPARAM(shapeFinish), 0);
  state.showing = false;
}

// The option area takes a panel: the one before goes.
void ShowOptionPanel(HWND page, OptionPanel panel) {
  if (state.optionPanel) DestroyWindow(state.optionPanel);
  state.shown = panel;
  state.optionPanel = panel == OptionPanel::Dot ? CreateDotPanel(page) : CreateBrushPanel(page);
  if (!state.optionPanel) return;
  // The hidden control IDC_OPTION_AREA marks where the panel stands.
  RECT area;
  GetWindowRect(GetDlgItem(page, IDC_OPTION_AREA), &area);
  MapWindowPoints(nullptr, page, reinterpret_cast<POINT*>(&area), 2);
  FitDialogToWidth(state.optionPanel, area.right - area.left);
  SetWindowPos(state.optionPanel, HWND_TOP, area.left, area.top, 0, 0, SWP_NOSIZE | SWP_SHOWWINDOW);
  SendMessageW(state.optionPanel, kMsgRefreshPanel, 0, 0);
}

// Message 1033 or 1034: everything shown anew; a stored pen may have
// brought the other option panel.
void Refresh(HWND page) {
  ShowPen(page);
  const OptionPanel wanted = tipState.dotPenPanel ? OptionPanel::Dot : OptionPanel::Brush;
  if (wanted != state.shown)
    ShowOptionPanel(page, wanted);
  else if (state.optionPanel)
    SendMessageW(state.optionPanel, kMsgRefreshPanel, 0, 0);
}

void ModePopup(HWND page) {
  HMENU menu = CreatePopupMenu();
  for (int mode = 0; mode < kModePopupCount; ++mode)
    AppendMenuW(menu, MF_STRING | (int(pen.mode) == mode ? MF_CHECKED : 0), mode + kMenuBase,
                platform::Widen(PenModeLabel(mode)).c_str());
  const int chosen = PopupUnder(GetDlgItem(page, IDC_MODE_POPUP), menu);
  DestroyMenu(menu);
  if (chosen && ChoosePenMode(chosen - kMenuBase)) ShowMode(page);
}

void NumberTyped(HWND page, int field, int code) {
  for (const NumberSlider& n : kNumberSliders) {
    if (n.field != field) continue;
    if (code == EN_CHANGE && !state.showing) {
      BOOL read = FALSE;
      const UINT value = GetDlgItemInt(page, field, &read, FALSE);
      if (read) n.write(int(value));
      SetSlider(page, n.slider, n.read());
    } else if (code == EN_KILLFOCUS) {
      state.showing = true;
      ShowNumber(page, n);  // the value as it was taken, within its range
      state.showing = false;
    }
  }
}

void Command(HWND page, int id, int code) {
  if (id >= IDC_MODE_BUTTON && id < IDC_MODE_BUTTON + kModeButtonCount) {
    if (ChoosePenMode(id - IDC_MODE_BUTTON)) ShowMode(page);
    return;
  }
  for (const FlagBox& box : kFlagBoxes)
    if (box.id == id) {
      SetPaintFlag(box.flag, IsDlgButtonChecked(page, id) == BST_CHECKED);
      return;
    }
  switch (id) {
    case IDC_MODE_POPUP: ModePopup(page); return;
    case IDC_FASTEST:
      SetFastest();
      SetSlider(page, IDC_SPEED_SLIDER, SpeedSliderPosition());
      return;
    case IDC_COLOR_MASK:
      if (code == CBN_SELCHANGE)
        ChooseColorMask(int(SendDlgItemMessageW(page, id, CB_GETCURSEL, 0, 0)));
      return;
    case IDC_SHAPE_FINISH:
      if (code == CBN_SELCHANGE)
        ChooseShapeFinish(int(SendDlgItemMessageW(page, id, CB_GETCURSEL, 0, 0)));
      return;
    default: NumberTyped(page, id, code);
  }
}

void Slid(HWND page, HWND slider) {
  const int position = int(SendMessageW(slider, TBM_GETPOS, 0, 0));
  const int id = GetDlgCtrlID(slider);
  if (id == IDC_SPEED_SLIDER) {
    SetSpeedSlider(position);
    return;
  }
  for (const NumberSlider& n : kNumberSliders) {
    if (n.slider != id) continue;
    n.write(position);
    state.showing = true;
    SetDlgItemInt(page, n.field, UINT(n.read()), FALSE);
    state.showing = false;
  }
}

void DrawModeButton(const DRAWITEMSTRUCT& item) {
  const int mode = int(item.CtlID) - IDC_MODE_BUTTON;
  const bool chosen = int(pen.mode) == mode;
  RECT r = item.rcItem;
  const bool pressed = chosen || (item.itemState & ODS_SELECTED);
  DrawFrameControl(item.hDC, &r, DFC_BUTTON, DFCS_BUTTONPUSH | (pressed ? DFCS_PUSHED : 0));
  if (chosen) {
    InflateRect(&r, -2, -2);
    FillRect(item.hDC, &r, GetSysColorBrush(COLOR_3DLIGHT));
  }
  const int shift = pressed ? 1 : 0;
  DrawModeIcon(item.hDC, (item.rcItem.left + item.rcItem.right - kModeIconEdge) / 2 + shift,
               (item.rcItem.top + item.rcItem.bottom - kModeIconEdge) / 2 + shift, mode);
}

// The names of the modes as tips of their buttons.
void AddModeTips(HWND page) {
  HWND tips = CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP, 0, 0, 0, 0,
                              page, nullptr, win32::ProgramInstance(), nullptr);
  if (!tips) return;
  for (int mode = 0; mode < kModeButtonCount; ++mode) {
    std::wstring label = platform::Widen(PenModeLabel(mode));
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = page;
    tool.uId = reinterpret_cast<UINT_PTR>(GetDlgItem(page, IDC_MODE_BUTTON + mode));
    tool.lpszText = label.data();
    SendMessageW(tips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  }
}

void Initialize(HWND page) {
  for (const NumberSlider& n : kNumberSliders)
    SendDlgItemMessageW(page, n.slider, TBM_SETRANGE, FALSE, MAKELPARAM(0, n.top));
  SendDlgItemMessageW(page, IDC_SPEED_SLIDER, TBM_SETRANGE, FALSE, MAKELPARAM(0, kSpeedSliderMax));
  for (int choice = 0; choice < kColorMaskChoices; ++choice)
    SendDlgItemMessageW(page, IDC_COLOR_MASK, CB_ADDSTRING, 0,
                        reinterpret_cast<LPARAM>(platform::Widen(ColorMaskLabel(choice)).c_str()));
  for (int choice = 0; choice < kShapeFinishChoices; ++choice)
    SendDlgItemMessageW(
        page, IDC_SHAPE_FINISH, CB_ADDSTRING, 0,
        reinterpret_cast<LPARAM>(platform::Widen(ShapeFinishLabel(choice)).c_str()));
  AddModeTips(page);
  ShowPen(page);
  state.shown = OptionAreaPanel(currentTool, GetKeyState(VK_SHIFT) < 0);
  OpenOptionPanel(state.shown);
}

INT_PTR CALLBACK PageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_INITDIALOG:
      Initialize(page);
      return FALSE;
    case WM_DRAWITEM:
      DrawModeButton(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
      return TRUE;
    case WM_COMMAND:
      Command(page, LOWORD(wParam), HIWORD(wParam));
      if (HIWORD(wParam) == BN_CLICKED || HIWORD(wParam) == CBN_CLOSEUP) GiveFocusBack();
      return TRUE;
    case WM_HSCROLL:
      if (lParam) Slid(page, reinterpret_cast<HWND>(lParam));
      if (LOWORD(wParam) == TB_ENDTRACK) GiveFocusBack();
      return TRUE;
    case kMsgSwitchPanel:
      ShowOptionPanel(page, SwitchTipPanel(state.shown));
      return TRUE;
    case platform::MsgPanelRefresh:
      if (ControlPageRefreshes(intptr_t(wParam), lParam)) Refresh(page);
      return TRUE;
    case platform::MsgPanelsRepaint:
      Refresh(page);
      return TRUE;
    case WM_DESTROY:
      state = PageState{};
      return FALSE;
  }
  return FALSE;
}

}  // namespace

HWND CreateControlPage(HWND panel, const std::string& programFolder) {
  const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_BAR_CLASSES};
  InitCommonControlsEx(&controls);
  if (!RegisterTipPreviewClass()) return nullptr;
  PenDataList.Read(programFolder);
  HWND page = CreateDialogW(win32::ProgramInstance(), L"da00_ctrl4", panel, PageProc);
  if (!page) return nullptr;
  FitDialogToWidth(page, kPageWidth);
  ShowOptionPanel(page, state.shown);
  ShowWindow(page, SW_SHOWNA);
  // The frame loads the pen of the last run after its bars are made: the
  // page shows it once the message loop runs.
  PostMessageW(page, platform::MsgPanelsRepaint, 0, 0);
  return page;
}
