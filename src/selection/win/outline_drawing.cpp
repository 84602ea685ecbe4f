#include "selection/win/outline_drawing.h"

#include <windows.h>

#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"

namespace {

constexpr int kTextHeight = 12;

HWND View(Canvas* canvas) { return static_cast<HWND>(canvas->displayWnd); }

// A pen selected into the dc for one drawing; the raster operation goes
// back to R2_COPYPEN with it.
class PenScope {
 public:
  PenScope(HDC dc, HPEN pen, int rop) : dc_(dc), pen_(pen) {
    SetROP2(dc, rop);
    if (pen_) old_ = SelectObject(dc, pen_);
  }
  ~PenScope() {
    if (pen_) {
      SelectObject(dc_, old_);
      DeleteObject(pen_);
    }
    SetROP2(dc_, R2_COPYPEN);
  }
  PenScope(const PenScope&) = delete;
  PenScope& operator=(const PenScope&) = delete;

 private:
  HDC dc_;
  HPEN pen_;
  HGDIOBJ old_ = nullptr;
};

// Both ends drawn: LineTo leaves out its last point, which is set apart.
void Line(HDC dc, int x0, int y0, int x1, int y1) {
  MoveToEx(dc, x0, y0, nullptr);
  LineTo(dc, x1, y1);
  if (x0 != x1 || y0 != y1) LineTo(dc, x1 + (x1 >= x0 ? 1 : -1), y1);
}

}  // namespace

// The gaps of a dotted pen stay untouched.
void InvertLine(Canvas* canvas, OutlinePen pen, int x0, int y0, int x1, int y1) {
  win32::InvertingDc dc(View(canvas));
  if (!dc.get()) return;
  SetBkMode(dc.get(), TRANSPARENT);
  PenScope scope(dc.get(), pen == OutlinePen::Dotted ? CreatePen(PS_DOT, 0, 0) : nullptr, R2_NOT);
  Line(dc.get(), x0, y0, x1, y1);
}

void InvertBox(Canvas* canvas, const Rect& box) {
  win32::InvertingDc dc(View(canvas));
  if (!dc.get()) return;
  PenScope scope(dc.get(), nullptr, R2_NOT);
  Rectangle(dc.get(), box.left, box.top, box.right + 1, box.bottom + 1);
}

void InvertArc(Canvas* canvas, const Rect& bounds) {
  win32::InvertingDc dc(View(canvas));
  if (!dc.get()) return;
  PenScope scope(dc.get(), nullptr, R2_NOT);
  const int midY = (bounds.top + bounds.bottom) / 2;
  Arc(dc.get(), bounds.left, bounds.top, bounds.right + 1, bounds.bottom + 1, bounds.right, midY,
      bounds.right, midY);
}

void ColouredLine(Canvas* canvas, int x0, int y0, int x1, int y1, uint32_t colour) {
  win32::WindowDc dc(View(canvas));
  if (!dc.get()) return;
  PenScope scope(dc.get(), CreatePen(PS_SOLID, 1, colour), R2_NOTXORPEN);
  Line(dc.get(), x0, y0, x1, y1);
}

void ColouredBox(Canvas* canvas, const Rect& box, uint32_t colour) {
  win32::WindowDc dc(View(canvas));
  if (!dc.get()) return;
  PenScope scope(dc.get(), CreatePen(PS_SOLID, 1, colour), R2_NOTXORPEN);
  HGDIOBJ brush = SelectObject(dc.get(), GetStockObject(NULL_BRUSH));
  Rectangle(dc.get(), box.left, box.top, box.right + 1, box.bottom + 1);
  SelectObject(dc.get(), brush);
}

// The glyphs are drawn white on black apart and the view's pixels under
// them inverted by exclusive-or, which any background shows.
void InvertText(Canvas* canvas, int x, int y, const std::string& text) {
  win32::WindowDc dc(View(canvas));
  if (!dc.get() || text.empty()) return;
  const std::wstring wide = platform::Widen(text);
  HFONT font = CreateFontW(-kTextHeight, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0,
                           L"MS Shell Dlg");
  HDC memory = CreateCompatibleDC(dc.get());
  HGDIOBJ oldFont = SelectObject(memory, font);
  SIZE size{};
  GetTextExtentPoint32W(memory, wide.c_str(), static_cast<int>(wide.size()), &size);
  HBITMAP bitmap = CreateCompatibleBitmap(dc.get(), size.cx, size.cy);
  if (bitmap) {
    HGDIOBJ oldBitmap = SelectObject(memory, bitmap);
    PatBlt(memory, 0, 0, size.cx, size.cy, BLACKNESS);
    SetBkMode(memory, TRANSPARENT);
    SetTextColor(memory, RGB(255, 255, 255));
    TextOutW(memory, 0, 0, wide.c_str(), static_cast<int>(wide.size()));
    BitBlt(dc.get(), x, y, size.cx, size.cy, memory, 0, 0, SRCINVERT);
    SelectObject(memory, oldBitmap);
    DeleteObject(bitmap);
  }
  SelectObject(memory, oldFont);
  DeleteDC(memory);
  DeleteObject(font);
}
