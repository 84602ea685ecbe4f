// Block and frame tips, and which tip a dab gets: stamp, dot tip or the
// generated one, with its size and tipMinimum.
#include <algorithm>
#include <cstdlib>

#include "tip_test_support.h"

namespace {

using namespace tiptest;

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
