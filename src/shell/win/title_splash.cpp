#include "shell/win/title_splash.h"

#include "platform/win32/win32_windows.h"
#include "shell/win/shell_globals.h"

namespace {

constexpr int kWidth = 512;
constexpr int kHeight = 256;
constexpr UINT kLifetimeMilliseconds = 2000;
constexpr UINT_PTR kCloseTimer = 1;

// The title picture: a band from deep blue to teal, the name across it.
void PaintTitle(HWND splash) {
  PAINTSTRUCT ps;
  HDC dc = BeginPaint(splash, &ps);
  RECT client;
  GetClientRect(splash, &client);
  for (int y = 0; y < client.bottom; ++y) {
    const int t = y * 255 / (client.bottom > 1 ? client.bottom - 1 : 1);
    SetBkColor(dc, RGB(16, 40 + t * 100 / 255, 96 + t * 64 / 255));
    RECT row{0, y, client.right, y + 1};
    ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &row, nullptr, 0, nullptr);
  }
  SetBkMode(dc, TRANSPARENT);
  HFONT name = CreateFontW(120, 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                           OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY,
                           VARIABLE_PITCH | FF_SWISS, L"Arial");
  HGDIOBJ old = SelectObject(dc, name);
  RECT nameBox{0, 40, client.right, 190};
  SetTextColor(dc, RGB(0, 0, 0));
  OffsetRect(&nameBox, 4, 4);
  DrawTextW(dc, L"Tesel", -1, &nameBox, DT_CENTER | DT_SINGLELINE | DT_VCENTER);
  OffsetRect(&nameBox, -4, -4);
  SetTextColor(dc, RGB(255, 255, 255));
  DrawTextW(dc, L"Tesel", -1, &nameBox, DT_CENTER | DT_SINGLELINE | DT_VCENTER);
  SelectObject(dc, GetStockObject(DEFAULT_GUI_FONT));
  RECT line{0, 200, client.right, 230};
  SetTextColor(dc, RGB(200, 230, 240));
  DrawTextW(dc, L"raster paint", -1, &line, DT_CENTER | DT_SINGLELINE | DT_VCENTER);
  SelectObject(dc, old);
  DeleteObject(name);
  EndPaint(splash, &ps);
}

INT_PTR CALLBACK SplashProc(HWND splash, UINT message, WPARAM, LPARAM lParam) {
  switch (message) {
    case WM_INITDIALOG: {
      const RECT& frame = *reinterpret_cast<const RECT*>(lParam);
      const int x = (frame.left + frame.right - kWidth) / 2;
      const int y = (frame.top + frame.bottom - kHeight) / 2;
      SetWindowPos(splash, HWND_TOP, x, y, kWidth, kHeight, SWP_NOACTIVATE | SWP_SHOWWINDOW);
      SetTimer(splash, kCloseTimer, kLifetimeMilliseconds, nullptr);
      return FALSE;
    }
    case WM_PAINT:
      PaintTitle(splash);
      return TRUE;
    case WM_TIMER:
    case WM_LBUTTONDOWN:
      DestroyWindow(splash);
      return TRUE;
  }
  return FALSE;
}

}  // namespace

void ShowTitleSplash(HWND frame, RECT frameRect) {
  CreateDialogParamW(win32::ProgramInstance(), L"tsl_title", frame, SplashProc,
                     reinterpret_cast<LPARAM>(&frameRect));
}
