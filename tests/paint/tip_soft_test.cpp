// The soft round tips (shapes 0 to 5 and 15) against a slow reference that
// computes every pixel straight from its mirrored quarter position, and a
// few values worked out by hand.
#include <algorithm>

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

}  // namespace
