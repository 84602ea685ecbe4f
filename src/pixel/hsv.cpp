#include "pixel/hsv.h"

#include <algorithm>

#include "pixel/hsv_pixel.h"

namespace {

// Far beyond the last colour (719 degrees), and small enough that the
// widening of a scaled hue can't overflow.
constexpr int kHueLimit = 1 << 20;

}  // namespace

void RgbToHsv(int r, int g, int b, int* h, int* s, int* v, int scaled) {
  Hsv hsv = hsv_detail::ToHsv(std::clamp(r, 0, 255), std::clamp(g, 0, 255), std::clamp(b, 0, 255),
                              scaled ? hsv_detail::kHueByteOf359 : hsv_detail::kHueDegrees);
  *h = hsv.h;
  *s = hsv.s;
  *v = hsv.v;
}

void HsvToRgb(int h, int s, int v, int* r, int* g, int* b, int scaled) {
  h = std::clamp(h, 0, kHueLimit);
  s = std::clamp(s, 0, 255);
  v = std::clamp(v, 0, 255);
  if (scaled) h = h * 359 / 255;
  if (h >= 360) h -= 360;
  unsigned rgb[3] = {0, 0, 0};
  if (s == 0) {
    rgb[0] = rgb[1] = rgb[2] = unsigned(v);
  } else {
    if (h == 360) h = 0;
    // Past the sixth sextant there is no colour.
    if (h < 360) hsv_detail::ToRgb(unsigned(h), unsigned(s), unsigned(v), rgb, false);
  }
  *r = static_cast<int>(rgb[0]);
  *g = static_cast<int>(rgb[1]);
  *b = static_cast<int>(rgb[2]);
}
