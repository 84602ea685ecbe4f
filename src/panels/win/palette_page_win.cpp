#include "panels/win/palette_page_win.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>
#include <vector>

#include "paint/win/panel_common_win.h"
#include "paint/win/picture_win.h"
#include "panels/cell_thumbnail.h"
#include "panels/palette_cells.h"
#include "panels/palette_panel.h"
#include "panels/palette_pick.h"
#include "platform/platform.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"
#include "panels/win/color_drawing_win.h"
#include "panels/win/color_mixer_win.h"
#include "panels/win/panels_ids.h"
#include "panels/win/pick_area_win.h"
#include "resources/strings.h"
#include "settings/settings.h"

namespace {

constexpr int kPageWidth = 180;  // the control panel's column
constexpr int kGradientTab = 3;
constexpr int kStringGradientTab = 26254;
constexpr int kStringMixerItem = 26255;
constexpr UINT kValueStepMs = 10;
constexpr UINT kBarStepMs = 15;
constexpr UINT kMsgOpenMixer = WM_APP + 50;

struct PageState {
  std::string folder;
  HWND colorPanel = nullptr;
  HWND dragTip = nullptr;
  bool cellPressed = false;  // a press on the cells acts once, not on every move
};
PageState state;

int ShownTab() { return std::clamp(int(settings.palettePage), 0, kGradientTab); }

// ---- pal_color ----

int ShownValue(const MixerColor& c) { return c.value == 0 ? 255 : c.value; }

void DrawHueBox(const DRAWITEMSTRUCT& item) {
  const int width = item.rcItem.right - item.rcItem.left;
  const int height = item.rcItem.bottom - item.rcItem.top;
  const MixerColor pen = PenColor();
  DrawColorPicture(item, [&](int x, int y) {
    MixerColor probe;
    probe.value = ShownValue(pen);
    PickHueBox(&probe, x, y, width, height);
    return probe;
  });
  int x, y;
  HueBoxPoint(pen.hue, pen.saturation, width, height, &x, &y);
  DrawMark(item.hDC, x, y);
}

void DrawValueBar(const DRAWITEMSTRUCT& item) {
  const int height = item.rcItem.bottom - item.rcItem.top;
  const MixerColor pen = PenColor();
  DrawColorPicture(item, [&](int, int y) {
    MixerColor c = pen;
    SetValue(&c, ValueBarAt(y, height));
    return c;
  });
  DrawBarMark(item, (255 - pen.value) * (height - 1) / 255, true);
}

void DrawModelBar(const DRAWITEMSTRUCT& item, int bar) {
  const int width = item.rcItem.right - item.rcItem.left;
  const MixerColor pen = PenColor();
  DrawColorPicture(item, [&](int x, int) { return BarColorAt(pen, bar, ColorBarAt(x, width)); });
  DrawBarMark(item, BarLevel(pen, bar) * (width - 1) / 255, false);
}

void DrawCombined(const DRAWITEMSTRUCT& item) {
  RECT r = item.rcItem;
  DrawFrameControl(item.hDC, &r, DFC_BUTTON, DFCS_BUTTONPUSH);
  const std::wstring text = platform::Widen(ColorModelLabel(CurrentColorModel())) + kPopupMark;
  SetBkMode(item.hDC, TRANSPARENT);
  HGDIOBJ font = SelectObject(item.hDC, GetStockObject(DEFAULT_GUI_FONT));
  DrawTextW(item.hDC, text.c_str(), int(text.size()), &r,
            DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
  SelectObject(item.hDC, font);
}

void DrawColorPanel(const DRAWITEMSTRUCT& item) {
  const int id = int(item.CtlID);
  const MixerColor pen = PenColor();
  switch (id) {
    case IDC_PAL_HUE_BOX:
      DrawHueBox(item);
      return;
    case IDC_PAL_VALUE_BAR:
      DrawValueBar(item);
      return;
    case IDC_PAL_COMBINED:
      DrawCombined(item);
      return;
    case IDC_PAL_PREVIEW:
      DrawColorBox(item, pen.red, pen.green, pen.blue, false);
      return;
  }
  if (id >= IDC_PAL_BAR && id < IDC_PAL_BAR + 3) DrawModelBar(item, id - IDC_PAL_BAR);
}

HWND MakeDragTip(HWND owner) {
  HWND tip = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                             WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0, 0, 0, 0, owner, nullptr,
                             win32::ProgramInstance(), nullptr);
  if (!tip) return nullptr;
  TTTOOLINFOW tool{};
  tool.cbSize = sizeof tool;
  tool.uFlags = TTF_TRACK | TTF_ABSOLUTE;
  tool.hwnd = owner;
  tool.lpszText = const_cast<wchar_t*>(L"");
  SendMessageW(tip, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  return tip;
}

TTTOOLINFOW DragTool(HWND owner, std::wstring* text) {
  TTTOOLINFOW tool{};
  tool.cbSize = sizeof tool;
  tool.hwnd = owner;
  tool.lpszText = text ? text->data() : nullptr;
  return tool;
}

// The tip follows the pointer with hue, saturation and value.
void ShowDragTip(HWND panel) {
  if (!state.dragTip) return;
  std::wstring text = platform::Widen(DragTipText(PenColor()));
  TTTOOLINFOW tool = DragTool(panel, &text);
  SendMessageW(state.dragTip, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
  POINT p;
  GetCursorPos(&p);
  SendMessageW(state.dragTip, TTM_TRACKPOSITION, 0, MAKELPARAM(p.x + 16, p.y + 16));
  SendMessageW(state.dragTip, TTM_TRACKACTIVATE, TRUE, reinterpret_cast<LPARAM>(&tool));
}

void HideDragTip(HWND panel) {
  if (!state.dragTip) return;
  TTTOOLINFOW tool = DragTool(panel, nullptr);
  SendMessageW(state.dragTip, TTM_TRACKACTIVATE, FALSE, reinterpret_cast<LPARAM>(&tool));
}

// The pen's colour through the colour mixer.
void MixPenColor(HWND panel) {
  MixerColor color = PenColor();
  if (!MixColor(panel, &color.red, &color.green, &color.blue, nullptr)) return;
  SetFromRgb(&color, color.red, color.green, color.blue);
  SetPenColor(color);
}

// The models the bars show, and below them the colour mixer.
void ModelPopup(HWND panel) {
  const int mixerItem = kColorModels + kMenuBase;
  HMENU menu = CreatePopupMenu();
  for (int model = 0; model < kColorModels; ++model)
    AppendMenuW(menu, MF_STRING | (CurrentColorModel() == model ? MF_CHECKED : 0),
                UINT_PTR(model + kMenuBase), platform::Widen(ColorModelLabel(model)).c_str());
  AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
  AppendMenuW(menu, MF_STRING, UINT_PTR(mixerItem),
              platform::Widen(StringText(kStringMixerItem)).c_str());
  const int chosen = PopupUnder(GetDlgItem(panel, IDC_PAL_COMBINED), menu);
  DestroyMenu(menu);
  // The mixer opens once the press that chose it is over.
  if (chosen == mixerItem)
    PostMessageW(panel, kMsgOpenMixer, 0, 0);
  else if (chosen)
    settings.colorModel = chosen - kMenuBase;
  InvalidateRect(panel, nullptr, FALSE);
}

void ColorPointer(HWND panel, int id, bool right, int x, int y) {
  const SIZE size = PickAreaSize(GetDlgItem(panel, id));
  MixerColor color = PenColor();
  switch (id) {
    case IDC_PAL_HUE_BOX:
      PickHueBox(&color, x, y, size.cx, size.cy);
      break;
    case IDC_PAL_VALUE_BAR: {
      const int target = ValueBarAt(y, size.cy);
      SetValue(&color, right ? StepToward(color.value, target) : target);
      break;
    }
    case IDC_PAL_COMBINED:
      // A popup or a box of its own: the area lets the pointer go first.
      ReleaseCapture();
      ModelPopup(panel);
      return;
    case IDC_PAL_PREVIEW:
      ReleaseCapture();
      platform::ShowMessageBox(platform::Window::ControlPanel,
                               PreviewText(color.red, color.green, color.blue), kProductName,
                               platform::MbOk);
      return;
    default: {
      const int bar = id - IDC_PAL_BAR;
      if (bar < 0 || bar > 2) return;
      const int target = ColorBarAt(x, size.cx);
      SetBarLevel(&color, bar, right ? StepToward(BarLevel(color, bar), target) : target);
    }
  }
  SetPenColor(color);
  InvalidateRect(panel, nullptr, FALSE);
  if (id == IDC_PAL_HUE_BOX || id == IDC_PAL_VALUE_BAR) ShowDragTip(panel);
}

INT_PTR CALLBACK ColorPanelProc(HWND panel, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_INITDIALOG:
      SetPickAreaRepeat(GetDlgItem(panel, IDC_PAL_VALUE_BAR), kValueStepMs);
      for (int bar = 0; bar < 3; ++bar)
        SetPickAreaRepeat(GetDlgItem(panel, IDC_PAL_BAR + bar), kBarStepMs);
      state.dragTip = MakeDragTip(panel);
      return FALSE;
    case WM_DRAWITEM:
      DrawColorPanel(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
      return TRUE;
    case kMsgAreaPointer:
      ColorPointer(panel, LOWORD(wParam), HIWORD(wParam) != 0, GET_X_LPARAM(lParam),
                   GET_Y_LPARAM(lParam));
      return TRUE;
    case kMsgOpenMixer:
      MixPenColor(panel);
      return TRUE;
    case kMsgAreaRelease:
      HideDragTip(panel);
      GiveFocusBack();
      return TRUE;
  }
  return FALSE;
}

// ---- the cells ----

RECT CellRect(const RECT& area, int cell) {
  const int w = area.right - area.left, h = area.bottom - area.top;
  const int column = cell % kCellColumns, row = cell / kCellColumns;
  return {area.left + column * w / kCellColumns, area.top + row * h / kCellRows,
          area.left + (column + 1) * w / kCellColumns, area.top + (row + 1) * h / kCellRows};
}

void DrawImageCell(HDC dc, RECT r, const PaletteCell& cell) {
  int x, y, w, h;
  Plane* thumbnail = CellThumbnail(cell.path, r.right - r.left, r.bottom - r.top, &x, &y, &w, &h);
  if (!thumbnail) {
    FillRect(dc, &r, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    return;
  }
  FillRect(dc, &r, GetSysColorBrush(COLOR_BTNFACE));
  std::vector<uint8_t> bgr(size_t(w) * h * 3);
  for (int row = 0; row < h; ++row)
    PlaneStore.ReadRow(thumbnail, row, 0, w - 1, &bgr[size_t(row) * w * 3]);
  PlaneStore.FreePlane(&thumbnail);
  DrawPicture(dc, r.left + x, r.top + y, w, h, bgr);
}

void DrawCells(const DRAWITEMSTRUCT& item) {
  if (ShownTab() == kGradientTab) {
    FillRect(item.hDC, &item.rcItem, GetSysColorBrush(COLOR_BTNSHADOW));
    return;
  }
  for (int i = 0; i < kCellsPerPage; ++i) {
    RECT r = CellRect(item.rcItem, i);
    const PaletteCell cell = GetPaletteCell(PaletteCellNumber(ShownTab(), i));
    if (cell.isImage) {
      DrawImageCell(item.hDC, r, cell);
    } else {
      HBRUSH brush = CreateSolidBrush(
          RGB(std::min(cell.red, 255u), std::min(cell.green, 255u), std::min(cell.blue, 255u)));
      FillRect(item.hDC, &r, brush);
      DeleteObject(brush);
    }
    DrawEdge(item.hDC, &r, BDR_SUNKENOUTER, BF_RECT);
  }
}

void CellPointer(HWND page, bool right, int x, int y) {
  if (state.cellPressed || ShownTab() == kGradientTab) return;
  state.cellPressed = true;
  HWND cells = GetDlgItem(page, IDC_PAL_CELLS);
  const SIZE size = PickAreaSize(cells);
  const int cell = CellAtPoint(x, y, size.cx, size.cy);
  if (cell < 0) return;
  if (right) {
    StoreCell(state.folder, ShownTab(), cell);
    InvalidateRect(cells, nullptr, FALSE);
  } else {
    platform::SetCustomCursor("spoit");
    PickCell(ShownTab(), cell);
  }
}

void ShowTab(HWND page) {
  settings.palettePage = int(SendDlgItemMessageW(page, IDC_PAL_TABS, TCM_GETCURSEL, 0, 0));
  InvalidateRect(GetDlgItem(page, IDC_PAL_CELLS), nullptr, FALSE);
}

// The page numbers' tabs take a common width and the gradient's tab the
// width of its word, so that all four stand in one row.
void AddTabs(HWND page) {
  constexpr int kNumberTabWidth = 30;
  HWND tabs = GetDlgItem(page, IDC_PAL_TABS);
  SendMessageW(tabs, TCM_SETMINTABWIDTH, 0, kNumberTabWidth);
  for (int tab = 0; tab <= kGradientTab; ++tab) {
    std::wstring label = tab == kGradientTab ? platform::Widen(StringText(kStringGradientTab))
                                             : std::to_wstring(tab + 1);
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = label.data();
    SendMessageW(tabs, TCM_INSERTITEMW, WPARAM(tab), reinterpret_cast<LPARAM>(&item));
  }
  SendMessageW(tabs, TCM_SETCURSEL, WPARAM(ShownTab()), 0);
}

// The colour panel stands in the place marked IDC_PAL_COLOR_AREA, which
// the pen modes that take their colour from a source will share.
void PlaceColorPanel(HWND page) {
  state.colorPanel = CreateDialogW(win32::ProgramInstance(), L"pal_color", page, ColorPanelProc);
  if (!state.colorPanel) return;
  RECT area;
  GetWindowRect(GetDlgItem(page, IDC_PAL_COLOR_AREA), &area);
  MapWindowPoints(nullptr, page, reinterpret_cast<POINT*>(&area), 2);
  FitDialogToWidth(state.colorPanel, area.right - area.left);
  SetWindowPos(state.colorPanel, HWND_TOP, area.left, area.top, 0, 0, SWP_NOSIZE | SWP_SHOWWINDOW);
}

INT_PTR CALLBACK PageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_INITDIALOG:
      AddTabs(page);
      return FALSE;
    case WM_DRAWITEM:
      DrawCells(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
      return TRUE;
    case kMsgAreaPointer:
      CellPointer(page, HIWORD(wParam) != 0, GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
      return TRUE;
    case kMsgAreaRelease:
      state.cellPressed = false;
      if (platform::CustomCursorShown()) platform::SetCustomCursor(nullptr);
      GiveFocusBack();
      return TRUE;
    case WM_NOTIFY:
      if (reinterpret_cast<const NMHDR*>(lParam)->code == TCN_SELCHANGE) ShowTab(page);
      return TRUE;
    case platform::MsgPanelRefresh:
    case platform::MsgPanelsRepaint:
      if (state.colorPanel) InvalidateRect(state.colorPanel, nullptr, FALSE);
      InvalidateRect(GetDlgItem(page, IDC_PAL_CELLS), nullptr, FALSE);
      return TRUE;
    case WM_DESTROY:
      if (state.dragTip) DestroyWindow(state.dragTip);
      state = PageState{};
      return FALSE;
  }
  return FALSE;
}

}  // namespace

HWND CreatePalettePage(HWND parent, const std::string& startFolder) {
  const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_TAB_CLASSES | ICC_BAR_CLASSES};
  InitCommonControlsEx(&controls);
  if (!RegisterPickArea()) return nullptr;
  state.folder = startFolder;
  HWND page = CreateDialogW(win32::ProgramInstance(), L"pal_page", parent, PageProc);
  if (!page) return nullptr;
  FitDialogToWidth(page, kPageWidth);
  PlaceColorPanel(page);
  ShowWindow(page, SW_SHOWNA);
  return page;
}
