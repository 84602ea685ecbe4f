// The right button on the canvas: the Dropper, the area pick into a
// pattern, the Undo Pen; and the routes the pen gives the canvas view.
#include "base/command_ids.h"
#include "paint/stroke/stroke_dropper.h"
#include "paint/stroke/stroke_loops.h"
#include "paint/stroke/stroke_routes.h"
#include "resources/strings.h"
#include "stroke_test_support.h"

namespace stroketest {
namespace {

using RightButtonTest = StrokeTest;
using Colour = std::array<uint32_t, 3>;

Colour PenColour() { return {pen.red, pen.green, pen.blue}; }

TEST_F(RightButtonTest, DropperTakesTheComposedColourOrThePlanesValue) {
  Canvas* canvas = MakeBlank(16, 16);
  InstallStrokeEngine();
  PlaneStore.WritePixel24(canvas->planes[0].plane, 3, 4, 10, 20, 30);
  pen.patternImage = PlaneStore.CreatePlane(4, 4, 24, 0, 1, Physical);
  pen.patternActive = 1;
  int changes = 0;
  strokeWindows.colourChanged = [&] { ++changes; };

  // With the Dropper chosen the stroke declines and the picker runs.
  Press(0, 0, kRight);
  Then({{0, 0, kRight}, {0, 0, kRight}, {3, 4, kRight}, {40, -5, kRight}, {3, 4, kRight}});
  RightButtonDown(canvas, {cmd::kFreeHandConnect, 0, 0, 0});
  EXPECT_EQ(PenColour(), (Colour{10, 20, 30}));
  EXPECT_EQ(changes, 4);  // a pick at each change of pixel; (40, -5) is clamped to (15, 0)
  EXPECT_EQ(std::make_tuple(pen.patternImage, pen.patternActive), std::make_tuple(nullptr, 0u));
  EXPECT_TRUE(recordedDabs.empty());

  // On another plane, its value as pure red.
  const int mask = CanvasManager.AddPlane(canvas, 0, 0);
  ASSERT_GT(mask, 0);
  CanvasManager.SelectPlane(canvas, mask);
  PlaneStore.WritePixel8(canvas->planes[mask].plane, 6, 7, 77);
  Then({{6, 7, kRight}});
  RunDropper(canvas);
  EXPECT_EQ(PenColour(), (Colour{77, 0, 0}));
  EXPECT_EQ((Colour{pen.hue, pen.saturation, pen.value}), (Colour{0, 255, 77}));
}

TEST_F(RightButtonTest, ShiftPicksAnAreaIntoThePattern) {
  Canvas* canvas = MakeBlank(40, 30);
  PlaneStore.WritePixel24(canvas->planes[0].plane, 6, 7, 1, 2, 3);
  pen.red = 90;
  int boxes = 0;
  viewWindows.invertBox = [&](Canvas*, const Rect&) { ++boxes; };
  Press(5, 5, {platform::VkRightButton, platform::VkShift});
  Then({{8, 6, kRight}, {12, 50, kRight}});
  RunDropper(canvas);
  // Below the plane the corner's x takes the last row (29) and y stays 50.
  ASSERT_NE(pen.patternImage, nullptr);
  ASSERT_NE(pen.patternAlpha, nullptr);
  EXPECT_EQ(std::make_tuple(pen.patternImage->width, pen.patternImage->height, pen.patternActive),
            std::make_tuple(29 - 5 + 1, 50 - 5 + 1, 1u));
  EXPECT_EQ(PixelRgb(pen.patternImage, 1, 2), (Colour{1, 2, 3}));
  EXPECT_EQ(PenColour(), (Colour{0, 0, 0}));
  EXPECT_EQ(PixelValue(pen.patternAlpha, 0, 0), 255u);
  EXPECT_EQ(boxes % 2, 0);  // every rubber box drawn was taken off again
}

TEST_F(RightButtonTest, UndoPenPaintsTheSnapshotOfTheLastLeftStrokeBack) {
  Canvas* canvas = MakeBlank(16, 16);
  ChooseRightClickAction(kRightClickUndoPen);
  BlockPen(2, 0, 0, 0);  // a 5 x 5 block in a 6 x 6 raster
  Plane* image = canvas->planes[0].plane;
  PlaneStore.WritePixel24(image, 5, 5, 1, 2, 3);
  Then({{5, 5, kLeft}});
  RunFreehandStroke(canvas, 0, 0, 0);
  ASSERT_NE(undoPenImage, nullptr);
  EXPECT_EQ(PixelRgb(undoPenImage, 5, 5), (Colour{1, 2, 3}));
  // The dab at whole pixel 5 starts at 5 + 1 - 7 / 2 = 3: columns 3..7.
  const Colour black{0, 0, 0}, white{255, 255, 255};
  EXPECT_EQ(PixelRgb(image, 3, 3), black);
  EXPECT_EQ(PixelRgb(image, 7, 7), black);

  // The restoring dab starts at 5 - 6 / 2 = 2: columns 2..6 come back.
  Plane* snapshot = undoPenImage;
  Then({{5, 5, kRight}});
  EXPECT_EQ(RunFreehandStroke(canvas, 0, 0, 1), 1);
  EXPECT_EQ(undoPenImage, snapshot);
  EXPECT_EQ((std::vector<Colour>{PixelRgb(image, 3, 3), PixelRgb(image, 5, 5),
                                 PixelRgb(image, 6, 6), PixelRgb(image, 7, 7)}),
            (std::vector<Colour>{white, {1, 2, 3}, white, black}));

  // Q counts as the right button; choosing an action drops the snapshot.
  Then({{5, 5, {'Q'}}, {5, 5, {'Q'}}});
  RunFreehandStroke(canvas, 0, 0, 1);
  EXPECT_EQ(tipState.dabCount, 2);
  ChooseRightClickAction(kRightClickDropper);
  EXPECT_EQ(undoPenImage, nullptr);
  EXPECT_EQ(RunConnectedStroke(canvas, 0, 0, 1), 0);
}

TEST_F(RightButtonTest, CloneSourceIsTheDragWithShiftAndPenToolsChooseTheirLoop) {
  Canvas* canvas = MakeBlank(64, 64);
  InstallStrokeEngine();
  pen.mode = kModeClone;
  // Without a source the pen says so and no stroke starts.
  tipState.dabCount = 99;
  LeftButtonDown(canvas, {cmd::kFreeHandConnect, 0, 0, 0});
  ASSERT_EQ(headless::Recorded().boxes.size(), 1u);
  EXPECT_EQ(headless::Recorded().boxes[0].text, StringText(1411));
  EXPECT_EQ(tipState.dabCount, 99);

  canvas->zoomStep = 2;
  std::vector<std::vector<int>> lines;
  strokeWindows.invertScreenLine = [&](int x0, int y0, int x1, int y1) {
    lines.push_back({x0, y0, x1, y1});
  };
  headless::Recorded().screenOriginX = 7;
  Press(100, 100, {platform::VkLeftButton, platform::VkShift});
  Then({{90, 95, kLeft}, {60, 80, kLeft}});
  LeftButtonDown(canvas, {cmd::kFreeHandConnect, 1, 0, 0});
  // 40 by 20 view pixels at 200 %.
  EXPECT_EQ(std::make_pair(PenKernels.cloneOffsetX, PenKernels.cloneOffsetY),
            std::make_pair(20, 10));
  ASSERT_EQ(lines.size() % 2, 0u);
  EXPECT_EQ(lines.back(), (std::vector<int>{107, 100, 67, 80}));

  // Otherwise the pen tool connects in mode Color only.
  RecordingPen(2);
  for (auto [tool, mode, connects] : {std::tuple{cmd::kFreeHandConnect, kModeColor, 1},
                                      {cmd::kFreeHandConnect, kModeBlur, 0},
                                      {cmd::kFreeHand, kModeColor, 0}}) {
    pen.mode = mode;
    LeftButtonDown(canvas, {tool, 0, 0, 0});
    EXPECT_EQ(PenBlender.connected, connects) << tool << " " << mode;
  }
}

TEST_F(RightButtonTest, OutlineFollowsTheCloneStrokeOnlyWhenBothAxesMove) {
  Canvas* canvas = MakeBlank(64, 64);
  pen.mode = kModeClone;
  pen.radiusX = pen.radiusY = 3;
  BuildTip();
  PenKernels.cloneOffsetX = 20;
  PenKernels.cloneOffsetY = -4;
  std::vector<PenOutline> drawn;
  strokeWindows.drawPenOutline = [&](WindowHandle, const PenOutline& o) { drawn.push_back(o); };
  MovePenOutline(canvas, 10, 20);
  ASSERT_EQ(drawn.size(), 1u);
  // A 7 x 7 ellipse around the pointer, and the cross at the source.
  const PenOutline o = drawn[0];
  EXPECT_EQ(
      (std::vector<int>{o.ellipse, o.box.left, o.box.top, o.box.right, o.box.bottom, o.cross,
                        o.crossX, o.crossY}),
      (std::vector<int>{1, 7, 17, 13, 23, 1, 30, 16}));

  Then({{10, 25, kLeft}, {14, 27, kLeft}});
  RunFreehandStroke(canvas, 0, 0, 0);
  // Off at the start; (10, 25) keeps x, so only (14, 27) moves it.
  ASSERT_EQ(drawn.size(), 3u);
  EXPECT_EQ((std::vector<int>{drawn[1].box.left, drawn[2].box.left, drawn[2].box.top,
                              penOutline.shown}),
            (std::vector<int>{o.box.left, 14 - 3, 27 - 3, 1}));
}

}  // namespace
}  // namespace stroketest
