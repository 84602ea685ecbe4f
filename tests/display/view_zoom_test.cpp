// The zoom table and the conversions between canvas and view pixels.
#include "display/zoom.h"
#include "view_fixture.h"

namespace {

using Zoom = ViewTest;

TEST_F(Zoom, EveryStepConvertsAsItsRatioSays) {
  Canvas* canvas = MakeBlank(3, 1);
  // Worked by hand from the ratios 1/4, 1/2, 2/3, 1, 3/2, 2, 3, 4 .. 10 with
  // truncating division, for 1, 7 and 100: the view pixel, centred (adding
  // num / 2 only where den is 1), and the canvas pixel. Steps 4 to 9 go as
  // 3 and 10 do.
  const int table[][10] = {
      {-3, 0, 0, 4, 1, 1, 28, 25, 25, 400},  {-2, 0, 0, 2, 3, 3, 14, 50, 50, 200},
      {-1, 0, 0, 1, 4, 4, 10, 66, 66, 150},  {0, 1, 1, 1, 7, 7, 7, 100, 100, 100},
      {1, 1, 1, 0, 10, 10, 4, 150, 150, 66}, {2, 2, 3, 0, 14, 15, 3, 200, 201, 50},
      {3, 3, 4, 0, 21, 22, 2, 300, 301, 33}, {10, 10, 15, 0, 70, 75, 0, 1000, 1005, 10}};
  for (const auto& row : table) {
    canvas->zoomStep = row[0];
    for (int k = 0; k < 3; ++k) {
      const int v = k == 0 ? 1 : k == 1 ? 7 : 100;
      EXPECT_EQ((std::vector<int>{ToView(canvas, v), ToView(canvas, v, 1), ToCanvas(canvas, v)}),
                (std::vector<int>{row[1 + 3 * k], row[2 + 3 * k], row[3 + 3 * k]}))
          << row[0] << " " << v;
    }
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

}  // namespace
