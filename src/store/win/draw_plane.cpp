#include <windows.h>

#include <cstring>

#include "store/win/draw_plane.h"

#include "store/dib.h"

namespace {

// A Dib of the plane's width and depth, `rows` high, with the plane's own
// palette: a 4-bit plane shows its unstretched ramp as it stands.
uint8_t* PlaneDib(const Plane* plane, int rows) {
  int bits = static_cast<int>(plane->bits);
  uint8_t* dib = CreateDib(plane->width, rows, bits);
  if (dib) std::memcpy(dib + kDibHeaderBytes, plane->palette, DibPaletteBytes(bits));
  return dib;
}

uint8_t* DibPixels(uint8_t* dib, const Plane* plane) {
  return dib + kDibHeaderBytes + DibPaletteBytes(static_cast<int>(plane->bits));
}

}  // namespace

int DrawPlane(HDC hdc, Plane* plane, int x, int y) {
  uint8_t* dib = PlaneDib(plane, plane->height);
  if (!dib) return 0;
  uint8_t* pixels = DibPixels(dib, plane);
  PlaneStore.FlushRows(plane);
  for (int row = 0; row < plane->height; ++row) {  // bottom-up
    size_t at = static_cast<size_t>(plane->height - 1 - row) * plane->stride;
    PlaneStore.ReadStoredRow(plane, row, pixels + at);
  }
  int lines = SetDIBitsToDevice(hdc, x, y, plane->width, plane->height, 0, 0, 0, plane->height,
                                pixels, reinterpret_cast<const BITMAPINFO*>(dib), DIB_RGB_COLORS);
  FreeDib(&dib);
  return lines != 0;
}

int DrawPlaneStretched(HDC hdc, Plane* plane, int x, int y, int w, int h, uint32_t rop) {
  if (h < 2) return 0;  // the row step divides by h - 1
  uint8_t* dib = PlaneDib(plane, 2);
  if (!dib) return 0;
  uint8_t* pixels = DibPixels(dib, plane);
  const auto* info = reinterpret_cast<const BITMAPINFO*>(dib);
  SetStretchBltMode(hdc, COLORONCOLOR);
  PlaneStore.FlushRows(plane);
  for (int i = 0; i < h; ++i) {
    int source = static_cast<int>(static_cast<int64_t>(plane->height - 1) * i / (h - 1));
    PlaneStore.ReadStoredRow(plane, source, pixels);
    std::memcpy(pixels + plane->stride, pixels, plane->stride);
    StretchDIBits(hdc, x, y + i, w, 1, 0, 0, plane->width, 2, pixels, info, DIB_RGB_COLORS, rop);
  }
  FreeDib(&dib);
  return 1;
}
