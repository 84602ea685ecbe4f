// The zoom table and the conversions between canvas and view pixels.
#include <cstdlib>

#include "display/zoom.h"
#include "view_fixture.h"

namespace {

using Zoom = ViewTest;

// Worked by hand from the ratios 1/4, 1/2, 2/3, 1, 3/2, 2, 3, 4 .. 10 with
// truncating division; centring adds num / 2 only where den is 1.
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
    {4, 1, 4, 6, 0},    {4, 7, 28, 30, 1},  {4, 100, 400, 402, 25},
    {5, 1, 5, 7, 0},    {5, 7, 35, 37, 1},  {5, 100, 500, 502, 20},
    {6, 1, 6, 9, 0},    {6, 7, 42, 45, 1},  {6, 100, 600, 603, 16},
    {7, 1, 7, 10, 0},   {7, 7, 49, 52, 1},  {7, 100, 700, 703, 14},
    {8, 1, 8, 12, 0},   {8, 7, 56, 60, 0},  {8, 100, 800, 804, 12},
    {9, 1, 9, 13, 0},   {9, 7, 63, 67, 0},  {9, 100, 900, 904, 11},
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
  const char* texts[] = {"25%",  "50%",  "75%",  "100%", "150%", "200%", "300%",
                         "400%", "500%", "600%", "700%", "800%", "900%", "1000%"};
  for (int step = -3; step <= 10; ++step) EXPECT_EQ(ZoomText(step), texts[step + 3]);
  const ZoomReadout above = ZoomReadoutOf(4), at = ZoomReadoutOf(0), below = ZoomReadoutOf(-1);
  EXPECT_EQ(above.text + at.text + below.text, "400%100%75%");
  EXPECT_EQ(above.red + above.green * 1000 + above.blue * 1000000, 100255255);  // yellow tint
  EXPECT_EQ(at.red + at.green * 1000 + at.blue * 1000000, 255255255);
  EXPECT_EQ(below.red + below.green * 1000 + below.blue * 1000000, 255255100);  // cyan tint

  // A 3-pixel canvas is 4 view pixels at 150 %; "75%" is 2/3, not 3/4; a
  // 1-pixel canvas at 25 % has no view pixel at all.
  canvas->zoomStep = 1;
  EXPECT_EQ(ZoomedWidth(canvas), 4);
  canvas->zoomStep = -1;
  canvas->canvasWidth = 640;
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
