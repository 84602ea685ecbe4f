// The line tips: ten random spokes from the rim to the middle, or ten
// random chords of the rim, at full strength or falling off from the
// middle.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "paint/tip/tip_shapes.h"

namespace {

constexpr int kLines = 10;
// Degrees to radians as the tips have always had it; not quite pi / 180.
constexpr double kDegree = 0.01745327777777778;
constexpr double kFalloffSpread = 0.72;
constexpr uint32_t kFalloffDivisor = 3;

struct Point {
  int x, y;
};

Point RimPoint(const TipGeometry& g) {
  double a = (std::rand() % 360) * kDegree;
  return {g.ix + int(std::cos(a) * g.rx), g.iy + int(std::sin(a) * g.ry)};
}

// The middle of the falloff lies half a pixel further out when a radius
// has a fraction.
uint32_t FalloffAt(const TipGeometry& g, int x, int y, uint32_t divisor, uint32_t peak) {
  int cx = g.ix + (g.rx != g.ix ? 1 : 0), cy = g.iy + (g.ry != g.iy ? 1 : 0);
  int dx = std::abs(x - cx), dy = std::abs(y - cy);
  if (dx == 0 && dy == 0) return peak;
  double ex = dx - (g.rx - cx) * kFalloffSpread, ey = dy - (g.ry - cy) * kFalloffSpread;
  double d = ey * ey * g.rxSquared + ex * ex * g.rySquared;
  if (d >= g.product) return 0;
  double v = peak - d * peak / g.product;
  if (v <= 0) return 0;
  return std::min<uint32_t>(65535, uint32_t(v) / divisor);
}

// Steps from (x0, y0) to (x1, y1), both included, along the longer axis,
// carrying the error of the shorter one in integers.
template <typename Plot>
void StepLine(Point from, Point to, Plot plot) {
  int dx = std::abs(to.x - from.x), dy = std::abs(to.y - from.y);
  int sx = to.x < from.x ? -1 : 1, sy = to.y < from.y ? -1 : 1;
  bool steep = dy > dx;
  int major = steep ? dy : dx, minor = steep ? dx : dy;
  int x = from.x, y = from.y, error = 0;
  for (int t = 0; t <= major; ++t) {
    plot(x, y);
    error += 2 * minor;
    if (error >= major && major > 0) {
      error -= 2 * major;
      if (steep) x += sx; else y += sy;
    }
    if (steep) y += sy; else x += sx;
  }
}

void DrawLine(TipRaster& tip, const TipGeometry& g, Point from, Point to, uint32_t peak) {
  StepLine(from, to, [&](int x, int y) {
    if (peak) tip.PutStrength(x, y, FalloffAt(g, x, y, kFalloffDivisor, peak));
    else tip.Put(x, y, 255, 255);
  });
}

}  // namespace

void RaysTip(TipRaster& tip, const TipGeometry& g, uint32_t peak) {
  for (int i = 0; i < kLines; ++i) DrawLine(tip, g, RimPoint(g), {g.ix, g.iy}, peak);
}

void ChordsTip(TipRaster& tip, const TipGeometry& g, uint32_t peak) {
  for (int i = 0; i < kLines; ++i) {
    Point first = RimPoint(g);
    DrawLine(tip, g, first, RimPoint(g), peak);
  }
}
