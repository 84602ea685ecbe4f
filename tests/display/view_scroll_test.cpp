// Window geometry, scrolling, the zoom change that keeps a point in view,
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

}  // namespace
