#include "panels/win/color_drawing_win.h"

#include <cstdint>
#include <vector>

#include "paint/win/picture_win.h"

void DrawColorPicture(const DRAWITEMSTRUCT& item,
                      const std::function<MixerColor(int x, int y)>& colourAt) {
  const int width = item.rcItem.right - item.rcItem.left;
  const int height = item.rcItem.bottom - item.rcItem.top;
  if (width <= 0 || height <= 0) return;
  std::vector<uint8_t> bgr(size_t(width) * height * 3);
  uint8_t* out = bgr.data();
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x, out += 3) {
      const MixerColor c = colourAt(x, y);
      out[0] = uint8_t(c.blue);
      out[1] = uint8_t(c.green);
      out[2] = uint8_t(c.red);
    }
  DrawPicture(item.hDC, item.rcItem.left, item.rcItem.top, width, height, bgr);
}

void DrawColorBox(const DRAWITEMSTRUCT& item, int red, int green, int blue, bool marked) {
  RECT r = item.rcItem;
  HBRUSH brush = CreateSolidBrush(RGB(red, green, blue));
  FillRect(item.hDC, &r, brush);
  DeleteObject(brush);
  DrawEdge(item.hDC, &r, EDGE_SUNKEN, BF_RECT);
  if (marked) {
    InflateRect(&r, -3, -3);
    DrawFocusRect(item.hDC, &r);
  }
}

void DrawMark(HDC dc, int x, int y) {
  const RECT r{x - 3, y - 3, x + 4, y + 4};
  const int old = SetROP2(dc, R2_NOT);
  HGDIOBJ brush = SelectObject(dc, GetStockObject(NULL_BRUSH));
  Rectangle(dc, r.left, r.top, r.right, r.bottom);
  SelectObject(dc, brush);
  SetROP2(dc, old);
}

void DrawBarMark(const DRAWITEMSTRUCT& item, int at, bool vertical) {
  const int old = SetROP2(item.hDC, R2_NOT);
  if (vertical) {
    MoveToEx(item.hDC, item.rcItem.left, item.rcItem.top + at, nullptr);
    LineTo(item.hDC, item.rcItem.right, item.rcItem.top + at);
  } else {
    MoveToEx(item.hDC, item.rcItem.left + at, item.rcItem.top, nullptr);
    LineTo(item.hDC, item.rcItem.left + at, item.rcItem.bottom);
  }
  SetROP2(item.hDC, old);
}
