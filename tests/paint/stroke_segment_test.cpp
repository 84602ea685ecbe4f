// The segment walker: where it offers dabs, which ones spacing lets
// through, and the box it reports.
#include "paint/stroke_segment.h"

#include "stroke_test_support.h"

namespace stroketest {
namespace {

using SegmentTest = StrokeTest;

TEST_F(SegmentTest, WalksInTenthsAndPlacesSpacedDabs) {
  Canvas* canvas = MakeBlank(128, 128);
  RecordingPen(20);
  connected = 1;
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
    dabCount = 0;
    int first = 1;
    DrawPenSegment(canvas, c.x0, c.y0, c.x1, c.y1, c.exactEnd, 0, nullptr, nullptr, nullptr,
                   nullptr, 0, spacing, first);
    const std::vector<Dab> offered = OfferedPoints(c.x0, c.y0, c.x1, c.y1, c.exactEnd);
    std::vector<Dab> expected;
    AcceptSpaced(offered, spacing, true, expected);
    EXPECT_EQ(recordedDabs, expected);
    EXPECT_EQ(dabCount, int(offered.size()));
    EXPECT_EQ(first, 0);
  }
  // The short walk reaches past its end minus one step: nothing held back.
  EXPECT_GT(OfferedPoints(60.0, 60.0, 60.9, 61.2, false).back().y, 61.05);
}

TEST_F(SegmentTest, ReportsTheUnionAndPlacesNothingForNoLength) {
  Canvas* canvas = MakeBlank(64, 64);
  RecordingPen(4);
  EXPECT_DOUBLE_EQ(StrokeSpacing(), 1.0);  // half a pixel is raised to one
  connected = 1;
  int box[4] = {-1, -1, -1, -1}, first = 0;
  PenBlender.lastDabX = PenBlender.lastDabY = 0;
  DrawPenSegment(canvas, 20.5, 20.5, 20.5, 20.5, 0, 0, &box[0], &box[1], &box[2], &box[3], 1, 1.0,
                 first);
  EXPECT_TRUE(recordedDabs.empty());
  EXPECT_EQ(dabCount, 0);
  EXPECT_EQ((std::vector<int>(box, box + 4)), (std::vector<int>{999999, 999999, 0, 0}));

  first = 1;
  DrawPenSegment(canvas, 12.3, 30.6, 40.8, 22.1, 0, 0, &box[0], &box[1], &box[2], &box[3], 1, 1.0,
                 first);
  std::vector<Dab> expected;
  AcceptSpaced(OfferedPoints(12.3, 30.6, 40.8, 22.1, false), 1.0, true, expected);
  ASSERT_EQ(recordedDabs, expected);
  EXPECT_EQ((std::vector<int>(box, box + 4)), DabsBox(expected, 4));
}

}  // namespace
}  // namespace stroketest
