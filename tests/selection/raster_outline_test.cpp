// The outline of a shapeless raster: its runs against the unit edges
// found one by one, and what a drawing of the view takes.
#include <gtest/gtest.h>

#include <array>
#include <random>
#include <set>
#include <tuple>
#include <vector>

#include "base/command_ids.h"
#include "document/canvas_rows.h"
#include "document/selection_rows.h"
#include "selection/raster_outline.h"
#include "selection/selection_windows.h"
#include "support/fixture.h"

namespace {

// (horizontal?, line, position) of each unit edge.
using UnitEdges = std::set<std::tuple<bool, int, int>>;

class RasterOutlineTest : public TeselTest {
 protected:
  // Selected where the value is below 128; outside the canvas nothing is.
  static bool In(Canvas* canvas, int x, int y) {
    if (x < 0 || y < 0 || x >= canvas->canvasWidth || y >= canvas->canvasHeight) return false;
    return ReadSelectionPixel(canvas, x, y) < 128;
  }
  static UnitEdges SlowEdges(Canvas* canvas) {
    UnitEdges edges;
    for (int y = 0; y <= canvas->canvasHeight; ++y)
      for (int x = 0; x <= canvas->canvasWidth; ++x) {
        if (x < canvas->canvasWidth && In(canvas, x, y - 1) != In(canvas, x, y))
          edges.insert({true, y, x});
        if (y < canvas->canvasHeight && In(canvas, x - 1, y) != In(canvas, x, y))
          edges.insert({false, x, y});
      }
    return edges;
  }
  static UnitEdges Expand(const RasterEdges& edges) {
    UnitEdges units;
    for (const auto& [runs, horizontal] :
         {std::pair{&edges.horizontal, true}, std::pair{&edges.vertical, false}}) {
      for (size_t i = 0; i < runs->size(); ++i) {
        const EdgeRun& run = (*runs)[i];
        for (int p = run.first; p <= run.last; ++p) units.insert({horizontal, run.line, p});
        // Runs are whole: the next one on the line doesn't touch this one.
        if (i + 1 < runs->size() && (*runs)[i + 1].line == run.line) {
          EXPECT_GT((*runs)[i + 1].first, run.last + 1);
        }
      }
    }
    return units;
  }
};

TEST_F(RasterOutlineTest, RunsCoverExactlyTheEdgesBetweenSelectedAndNot) {
  std::mt19937 random(5);
  for (const auto& [width, height] : {std::pair{1, 1}, std::pair{5, 3}, std::pair{23, 17}}) {
    Canvas* canvas = MakeBlank(width, height);
    ASSERT_EQ(EnsurePlane(canvas, 1), 1);
    std::vector<uint8_t> row(static_cast<size_t>(width));
    for (int y = 0; y < height; ++y) {
      for (uint8_t& v : row) v = static_cast<uint8_t>(random() % 3 == 0 ? 200 : random() % 128);
      WriteSelectionRow(canvas, y, 0, width - 1, row.data());
    }
    const RasterEdges edges = EdgesOf(canvas);
    EXPECT_FALSE(edges.tooMany);
    EXPECT_EQ(Expand(edges), SlowEdges(canvas)) << width << "x" << height;
  }
}

TEST_F(RasterOutlineTest, OnlyAShapelessRasterDrawsAndOnlyWhatTheViewShows) {
  Canvas* canvas = MakeBlank(40, 30);
  std::vector<std::array<int, 4>> lines;
  selectionWindows.invertLine = [&](Canvas*, OutlinePen, int x0, int y0, int x1, int y1) {
    lines.push_back({x0, y0, x1, y1});
  };
  // A 2 x 2 square at (30, 20): four runs.
  ASSERT_EQ(EnsurePlane(canvas, 1), 1);
  FillPlane(canvas, 1);
  const uint8_t zeros[2] = {0, 0};
  WriteSelectionRow(canvas, 20, 30, 31, zeros);
  WriteSelectionRow(canvas, 21, 30, 31, zeros);
  canvas->selectionKind = cmd::kSelectionBox;
  ToggleRasterOutline(canvas);
  EXPECT_TRUE(lines.empty());
  canvas->selectionKind = kShapelessSelection;
  ToggleRasterOutline(canvas);
  EXPECT_EQ(lines.size(), 4u);
  // The top edge takes both its corners; the left edge leaves them out.
  EXPECT_EQ(lines[0], (std::array<int, 4>{30, 20, 33, 20}));
  EXPECT_EQ(lines[2], (std::array<int, 4>{30, 21, 30, 22}));
  // A view of 10 x 10 pixels at the top left shows none of it.
  lines.clear();
  canvas->clientWidth = canvas->clientHeight = 10;
  ToggleRasterOutline(canvas);
  EXPECT_TRUE(lines.empty());
  // A change through the row service is seen at the next drawing: now the
  // canvas's border.
  canvas->clientWidth = canvas->clientHeight = 0;
  FillPlane(canvas, 0);
  ToggleRasterOutline(canvas);
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_EQ(lines[0], (std::array<int, 4>{0, 0, 41, 0}));
  // One written straight into the plane is seen once it is told.
  lines.clear();
  const uint8_t outside[2] = {255, 255};
  WritePlaneSpan(canvas->selectionPlane, 0, 0, 1, outside);
  ToggleRasterOutline(canvas);
  EXPECT_EQ(lines.size(), 4u);
  lines.clear();
  SelectionRasterChanged(canvas);
  ToggleRasterOutline(canvas);
  EXPECT_GT(lines.size(), 4u);
}

}  // namespace
