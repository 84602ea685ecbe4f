// The generated tips: the soft round ones (shapes 0 to 5 and 15) against a
// slow reference that computes every pixel straight from its mirrored
// quarter position, and a few values worked out by hand; block and frame
// tips; and which tip a dab gets: stamp, dot tip or the generated one, with
// its size and tipMinimum.
#include <algorithm>
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

}  // namespace
