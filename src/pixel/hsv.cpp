#include "pixel/hsv.h"

#include <algorithm>

#include "pixel/hsv_pixel.h"

void RgbToHsv(int r, int g, int b, int* h, int* s, int* v, int scaled) {
  Hsv hsv = hsv_detail::ToHsv(std::clamp(r, 0, 255), std::clamp(g, 0, 255), std::clamp(b, 0, 255),
                              scaled != 0);
  *h = hsv.h;
  *s = hsv.s;
  *v = hsv.v;
}

void HsvToRgb(int h, int s, int v, int* r, int* g, int* b, int scaled) {
  unsigned rgb[3];
  hsv_detail::ToRgb(std::clamp(h, 0, scaled ? 255 : 719), std::clamp(s, 0, 255),
                    std::clamp(v, 0, 255), rgb, scaled != 0);
  *r = static_cast<int>(rgb[0]);
  *g = static_cast<int>(rgb[1]);
  *b = static_cast<int>(rgb[2]);
}
