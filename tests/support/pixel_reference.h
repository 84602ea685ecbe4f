// The arithmetic of blending written out plainly, sharing no code with the
// program: the products, blends, colour conversions and mix modes that the
// expected pixels of the tests are computed with.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace ref {

// min(255, (a x b + 128) / 255), truncating.
inline unsigned Mul(unsigned a, unsigned b) { return std::min(255u, (a * b + 128) / 255); }

// d towards s by a.
inline unsigned Blend(unsigned d, unsigned s, unsigned a) { return Mul(d, 255 - a) + Mul(s, a); }

// Hue in degrees, or scaled to 0..255.
inline void RgbToHsv(int r, int g, int b, int* h, int* s, int* v, bool scaled) {
  *v = std::max({r, g, b});
  *h = *s = 0;
  if (*v != 0) {
    int n = std::min({r, g, b});
    *s = (*v - n) * 255 / *v;
    if (*s != 0) {
      int rp = (*v - r) * 255 / (*v - n);
      int gp = (*v - g) * 255 / (*v - n);
      int bp = (*v - b) * 255 / (*v - n);
      if (*v == r) *h = bp - gp;
      if (*v == g) *h = rp - bp + 510;
      if (*v == b) *h = gp - rp + 1020;
      *h = *h * 60 / 255;
      if (*h < 0) *h += 360;
    }
  }
  if (scaled) *h = *h * 255 / 360;
}

inline void HsvToRgb(int h, int s, int v, int* r, int* g, int* b, bool scaled) {
  if (scaled) h = h * 359 / 255;
  if (h >= 360) h -= 360;
  if (s == 0) {
    *r = *g = *b = v;
    return;
  }
  int i = h / 60;
  int f = (h * 255) / 60 - i * 255;
  int p = (255 - s) * v / 255;
  int q = (255 - f * s / 255) * v / 255;
  int t = (255 - (255 - f) * s / 255) * v / 255;
  const int triples[6][3] = {{v, t, p}, {q, v, p}, {p, v, t}, {p, q, v}, {t, p, v}, {v, p, q}};
  *r = triples[i][0], *g = triples[i][1], *b = triples[i][2];
}

namespace detail {

struct Colour {
  unsigned c[3];  // blue, green, red
};

inline Colour ViaHsv(Colour s, Colour d, bool hueFromSource) {
  int sh, ss, sv, dh, ds, dv, r, g, b;
  RgbToHsv(s.c[2], s.c[1], s.c[0], &sh, &ss, &sv, true);
  RgbToHsv(d.c[2], d.c[1], d.c[0], &dh, &ds, &dv, true);
  HsvToRgb(hueFromSource ? sh : dh, hueFromSource ? ss : ds, hueFromSource ? dv : sv, &r, &g, &b,
           true);
  return {{unsigned(b), unsigned(g), unsigned(r)}};
}

inline unsigned OverlayChannel(int d, int s) {
  if (d < 128) return static_cast<unsigned>(std::min(255, d * s * 2 / 255));
  return static_cast<unsigned>(std::clamp(255 + (d - 255) * (255 - s) * 2 / 255, 0, 255));
}

inline Colour Mode(int mode, Colour s, Colour d) {
  if (mode == 5) return ViaHsv(s, d, false);
  if (mode == 6) return ViaHsv(s, d, true);
  Colour out{};
  for (int i = 0; i < 3; ++i) {
    int a = static_cast<int>(s.c[i]), b = static_cast<int>(d.c[i]);
    int v = a;
    switch (mode) {
      case 2: v = static_cast<int>(Mul(a, b)); break;
      case 3: v = std::max(a, b); break;
      case 4: v = std::min(a, b); break;
      case 7: v = std::min(255, a + b); break;
      case 8: v = std::abs(a - b); break;
      case 9: v = static_cast<int>(OverlayChannel(b, a)); break;
      default: break;
    }
    out.c[i] = static_cast<unsigned>(v);
  }
  return out;
}

}  // namespace detail

// What mix mode 1..9 makes of source pixel s over d (blue, green, red).
inline void ModePixel(int mode, const uint8_t* s, const uint8_t* d, uint8_t* out) {
  const detail::Colour t = detail::Mode(mode, {{s[0], s[1], s[2]}}, {{d[0], d[1], d[2]}});
  for (int i = 0; i < 3; ++i) out[i] = static_cast<uint8_t>(t.c[i]);
}

}  // namespace ref
