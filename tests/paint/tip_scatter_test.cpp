// The random tips (spray, life, rays, chords and their soft forms) against
// references that replay the same random numbers: the generator is seeded
// the same way before the build and before the reference.
#include <cmath>
#include <cstdlib>

#include "tip_test_support.h"

namespace {

using namespace tiptest;

// The reference's rasters and the geometry of the radii.
struct Tip {
  double rx, ry;
  int ix = int(rx), iy = int(ry);
  int64_t rxs = int64_t(ix) * ix, rys = int64_t(iy) * iy, product = rxs * rys;
  int w = std::max(2, (ix + 1) * 2), h = std::max(2, (iy + 1) * 2);
  Raster high{w, h, Bytes(size_t(w) * h)}, low = high;

  int64_t Distance(int x, int y) const {
    const int64_t dx = std::abs(x - ix), dy = std::abs(y - iy);
    return dx * dx * rys + dy * dy * rxs;
  }
  void Set(int x, int y, int64_t high16) { Set(x, y, int(high16 >> 8), int(high16 & 255)); }
  void Set(int x, int y, int h8, int l8) {
    high.bytes[size_t(y) * w + x] = uint8_t(h8);
    low.bytes[size_t(y) * w + x] = uint8_t(l8);
  }
};

Tip Spray(Tip t, bool soft) {
  for (int y = 0; y < t.h; ++y)
    for (int x = 0; x < t.w; ++x) {
      const int64_t d = t.Distance(x, y);
      if (d > t.product || std::rand() % 100 >= 10) continue;
      const int v = int(65535.0 - d * 65535.0 / double(std::max<int64_t>(t.product, 1)));
      soft ? t.Set(x, y, (v >> 9) & 255, (v >> 1) & 255) : t.Set(x, y, 255, 255);
    }
  return t;
}

// The falloff of the soft line tips, from its formula.
int64_t Falloff(const Tip& t, int x, int y, int64_t peak) {
  const int cx = t.ix + (t.rx > t.ix), cy = t.iy + (t.ry > t.iy);
  const int dx = std::abs(x - cx), dy = std::abs(y - cy);
  if (dx == 0 && dy == 0) return peak;
  const double ex = dx - (t.rx - cx) * 0.72, ey = dy - (t.ry - cy) * 0.72;
  const double d = ey * ey * t.rxs + ex * ex * t.rys;
  if (d >= t.product) return 0;
  const double v = peak - d * peak / t.product;
  return v <= 0 ? 0 : std::min<int64_t>(65535, int64_t(v) / 3);
}

// Ten lines (rim to middle, or rim to rim), one pixel per step of the
// longer axis, the shorter one at the nearest whole value, halves rounded
// away from the start.
Tip Lines(Tip t, bool spokes, int64_t peak) {
  auto rim = [&] {
    const double a = (std::rand() % 360) * 0.01745327777777778;
    return std::pair{t.ix + int(std::cos(a) * t.rx), t.iy + int(std::sin(a) * t.ry)};
  };
  for (int i = 0; i < 10; ++i) {
    const auto [x0, y0] = rim();
    const auto [x1, y1] = spokes ? std::pair{t.ix, t.iy} : rim();
    const int n = std::max(std::abs(x1 - x0), std::abs(y1 - y0));
    auto along = [&](int from, int to, int step) {
      const int span = std::abs(to - from), sign = to < from ? -1 : 1;
      return n ? from + sign * int((2 * int64_t(step) * span + n) / (2 * n)) : from;
    };
    for (int step = 0; step <= n; ++step) {
      const int x = along(x0, x1, step), y = along(y0, y1, step);
      t.Set(x, y, peak ? Falloff(t, x, y, peak) : 65535);
    }
  }
  return t;
}

// Life's reference grid, kept across dabs like the tip's own.
uint8_t grid[256][256];

Tip Life(Tip t) {
  if (tipState.dabCount == 0)
    for (int y = 0; y < t.h; ++y)
      for (int x = 0; x < t.w; ++x) grid[y][x] = (std::rand() & 255) < 101 ? 0 : 100;
  for (int y = 0; y < t.h; ++y)
    for (int x = 0; x < t.w; ++x) {
      if (t.Distance(x, y) > t.product) continue;
      int n = 0;
      for (int ny = std::max(0, y - 1); ny <= std::min(t.h - 1, y + 1); ++ny)
        for (int nx = std::max(0, x - 1); nx <= std::min(t.w - 1, x + 1); ++nx)
          n += (nx != x || ny != y) && grid[ny][nx];
      if (!grid[y][x] && (n == 2 || n == 3)) t.Set(x, y, 255, 0);
      if (grid[y][x] && n == 3) t.Set(x, y, 255, 255);
    }
  for (int y = 0; y < t.h; ++y)
    for (int x = 0; x < t.w; ++x) grid[y][x] = t.high.at(x, y);
  return t;
}

class ScatterTipTest : public PenTest {
 protected:
  // Builds the tip and the reference from the same random numbers.
  template <typename Ref>
  void Check(int shape, double rx, double ry, Ref reference) {
    SCOPED_TRACE(testing::Message() << "shape " << shape << " radii " << rx << ", " << ry);
    std::srand(++seed);
    Build(shape, rx, ry);
    std::srand(seed);
    const Tip t = reference(Tip{rx, ry});
    EXPECT_TRUE(Read(pen.tipHigh) == t.high);
    EXPECT_TRUE(Read(pen.tipLow) == t.low);
    EXPECT_EQ(1, pen.tipAnimated);
  }
  unsigned seed = 1;
};

const double kRadii[][2] = {{0, 0}, {0.5, 0.5}, {1, 3}, {4, 4}, {6.5, 2.25}, {20.8, 13}};

TEST_F(ScatterTipTest, SprayRaysAndChordsMatchTheReference) {
  for (auto [rx, ry] : kRadii) {
    Check(6, rx, ry, [](Tip t) { return Spray(t, false); });
    Check(13, rx, ry, [](Tip t) { return Spray(t, true); });
    Check(8, rx, ry, [](Tip t) { return Lines(t, true, 0); });
    Check(9, rx, ry, [](Tip t) { return Lines(t, false, 0); });
    Check(12, rx, ry, [](Tip t) { return Lines(t, true, 65565); });
    Check(14, rx, ry, [](Tip t) { return Lines(t, false, 65535); });
  }
  // Every soft spoke ends in the middle (4, 4), at the peak itself: 65565
  // leaves 0x1001D, high byte 0, low byte 29.
  Build(12, 4, 4);
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
  for (Step step : steps) {
    // A negative count goes on with the cells as they are, without a seed.
    const int first = step.dabs < 0 ? 1 : 0, last = step.dabs < 0 ? -step.dabs : step.dabs - 1;
    for (tipState.dabCount = first; tipState.dabCount <= last; ++tipState.dabCount) Check(7, step.rx, step.ry, Life);
  }
}

}  // namespace
