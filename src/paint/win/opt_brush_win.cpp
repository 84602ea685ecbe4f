// opt_brush: the sixteen shape buttons, drawn from the shapes themselves,
// the preview box, the size popup and its list, the bar under the preview
// and the way to the dot pens.
#include <windows.h>
#include <commctrl.h>

#include <array>
#include <string>
#include <vector>

#include "paint/control/size_menu.h"
#include "paint/control/tip_preview.h"
#include "paint/tip/pen_record.h"
#include "paint/tip/tip.h"
#include "paint/tip/tip_panels.h"
#include "paint/win/option_panels_win.h"
#include "paint/win/panel_common_win.h"
#include "paint/win/pen_panel_ids.h"
#include "paint/win/pen_size_dialogs_win.h"
#include "paint/win/picture_win.h"
#include "paint/win/tip_preview_win.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"

namespace {


// The shape pictures, made once: the shapes are what they are.
struct ShapePictures {
  int edge = 0;
  std::array<std::vector<uint8_t>, kTipShapeCount> pictures;
};
ShapePictures shapes;

void MakeShapePictures(HWND panel) {
  const int edge = PictureEdge(GetDlgItem(panel, 0));
  if (edge == shapes.edge) return;
  shapes.edge = edge;
  for (int shape = 0; shape < kTipShapeCount; ++shape)
    shapes.pictures[shape] = ShapePicture(shape, (edge - 2) / 2, edge);
}

void ShowSize(HWND panel) {
  const std::wstring text = platform::Widen(CurrentPenSizeLabel()) + kPopupMark;
  SetDlgItemTextW(panel, IDC_SIZE_POPUP, text.c_str());
}

void ShowPen(HWND panel) {
  ShowSize(panel);
  SendDlgItemMessageW(panel, IDC_TIP_SLIDER, TBM_SETPOS, TRUE, pen.tipSlider);
  for (int shape = 0; shape < kTipShapeCount; ++shape)
    InvalidateRect(GetDlgItem(panel, shape), nullptr, FALSE);
  InvalidateRect(GetDlgItem(panel, IDC_TIP_PREVIEW), nullptr, FALSE);
}

void SizePopup(HWND panel) {
  HMENU menu = CreatePopupMenu();
  for (const SizeMenuItem& item : SizeMenuItems()) {
    if (item.id < 0) {
      AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
      continue;
    }
    AppendMenuW(menu, MF_STRING | (item.checked ? MF_CHECKED : 0), item.id + kMenuBase,
                platform::Widen(item.text).c_str());
  }
  const int chosen = PopupUnder(GetDlgItem(panel, IDC_SIZE_POPUP), menu);
  DestroyMenu(menu);
  if (!chosen) return;
  if (ChooseSizeMenuItem(chosen - kMenuBase) == SizeMenuResult::Edit)
    RunPenSizeListDialog(GetAncestor(panel, GA_ROOT));
  ShowPen(panel);
}

void Command(HWND panel, int id, int code) {
  if (id >= 0 && id < kTipShapeCount && code == BN_CLICKED) {
    PickTipShape(id);
    ShowPen(panel);
    return;
  }
  switch (id) {
    case IDC_SIZE_POPUP: SizePopup(panel); return;
    case IDC_SWITCH_PANEL: PostMessageW(GetParent(panel), kMsgSwitchPanel, 0, 0); return;
    case IDC_TIP_PREVIEW:
      if (code == kPreviewSized) ShowSize(panel);
      return;
  }
}

INT_PTR CALLBACK BrushPanelProc(HWND panel, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_INITDIALOG:
      SendDlgItemMessageW(panel, IDC_TIP_SLIDER, TBM_SETRANGE, FALSE, MAKELPARAM(0, 255));
      return FALSE;
    case WM_DRAWITEM: {
      const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
      if (item.CtlID >= UINT(kTipShapeCount)) return FALSE;
      DrawPictureButton(item, pen.tipShape == int(item.CtlID), shapes.edge, shapes.edge,
                        shapes.pictures[item.CtlID]);
      return TRUE;
    }
    case WM_COMMAND:
      Command(panel, LOWORD(wParam), HIWORD(wParam));
      if (HIWORD(wParam) == BN_CLICKED) GiveFocusBack();
      return TRUE;
    case WM_HSCROLL:
      SetTipSlider(int(SendDlgItemMessageW(panel, IDC_TIP_SLIDER, TBM_GETPOS, 0, 0)));
      if (LOWORD(wParam) == TB_ENDTRACK) GiveFocusBack();
      return TRUE;
    case kMsgRefreshPanel:
      MakeShapePictures(panel);
      ShowPen(panel);
      return TRUE;
  }
  return FALSE;
}

}  // namespace

HWND CreateBrushPanel(HWND page) {
  return CreateDialogW(win32::ProgramInstance(), L"opt_brush", page, BrushPanelProc);
}
