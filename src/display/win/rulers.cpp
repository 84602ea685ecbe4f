// The rulers of a document (hGageClass above the view, vGageClass at its
// left). Each has two halves: the outer one for the scale, whose ticks the
// display places, the inner one for the pointer mark, which message 1035
// moves to a view position.
#include "display/rulers.h"
#include "display/win/document_parts.h"
#include "platform/platform.h"
#include "platform/win32/win32_windows.h"

namespace {

constexpr COLORREF kScaleColour = RGB(0xF0, 0xF0, 0xF0);
constexpr int kMarkHalfWidth = 8;  // the light box around the mark is 16 wide
constexpr LONG_PTR kNoMark = -1;
constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kFiftyColour = RGB(0, 0, 0xFF);

bool IsHorizontal(HWND ruler) {
  return GetDlgCtrlID(ruler) == kHorizontalRulerId;
}

void Fill(HDC dc, RECT r, COLORREF colour) {
  SetBkColor(dc, colour);
  ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &r, nullptr, 0, nullptr);
}

// Along the ruler the coordinates run in `along`; across it in `across`.
RECT Oriented(bool horizontal, int along0, int along1, int across0, int across1) {
  return horizontal ? RECT{along0, across0, along1, across1} : RECT{across0, along0, across1, along1};
}

// A hundred's tick crosses the whole scale, a fifty's the half next to
// the picture.
void PaintTicks(HWND ruler, HDC dc, bool horizontal, int length, int half) {
  const Canvas* canvas = CanvasOfDocument(GetParent(ruler));
  if (!canvas) return;
  for (const RulerTick& tick :
       RulerTicks(canvas, horizontal ? Axis::Horizontal : Axis::Vertical, length))
    Fill(dc, Oriented(horizontal, tick.at, tick.at + 1, tick.hundred ? 0 : half / 2, half),
         tick.blue ? kFiftyColour : kBlack);
}

void Paint(HWND ruler) {
  PAINTSTRUCT ps;
  HDC dc = BeginPaint(ruler, &ps);
  RECT client;
  GetClientRect(ruler, &client);
  const bool horizontal = IsHorizontal(ruler);
  const int length = horizontal ? client.right : client.bottom;
  const int depth = horizontal ? client.bottom : client.right;
  const int half = depth / 2;
  Fill(dc, Oriented(horizontal, 0, length, 0, half), kScaleColour);
  PaintTicks(ruler, dc, horizontal, length, half);
  Fill(dc, Oriented(horizontal, 0, length, half, depth), kBlack);
  const LONG_PTR mark = GetWindowLongPtrW(ruler, GWLP_USERDATA);
  if (mark != kNoMark) {
    const int at = static_cast<int>(mark);
    Fill(dc, Oriented(horizontal, at - kMarkHalfWidth, at + kMarkHalfWidth, half, depth),
         kScaleColour);
    Fill(dc, Oriented(horizontal, at, at + 1, half, depth), kBlack);
  }
  EndPaint(ruler, &ps);
}

// Only the mark's half paints again; the scale stands.
void MoveMark(HWND ruler, LPARAM at) {
  SetWindowLongPtrW(ruler, GWLP_USERDATA, at);
  RECT client;
  GetClientRect(ruler, &client);
  if (IsHorizontal(ruler))
    client.top = client.bottom / 2;
  else
    client.left = client.right / 2;
  InvalidateRect(ruler, &client, FALSE);
}

LRESULT CALLBACK RulerProc(HWND ruler, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      SetWindowLongPtrW(ruler, GWLP_USERDATA, kNoMark);
      return 0;
    case WM_PAINT:
      Paint(ruler);
      return 0;
    case platform::MsgRulerMark:
      MoveMark(ruler, lParam);
      return 0;
  }
  return DefWindowProcW(ruler, message, wParam, lParam);
}

}  // namespace

bool RegisterRulerClasses() {
  return win32::RegisterWindowClass({kHorizontalRulerClass, RulerProc}) &&
         win32::RegisterWindowClass({kVerticalRulerClass, RulerProc});
}
