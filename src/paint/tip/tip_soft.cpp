// The soft round tips: strength falls linearly with the squared elliptic
// distance. Only one quarter is computed, for the whole radii below and
// above the pen's; the two are mixed by the fraction of the x radius (the
// y fraction plays no part) and the quarter is mirrored into the others.
#include <algorithm>
#include <cstdint>
#include <vector>

#include "paint/tip/tip_shapes.h"

namespace {

constexpr double kPeak = 32767.0;

// Strengths of one quarter with whole radii a, b: entry (x, y) for x 0..a,
// y 0..b, at index y x (a + 1) + x.
std::vector<uint32_t> Quarter(int64_t a, int64_t b, double divisor, bool inverted) {
  std::vector<uint32_t> q(size_t((a + 1) * (b + 1)));
  int64_t rr = a * a * b * b;
  double rim = int64_t(kPeak) / divisor;
  for (int64_t y = 0; y <= b; ++y) {
    for (int64_t x = 0; x <= a; ++x) {
      int64_t d = x * x * b * b + y * y * a * a;
      if (d > rr) continue;
      double v = kPeak - double(d) * kPeak / double(std::max<int64_t>(rr, 1));
      if (v <= 0) continue;
      double scaled = double(int64_t(v)) / divisor;
      int64_t value = std::clamp<int64_t>(int64_t(scaled), 0, 65535);
      if (inverted) value = std::max<int64_t>(int64_t(rim - double(value)), 0);
      q[size_t(y * (a + 1) + x)] = uint32_t(value);
    }
  }
  return q;
}

uint8_t Mix(uint32_t big, uint32_t small, double f) { return uint8_t(big * f + small * (1 - f)); }

}  // namespace

void SoftTip(TipRaster& tip, const TipGeometry& g, double divisor, bool inverted) {
  if (g.rx <= 0 && g.ry <= 0) {
    tip.PutStrength(0, 0, uint32_t(kPeak / (divisor * 4.0)));
    return;
  }
  int a = g.ix, b = g.iy;
  std::vector<uint32_t> small = Quarter(a, b, divisor, inverted);
  std::vector<uint32_t> big = Quarter(a + 1, b + 1, divisor, inverted);
  double f = g.rx - g.ix;
  for (int y = 0; y <= b; ++y) {
    for (int x = 0; x <= a; ++x) {
      uint32_t s = small[size_t(y) * (a + 1) + x], l = big[size_t(y) * (a + 2) + x];
      tip.Put(a + 1 + x, b + 1 + y, Mix(l >> 8, s >> 8, f), Mix(l & 255, s & 255, f));
    }
  }
  // Lower right quarter to the upper right, then right half to the left.
  int w = tip.width, h = tip.height;
  for (int i = 0; i < h / 2; ++i)
    for (int x = 0; x < w; ++x) {
      size_t to = size_t(i) * w + x, from = size_t(h - 1 - i) * w + x;
      tip.high[to] = tip.high[from];
      tip.low[to] = tip.low[from];
    }
  for (int y = 0; y < h; ++y)
    for (int k = 0; k < w / 2; ++k) {
      size_t to = size_t(y) * w + k, from = size_t(y) * w + (w - 1 - k);
      tip.high[to] = tip.high[from];
      tip.low[to] = tip.low[from];
    }
}
