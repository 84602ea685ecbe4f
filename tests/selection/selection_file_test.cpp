// Selection files against bytes laid out here by hand: both forms written
// and read back, rasters on canvases of other sizes, and the refusals.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "base/command_ids.h"
#include "document/selection_rows.h"
#include "platform/headless/headless.h"
#include "selection/draft.h"
#include "selection/draft_engine.h"
#include "selection/selection_file.h"
#include "selection/selection_windows.h"
#include "support/fixture.h"
#include "support/temp_folder.h"

namespace {

void Put(std::vector<uint8_t>* bytes, size_t at, int32_t value) {
  std::memcpy(bytes->data() + at, &value, 4);
}

class SelectionFileTest : public TeselTest {
 protected:
  void SetUp() override {
    TeselTest::SetUp();
    selectionWindows.sendCommand = [this](int id) { commands.push_back(id); };
  }
  void Shape(Canvas* canvas, int kind, int l, int t, int r, int b) {
    canvas->selectionKind = kind;
    canvas->selLeft = l, canvas->selTop = t, canvas->selRight = r, canvas->selBottom = b;
  }
  // The raster, one string of values a row.
  std::vector<std::vector<int>> Raster(Canvas* canvas) {
    std::vector<std::vector<int>> rows;
    for (int y = 0; y < canvas->canvasHeight; ++y) {
      rows.emplace_back();
      for (int x = 0; x < canvas->canvasWidth; ++x)
        rows.back().push_back(ReadSelectionPixel(canvas, x, y));
    }
    return rows;
  }
  // The commands sent to the frame.
  std::vector<int> commands;
  TempFolder folder;
};

TEST_F(SelectionFileTest, BoxFileHoldsTheShapeAndRebuildsItOnAnotherCanvas) {
  Canvas* canvas = MakeBlank(40, 30);
  Shape(canvas, cmd::kSelectionBox, 10, 12, 3, 4);
  canvas->draftPoints[0][0] = 1.75f, canvas->draftPoints[0][1] = -2.5f;
  canvas->draftPoints[5119][0] = 7.0f;
  canvas->draftPointCount = 2;
  CommitShape(canvas, 0, 0);
  ASSERT_EQ(SaveSelection(folder / "box.tss", canvas), 1);

  std::vector<uint8_t> expected(40988, 0);
  Put(&expected, 0, 20001);
  Put(&expected, 4, 3), Put(&expected, 8, 4), Put(&expected, 12, 10), Put(&expected, 16, 12);
  Put(&expected, 20, 1), Put(&expected, 24, -2);  // truncated toward zero
  Put(&expected, 20 + 5119 * 8, 7);
  Put(&expected, 40984, 2);
  EXPECT_EQ(folder.Read("box.tss"), expected);

  // On a smaller canvas the box is the file's, clipped; the box tool
  // becomes current unless Shift is held.
  Canvas* other = MakeBlank(6, 5);
  ASSERT_EQ(LoadSelection(folder / "box.tss", other), 1);
  EXPECT_EQ(other->selectionKind, cmd::kSelectionBox);
  EXPECT_EQ(SelectionBox(other), (Rect{3, 4, 10, 12}));
  EXPECT_EQ(other->draftPointCount, 2u);
  EXPECT_EQ(other->draftPoints[0][1], -2.0f);
  const std::vector<int> outside(6, 255), right{255, 255, 255, 0, 0, 0};
  EXPECT_EQ(Raster(other),
            (std::vector<std::vector<int>>{outside, outside, outside, outside, right}));
  EXPECT_EQ(commands, std::vector<int>{cmd::kSelectionBox});

  headless::Recorded().pointer.keysDown = {platform::VkShift};
  ASSERT_EQ(LoadSelection(folder / "box.tss", other), 1);
  EXPECT_EQ(commands.size(), 1u);
}

TEST_F(SelectionFileTest, SeedFillFileCarriesTheRasterAsABottomUpDib) {
  Canvas* canvas = MakeBlank(5, 3);
  ASSERT_EQ(EnsurePlane(canvas, 1), 1);
  const uint8_t rows[3][5] = {{1, 2, 3, 4, 5}, {10, 20, 30, 40, 50}, {255, 0, 255, 0, 7}};
  for (int y = 0; y < 3; ++y) WriteSelectionRow(canvas, y, 0, 4, rows[y]);
  Shape(canvas, cmd::kSeedFill, 0, 0, 4, 2);
  ASSERT_EQ(SaveSelection(folder / "seed.tss", canvas), 1);

  // Stride (5 x 8 + 31) / 32 x 4 = 8.
  std::vector<uint8_t> expected(40988 + 40 + 1024 + 8 * 3, 0);
  Put(&expected, 0, 20007);
  Put(&expected, 12, 4), Put(&expected, 16, 2);
  Put(&expected, 40988, 40), Put(&expected, 40992, 5), Put(&expected, 40996, 3);
  expected[41000] = 1, expected[41002] = 8;
  for (int i = 0; i < 256; ++i) std::memset(&expected[41028 + 4 * i], i, 3);
  for (int y = 0; y < 3; ++y) std::memcpy(&expected[42052 + 8 * (2 - y)], rows[y], 5);
  EXPECT_EQ(folder.Read("seed.tss"), expected);

  // A canvas wider in rows, narrower in columns: the file's rows from the
  // top, the rest all selected; the tool stays as it is.
  Canvas* other = MakeBlank(4, 5);
  Shape(other, cmd::kSelectionCircle, 1, 1, 2, 2);
  CommitShape(other, 0, 0);
  ASSERT_EQ(LoadSelection(folder / "seed.tss", other), 1);
  EXPECT_EQ(other->selectionKind, cmd::kSeedFill);
  EXPECT_EQ(Raster(other),
            (std::vector<std::vector<int>>{
                {1, 2, 3, 4}, {10, 20, 30, 40}, {255, 0, 255, 0}, {0, 0, 0, 0}, {0, 0, 0, 0}}));
  EXPECT_TRUE(commands.empty());
  EXPECT_TRUE(headless::Recorded().boxes.empty());

  // Cut inside the bottom row (the first stored): "dib error", and what
  // the file lacks reads as selected.
  std::vector<uint8_t> cut(expected.begin(), expected.end() - 8 - 8 - 5);
  folder.Write("cut.tss", cut);
  Canvas* small = MakeBlank(5, 3);
  ASSERT_EQ(LoadSelection(folder / "cut.tss", small), 1);
  EXPECT_EQ(BoxTexts(), std::vector<std::string>{"dib error"});
  EXPECT_EQ(Raster(small),
            (std::vector<std::vector<int>>{{0, 0, 0, 0, 0}, {0, 0, 0, 0, 0}, {255, 0, 255, 0, 0}}));
}

TEST_F(SelectionFileTest, BezierFileHoldsThePathAndTheCommitBoxesAnOpenOne) {
  Canvas* canvas = MakeBlank(30, 20);
  Draft.nodes[0] = {4, 5, 1, 2, 3, 4};
  Draft.nodes[1] = {12, 3, 5, 6, 7, 8};
  Draft.nodes[2] = {8, 15, 9, 10, 11, 12};
  Draft.nodes[5119] = {-1, -2, -3, -4, -5, -6};
  Draft.nodeCount = 3, Draft.closed = 0, Draft.openIndex = 0, Draft.selectedNode = 1;
  Shape(canvas, cmd::kBezier, 0, 0, 29, 19);
  CommitShape(canvas, 0, 0);
  ASSERT_EQ(SaveSelection(folder / "path.tss", canvas), 1);

  std::vector<uint8_t> expected(122900, 0);
  Put(&expected, 0, 20011);
  const int32_t nodes[][6] = {{4, 5, 1, 2, 3, 4}, {12, 3, 5, 6, 7, 8}, {8, 15, 9, 10, 11, 12}};
  for (int i = 0; i < 3; ++i)
    for (int k = 0; k < 6; ++k) Put(&expected, 4 + 24 * i + 4 * k, nodes[i][k]);
  for (int k = 0; k < 6; ++k) Put(&expected, 4 + 24 * 5119 + 4 * k, -1 - k);
  Put(&expected, 122884, 3), Put(&expected, 122896, 1);
  EXPECT_EQ(folder.Read("path.tss"), expected);

  Draft = {};
  ClearPath();
  Canvas* other = MakeBlank(10, 10);
  ASSERT_EQ(LoadSelection(folder / "path.tss", other), 1);
  EXPECT_EQ(other->selectionKind, cmd::kBezier);
  EXPECT_EQ(Draft.nodeCount, 3);
  EXPECT_EQ(Draft.selectedNode, 1);
  EXPECT_EQ(Draft.nodes[2].c2y, 12);
  EXPECT_EQ(SelectionBox(other), (Rect{4, 3, 12, 15}));
  EXPECT_EQ(commands, std::vector<int>{cmd::kBezier});

  // Counts beyond the table are held to it.
  Put(&expected, 122884, 900000), Put(&expected, 122896, 7000);
  folder.Write("wild.tss", expected);
  ASSERT_EQ(LoadSelection(folder / "wild.tss", other), 1);
  EXPECT_EQ(Draft.nodeCount, 5120);
  EXPECT_EQ(Draft.selectedNode, -1);
}

TEST_F(SelectionFileTest, ShapesFarBeyondTheCanvasAreClipped) {
  Canvas* canvas = MakeBlank(4, 3);
  const std::vector<int> all(4, 0), none(4, 255);
  auto load = [&](int kind, int32_t l, int32_t t, int32_t r, int32_t b) {
    std::vector<uint8_t> bytes(40988, 0);
    Put(&bytes, 0, kind), Put(&bytes, 4, l), Put(&bytes, 8, t), Put(&bytes, 12, r),
        Put(&bytes, 16, b);
    // A triangle through the far corners of the plane of words.
    const int32_t points[] = {INT32_MIN, INT32_MIN, INT32_MAX, 0,
                              0,         INT32_MAX, INT32_MIN, INT32_MIN};
    for (int i = 0; i < 8; ++i) Put(&bytes, 20 + 4 * i, points[i]);
    Put(&bytes, 40984, 4);
    folder.Write("far.tss", bytes);
    ASSERT_EQ(LoadSelection(folder / "far.tss", canvas), 1);
  };
  load(cmd::kSelectionBox, INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX);
  EXPECT_EQ(Raster(canvas), (std::vector<std::vector<int>>{all, all, all}));
  // An ellipse round the whole plane of words covers the canvas at once.
  load(cmd::kSelectionCircle, INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX);
  EXPECT_EQ(Raster(canvas), (std::vector<std::vector<int>>{all, all, all}));
  load(cmd::kSelectionCircle, 1000000000, 5, 1000000010, 7);
  EXPECT_EQ(Raster(canvas), (std::vector<std::vector<int>>{none, none, none}));
  load(cmd::kSelectionPolygon, 0, 0, 0, 0);
  EXPECT_EQ(SelectionBox(canvas), (Rect{INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX}));
}

TEST_F(SelectionFileTest, RefusalsLeaveNoFile) {
  Canvas* canvas = MakeBlank(8, 8);
  // Everything selected: nothing to save, and that is no failure.
  EXPECT_EQ(SaveSelection(folder / "none.tss", canvas), 1);
  // Invert leaves a raster without a shape: refused, silently.
  EnsurePlane(canvas, 1);
  canvas->selectionKind = kShapelessSelection;
  EXPECT_EQ(SaveSelection(folder / "inverted.tss", canvas), 0);
  // A folder that isn't there.
  Shape(canvas, cmd::kSelectionBox, 1, 1, 2, 2);
  EXPECT_EQ(SaveSelection(folder / "missing/box.tss", canvas), 0);
  EXPECT_FALSE(folder.Exists("none.tss") || folder.Exists("inverted.tss") ||
               folder.Exists("missing/box.tss"));
  EXPECT_TRUE(headless::Recorded().boxes.empty());

  // A file that isn't there loads nothing; the buttons repaint all the same.
  int repaints = 0;
  draftAllowsHooks.Add([&] { ++repaints; });
  EXPECT_EQ(LoadSelection(folder / "absent.tss", canvas), 0);
  EXPECT_EQ(repaints, 1);
  // A stray kind is loaded but never sent as a command.
  std::vector<uint8_t> stray(40988, 0);
  Put(&stray, 0, cmd::kSaveSelection);
  folder.Write("stray.tss", stray);
  EXPECT_EQ(LoadSelection(folder / "stray.tss", canvas), 1);
  EXPECT_TRUE(commands.empty());
}

}  // namespace
