// The random tips (spray, life, rays, chords and their soft forms) against
// references that replay the same random numbers: the generator is seeded
// the same way before the build and before the reference.
#include <cmath>
#include <cstdlib>

#include "paint/dab_count.h"
#include "paint/tip.h"
#include "tip_test_support.h"

namespace {

using namespace tiptest;

struct Expected {
  Raster high, low;
};

struct Radii {
  double rx, ry;
  int ix, iy;
  int64_t rxs, rys, product;
  Radii(double x, double y) : rx(x), ry(y), ix(int(x)), iy(int(y)) {
    rxs = int64_t(ix) * ix;
    rys = int64_t(iy) * iy;
    product = rxs * rys;
  }
  Expected Blank() const {
    Raster r{std::max(2, (ix + 1) * 2), std::max(2, (iy + 1) * 2), {}};
    r.bytes.assign(size_t(r.width) * r.height, 0);
    return {r, r};
  }
  int64_t Distance(int x, int y) const {
    int64_t dx = std::abs(x - ix), dy = std::abs(y - iy);
    return dx * dx * rys + dy * dy * rxs;
  }
};

void Set(Expected& e, int x, int y, int high, int low) {
  e.high.bytes[size_t(y) * e.high.width + x] = uint8_t(high);
  e.low.bytes[size_t(y) * e.low.width + x] = uint8_t(low);
}

Expected Spray(const Radii& r, bool soft) {
  Expected e = r.Blank();
  for (int y = 0; y < e.high.height; ++y)
    for (int x = 0; x < e.high.width; ++x) {
      int64_t d = r.Distance(x, y);
      if (d > r.product || std::rand() % 100 >= 10) continue;
      if (!soft) {
        Set(e, x, y, 255, 255);
        continue;
      }
      int v = int(65535.0 - d * 65535.0 / double(std::max<int64_t>(r.product, 1)));
      Set(e, x, y, (v >> 9) & 255, (v >> 1) & 255);
    }
  return e;
}

// The falloff of the soft line tips, from its formula.
int64_t Falloff(const Radii& r, int x, int y, int64_t peak) {
  int cx = r.ix + (r.rx > r.ix), cy = r.iy + (r.ry > r.iy);
  int dx = std::abs(x - cx), dy = std::abs(y - cy);
  if (dx == 0 && dy == 0) return peak;
  double ex = dx - (r.rx - cx) * 0.72, ey = dy - (r.ry - cy) * 0.72;
  double d = ey * ey * r.rxs + ex * ex * r.rys;
  if (d >= r.product) return 0;
  double v = peak - d * peak / r.product;
  return v <= 0 ? 0 : std::min<int64_t>(65535, int64_t(v) / 3);
}

// A line with one pixel per step of its longer axis, the shorter one at
// the nearest whole value, halves rounded away from the start.
void Line(Expected& e, const Radii& r, int x0, int y0, int x1, int y1, int64_t peak) {
  int n = std::max(std::abs(x1 - x0), std::abs(y1 - y0));
  for (int t = 0; t <= n; ++t) {
    auto along = [&](int from, int to) {
      int span = std::abs(to - from), sign = to < from ? -1 : 1;
      return n ? from + sign * int((2 * int64_t(t) * span + n) / (2 * n)) : from;
    };
    int x = along(x0, x1), y = along(y0, y1);
    int64_t v = peak ? Falloff(r, x, y, peak) : 65535;
    Set(e, x, y, int(v >> 8) & 255, int(v & 255));
  }
}

std::pair<int, int> Rim(const Radii& r) {
  double a = (std::rand() % 360) * 0.01745327777777778;
  return {r.ix + int(std::cos(a) * r.rx), r.iy + int(std::sin(a) * r.ry)};
}

Expected Rays(const Radii& r, int64_t peak) {
  Expected e = r.Blank();
  for (int i = 0; i < 10; ++i) {
    auto [x, y] = Rim(r);
    Line(e, r, x, y, r.ix, r.iy, peak);
  }
  return e;
}

Expected Chords(const Radii& r, int64_t peak) {
  Expected e = r.Blank();
  for (int i = 0; i < 10; ++i) {
    auto [x0, y0] = Rim(r);
    auto [x1, y1] = Rim(r);
    Line(e, r, x0, y0, x1, y1, peak);
  }
  return e;
}

// Life's reference grid, kept across dabs like the tip's own.
uint8_t grid[256][256];

Expected Life(const Radii& r, int dab) {
  Expected e = r.Blank();
  int w = e.high.width, h = e.high.height;
  if (dab == 0)
    for (int y = 0; y < h; ++y)
      for (int x = 0; x < w; ++x) grid[y][x] = (std::rand() & 255) < 101 ? 0 : 100;
  for (int y = 0; y < h; ++y)
    for (int x = 0; x < w; ++x) {
      if (r.Distance(x, y) > r.product) continue;
      int n = 0;
      for (int ny = std::max(0, y - 1); ny <= std::min(h - 1, y + 1); ++ny)
        for (int nx = std::max(0, x - 1); nx <= std::min(w - 1, x + 1); ++nx)
          n += (nx != x || ny != y) && grid[ny][nx];
      if (!grid[y][x] && (n == 2 || n == 3)) Set(e, x, y, 255, 0);
      if (grid[y][x] && n == 3) Set(e, x, y, 255, 255);
    }
  for (int y = 0; y < h; ++y)
    for (int x = 0; x < w; ++x) grid[y][x] = e.high.at(x, y);
  return e;
}

class ScatterTipTest : public PenTest {
 protected:
  // Builds the tip and the reference from the same random numbers.
  template <typename Ref>
  void Check(int shape, double rx, double ry, unsigned seed, Ref reference) {
    SCOPED_TRACE(testing::Message() << "shape " << shape << " radii " << rx << ", " << ry);
    pen.tipShape = shape;
    pen.radiusX = rx;
    pen.radiusY = ry;
    std::srand(seed);
    ASSERT_EQ(1, BuildTip());
    std::srand(seed);
    Expected e = reference(Radii(rx, ry));
    EXPECT_TRUE(Read(pen.tipHigh) == e.high);
    EXPECT_TRUE(Read(pen.tipLow) == e.low);
    EXPECT_EQ(1, pen.tipAnimated);
  }
};

const double kRadii[][2] = {{0, 0}, {0.5, 0.5}, {1, 3}, {4, 4}, {6.5, 2.25}, {20.8, 13}};

TEST_F(ScatterTipTest, SprayAndSoftSprayMatchTheReference) {
  unsigned seed = 1;
  for (auto [rx, ry] : kRadii) {
    Check(6, rx, ry, ++seed, [](const Radii& r) { return Spray(r, false); });
    Check(13, rx, ry, ++seed, [](const Radii& r) { return Spray(r, true); });
  }
}

TEST_F(ScatterTipTest, RaysAndChordsMatchTheReference) {
  unsigned seed = 100;
  for (auto [rx, ry] : kRadii) {
    Check(8, rx, ry, ++seed, [](const Radii& r) { return Rays(r, 0); });
    Check(9, rx, ry, ++seed, [](const Radii& r) { return Chords(r, 0); });
    Check(12, rx, ry, ++seed, [](const Radii& r) { return Rays(r, 65565); });
    Check(14, rx, ry, ++seed, [](const Radii& r) { return Chords(r, 65535); });
  }
  // Every soft spoke ends in the middle (4, 4), at the peak itself: 65565
  // leaves 0x1001D, high byte 0, low byte 29.
  pen.tipShape = 12;
  pen.radiusX = pen.radiusY = 4;
  BuildTip();
  EXPECT_EQ(std::make_pair(0, 29),
            std::make_pair(int(Read(pen.tipHigh).at(4, 4)), int(Read(pen.tipLow).at(4, 4))));
}

TEST_F(ScatterTipTest, LifeRunsFromItsSeedAcrossDabs) {
  struct Step {
    double rx, ry;
    int dabs;
  };
  std::vector<Step> steps = {{12, 12, 4}, {5, 0.5, 3}, {20, 20, 4}, {10.5, 3, 4}};
  // A radius of 0 puts all four cells inside: the cells just past its
  // edge, left alive by the radius 1 before it, must count as dead.
  for (int i = 0; i < 40; ++i) {
    steps.push_back({1, 1, 1});
    steps.push_back({0, 0, -2});
  }
  unsigned seed = 50;
  for (Step step : steps) {
    // A negative count goes on with the cells as they are, without a seed.
    int first = step.dabs < 0 ? 1 : 0, last = step.dabs < 0 ? -step.dabs : step.dabs - 1;
    for (dabCount = first; dabCount <= last; ++dabCount)
      Check(7, step.rx, step.ry, ++seed, [](const Radii& r) { return Life(r, dabCount); });
  }
}

}  // namespace
