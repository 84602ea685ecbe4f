#include "selection/win/detect_selection_win.h"

#include <algorithm>
#include <cwchar>
#include <string>

#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"
#include "selection/detect_selection.h"
#include "selection/selection_windows.h"
#include "selection/win/detect_selection_ids.h"

namespace {

// The layout, in pixels of the client area.
constexpr int kMargin = 8;
constexpr int kCaptionWidth = 18;
constexpr int kBarLeft = kMargin + kCaptionWidth + 4;
constexpr int kBarWidth = 256, kBarHeight = 16, kBarStep = 22;
constexpr int kBarsBottom = kMargin + kPickBars * kBarStep;
constexpr int kLabelWidth = 70, kComboLeft = kMargin + kLabelWidth + 2;
constexpr int kClientWidth = kBarLeft + kBarWidth + kMargin;
constexpr int kLineHeight = 22, kLineStep = 26, kFirstLine = kBarsBottom + 6;
constexpr int kButtonHeight = 24, kButtonGap = 8;
constexpr int kButtonRow = kFirstLine + 3 * kLineStep + 4;
constexpr int kBottomRow = kButtonRow + kButtonHeight + 10;
constexpr int kClientHeight = kBottomRow + kButtonHeight + kMargin;
constexpr COLORREF kRed = RGB(255, 0, 0);

HWND dialog = nullptr;
int dragBar = -1;
bool dragPicks = false;

RECT BarRect(int bar) {
  const int top = kMargin + bar * kBarStep;
  return RECT{kBarLeft, top, kBarLeft + kBarWidth, top + kBarHeight};
}

int BarAt(int x, int y) {
  for (int bar = 0; bar < kPickBars; ++bar) {
    const RECT r = BarRect(bar);
    if (x >= r.left - 4 && x < r.right + 4 && y >= r.top && y < r.bottom) return bar;
  }
  return -1;
}

void Place(int id, int x, int y, int width, int height) {
  MoveWindow(GetDlgItem(dialog, id), x, y, width, height, FALSE);
}

// How wide a control's text is in the dialog's font.
int TextWidth(int id) {
  HWND control = GetDlgItem(dialog, id);
  wchar_t text[64] = {};
  GetWindowTextW(control, text, 64);
  win32::WindowDc dc(control);
  if (!dc.get()) return 0;
  HGDIOBJ old =
      SelectObject(dc.get(), reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
  SIZE size{};
  GetTextExtentPoint32W(dc.get(), text, static_cast<int>(wcslen(text)), &size);
  SelectObject(dc.get(), old);
  return size.cx;
}

// The dialog's outer size for a client area of the given height.
void SizeClient(int height) {
  RECT r{0, 0, kClientWidth, height};
  AdjustWindowRectEx(&r, static_cast<DWORD>(GetWindowLongPtrW(dialog, GWL_STYLE)), FALSE,
                     static_cast<DWORD>(GetWindowLongPtrW(dialog, GWL_EXSTYLE)));
  SetWindowPos(dialog, nullptr, 0, 0, r.right - r.left, r.bottom - r.top,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Layout() {
  for (int bar = 0; bar < kPickBars; ++bar)
    Place(IDC_SELEXT_CAPTION + bar, kMargin, BarRect(bar).top, kCaptionWidth, kBarHeight);
  const int labels[] = {IDC_SELEXT_CHANNEL_LABEL, IDC_SELEXT_PLANE_LABEL,
                        IDC_SELEXT_CONDITION_LABEL};
  const int combos[] = {IDC_SELEXT_CHANNEL, IDC_SELEXT_PLANE, IDC_SELEXT_CONDITION};
  for (int line = 0; line < 3; ++line) {
    const int y = kFirstLine + line * kLineStep;
    Place(labels[line], kMargin, y + 4, kLabelWidth, kLineHeight - 4);
    Place(combos[line], kComboLeft, y, kClientWidth - kMargin - kComboLeft, 200);
  }
  const int inner = kClientWidth - 2 * kMargin - 2 * kButtonGap;
  const int third = inner / 3;
  const int bottom[] = {IDC_SELEXT_EXECUTE, IDOK, IDCANCEL};
  for (int k = 0; k < 3; ++k)
    Place(bottom[k], kMargin + k * (third + kButtonGap), kBottomRow, third, kButtonHeight);
  // "by Displayed Colors" takes the width of its words; the other two
  // share the rest.
  const int displayed = std::min(TextWidth(IDC_SELEXT_DISPLAYED) + 16, inner - 2 * 40);
  const int half = (inner - displayed) / 2;
  Place(IDC_SELEXT_INITIALIZE, kMargin, kButtonRow, half, kButtonHeight);
  Place(IDC_SELEXT_REVERSE, kMargin + half + kButtonGap, kButtonRow, half, kButtonHeight);
  Place(IDC_SELEXT_DISPLAYED, kClientWidth - kMargin - displayed, kButtonRow, displayed,
        kButtonHeight);
  Place(IDC_SELEXT_SAMPLING, 0, 0, 0, 0);
  SizeClient(kClientHeight);
}

std::wstring ComboText(int combo) {
  const LRESULT at = SendDlgItemMessageW(dialog, combo, CB_GETCURSEL, 0, 0);
  if (at == CB_ERR) return {};
  std::wstring text(static_cast<size_t>(SendDlgItemMessageW(dialog, combo, CB_GETLBTEXTLEN,
                                                            static_cast<WPARAM>(at), 0)),
                    L'\0');
  SendDlgItemMessageW(dialog, combo, CB_GETLBTEXT, static_cast<WPARAM>(at),
                      reinterpret_cast<LPARAM>(text.data()));
  return text;
}

void AddItem(int combo, const std::wstring& text, LPARAM data) {
  const LRESULT at =
      SendDlgItemMessageW(dialog, combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
  SendDlgItemMessageW(dialog, combo, CB_SETITEMDATA, static_cast<WPARAM>(at), data);
}

// The combo takes the items of the menu resource of that name.
void FillFromMenu(int combo, const wchar_t* menuName, int chosen) {
  HMENU menu = LoadMenuW(win32::ProgramInstance(), menuName);
  if (!menu) return;
  for (int i = 0; i < GetMenuItemCount(menu); ++i) {
    wchar_t text[64] = {};
    GetMenuStringW(menu, static_cast<UINT>(i), text, 64, MF_BYPOSITION);
    AddItem(combo, text, i);
  }
  DestroyMenu(menu);
  SendDlgItemMessageW(dialog, combo, CB_SETCURSEL, static_cast<WPARAM>(chosen), 0);
}

// The bars' captions are the letters of the chosen channels' name.
void ShowCaptions() {
  const std::wstring name = ComboText(IDC_SELEXT_CHANNEL);
  for (int bar = 0; bar < kPickBars; ++bar) {
    const std::wstring letter = bar < static_cast<int>(name.size()) ? name.substr(bar, 1) : L"";
    SetDlgItemTextW(dialog, IDC_SELEXT_CAPTION + bar, letter.c_str());
  }
}

void FillCombos() {
  FillFromMenu(IDC_SELEXT_CHANNEL, L"tsSextChannel", pickIsHsv);
  FillFromMenu(IDC_SELEXT_CONDITION, L"tsSextExt", pickCondition);
  int chosen = 0, at = 0;
  for (const PickTargetItem& item : PickTargets(pickCanvas)) {
    AddItem(IDC_SELEXT_PLANE, platform::Widen(item.name), item.target);
    if (item.target == pickTarget) chosen = at;
    ++at;
  }
  SendDlgItemMessageW(dialog, IDC_SELEXT_PLANE, CB_SETCURSEL, static_cast<WPARAM>(chosen), 0);
  ShowCaptions();
}

void FillColour(HDC dc, const RECT& r, COLORREF colour) {
  SetDCBrushColor(dc, colour);
  FillRect(dc, &r, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void PaintColumn(HDC dc, int bar, int i) {
  const RECT r = BarRect(bar);
  const int middle = r.top + kBarHeight / 2;
  FillColour(dc, RECT{r.left + i, r.top, r.left + i + 1, middle},
             PickScaleColour(bar, i, pickIsHsv));
  FillColour(dc, RECT{r.left + i, middle, r.left + i + 1, r.bottom},
             pickTable[bar][i] ? kPickedColour : kUnpickedColour);
}

// The red box that says "by Displayed Colors" is on.
RECT DisplayedBox() {
  RECT r;
  GetWindowRect(GetDlgItem(dialog, IDC_SELEXT_DISPLAYED), &r);
  MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&r), 2);
  InflateRect(&r, 2, 2);
  return r;
}

void Paint() {
  PAINTSTRUCT paint;
  HDC dc = BeginPaint(dialog, &paint);
  for (int bar = 0; bar < kPickBars; ++bar)
    for (int i = 0; i < 256; ++i) PaintColumn(dc, bar, i);
  if (pickDisplayed) {
    const RECT box = DisplayedBox();
    HPEN pen = CreatePen(PS_SOLID, 1, kRed);
    HGDIOBJ oldPen = SelectObject(dc, pen);
    HGDIOBJ oldBrush = SelectObject(dc, GetStockObject(NULL_BRUSH));
    Rectangle(dc, box.left, box.top, box.right, box.bottom);
    SelectObject(dc, oldBrush);
    SelectObject(dc, oldPen);
    DeleteObject(pen);
  }
  EndPaint(dialog, &paint);
}

void RedrawBar(int bar, int column) {
  if (!dialog) return;
  if (bar < 0) {
    ShowCaptions();
    RECT all{kBarLeft, kMargin, kBarLeft + kBarWidth, kBarsBottom};
    InvalidateRect(dialog, &all, FALSE);
  } else {
    const RECT r = BarRect(bar);
    RECT one{r.left + column, r.top, r.left + column + 1, r.bottom};
    InvalidateRect(dialog, &one, FALSE);
  }
  UpdateWindow(dialog);
}

void PickAt(LPARAM lParam) {
  PickColumn(dragBar, static_cast<short>(LOWORD(lParam)) - kBarLeft, dragPicks);
}

void Command(int control, int notification) {
  const LRESULT chosen = SendDlgItemMessageW(dialog, control, CB_GETCURSEL, 0, 0);
  switch (control) {
    case IDC_SELEXT_CHANNEL:
      if (notification == CBN_SELCHANGE) SetPickChannels(static_cast<int>(chosen));
      return;
    case IDC_SELEXT_PLANE:
      if (notification == CBN_SELCHANGE)
        SetPickTarget(static_cast<int>(
            SendDlgItemMessageW(dialog, control, CB_GETITEMDATA, static_cast<WPARAM>(chosen), 0)));
      return;
    case IDC_SELEXT_CONDITION:
      if (notification == CBN_SELCHANGE) pickCondition = static_cast<int>(chosen);
      return;
    case IDC_SELEXT_INITIALIZE:
      return InitializePicks();
    case IDC_SELEXT_REVERSE:
      return ReversePicks();
    case IDC_SELEXT_EXECUTE:
      ExecutePick();
      return;
    case IDC_SELEXT_DISPLAYED: {
      TogglePickDisplayed();
      const RECT box = DisplayedBox();
      InvalidateRect(dialog, &box, TRUE);
      return;
    }
    case IDOK:
      return ConfirmDetectSelection();
    case IDCANCEL:
      return CloseDetectSelection();
    default:
      return;
  }
}

INT_PTR CALLBACK DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_INITDIALOG:
      dialog = window;
      Layout();
      FillCombos();
      win32::CentreOnOwner(window);
      ShowWindow(window, SW_SHOW);
      return TRUE;
    case WM_PAINT:
      Paint();
      return TRUE;
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
      dragBar = BarAt(static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam)));
      if (dragBar < 0) return FALSE;
      dragPicks = message == WM_LBUTTONDOWN;
      SetCapture(window);
      PickAt(lParam);
      return TRUE;
    case WM_MOUSEMOVE:
      if (dragBar >= 0 && GetCapture() == window) PickAt(lParam);
      return TRUE;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
    case WM_CAPTURECHANGED:
      if (message != WM_CAPTURECHANGED && GetCapture() == window) ReleaseCapture();
      dragBar = -1;
      return TRUE;
    case WM_COMMAND:
      Command(LOWORD(wParam), HIWORD(wParam));
      return TRUE;
    case WM_CLOSE:
      CloseDetectSelection();
      return TRUE;
    default:
      return FALSE;
  }
}

WindowHandle Open(Canvas*) {
  if (!dialog)
    CreateDialogParamW(win32::ProgramInstance(), L"tsl_selext",
                       platform::BoundWindow(platform::Window::Frame), DialogProc, 0);
  return dialog;
}

void Close() {
  HWND closing = dialog;
  dialog = nullptr;
  if (closing) DestroyWindow(closing);
}

}  // namespace

void InstallDetectSelectionWindow() {
  SelectionWindows& w = selectionWindows;
  w.openDetectDialog = Open;
  w.closeDetectDialog = Close;
  w.redrawPickBar = RedrawBar;
  w.shrinkDetectDialog = [](bool toBars) {
    if (dialog) SizeClient(toBars ? kBarsBottom : kClientHeight);
  };
}

bool DetectSelectionDialogMessage(MSG* message) {
  return dialog && IsDialogMessageW(dialog, message);
}
