#include "display/win/view_drawing.h"

#include <windows.h>

#include "platform/win32/win32_windows.h"

// The picture's rows run bottom-up, so the part's source row counts from
// the bottom.
void DrawViewPicture(Canvas* canvas, const DibTile* picture, int x, int y, const Rect& part) {
  win32::WindowDc dc(static_cast<HWND>(canvas->displayWnd));
  if (!dc.get()) return;
  SetDIBitsToDevice(dc.get(), x + part.left, y + part.top, static_cast<DWORD>(part.Width()),
                    static_cast<DWORD>(part.Height()), part.left, picture->height - 1 - part.bottom, 0,
                    static_cast<UINT>(picture->height), picture->dib + picture->pixelOffset,
                    reinterpret_cast<const BITMAPINFO*>(picture->dib), DIB_RGB_COLORS);
}

// Lines are vertical or horizontal with both ends drawn; LineTo leaves out
// its last point, so it goes one pixel further.
void DrawGridLine(Canvas* canvas, const GridLine& line, uint32_t red, uint32_t green,
                  uint32_t blue, int invert, const Rect& clip) {
  win32::WindowDc dc(static_cast<HWND>(canvas->displayWnd));
  if (!dc.get()) return;
  HPEN pen = CreatePen(PS_SOLID, 1, RGB(red, green, blue));
  if (!pen) return;
  IntersectClipRect(dc.get(), clip.left, clip.top, clip.right + 1, clip.bottom + 1);
  SetROP2(dc.get(), invert ? R2_NOTXORPEN : R2_COPYPEN);
  HGDIOBJ old = SelectObject(dc.get(), pen);
  MoveToEx(dc.get(), line.x0, line.y0, nullptr);
  if (line.x0 == line.x1)
    LineTo(dc.get(), line.x1, line.y1 + 1);
  else
    LineTo(dc.get(), line.x1 + 1, line.y1);
  SelectObject(dc.get(), old);
  DeleteObject(pen);
}

void InvertViewBox(Canvas* canvas, const Rect& box) {
  win32::InvertingDc dc(static_cast<HWND>(canvas->displayWnd));
  if (dc.get()) Rectangle(dc.get(), box.left, box.top, box.right + 1, box.bottom + 1);
}
