// The areas the shapes commit, against pictures worked out by hand.
#include <gtest/gtest.h>

#include <string>

#include "base/command_ids.h"
#include "document/selection_rows.h"
#include "selection/draft_engine.h"
#include "support/fixture.h"

namespace {

class ShapeRasterTest : public TeselTest {
 protected:
  // The raster as rows of '#' (selected) and '.' (not).
  std::string Picture(Canvas* canvas) {
    std::string text;
    for (int y = 0; y < canvas->canvasHeight; ++y) {
      for (int x = 0; x < canvas->canvasWidth; ++x)
        text += ReadSelectionPixel(canvas, x, y) == 0 ? '#' : '.';
      text += '\n';
    }
    return text;
  }
  void Box(Canvas* canvas, int kind, int l, int t, int r, int b) {
    canvas->selectionKind = kind;
    canvas->selLeft = l, canvas->selTop = t, canvas->selRight = r, canvas->selBottom = b;
  }
};

TEST_F(ShapeRasterTest, BoxIsOrderedAndClippedToTheCanvas) {
  Canvas* canvas = MakeBlank(6, 4);
  Box(canvas, cmd::kSelectionBox, 7, 2, 3, -1);
  CommitShape(canvas, 0, 0);
  EXPECT_EQ(Picture(canvas),
            "...###\n"
            "...###\n"
            "...###\n"
            "......\n");
  EXPECT_EQ(SelectionBox(canvas), (Rect{3, -1, 7, 2}));
}

TEST_F(ShapeRasterTest, EllipseWalksTheMidpointCircleAndScalesTheShortAxis) {
  // A 7 x 7 box: R = 6, r = 3; the walk from (0, 3) with e = -4 visits
  // (0,3) (1,3) (2,2) (3,1) (3,0): x-steps while e < 0, then diagonals.
  Canvas* canvas = MakeBlank(7, 7);
  Box(canvas, cmd::kSelectionCircle, 0, 0, 6, 6);
  CommitShape(canvas, 0, 0);
  EXPECT_EQ(Picture(canvas),
            "..###..\n"
            ".#####.\n"
            "#######\n"
            "#######\n"
            "#######\n"
            ".#####.\n"
            "..###..\n");
  // 7 wide, 3 tall: rows scale by y * 3 / 7, so only y = 3 leaves the
  // middle row (3 * 3 / 7 = 1), with the spans of x = 0 and 1.
  Box(canvas, cmd::kSelectionCircle, 0, 2, 6, 4);
  CommitShape(canvas, 0, 0);
  EXPECT_EQ(Picture(canvas),
            ".......\n"
            ".......\n"
            "..###..\n"
            "#######\n"
            "..###..\n"
            ".......\n"
            ".......\n");
}

TEST_F(ShapeRasterTest, PolygonFillsEvenOddWithItsBottomEdge) {
  Canvas* canvas = MakeBlank(8, 6);
  // A triangle closed on its first point: (1,0) (6,4) (1,4) (1,0).
  const float points[][2] = {{1, 0}, {6.9f, 4}, {1, 4}, {1, 0}};
  for (int i = 0; i < 4; ++i)
    canvas->draftPoints[i][0] = points[i][0], canvas->draftPoints[i][1] = points[i][1];
  canvas->draftPointCount = 4;
  canvas->selectionKind = cmd::kSelectionPolygon;
  CommitShape(canvas, 0, 0);
  // Edge (1,0)-(6,4): slope 5/4, x = 1 + 1.25 y truncated: 1 2 3 4 6.
  EXPECT_EQ(Picture(canvas),
            ".#......\n"
            ".##.....\n"
            ".###....\n"
            ".####...\n"
            ".######.\n"
            "........\n");
  EXPECT_EQ(SelectionBox(canvas), (Rect{1, 0, 6, 4}));
  // Fewer than three points select nothing; a shapeless kind neither.
  canvas->draftPointCount = 2;
  CommitShape(canvas, 0, 0);
  EXPECT_EQ(SelectionBounds(canvas).left, INT32_MAX);
  Deselect(canvas);
  EXPECT_EQ(canvas->selectionPlane, nullptr);
  EXPECT_EQ(ReadSelectionPixel(canvas, 3, 3), 0);
  EXPECT_EQ(SelectionBox(canvas), (Rect{0, 0, 7, 5}));
}

}  // namespace
