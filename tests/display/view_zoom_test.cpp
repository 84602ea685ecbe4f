// The zoom table and the conversions between canvas and view pixels.
#include <cstdlib>

#include "display/zoom.h"
#include "view_fixture.h"

namespace {

using Zoom = ViewTest;

// Worked by hand from the ratios 1/4, 1/2, 2/3, 1, 3/2, 2, 3, 4 .. 10 with
// truncating division; centring adds num / 2 only where den is 1. Steps 4
// to 9 go as 3 and 10 do.
struct Conversion {
  int step, v, view, viewCentred, canvas;
} constexpr kConversions[] = {
    {-3, 1, 0, 0, 4},   {-3, 7, 1, 1, 28},  {-3, 100, 25, 25, 400},
    {-2, 1, 0, 0, 2},   {-2, 7, 3, 3, 14},  {-2, 100, 50, 50, 200},
    {-1, 1, 0, 0, 1},   {-1, 7, 4, 4, 10},  {-1, 100, 66, 66, 150},
    {0, 1, 1, 1, 1},    {0, 7, 7, 7, 7},    {0, 100, 100, 100, 100},
    {1, 1, 1, 1, 0},    {1, 7, 10, 10, 4},  {1, 100, 150, 150, 66},
    {2, 1, 2, 3, 0},    {2, 7, 14, 15, 3},  {2, 100, 200, 201, 50},
    {3, 1, 3, 4, 0},    {3, 7, 21, 22, 2},  {3, 100, 300, 301, 33},
    {10, 1, 10, 15, 0}, {10, 7, 70, 75, 0}, {10, 100, 1000, 1005, 10},
};

TEST_F(Zoom, EveryStepConvertsAsItsRatioSays) {
  Canvas* canvas = MakeBlank(3, 1);
  for (const Conversion& c : kConversions) {
    canvas->zoomStep = c.step;
    EXPECT_EQ(ToView(canvas, c.v), c.view) << c.step << " " << c.v;
    EXPECT_EQ(ToView(canvas, c.v, 1), c.viewCentred) << c.step << " " << c.v;
    EXPECT_EQ(ToCanvas(canvas, c.v), c.canvas) << c.step << " " << c.v;
  }
  std::string texts;
  for (int step = -3; step <= 10; ++step) texts += ZoomText(step) + " ";
  EXPECT_EQ(texts, "25% 50% 75% 100% 150% 200% 300% 400% 500% 600% 700% 800% 900% 1000% ");
  const ZoomReadout above = ZoomReadoutOf(4), at = ZoomReadoutOf(0), below = ZoomReadoutOf(-1);
  EXPECT_EQ(above.text + at.text + below.text, "400%100%75%");
  EXPECT_EQ(above.red + above.green * 1000 + above.blue * 1000000, 100255255);  // yellow tint
  EXPECT_EQ(at.red + at.green * 1000 + at.blue * 1000000, 255255255);
  EXPECT_EQ(below.red + below.green * 1000 + below.blue * 1000000, 255255100);  // cyan tint

  // A 3-pixel canvas is 4 view pixels at 150 %; "75%" is 2/3, not 3/4; a
  // 1-pixel canvas at 25 % has no view pixel at all.
  canvas->zoomStep = 1;
  EXPECT_EQ(ZoomedWidth(canvas), 4);
  canvas->zoomStep = -1, canvas->canvasWidth = 640;
  EXPECT_EQ(ZoomedWidth(canvas), 426);
  canvas->zoomStep = -3;
  canvas->canvasWidth = canvas->canvasHeight = 1;
  EXPECT_EQ(ZoomedWidth(canvas) + ZoomedHeight(canvas), 0);
  canvas->zoomStep = 14;  // beyond the table: its end
  EXPECT_EQ(ToView(canvas, 2), 20);
}

TEST_F(Zoom, RoundTripsHoldAtEveryStep) {
  Canvas* canvas = MakeBlank(1, 1);
  for (int step = -3; step <= 10; ++step) {
    canvas->zoomStep = step;
    const ZoomRatio r = ZoomRatioOf(step);
    for (int x = 0; x <= 3000; ++x) {
      const int back = ToCanvas(canvas, ToView(canvas, x));
      const bool whole = step >= 0 && step != 1;  // enlarging by a whole number
      EXPECT_LE(back, x) << step;
      EXPECT_LE(x - back, whole ? 0 : r.num == 1 ? r.den - 1 : 1) << step;
      EXPECT_TRUE(r.num != 1 || ToView(canvas, ToCanvas(canvas, x)) == x) << step;
      EXPECT_LE(ToView(canvas, x), ToView(canvas, x + 1)) << step;
    }
  }
}

}  // namespace
