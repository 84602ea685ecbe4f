#include "paint/win/mode_icons_win.h"

namespace {

// A device context's pen and brush for one figure, put back after.
class Ink {
 public:
  Ink(HDC dc, COLORREF line, COLORREF fill, int width = 1)
      : dc_(dc), pen_(CreatePen(PS_SOLID, width, line)), brush_(CreateSolidBrush(fill)) {
    oldPen_ = SelectObject(dc_, pen_);
    oldBrush_ = SelectObject(dc_, brush_);
  }
  ~Ink() {
    SelectObject(dc_, oldPen_);
    SelectObject(dc_, oldBrush_);
    DeleteObject(pen_);
    DeleteObject(brush_);
  }
  Ink(const Ink&) = delete;
  Ink& operator=(const Ink&) = delete;

 private:
  HDC dc_;
  HPEN pen_;
  HBRUSH brush_;
  HGDIOBJ oldPen_, oldBrush_;
};

COLORREF Grey(int v) { return RGB(v, v, v); }

void Disc(HDC dc, int cx, int cy, int r, COLORREF colour) {
  Ink ink(dc, colour, colour);
  Ellipse(dc, cx - r, cy - r, cx + r + 1, cy + r + 1);
}

// Color: a plain dab.
void Normal(HDC dc, int x, int y) { Disc(dc, x + 8, y + 8, 6, Grey(0)); }

// Blur: a dab fading out from its middle.
void Soft(HDC dc, int x, int y) {
  Disc(dc, x + 8, y + 8, 7, Grey(200));
  Disc(dc, x + 8, y + 8, 5, Grey(140));
  Disc(dc, x + 8, y + 8, 3, Grey(70));
}

// Rub: a dab dragged to the right, its trail fading.
void Drag(HDC dc, int x, int y) {
  for (int i = 0; i < 4; ++i) {
    Ink ink(dc, Grey(200 - 40 * i), Grey(200 - 40 * i));
    Rectangle(dc, x + 12 - 3 * i, y + 5, x + 15 - 3 * i, y + 12);
  }
  Disc(dc, x + 4, y + 8, 3, Grey(0));
}

// Stir: a turn with its arrow head.
void Turn(HDC dc, int x, int y) {
  Ink ink(dc, Grey(0), Grey(0), 2);
  Arc(dc, x + 2, y + 2, x + 14, y + 14, x + 14, y + 8, x + 8, y + 2);
  const POINT head[3] = {{x + 11, y + 9}, {x + 15, y + 9}, {x + 13, y + 12}};
  Polygon(dc, head, 3);
}

// Blur 2: squares of one mean grey.
void Average(HDC dc, int x, int y) {
  {
    Ink ink(dc, Grey(0), Grey(128));
    Rectangle(dc, x + 2, y + 2, x + 15, y + 15);
  }
  Ink ink(dc, Grey(90), Grey(128));
  for (int k = 6; k <= 10; k += 4) {
    MoveToEx(dc, x + k + 1, y + 2, nullptr);
    LineTo(dc, x + k + 1, y + 15);
    MoveToEx(dc, x + 2, y + k + 1, nullptr);
    LineTo(dc, x + 15, y + k + 1);
  }
}

// Filter: a funnel.
void Funnel(HDC dc, int x, int y) {
  Ink ink(dc, Grey(0), RGB(90, 130, 200));
  const POINT funnel[6] = {{x + 1, y + 2},  {x + 15, y + 2},  {x + 9, y + 9},
                           {x + 9, y + 15}, {x + 7, y + 15}, {x + 7, y + 9}};
  Polygon(dc, funnel, 6);
}

// Eraser: a tilted block, its end worn white.
void Eraser(HDC dc, int x, int y) {
  {
    Ink ink(dc, Grey(0), RGB(230, 120, 140));
    const POINT body[4] = {{x + 6, y + 13}, {x + 14, y + 5}, {x + 10, y + 1}, {x + 2, y + 9}};
    Polygon(dc, body, 4);
  }
  Ink ink(dc, Grey(0), Grey(255));
  const POINT end[4] = {{x + 6, y + 13}, {x + 9, y + 10}, {x + 5, y + 6}, {x + 2, y + 9}};
  Polygon(dc, end, 4);
}

}  // namespace

void DrawModeIcon(HDC dc, int x, int y, int mode) {
  using Draw = void (*)(HDC, int, int);
  static constexpr Draw kIcons[] = {Normal, Soft, Drag, Turn, Average, Funnel, Eraser};
  if (mode >= 0 && mode < int(sizeof kIcons / sizeof kIcons[0])) kIcons[mode](dc, x, y);
}
