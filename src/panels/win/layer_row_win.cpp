#include "panels/win/layer_row_win.h"

#include <iterator>

#include "document/active_canvas.h"
#include "document/canvas_manager.h"
#include "layers/layer_command.h"
#include "paint/win/panel_common_win.h"
#include "panels/layer_rows.h"
#include "panels/row_press.h"
#include "panels/win/layer_list_win.h"
#include "panels/win/layer_menus_win.h"
#include "panels/win/layer_panel_ids.h"
#include "panels/win/panel_bitmaps_win.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"

namespace {

// Controls of a row, in pixels.
struct ControlBox {
  int id, x, y, width, height;
};
constexpr ControlBox kName{IDC_ROW_NAME, 14, 14, 48, 12};
constexpr ControlBox kDisplay{IDC_ROW_DISPLAY, 2, 14, 12, 12};
constexpr ControlBox kEyeShown{IDC_ROW_EYE, 42, 0, 20, 12};
constexpr ControlBox kEyeHidden{IDC_ROW_EYE, 32, 0, 20, 12};
constexpr ControlBox kSwitch{IDC_ROW_SWITCH, 42, 0, 12, 12};
constexpr ControlBox kThumbnail{IDC_ROW_THUMBNAIL, 64, 0, 32, 24};

constexpr COLORREF kActiveRow = RGB(204, 224, 255);

// A letter for each display mode on the button that chooses it.
wchar_t ModeLetter(int mode) {
  switch (mode) {
    case kDisplayThisLayerOnly:
      return L'S';
    case kDisplayChannel:
      return L'C';
    case kDisplayComposition:
      return L'P';
    case kDisplayThickness:
      return L'T';
  }
  return L'B';
}

// The names' fonts: 10 pixels high at their natural width, and smaller
// or narrower ones for the names that don't fit.
struct FontSize {
  int height, charWidth;  // a width of 0: the font's own
};
constexpr FontSize kNameSizes[] = {{10, 0}, {10, 4}, {9, 4}, {9, 3}, {8, 3}};

HFONT NameFont(int size = 0) {
  static HFONT fonts[std::size(kNameSizes)];
  HFONT& font = fonts[size];
  if (!font)
    font = CreateFontW(-kNameSizes[size].height, kNameSizes[size].charWidth, 0, 0, FW_NORMAL, 0, 0,
                       0, DEFAULT_CHARSET, 0, 0, 0, 0, L"Tahoma");
  return font;
}

// A long name ("Transparency1") is made smaller to fit its 48 pixels
// rather than cut.
void SelectFittingFont(HDC dc, const std::wstring& text, int width) {
  for (size_t size = 0; size < std::size(kNameSizes); ++size) {
    SelectObject(dc, NameFont(int(size)));
    SIZE extent;
    if (GetTextExtentPoint32W(dc, text.c_str(), int(text.size()), &extent) && extent.cx <= width)
      return;
  }
}

HBRUSH RowBrush(bool active) {
  static HBRUSH activeBrush = CreateSolidBrush(kActiveRow);
  return active ? activeBrush : GetSysColorBrush(COLOR_BTNFACE);
}

int PlaneOfRow(HWND row, const Canvas* canvas) { return canvas ? RowOfWindow(row, canvas) : -1; }

void Place(HWND row, const ControlBox& box, bool shown) {
  MoveWindow(GetDlgItem(row, box.id), box.x, box.y, shown ? box.width : 0, shown ? box.height : 0,
             FALSE);
}

// The controls where the row's plane wants them: the eye of an image, the
// switch of a further plane, the mode on the active row only.
void PlaceControls(HWND row) {
  const Canvas* canvas = ActiveCanvas();
  const int index = PlaneOfRow(row, canvas);
  if (index < 0) return;
  const bool image = PositionOf(index) == kImagePosition;
  Place(row, kName, true);
  Place(row, {IDC_ROW_PRESS, 0, 0, 0, 0}, false);
  Place(row, kDisplay, DisplayMenuOf(canvas, index) != DisplayMenu::None);
  Place(row, canvas->planes[index].mixMode > kMixHide ? kEyeShown : kEyeHidden, image);
  Place(row, kSwitch, !image);
  Place(row, kThumbnail, true);
  RedrawWindow(row, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void DrawControl(const Canvas* canvas, int index, const DRAWITEMSTRUCT& item) {
  RECT r = item.rcItem;
  const PlaneSlot& slot = canvas->planes[index];
  FillRect(item.hDC, &r, RowBrush(RowIsActive(canvas, index)));
  switch (item.CtlID) {
    case IDC_ROW_NAME: {
      const std::wstring name = platform::Widen(CanvasManager.PlaneLabel(canvas, index));
      HGDIOBJ old = SelectObject(item.hDC, NameFont());
      SelectFittingFont(item.hDC, name, r.right - r.left);
      SetBkMode(item.hDC, TRANSPARENT);
      DrawTextW(item.hDC, name.c_str(), int(name.size()), &r,
                DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
      SelectObject(item.hDC, old);
      return;
    }
    case IDC_ROW_DISPLAY: {
      DrawEdge(item.hDC, &r, EDGE_RAISED, BF_RECT | BF_MIDDLE);
      const wchar_t letter[] = {ModeLetter(canvas->planes[canvas->activePlane].displayMode), 0};
      HGDIOBJ old = SelectObject(item.hDC, NameFont());
      SetBkMode(item.hDC, TRANSPARENT);
      DrawTextW(item.hDC, letter, 1, &r, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
      SelectObject(item.hDC, old);
      return;
    }
    case IDC_ROW_EYE:
      // A shown layer has its eye; a hidden one an empty box.
      if (slot.mixMode > kMixHide)
        DrawPanelBitmap(item.hDC, L"ly_disp", r);
      else
        FrameRect(item.hDC, &r, GetSysColorBrush(COLOR_BTNSHADOW));
      return;
    case IDC_ROW_SWITCH:
      DrawPanelBitmap(item.hDC, slot.planeOff ? L"ly_alp_d" : L"ly_alp_e", r);
      return;
  }
}

POINT BelowControl(HWND control) {
  RECT r;
  GetWindowRect(control, &r);
  return {r.left, r.bottom};
}

void Clicked(HWND row, int id) {
  Canvas* canvas = ActiveCanvas();
  const int index = PlaneOfRow(row, canvas);
  if (index < 0) return;
  HWND list = GetParent(row);
  switch (id) {
    case IDC_ROW_NAME:
      PostMessageW(list, kMsgLayerItem, kLayerItemSetting, index);
      return;
    case IDC_ROW_DISPLAY: {
      const DisplayMenu menu = DisplayMenuOf(canvas, index);
      if (menu == DisplayMenu::None) return;
      const int choice = TrackNamedMenu(menu == DisplayMenu::Image ? L"tsDispMenu" : L"tsDispMenu2",
                                        row, BelowControl(GetDlgItem(row, id)));
      if (!choice) return;
      ChooseDisplayMode(canvas, menu, choice);
      break;
    }
    case IDC_ROW_EYE:
      ToggleEye(canvas, index);
      break;
    case IDC_ROW_SWITCH:
      TogglePlaneOff(canvas, index);
      break;
    default:
      return;
  }
  PostMessageW(list, kMsgLayOutRows, 0, 0);
}

// The row of the list that stands at a point of the screen, or null.
HWND RowAt(HWND list, POINT at) {
  HWND window = WindowFromPoint(at);
  while (window && GetParent(window) != list) window = GetParent(window);
  return window && RowOfWindow(window, ActiveCanvas()) >= 0 ? window : nullptr;
}

void Outline(HWND row) {
  win32::InvertingDc dc(row);
  if (!dc.get()) return;
  RECT r;
  GetClientRect(row, &r);
  Rectangle(dc.get(), 0, 0, r.right, r.bottom);
  Rectangle(dc.get(), 1, 1, r.right - 1, r.bottom - 1);
}

// Follows the pointer while the left button is held, outlining the row
// under it; then the release decides.
void DragRow(HWND row) {
  if (RowPressRefused()) return;
  Canvas* canvas = ActiveCanvas();
  const int from = PlaneOfRow(row, canvas);
  if (from < 0) return;
  HWND list = GetParent(row);
  HWND over = row;
  Outline(over);
  while (GetAsyncKeyState(VK_LBUTTON) < 0) {
    POINT at;
    GetCursorPos(&at);
    if (HWND now = RowAt(list, at); now && now != over) {
      Outline(over);
      over = now;
      Outline(over);
    }
    MSG message;
    while (PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE))
      DispatchMessageW(&message);
    Sleep(10);
  }
  Outline(over);
  switch (ReleaseRow(canvas, from, RowOfWindow(over, canvas))) {
    case RowRelease::LayerOptions:
      PostMessageW(list, kMsgLayerItem, kLayerItemSetting, from);
      break;
    case RowRelease::Selected:
      PostMessageW(list, kMsgLayOutRows, 0, 0);
      break;
    case RowRelease::Moved:
      PostMessageW(list, kMsgRebuildRows, 0, 0);
      break;
    case RowRelease::Refused:
    case RowRelease::Nothing:
      break;
  }
}

INT_PTR CALLBACK RowProc(HWND row, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_INITDIALOG:
      PlaceControls(row);
      return FALSE;
    case WM_CTLCOLORDLG: {
      const Canvas* canvas = ActiveCanvas();
      const int index = PlaneOfRow(row, canvas);
      return INT_PTR(RowBrush(index >= 0 && RowIsActive(canvas, index)));
    }
    case WM_DRAWITEM:
      if (const Canvas* canvas = ActiveCanvas(); PlaneOfRow(row, canvas) >= 0)
        DrawControl(canvas, PlaneOfRow(row, canvas),
                    *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
      return TRUE;
    case WM_COMMAND:
      // Owner-drawn buttons tell a quick second press as a double click.
      if (HIWORD(wParam) == BN_CLICKED || HIWORD(wParam) == BN_DOUBLECLICKED) {
        Clicked(row, LOWORD(wParam));
        GiveFocusBack();
      }
      return TRUE;
    case WM_LBUTTONDOWN:
      DragRow(row);
      GiveFocusBack();
      return TRUE;
    case WM_RBUTTONDOWN: {
      const int index = PlaneOfRow(row, ActiveCanvas());
      POINT at;
      GetCursorPos(&at);
      if (index >= 0) PopupRowMenu(GetParent(row), row, index, at);
      GiveFocusBack();
      return TRUE;
    }
  }
  return FALSE;
}

}  // namespace

HWND CreateLayerRow(HWND list) {
  HWND row = CreateDialogW(win32::ProgramInstance(), L"da00_layer", list, RowProc);
  if (row) ShowWindow(row, SW_SHOWNA);
  return row;
}
