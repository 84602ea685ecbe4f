// The generated tips: the soft round ones (shapes 0 to 5 and 15) against a
// slow reference that computes every pixel straight from its mirrored
// quarter position, and a few values worked out by hand; the random ones
// (spray, life, rays, chords and their soft forms) against references that
// replay the same random numbers, the generator seeded alike before the
// build and before the reference; block and frame tips; and which tip a
// dab gets: stamp, dot tip or the generated one, with its size and
// tipMinimum.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "tip_test_support.h"

namespace {

using namespace tiptest;

struct Soft {
  int shape;
  double divisor;
  bool inverted;
};

// The 16-bit strength of a quarter tip of whole radii a, b at (x, y).
int64_t QuarterStrength(int64_t a, int64_t b, int64_t x, int64_t y, const Soft& soft) {
  const double peak = 32767.0;
  const int64_t rr = a * a * b * b, d = x * x * b * b + y * y * a * a;
  const double v = peak - d * peak / double(std::max<int64_t>(rr, 1));
  if (d > rr || v <= 0) return 0;
  const int64_t q = std::clamp<int64_t>(int64_t(double(int64_t(v)) / soft.divisor), 0, 65535);
  const double ring = 32767 / soft.divisor - q;
  return !soft.inverted ? q : ring < 0 ? 0 : int64_t(ring);
}

// Whole tip: each pixel finds its place in the lower right quarter by
// distance from the middle corner, and mixes the two quarters by the x
// fraction alone.
std::pair<Raster, Raster> Reference(double rx, double ry, const Soft& soft) {
  const int ix = int(rx), iy = int(ry);
  const double f = rx - ix;
  Raster high{std::max(2, (ix + 1) * 2), std::max(2, (iy + 1) * 2), {}};
  high.bytes.assign(size_t(high.width) * high.height, 0);
  Raster low = high;
  if (rx <= 0 && ry <= 0) {
    const int v = int(32767.0 / (soft.divisor * 4.0));
    high.bytes[0] = uint8_t(v >> 8), low.bytes[0] = uint8_t(v & 255);
    return {high, low};
  }
  for (int y = 0; y < high.height; ++y)
    for (int x = 0; x < high.width; ++x) {
      const int qx = x > ix ? x - ix - 1 : ix - x, qy = y > iy ? y - iy - 1 : iy - y;
      const int64_t small = QuarterStrength(ix, iy, qx, qy, soft);
      const int64_t big = QuarterStrength(ix + 1, iy + 1, qx, qy, soft);
      const size_t i = size_t(y) * high.width + x;
      high.bytes[i] = uint8_t((big >> 8) * f + (small >> 8) * (1 - f));
      low.bytes[i] = uint8_t((big & 255) * f + (small & 255) * (1 - f));
    }
  return {high, low};
}

using SoftTipTest = PenTest;

TEST_F(SoftTipTest, EveryShapeAtWholeFractionalZeroAndLargestRadiiMatchesTheReference) {
  // 3 by 3.5 is the tip of 3 by 3: the y fraction plays no part.
  const double radii[][2] = {{0, 0},       {0.5, 0.5}, {1, 1},   {3, 3},      {3.5, 3.5},  {3, 3.5},
                             {2.25, 4.75}, {0, 2},     {5.9, 1}, {12.6, 7.3}, {127, 126.5}};
  for (const Soft& soft : {Soft{0, 3.0, false},
                           {1, 2.0, false},
                           {2, 1.0, false},
                           {3, 3.0, true},
                           {4, 2.0, true},
                           {5, 1.0, true},
                           {15, 0.5, false}})
    for (auto [rx, ry] : radii) {
      SCOPED_TRACE(testing::Message() << "shape " << soft.shape << " radii " << rx << ", " << ry);
      Build(soft.shape, rx, ry);
      auto [high, low] = Reference(rx, ry, soft);
      EXPECT_TRUE(Read(pen.tipHigh) == high);
      EXPECT_TRUE(Read(pen.tipLow) == low);
      EXPECT_EQ(std::make_tuple(0, int(rx) * int(rx), int(rx) * int(rx) * int(ry) * int(ry)),
                std::make_tuple(pen.tipAnimated, pen.radiusXSquared, pen.radiusProduct));
    }
}

TEST_F(SoftTipTest, HandWorkedValues) {
  // Radius 0: a 2 x 2 raster with one pixel of 32767 / 8 = 4095.
  Build(1, 0, 0);
  EXPECT_EQ((Raster{2, 2, {15, 0, 0, 0}}), Read(pen.tipHigh));
  EXPECT_EQ((Raster{2, 2, {255, 0, 0, 0}}), Read(pen.tipLow));
  // Radius 3, divisor 1: the middle four are 32767; one pixel out d = 9 of
  // 81 gives 32767 - 3640.78 = 29126, on every side: the quarters mirror.
  // The corner lies outside the ellipse.
  Build(2, 3, 3);
  Raster high = Read(pen.tipHigh), low = Read(pen.tipLow);
  std::vector<int> across, down;
  for (int k = 2; k <= 5; ++k) {
    across.push_back(high.at(k, 4) << 8 | low.at(k, 4));
    down.push_back(high.at(3, k) << 8 | low.at(3, k));
  }
  EXPECT_EQ(across, (std::vector<int>{29126, 32767, 32767, 29126}));
  EXPECT_EQ(down, across);
  EXPECT_EQ(0, high.at(0, 0));
  // The middle's high byte by divisor: 42, 63, 127, 255; an inverted tip is
  // 10922.33 - 10922 = 0 there.
  for (auto [shape, peak] : {std::pair{0, 42}, {1, 63}, {2, 127}, {15, 255}, {3, 0}}) {
    Build(shape, 5, 5);
    EXPECT_EQ(peak, Read(pen.tipHigh).at(5, 5)) << "shape " << shape;
  }
}

using FixedTipTest = PenTest;

// A block fills trunc(2 rx + 1) x trunc(2 ry + 1) from the top left of
// its raster, low bytes 0; a frame is the raster's outline in both.
TEST_F(FixedTipTest, BlockAndFrame) {
  struct Case {
    double rx, ry;
    int w, h, bw, bh;
  };
  for (Case c : {Case{2, 1, 6, 4, 5, 3}, Case{2.5, 1.4, 6, 4, 6, 3}, Case{0.5, 0, 2, 2, 2, 1},
                 Case{3.3, 4.9, 8, 10, 7, 10}, Case{0, 2, 2, 6, 1, 5}})
    for (int shape : {10, 11}) {
      Build(shape, c.rx, c.ry);
      Raster high = Read(pen.tipHigh), low = Read(pen.tipLow);
      ASSERT_EQ(std::make_pair(c.w, c.h), std::make_pair(high.width, high.height));
      int wrong = 0;
      for (int y = 0; y < c.h; ++y)
        for (int x = 0; x < c.w; ++x) {
          const bool block = x < c.bw && y < c.bh,
                     edge = x == 0 || y == 0 || x == c.w - 1 || y == c.h - 1;
          wrong += high.at(x, y) != (shape == 10 ? block : edge) * 255;
          wrong += low.at(x, y) != (shape == 10 ? 0 : high.at(x, y));
        }
      EXPECT_EQ(0, wrong) << "shape " << shape << " radii " << c.rx << ", " << c.ry;
    }
  Build(10, 0, 0);  // a zero radius sets one pixel, in both rasters
  EXPECT_EQ((Raster{2, 2, {255, 0, 0, 0}}), Read(pen.tipHigh));
  EXPECT_EQ((Raster{2, 2, {255, 0, 0, 0}}), Read(pen.tipLow));
  EXPECT_EQ(0, pen.tipAnimated);
  // Radii outside their range are brought in.
  Build(10, 400, -3);
  EXPECT_EQ(std::make_tuple(256, 2, 127 * 127, 0),
            std::make_tuple(pen.tipHigh->width, pen.tipHigh->height, pen.radiusXSquared,
                            pen.radiusProduct));
}

TEST_F(FixedTipTest, FetchTakesStampThenDotTipThenTheGeneratedTip) {
  static uint8_t high[kTipBufferBytes], low[kTipBufferBytes];
  int w = 0, h = 0;
  auto fetch = [&] {
    std::fill_n(high, kTipBufferBytes, 77);
    std::fill_n(low, kTipBufferBytes, 77);
    FetchTipRaster(high, low, &w, &h);
    return std::make_tuple(w, h, tipMinimum());
  };
  auto filled = [](int width, int height, int bits) {
    return PlaneStore.CreatePlane(width, height, bits, 0, 1, Physical);
  };
  // Never built: the generated tip is made on the way.
  pen.tipShape = 11;
  pen.radiusX = 2;
  pen.radiusY = 1;
  EXPECT_EQ(std::make_tuple(6, 4, 4.0), fetch());
  Raster frame = Read(pen.tipHigh);
  EXPECT_TRUE(std::equal(frame.bytes.begin(), frame.bytes.end(), high));
  EXPECT_EQ(std::make_pair(255, 0), std::make_pair(int(low[0]), int(low[7])));

  // The dot tip: its rows, low bytes 0.
  tipState.dotTip = filled(3, 5, 8);
  for (int y = 0; y < 5; ++y) PlaneStore.WritePixel8(tipState.dotTip, 1, y, 10 + y);
  tipState.dotTipActive = 1;
  EXPECT_EQ(std::make_tuple(3, 5, 3.0), fetch());
  EXPECT_EQ(std::make_pair(0, 14), std::make_pair(int(high[0]), int(high[13])));
  EXPECT_TRUE(std::all_of(low, low + 15, [](uint8_t v) { return v == 0; }));

  // The stamp, in pen mode Color only: full strength over the pattern.
  pen.patternImage = filled(9, 4, 24);
  pen.patternActive = 1;
  tipState.patternIsTip = 1;
  EXPECT_EQ(std::make_tuple(9, 4, 4.0), fetch());
  EXPECT_TRUE(std::all_of(high, high + 36, [](uint8_t v) { return v == 255; }));
  EXPECT_TRUE(std::all_of(low, low + 36, [](uint8_t v) { return v == 255; }));
  EXPECT_EQ(77, high[36]);
  pen.mode = 1;
  EXPECT_EQ(std::make_tuple(3, 5, 3.0), fetch());

  // Back to the generated tip; an animated one is rebuilt for each dab.
  tipState.dotTipActive = 0;
  Build(6, 8, 8);
  std::srand(5);
  fetch();
  Raster built = Read(pen.tipHigh);
  EXPECT_TRUE(std::equal(built.bytes.begin(), built.bytes.end(), high));
  std::srand(6);
  fetch();
  EXPECT_NE(built, Read(pen.tipHigh));
}

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
