// The connected and freehand loops driven by a scripted pointer: where
// they dab, single dabs with Shift, pauses, and the undo record at the end.
#include "paint/stroke_loops.h"

#include "paint/stroke_segment.h"
#include "stroke_test_support.h"

namespace stroketest {
namespace {

using StrokeLoopTest = StrokeTest;

std::vector<int> RecordBox(const UndoEntry& e) { return {e.left, e.top, e.right, e.bottom}; }

TEST_F(StrokeLoopTest, ConnectedStrokeJoinsThePixelsThePointerReaches) {
  Canvas* canvas = MakeBlank(64, 64);
  RecordingPen(4);
  connected = 1;
  Press(20, 30, kLeft);
  Then({{20, 30, kLeft}, {20, 30, kLeft}, {26, 33, kLeft}, {26, 33, kLeft}, {40, 25, kLeft},
        {40, 28, kLeft}});
  EXPECT_EQ(RunConnectedStroke(canvas, 0, 0, 0), 1);

  // The first pass dabs where the pointer is; a standing pointer adds
  // nothing; each move, on either axis, is a segment from the last position.
  std::vector<Dab> expected{{20, 30}};
  const std::vector<Dab> a = OfferedPoints(20, 30, 26, 33, false);
  const std::vector<Dab> b = OfferedPoints(26, 33, 40, 25, false);
  const std::vector<Dab> c = OfferedPoints(40, 25, 40, 28, false);
  AcceptSpaced(a, 1.0, false, expected);
  AcceptSpaced(b, 1.0, false, expected);
  AcceptSpaced(c, 1.0, false, expected);
  EXPECT_EQ(recordedDabs, expected);
  EXPECT_EQ(dabCount, 6 + int(a.size() + b.size() + c.size()));

  // One rectangle record of the stroke's box (tip 10 x 10, boxes 11 wide).
  int box[4] = {999999, 999999, 0, 0};
  for (const Dab& d : expected) {
    box[0] = std::min(box[0], int(d.x) - 4);
    box[1] = std::min(box[1], int(d.y) - 4);
    box[2] = std::max(box[2], int(d.x) + 7);
    box[3] = std::max(box[3], int(d.y) + 7);
  }
  EXPECT_EQ(UndoHistory.entries[0].kind, kUndoRect);
  EXPECT_EQ(RecordBox(UndoHistory.entries[0]), (std::vector<int>(box, box + 4)));
  EXPECT_EQ(UndoHistory.entries[1].kind, kUndoEmpty);
  EXPECT_EQ(canvas->modified, 1u);
  EXPECT_EQ(StrokeEngine.running, 0);
}

TEST_F(StrokeLoopTest, FreehandPaintsEveryPassAtTheWholePixel) {
  Canvas* canvas = MakeBlank(32, 32);
  OnePixelPen(10, 20, 30);
  Press(5, 5, kLeft);
  Then({{5, 5, kLeft}, {5, 5, kLeft}, {9, 7, kLeft}});
  EXPECT_EQ(RunFreehandStroke(canvas, 0, 0, 0), 1);
  EXPECT_EQ(dabCount, 3);

  // A full tip pixel over an opaque pixel leaves the pen's colour exactly.
  Plane* image = canvas->planes[0].plane;
  for (int y = 0; y < 32; ++y)
    for (int x = 0; x < 32; ++x) {
      uint32_t r, g, b;
      PlaneStore.ReadPixel24(image, x, y, &r, &g, &b);
      const bool dabbed = (x == 5 && y == 5) || (x == 9 && y == 7);
      EXPECT_EQ((std::vector<uint32_t>{r, g, b}),
                dabbed ? (std::vector<uint32_t>{10, 20, 30}) : (std::vector<uint32_t>{255, 255, 255}))
          << x << "," << y;
    }
  // Each dab covers its tip and one more column and row: 3 x 3 from the pixel.
  EXPECT_EQ(RecordBox(UndoHistory.entries[0]), (std::vector<int>{5, 5, 12, 10}));
}

TEST_F(StrokeLoopTest, ShiftAtPenDownGivesOneDabInEitherLoop) {
  Canvas* canvas = MakeBlank(64, 64);
  RecordingPen(4);
  for (int connecting : {1, 0}) {
    recordedDabs.clear();
    connected = connecting;
    Press(10, 12, {platform::VkLeftButton, platform::VkShift});
    Then({{10, 12, kLeft}, {30, 40, kLeft}, {50, 20, kLeft}});
    connecting ? RunConnectedStroke(canvas, 0, 0, 0) : RunFreehandStroke(canvas, 0, 0, 0);
    EXPECT_EQ(recordedDabs, (std::vector<Dab>{{10, 12}}));
    EXPECT_EQ(dabCount, 1);
    headless::Recorded().pointerScript.clear();
  }
}

TEST_F(StrokeLoopTest, QualityPausesEachConnectedPass) {
  Canvas* canvas = MakeBlank(32, 32);
  RecordingPen(2);
  for (int quality : {1, 2}) {
    StrokeEngine.freehandQuality = quality;
    headless::Recorded().busyWaits.clear();
    Then({{3, 3, kLeft}, {4, 4, kLeft}, {5, 5, kLeft}});
    RunConnectedStroke(canvas, 0, 0, 0);
    EXPECT_EQ(headless::Recorded().busyWaits, std::vector<uint32_t>(3, quality == 1 ? 4 : 10));
  }
  // The freehand loop never pauses.
  headless::Recorded().busyWaits.clear();
  Then({{3, 3, kLeft}});
  RunFreehandStroke(canvas, 0, 0, 0);
  EXPECT_TRUE(headless::Recorded().busyWaits.empty());
}

TEST_F(StrokeLoopTest, RestrainedUndoLeavesNoRecordButMarksTheCanvas) {
  Canvas* canvas = MakeBlank(32, 32);
  RecordingPen(2);
  settings.restrainUndoDuringFreehand = 1;
  Then({{8, 8, kLeft}, {12, 9, kLeft}});
  RunConnectedStroke(canvas, 0, 0, 0);
  EXPECT_GT(recordedDabs.size(), 1u);
  EXPECT_EQ(UndoHistory.entries[0].kind, kUndoEmpty);
  EXPECT_EQ(canvas->modified, 1u);
}

TEST_F(StrokeLoopTest, FreehandWidensTheLayersRowCachesForTheStroke) {
  settings.imageBuffer = Virtual;
  Canvas* canvas = MakeBlank(32, 32);
  RecordingPen(2);
  Plane* image = canvas->planes[0].plane;
  Plane* transparency = canvas->planes[kTransparencyPosition].plane;
  ASSERT_TRUE(image && transparency);
  std::vector<uint32_t> wide;
  static std::vector<uint32_t>* sink;
  static Plane* watched[2];
  sink = &wide;
  watched[0] = image;
  watched[1] = transparency;
  gradientRowSource = [](uint8_t* row, int y, int x0, int x1, int l, int t, int r, int b) {
    RecordDab(row, y, x0, x1, l, t, r, b);
    sink->push_back(watched[0]->rowCacheWide & watched[1]->rowCacheWide);
  };
  Then({{10, 10, kLeft}});
  RunFreehandStroke(canvas, 0, 0, 0);
  ASSERT_FALSE(wide.empty());
  EXPECT_EQ(wide, std::vector<uint32_t>(wide.size(), 1));
  EXPECT_EQ(image->rowCacheWide, 0u);
  EXPECT_EQ(transparency->rowCacheWide, 0u);
}

}  // namespace
}  // namespace stroketest
