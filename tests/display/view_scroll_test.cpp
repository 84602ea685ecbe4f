// The zoom table and the conversions between canvas and view pixels,
// window geometry, scrolling, the zoom change that keeps a point in view,
// and the view's own drags.
#include "display/view_scroll.h"

#include <cstdlib>
#include <tuple>

#include "display/pointer_gestures.h"
#include "display/set_zoom.h"
#include "display/view_layout.h"
#include "display/zoom.h"
#include "view_fixture.h"

namespace {

using Scroll = ViewTest;

std::tuple<int, int, int, int> Tie(const Rect& r) {
  return {r.left, r.top, r.Width(), r.Height()};
}

TEST_F(Scroll, SmallCanvasStandsCentredAndScrollIsClamped) {
  Canvas* canvas = MakeBlank(100, 50);
  EXPECT_EQ(Tie(FramePlacement(canvas, 640, 400)), std::make_tuple(8, 8, 624, 384));
  canvas->scrollX = -30;
  canvas->scrollY = 500;
  ViewLayout layout = LayOutView(canvas, 400, 300);
  // Extents 116 x 66; origin 8 + (400 - 116) / 2 = 150 and 8 + (300 - 66) / 2 = 125.
  EXPECT_EQ(std::tie(canvas->extentX, canvas->extentY, canvas->scrollX, canvas->scrollY),
            std::make_tuple(116, 66, 0, 0));
  EXPECT_EQ(std::tie(layout.shiftX, layout.shiftY), std::make_tuple(-30, 0));
  EXPECT_EQ(Tie(layout.display), std::make_tuple(150, 125, 100, 50));
  EXPECT_EQ(Tie(layout.hRuler), std::make_tuple(158, 0, 100, 7));
  EXPECT_EQ(Tie(layout.vRuler), std::make_tuple(0, 133, 7, 50));
  EXPECT_EQ(std::tie(layout.horizontal.max, layout.horizontal.page), std::make_tuple(115, 400));
  canvas->zoomStep = 3;  // 300 x 150: wider than the window (scroll clamped to 116), not taller
  canvas->scrollX = 900;
  EXPECT_EQ(Tie(LayOutView(canvas, 200, 300).display),
            std::make_tuple(8 - 116, 8 + (300 - 166) / 2, 300, 150));
}

TEST_F(Scroll, RequestsMoveByLinesAndPagesWithinTheExtent) {
  Canvas* canvas = MakeBlank(400, 300);
  LayOutView(canvas, 200, 150);  // extents 416 x 316
  std::vector<std::array<int, 2>> shifts;
  ScrollBarState bar{};
  int rulers = 0;
  viewWindows.scrollWindow = [&](Canvas*, int dx, int dy) { shifts.push_back({dx, dy}); };
  viewWindows.setScrollBar = [&](Canvas*, Axis, const ScrollBarState& b) { bar = b; };
  viewWindows.repaintRuler = [&](Canvas*, Axis) { ++rulers; };
  EXPECT_EQ(ScrollView(canvas, Axis::Horizontal, kScrollLineUp), 0);
  EXPECT_EQ(ScrollView(canvas, Axis::Horizontal, kScrollPageDown), 10);
  EXPECT_EQ(ScrollView(canvas, Axis::Horizontal, kScrollBottom), 206);
  EXPECT_EQ(ScrollView(canvas, Axis::Horizontal, kScrollLineDown), 0);
  EXPECT_EQ(ScrollView(canvas, Axis::Horizontal, kScrollThumbTrack, -5), -216);
  canvas->rulersOn = 1;
  canvas->zoomStep = 2;  // a line is 2 view pixels; the extent stays as laid out
  EXPECT_EQ(ScrollView(canvas, Axis::Vertical, kScrollPageDown), 20);
  EXPECT_EQ(ScrollView(canvas, Axis::Vertical, kScrollThumbPosition, 999), 146);
  EXPECT_EQ(ScrollView(canvas, Axis::Vertical, kScrollTop), -166);
  EXPECT_EQ(shifts, (std::vector<std::array<int, 2>>{
                        {-10, 0}, {-206, 0}, {216, 0}, {0, -20}, {0, -146}, {0, 166}}));
  EXPECT_EQ(std::tie(bar.max, bar.page, bar.position), std::make_tuple(315, 150, 0));
  EXPECT_EQ(rulers, 3);

  // Within 8 pixels of an edge of frameWnd, a page towards it; view = frame - 8 + scroll.
  canvas->zoomStep = 0;
  canvas->scrollX = canvas->scrollY = 100;
  int updates = 0;
  viewWindows.updateNow = [&](Canvas*) { ++updates; };
  for (auto [frameX, frameY] : {std::pair{3, 70}, {195, 145}, {100, 70}}) {
    script = {};
    PointerAt({{frameX - 8 + canvas->scrollX, frameY - 8 + canvas->scrollY}});
    ScrollAtEdge(canvas);
  }
  EXPECT_EQ(std::tie(canvas->scrollX, canvas->scrollY), std::make_tuple(100, 110));
  EXPECT_EQ(updates, 2);
}

TEST_F(Scroll, SetZoomBringsThePointedPixelToTheMiddleAtEveryStep) {
  Canvas* canvas = MakeBlank(2000, 1600);
  viewWindows.resendDocumentSize = [](Canvas* c) { LayOutView(c, 200, 150); };
  std::string readout;
  viewWindows.showZoom = [&](const ZoomReadout& r) { readout = r.text; };
  for (int step = -3; step <= 10; ++step) {
    canvas->zoomStep = 0;
    LayOutView(canvas, 200, 150);
    ScrollView(canvas, Axis::Horizontal, kScrollThumbPosition, 950);
    ScrollView(canvas, Axis::Vertical, kScrollThumbPosition, 760);
    script = {};
    PointerAt({{1000, 800}});  // canvas pixel (1000, 800) at 100 %
    SetZoom(canvas, step, 0);
    EXPECT_EQ(readout, ZoomText(step));
    // The middle of frameWnd, (8 + 100, 8 + 75), shows that pixel; 2/3
    // can't hit every pixel.
    const int slack = step == -1 ? 1 : 0;
    EXPECT_LE(std::abs(ToCanvas(canvas, 100 + canvas->scrollX) - 1000), slack) << step;
    EXPECT_LE(std::abs(ToCanvas(canvas, 75 + canvas->scrollY) - 800), slack) << step;
  }
  // Outside the document the middle is kept: canvas (100 - 8) / 10 = 9 at
  // 1000 %, whose view 90 lies within half a window of 0: no scroll.
  script = {{0, 0, 0, 0, 0}};
  canvas->scrollX = canvas->scrollY = 0;
  SetZoom(canvas, 11, 0);
  EXPECT_EQ(std::tie(canvas->zoomStep, canvas->scrollX), std::make_tuple(10, 0));
  int commands = 0;
  settings.autoAdjustWindow = 1;
  viewWindows.sendCommand = [&](Canvas*, int id) { commands += id == 12004; };
  SetZoom(canvas, 0, 1);
  EXPECT_EQ(commands, 1);
}

TEST_F(Scroll, HandScrollFollowsThePointerAndZoomDragCountsSteps) {
  Canvas* canvas = MakeBlank(1000, 1000);
  LayOutView(canvas, 200, 150);
  canvas->scrollX = canvas->scrollY = 50;
  int updates = 0, cursor = 0;
  viewWindows.updateNow = [&](Canvas*) { ++updates; };
  viewWindows.handCursor = [&](bool on) { cursor += on ? 1 : -10; };
  // The press was at 100, 100: the first poll has moved from there.
  PointerAt({{90, 95}, {90, 95}, {80, 80}});
  held = 3;
  HandScroll(canvas, PointerButton::Middle, 100, 100);
  EXPECT_EQ(std::tie(canvas->scrollX, canvas->scrollY, updates, cursor),
            std::make_tuple(70, 70, 2, -9));

  std::vector<int> commands;
  viewWindows.sendCommand = [&](Canvas*, int id) { commands.push_back(id); };
  script = {};
  PointerAt({{110, 0}, {121, 0}, {101, 0}, {100, 0}, {60, 0}});
  held = 5;
  ZoomDrag(canvas, 100);
  EXPECT_EQ(commands, (std::vector<int>{11014, 11015, 11015}));
}

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
