// The connected and freehand loops driven by a scripted pointer: where
// they dab, single dabs with Shift, pauses, and the undo record at the end;
// and the position of a sample: smoothing over the last points, the
// sub-pixel fraction kept through the zoom, and grid snap in place of
// smoothing.
#include "paint/stroke/stroke_loops.h"

#include "paint/stroke/stroke_position.h"
#include "paint/stroke/stroke_segment.h"
#include "stroke_test_support.h"

namespace stroketest {
namespace {

using StrokeLoopTest = StrokeTest;

TEST_F(StrokeLoopTest, ConnectedStrokeJoinsThePixelsThePointerReaches) {
  Canvas* canvas = MakeBlank(64, 64);
  RecordingPen(4);
  PenBlender.connected = 1;
  Press(20, 30, kLeft);
  Then({{20, 30, kLeft},
        {20, 30, kLeft},
        {26, 33, kLeft},
        {26, 33, kLeft},
        {40, 25, kLeft},
        {40, 28, kLeft}});
  EXPECT_EQ(RunConnectedStroke(canvas, 0, 0, 0), 1);
  // The first pass dabs where the pointer is; a standing pointer adds
  // nothing; each move, on either axis, is a segment from the last position.
  std::vector<Dab> expected{{20, 30}};
  int offered = 0;
  for (auto [x0, y0, x1, y1] : {std::array{20, 30, 26, 33}, {26, 33, 40, 25}, {40, 25, 40, 28}}) {
    const std::vector<Dab> points = OfferedPoints(x0, y0, x1, y1, false);
    offered += int(points.size());
    AcceptSpaced(points, 1.0, false, expected);
  }
  EXPECT_EQ(recordedDabs, expected);
  EXPECT_EQ(tipState.dabCount, 6 + offered);
  // One rectangle record of the stroke's box.
  EXPECT_EQ(UndoHistory.entries[0].kind, kUndoRect);
  EXPECT_EQ(UndoBox(), DabsBox(expected, 4));
  EXPECT_EQ(UndoHistory.entries[1].kind, kUndoEmpty);
  EXPECT_EQ(std::make_pair(canvas->modified, StrokeEngine.running), std::make_pair(1u, 0));

  // Restrained undo leaves no record but still marks the canvas.
  UndoHistory.Reset();
  canvas->modified = 0;
  settings.restrainUndoDuringFreehand = 1;
  Then({{8, 8, kLeft}, {12, 9, kLeft}});
  RunConnectedStroke(canvas, 0, 0, 0);
  EXPECT_EQ(std::make_pair(UndoHistory.entries[0].kind, canvas->modified),
            std::make_pair(uint32_t(kUndoEmpty), 1u));
}

TEST_F(StrokeLoopTest, FreehandPaintsEveryPassAtTheWholePixelWithRowCachesWide) {
  settings.imageBuffer = Virtual;
  Canvas* canvas = MakeBlank(32, 32);
  BlockPen(0, 10, 20, 30);
  static Plane* watched[2];
  static std::vector<uint32_t> wide;
  watched[0] = canvas->planes[0].plane;
  watched[1] = canvas->planes[kTransparencyPosition].plane;
  ASSERT_TRUE(watched[0] && watched[1]);
  // A tone that cuts nothing looks at the row caches at each row of each dab.
  penSources.toneRow = [](int, int x0, int x1, const Rect&, uint8_t* row, int) {
    std::fill_n(row, x1 - x0 + 1, 255);
    wide.push_back(watched[0]->rowCacheWide & watched[1]->rowCacheWide);
  };
  Press(5, 5, kLeft);
  Then({{5, 5, kLeft}, {5, 5, kLeft}, {9, 7, kLeft}});
  EXPECT_EQ(RunFreehandStroke(canvas, 0, 0, 0), 1);
  EXPECT_EQ(tipState.dabCount, 3);
  // A full tip pixel over an opaque pixel leaves the pen's colour exactly.
  int wrong = 0;
  for (int y = 0; y < 32; ++y)
    for (int x = 0; x < 32; ++x) {
      const bool dabbed = (x == 5 && y == 5) || (x == 9 && y == 7);
      wrong += PixelRgb(canvas->planes[0].plane, x, y) !=
               (dabbed ? std::array{10u, 20u, 30u} : std::array{255u, 255u, 255u});
    }
  EXPECT_EQ(wrong, 0);
  // Each dab covers its tip and one more column and row: 3 x 3 from the pixel.
  EXPECT_EQ(UndoBox(), (std::vector<int>{5, 5, 12, 10}));
  // The layer's planes keep more rows at hand while the stroke lasts.
  ASSERT_FALSE(wide.empty());
  EXPECT_EQ(wide, std::vector<uint32_t>(wide.size(), 1));
  EXPECT_EQ(watched[0]->rowCacheWide | watched[1]->rowCacheWide, 0u);
}

TEST_F(StrokeLoopTest, ShiftGivesOneDabAndQualityPausesOnlyConnectedPasses) {
  Canvas* canvas = MakeBlank(64, 64);
  RecordingPen(4);
  for (int connecting : {1, 0}) {
    recordedDabs.clear();
    tipState.dabCount = 0;
    PenBlender.connected = connecting;
    Press(10, 12, {platform::VkLeftButton, platform::VkShift});
    Then({{10, 12, kLeft}, {30, 40, kLeft}, {50, 20, kLeft}});
    connecting ? RunConnectedStroke(canvas, 0, 0, 0) : RunFreehandStroke(canvas, 0, 0, 0);
    EXPECT_EQ(recordedDabs, (std::vector<Dab>{{10, 12}}));
    EXPECT_EQ(tipState.dabCount, 1);
    headless::Recorded().pointerScript.clear();
  }
  for (int quality : {1, 2, 0}) {
    StrokeEngine.freehandQuality = quality;
    headless::Recorded().busyWaits.clear();
    Press(3, 3, kLeft);
    Then({{3, 3, kLeft}, {4, 4, kLeft}, {5, 5, kLeft}});
    quality ? RunConnectedStroke(canvas, 0, 0, 0) : RunFreehandStroke(canvas, 0, 0, 0);
    EXPECT_EQ(headless::Recorded().busyWaits,
              std::vector<uint32_t>(quality ? 3 : 0, quality == 1 ? 4 : 10));
  }
}

// The segment walker: where it offers dabs, which ones spacing lets
// through, and the box it reports.
TEST_F(StrokeLoopTest, SegmentWalksInTenthsAndPlacesSpacedDabs) {
  Canvas* canvas = MakeBlank(128, 128);
  RecordingPen(20);
  PenBlender.connected = 1;
  // A twentieth of the tip's smaller side (42), a pixel at least.
  const double spacing = StrokeSpacing();
  EXPECT_DOUBLE_EQ(spacing, 42 * 0.05);
  EXPECT_DOUBLE_EQ(StrokeSpacing(kLineSpacingFactor), 42 * 0.125);
  struct Case {
    double x0, y0, x1, y1;
    int exactEnd;
  } cases[] = {
      {30.25, 40.7, 70.9, 52.35, 0},  // x major, rising, end pulled back
      {50.5, 90.2, 45.1, 20.8, 1},    // y major, falling, exact end
      {60.0, 60.0, 60.9, 61.2, 0},    // 1.2 along y: not pulled back
  };
  for (const Case& c : cases) {
    recordedDabs.clear();
    tipState.dabCount = 0;
    int first = 1;
    DrawPenSegment(canvas, c.x0, c.y0, c.x1, c.y1, c.exactEnd, 0, nullptr, 0, spacing, first);
    const std::vector<Dab> offered = OfferedPoints(c.x0, c.y0, c.x1, c.y1, c.exactEnd);
    std::vector<Dab> expected;
    AcceptSpaced(offered, spacing, true, expected);
    EXPECT_EQ(recordedDabs, expected);
    EXPECT_EQ(std::make_pair(tipState.dabCount, first), std::make_pair(int(offered.size()), 0));
  }
  // The short walk reaches past its end minus one step: nothing held back.
  EXPECT_GT(OfferedPoints(60.0, 60.0, 60.9, 61.2, false).back().y, 61.05);
}

TEST_F(StrokeLoopTest, SegmentReportsTheUnionAndPlacesNothingForNoLength) {
  Canvas* canvas = MakeBlank(64, 64);
  RecordingPen(4);
  EXPECT_DOUBLE_EQ(StrokeSpacing(), 1.0);  // half a pixel is raised to one
  PenBlender.connected = 1;
  int first = 0;
  auto segment = [&](double x0, double y0, double x1, double y1) {
    Rect box{-1, -1, -1, -1};
    DrawPenSegment(canvas, x0, y0, x1, y1, 0, 0, &box, 1, 1.0, first);
    return std::vector<int>{box.left, box.top, box.right, box.bottom};
  };
  PenBlender.lastDabX = PenBlender.lastDabY = 0;
  EXPECT_EQ(segment(20.5, 20.5, 20.5, 20.5), (std::vector<int>{999999, 999999, 0, 0}));
  EXPECT_TRUE(recordedDabs.empty());
  EXPECT_EQ(tipState.dabCount, 0);
  first = 1;
  const std::vector<int> union_ = segment(12.3, 30.6, 40.8, 22.1);
  std::vector<Dab> expected;
  AcceptSpaced(OfferedPoints(12.3, 30.6, 40.8, 22.1, false), 1.0, true, expected);
  ASSERT_EQ(recordedDabs, expected);
  EXPECT_EQ(union_, DabsBox(expected, 4));
}

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
