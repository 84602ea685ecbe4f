#include "paint/win/picture_win.h"

#include <algorithm>

namespace {

// The face's frame, the pressed offset and the highlight frame, each side.
constexpr int kFaceMargin = 4;

}  // namespace

void DrawPicture(HDC dc, int x, int y, int width, int height, const std::vector<uint8_t>& bgr) {
  if (width <= 0 || height <= 0 || bgr.size() < size_t(width) * height * 3) return;
  // Device-independent rows are padded to four bytes.
  const size_t stride = (size_t(width) * 3 + 3) & ~size_t(3);
  std::vector<uint8_t> rows(stride * height);
  for (int r = 0; r < height; ++r)
    std::copy_n(&bgr[size_t(r) * width * 3], size_t(width) * 3, &rows[r * stride]);
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;  // from the top
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 24;
  info.bmiHeader.biCompression = BI_RGB;
  SetDIBitsToDevice(dc, x, y, width, height, 0, 0, 0, height, rows.data(), &info, DIB_RGB_COLORS);
}

void DrawPictureButton(const DRAWITEMSTRUCT& item, bool chosen, int pictureWidth,
                       int pictureHeight, const std::vector<uint8_t>& bgr) {
  RECT r = item.rcItem;
  const bool pressed = chosen || (item.itemState & ODS_SELECTED);
  DrawFrameControl(item.hDC, &r, DFC_BUTTON, DFCS_BUTTONPUSH | (pressed ? DFCS_PUSHED : 0));
  const int shift = pressed ? 1 : 0;
  const int x = (r.left + r.right - pictureWidth) / 2 + shift;
  const int y = (r.top + r.bottom - pictureHeight) / 2 + shift;
  if (IsWindowEnabled(item.hwndItem)) DrawPicture(item.hDC, x, y, pictureWidth, pictureHeight, bgr);
  if (chosen) {
    HBRUSH highlight = GetSysColorBrush(COLOR_HIGHLIGHT);
    RECT frame{x - 2, y - 2, x + pictureWidth + 2, y + pictureHeight + 2};
    FrameRect(item.hDC, &frame, highlight);
    InflateRect(&frame, -1, -1);
    FrameRect(item.hDC, &frame, highlight);
  }
  if (item.itemState & ODS_FOCUS) {
    InflateRect(&r, -2, -2);
    DrawFocusRect(item.hDC, &r);
  }
}

int PictureEdge(HWND button) {
  RECT r;
  GetClientRect(button, &r);
  return std::max(1, int(std::min(r.right, r.bottom)) - 2 * kFaceMargin);
}
