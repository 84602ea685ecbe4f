// The position of a sample: smoothing over the last points, the sub-pixel
// fraction kept through the zoom, and grid snap in place of smoothing.
#include "paint/stroke/stroke_position.h"

#include "stroke_test_support.h"

namespace stroketest {
namespace {

using StrokePositionTest = StrokeTest;

Dab Smoothed(int screenX, int screenY, int first) {
  headless::Recorded().pointer = {screenX, screenY, {}};
  Dab p{};
  SmoothPointerPosition(&p.x, &p.y, first);
  return p;
}

Dab At(Canvas* canvas, int x, int y, int first = 0) {
  headless::Recorded().pointer = {x, y, {}};
  const StrokePoint p = StrokePosition(canvas, first);
  return {p.x, p.y};
}

TEST_F(StrokePositionTest, SmoothingAveragesTheLastPoints) {
  const int xs[] = {10, 13, 19, 1, 40, 7}, ys[] = {20, 20, 26, 2, -9, 5};
  for (int window : {1, 3, 4}) {
    settings.positionSmoothing = window;
    for (int i = 0; i < 6; ++i) {
      // The mean of the points from max(0, i - window + 1) to i.
      const int from = std::max(0, i - window + 1);
      double sx = 0, sy = 0;
      for (int k = from; k <= i; ++k) sx += xs[k], sy += ys[k];
      EXPECT_EQ(Smoothed(xs[i], ys[i], i == 0), (Dab{sx / (i - from + 1), sy / (i - from + 1)}))
          << window << " " << i;
    }
  }
  // With first set the history starts again from the one point.
  EXPECT_EQ(Smoothed(100, 50, 1).x, 100.0);
  EXPECT_EQ(Smoothed(102, 50, 0).x, 101.0);
}

TEST_F(StrokePositionTest, FractionSurvivesTheZoomUnscaledAndGridSnapReplacesSmoothing) {
  Canvas* canvas = MakeBlank(200, 200);
  headless::Recorded().screenOriginX = 100;
  headless::Recorded().screenOriginY = 50;
  settings.positionSmoothing = 2;
  // (zoom step, canvas position of the second sample): view 31, 17 plus
  // one half; at 200 % view 31 is canvas 15; at 50 % 62, the half stays.
  for (auto [zoomStep, x, y] : {std::tuple{0, 31.5, 17.5}, {2, 15.5, 8.5}, {-2, 62.5, 34.5}}) {
    canvas->zoomStep = zoomStep;
    EXPECT_EQ(At(canvas, 31, 17, 1), (Dab{std::trunc(x), std::trunc(y)}));
    // Screen 131.5, 67.5: the whole part goes through the zoom.
    EXPECT_EQ(At(canvas, 32, 18), (Dab{x, y}));
  }

  canvas->zoomStep = 0;
  At(canvas, 0, 0, 1);
  canvas->gridOn = canvas->gridSnap = 1;
  canvas->gridX = 10;
  canvas->gridY = 8;
  // (14 + 5) / 10 x 10, (13 + 4) / 8 x 8; then (15 + 5) / 10 x 10, (11 + 4) / 8 x 8.
  EXPECT_EQ(At(canvas, 14, 13), (Dab{10, 16}));
  EXPECT_EQ(At(canvas, 15, 11), (Dab{20, 8}));
  EXPECT_EQ(StrokeEngine.historyCount, 1);  // the smoothing history was left as it was
}

}  // namespace
}  // namespace stroketest
