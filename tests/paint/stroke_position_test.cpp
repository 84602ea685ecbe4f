// The position of a sample: smoothing over the last points, the sub-pixel
// fraction kept through the zoom, and grid snap in place of smoothing.
#include "paint/stroke_position.h"

#include "stroke_test_support.h"

namespace stroketest {
namespace {

using StrokePositionTest = StrokeTest;

struct Point {
  double x, y;
};

Point Smoothed(int screenX, int screenY, int first) {
  headless::Recorded().pointer = {screenX, screenY, {}};
  Point p{};
  SmoothPointerPosition(&p.x, &p.y, first);
  return p;
}

TEST_F(StrokePositionTest, SmoothingAveragesTheLastPoints) {
  const int xs[] = {10, 13, 19, 1, 40, 7}, ys[] = {20, 20, 26, 2, -9, 5};
  for (int window : {1, 3, 4}) {
    settings.positionSmoothing = window;
    for (int i = 0; i < 6; ++i) {
      const Point p = Smoothed(xs[i], ys[i], i == 0);
      // The mean of the points from max(0, i - window + 1) to i.
      const int from = std::max(0, i - window + 1);
      double sx = 0, sy = 0;
      for (int k = from; k <= i; ++k) sx += xs[k], sy += ys[k];
      EXPECT_DOUBLE_EQ(p.x, sx / (i - from + 1)) << window << " " << i;
      EXPECT_DOUBLE_EQ(p.y, sy / (i - from + 1)) << window << " " << i;
    }
  }
  // With first set the history starts again from the one point.
  EXPECT_DOUBLE_EQ(Smoothed(100, 50, 1).x, 100.0);
  EXPECT_DOUBLE_EQ(Smoothed(102, 50, 0).x, 101.0);
}

TEST_F(StrokePositionTest, FractionSurvivesTheZoomUnscaled) {
  Canvas* canvas = MakeBlank(200, 200);
  headless::Recorded().screenOriginX = 100;
  headless::Recorded().screenOriginY = 50;
  settings.positionSmoothing = 2;
  // (zoom step, canvas position of the second sample): view 31, 17 plus
  // one half; at 200 % view 31 is canvas 15; at 50 % 62, the half stays.
  struct {
    int zoomStep;
    double x, y;
  } cases[] = {{0, 31.5, 17.5}, {2, 15.5, 8.5}, {-2, 62.5, 34.5}};
  for (const auto& c : cases) {
    canvas->zoomStep = c.zoomStep;
    headless::Recorded().pointer = {31, 17, {}};
    const StrokePoint p0 = StrokePosition(canvas, 1);
    EXPECT_DOUBLE_EQ(p0.x, std::trunc(c.x));
    // Screen 131.5, 67.5: the whole part goes through the zoom.
    headless::Recorded().pointer = {32, 18, {}};
    const StrokePoint p1 = StrokePosition(canvas, 0);
    EXPECT_DOUBLE_EQ(p1.x, c.x);
    EXPECT_DOUBLE_EQ(p1.y, c.y);
  }
}

TEST_F(StrokePositionTest, GridSnapReplacesSmoothing) {
  Canvas* canvas = MakeBlank(100, 100);
  settings.positionSmoothing = 3;
  Smoothed(0, 0, 1);
  canvas->gridOn = canvas->gridSnap = 1;
  canvas->gridX = 10;
  canvas->gridY = 8;
  // (14 + 5) / 10 x 10, (13 + 4) / 8 x 8; then (15 + 5) / 10 x 10, (11 + 4) / 8 x 8.
  std::vector<double> snapped;
  for (auto [x, y] : {std::pair{14, 13}, {15, 11}}) {
    headless::Recorded().pointer = {x, y, {}};
    const StrokePoint p = StrokePosition(canvas, 0);
    snapped.insert(snapped.end(), {p.x, p.y});
  }
  EXPECT_EQ(snapped, (std::vector<double>{10, 16, 20, 8}));
  // The smoothing history was left as it was.
  EXPECT_EQ(StrokeEngine.historyCount, 1);
}

}  // namespace
}  // namespace stroketest
