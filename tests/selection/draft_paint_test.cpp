// A box drawn with the box tool keeps the pen inside it, with "Mask
// Outside Selection" on.
#include "base/command_ids.h"
#include "draft_fixture.h"
#include "paint/modes/protection.h"
#include "paint/stroke/stroke_loops.h"
#include "paint/tip/pen_record.h"
#include "paint/tip/tip.h"
#include "support/planes.h"

TEST_F(DraftTest, PenPaintsOnlyInsideABoxSelection) {
  Drag(cmd::kSelectionBox, {10, 5}, {{20, 25}});
  ASSERT_EQ(canvas->selectionKind, cmd::kSelectionBox);
  protection.maskOutsideSelection = 1;
  // A block tip of one pixel: each pass dabs where the pointer stands.
  pen.tipShape = 10;
  pen.radiusX = pen.radiusY = 0;
  BuildTip();
  pen.red = 10, pen.green = 20, pen.blue = 30;
  const int xs[] = {5, 9, 10, 15, 20, 21, 35};
  std::vector<headless::PointerSample> samples;
  for (int x : xs) samples.push_back({x, 15, {platform::VkLeftButton}});
  headless::Recorded().pointer = samples.front();
  headless::ScriptPointer(samples);
  EXPECT_EQ(RunFreehandStroke(canvas, 0, 0, 0), 1);
  for (int x : xs) {
    const bool inside = x >= 10 && x <= 20;
    EXPECT_EQ(PixelRgb(canvas->planes[0].plane, x, 15),
              (inside ? std::array{10u, 20u, 30u} : std::array{255u, 255u, 255u}))
        << "x " << x;
  }
}
