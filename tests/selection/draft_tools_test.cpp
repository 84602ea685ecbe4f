// The five shape tools driven by a scripted pointer: drawn, edited by
// their pegs, moved and committed, the raster compared with references
// written here from the rules of each shape.
#include <algorithm>
#include <cmath>
#include <map>

#include "base/command_ids.h"
#include "base/command_registry.h"
#include "draft_fixture.h"
#include "selection/draft_engine.h"
#include "selection/point_tools.h"

namespace {

using Raster = std::vector<uint8_t>;

Raster BoxReference(int width, int height, const Rect& box) {
  Raster r;
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      r.push_back(x >= box.left && x <= box.right && y >= box.top && y <= box.bottom ? 0 : 255);
  return r;
}

Raster Uniform(int width, int height, uint8_t value) {
  return Raster(static_cast<size_t>(width * height), value);
}

}  // namespace

TEST_F(DraftTest, BoxIsDrawnEditedByItsPegsMovedAndMaySitPartlyOffTheCanvas) {
  Drag(cmd::kSelectionBox, {5, 6}, {{12, 9}, {20, 15}});
  EXPECT_EQ(canvas->selectionKind, cmd::kSelectionBox);
  EXPECT_EQ(Box(), (Rect{5, 6, 20, 15}));
  EXPECT_EQ(Values(), BoxReference(40, 30, Box()));
  // At rest: the frame and its eight pegs, middles at the integer average.
  std::set<std::tuple<std::string, int, int, int, int>> outline = {
      {"box", 5, 6, 20, 15}, PegAt(5, 6),   PegAt(20, 6), PegAt(20, 15), PegAt(5, 15),
      PegAt(12, 6),          PegAt(12, 15), PegAt(5, 10), PegAt(20, 10)};
  EXPECT_EQ(shown, outline);

  Drag(cmd::kSelectionBox, {21, 14}, {{30, 25}});  // corner 2, within 3 pixels
  EXPECT_EQ(Box(), (Rect{5, 6, 30, 25}));
  Drag(cmd::kSelectionBox, {5, 15}, {{2, 15}});  // the left middle
  EXPECT_EQ(Box(), (Rect{2, 6, 30, 25}));
  Drag(cmd::kSelectionBox, {3, 16}, {{-9, 20}});  // a peg is held to the canvas
  EXPECT_EQ(Box(), (Rect{0, 6, 30, 25}));

  Drag(cmd::kSelectionBox, {10, 10}, {{15, 12}});  // the body
  EXPECT_EQ(Box(), (Rect{5, 8, 35, 27}));
  Drag(cmd::kSelectionBox, {20, 20}, {{30, 20}});
  EXPECT_EQ(Box(), (Rect{15, 8, 45, 27}));
  EXPECT_EQ(Values(), BoxReference(40, 30, Box()));
  EXPECT_EQ(canvas->selectionKind, cmd::kSelectionBox);
}

TEST_F(DraftTest, AClickSelectsNothingWhileDeselectSelectsEverything) {
  Drag(cmd::kSelectionBox, {5, 6}, {{20, 15}});
  Drag(cmd::kSelectionBox, {30, 25}, {});
  EXPECT_EQ(canvas->selectionKind, kNoDraft);
  EXPECT_EQ(Values(), Uniform(40, 30, 255));
  EXPECT_TRUE(shown.empty());

  Drag(cmd::kSelectionCircle, {3, 3}, {{3, 20}});  // no width
  EXPECT_EQ(canvas->selectionKind, kNoDraft);
  Drag(cmd::kSelectionLine, {3, 3}, {{9, 9}, {3, 3}});  // the ends meet again
  EXPECT_EQ(canvas->selectionKind, kNoDraft);
  EXPECT_EQ(Values(), Uniform(40, 30, 255));

  Drag(cmd::kSelectionBox, {5, 6}, {{20, 15}});
  int repaints = 0;
  viewWindows.invalidate = [&](Canvas*) { ++repaints; };
  EXPECT_EQ(RunCanvasHandler(canvas, cmd::kDeselect, 0), 1);
  EXPECT_EQ(canvas->selectionPlane, nullptr);
  EXPECT_EQ(Values(), Uniform(40, 30, 0));
  EXPECT_EQ(Box(), (Rect{0, 0, 39, 29}));
  EXPECT_TRUE(shown.empty());
  EXPECT_EQ(repaints, 1);
}

TEST_F(DraftTest, ShiftMakesSquaresOnEitherSideOfTheStart) {
  Hold({platform::VkShift});
  Drag(cmd::kSelectionBox, {10, 20}, {{15, 5}});  // above the start
  EXPECT_EQ(Box(), (Rect{10, 15, 15, 20}));
  Drag(cmd::kSelectionBox, {20, 2}, {{36, 28}});
  EXPECT_EQ(Box(), (Rect{20, 2, 36, 18}));
  // Corner 0 dragged: its y is set from the opposite corner (36, 18).
  Drag(cmd::kSelectionBox, {20, 2}, {{16, 3}});
  EXPECT_EQ(Box(), (Rect{16, -2, 36, 18}));
  // A new square that runs off the bottom is cut to the canvas.
  Drag(cmd::kSelectionBox, {2, 20}, {{20, 22}});
  EXPECT_EQ(Box(), (Rect{2, 20, 20, 29}));
}

namespace {

// The midpoint walk of the rules, kept as the widest reach from the centre
// on each row, then every pixel asked whether it lies within its row's.
Raster EllipseReference(int width, int height, const Rect& b) {
  const int w = b.right - b.left + 1, h = b.bottom - b.top + 1;
  const int cx = (b.left + b.right) / 2, cy = (b.top + b.bottom) / 2;
  const int big = std::max(w, h) / 2 * 2, r = big / 2;
  std::map<int, int> reach;  // row -> half width
  auto mark = [&](int row, int half) {
    reach[row] = std::max(reach.count(row) ? reach[row] : -1, half);
  };
  for (int x = 0, y = r, e = 2 - big;;) {
    if (w > h) {
      mark(cy + y * h / w, x);
      mark(cy - y * h / w, x);
    } else {
      mark(cy + y, x * w / h);
      mark(cy - y, x * w / h);
    }
    if (y == 0) break;
    if (e < 0 && (e + y) * 2 - 1 < 1) {
      x += 1, e += 2 * x + 1;
    } else if (e > 0 && (e - x) * 2 - 1 >= 1) {
      e += 3 - 2 * y, y -= 1;
    } else {
      x += 1, y -= 1, e += 2 * (x - y) + 2;
    }
  }
  Raster out;
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      out.push_back(reach.count(y) && std::abs(x - cx) <= reach[y] ? 0 : 255);
  return out;
}

// Even-odd by rows: the crossings of the edges that span the row (and at
// the last row those that end on it), truncated as 32-bit floats, and a
// pixel inside when it lies between the 2k-th and the next.
Raster PolygonReference(int width, int height, const std::vector<Point>& p) {
  int minY = p[0].y, maxY = p[0].y;
  for (const Point& q : p) minY = std::min(minY, q.y), maxY = std::max(maxY, q.y);
  Raster out;
  for (int y = 0; y < height; ++y) {
    std::vector<int> xs;
    for (size_t i = 1; i < p.size() && y >= minY && y <= maxY; ++i) {
      const Point a = p[i - 1], c = p[i];
      if (a.y == c.y) continue;
      const int low = std::min(a.y, c.y), high = std::max(a.y, c.y);
      if (!((low <= y && high > y) || (y == maxY && high == maxY))) continue;
      const float slope = float(c.x - a.x) / float(c.y - a.y);
      xs.push_back(int(slope * float(y) + (float(a.x) - float(a.y) * slope)));
    }
    std::sort(xs.begin(), xs.end());
    for (int x = 0; x < width; ++x) {
      bool inside = false;
      for (size_t k = 0; k + 1 < xs.size(); k += 2) inside |= x >= xs[k] && x <= xs[k + 1];
      out.push_back(inside ? 0 : 255);
    }
  }
  return out;
}

void SetPoints(Canvas* canvas, const std::vector<Point>& points) {
  for (size_t i = 0; i < points.size(); ++i) {
    canvas->draftPoints[i][0] = float(points[i].x);
    canvas->draftPoints[i][1] = float(points[i].y);
  }
  canvas->draftPointCount = static_cast<uint32_t>(points.size());
}

}  // namespace

TEST_F(DraftTest, CircleOutlineShowsFourPegsAndItsRasterFollowsTheWalk) {
  Drag(cmd::kSelectionCircle, {2, 3}, {{30, 20}});
  EXPECT_EQ(canvas->selectionKind, cmd::kSelectionCircle);
  EXPECT_EQ(Values(), EllipseReference(40, 30, Box()));
  std::set<std::tuple<std::string, int, int, int, int>> outline = {{"arc", 2, 3, 30, 20},
                                                                   {"line", 2, 3, 30, 3},
                                                                   {"line", 30, 3, 30, 20},
                                                                   {"line", 30, 20, 2, 20},
                                                                   {"line", 2, 20, 2, 3},
                                                                   PegAt(2, 3),
                                                                   PegAt(30, 3),
                                                                   PegAt(30, 20),
                                                                   PegAt(2, 20)};
  EXPECT_EQ(shown, outline);
  // The middles work unseen.
  Drag(cmd::kSelectionCircle, {2, 11}, {{0, 11}});
  EXPECT_EQ(Box(), (Rect{0, 3, 30, 20}));
  Drag(cmd::kSelectionCircle, {10, 10}, {{12, 16}});
  EXPECT_EQ(Box(), (Rect{2, 9, 32, 26}));
  EXPECT_EQ(Values(), EllipseReference(40, 30, Box()));
}

TEST_F(DraftTest, EllipsesOfManyShapesMatchTheWalk) {
  Canvas* big = MakeBlank(64, 48);
  uint32_t seed = 12345;
  auto next = [&](int n) { return int((seed = seed * 1103515245 + 12345) >> 16) % n; };
  for (int i = 0; i < 60; ++i) {
    const Rect box{next(60), next(44), 0, 0};
    const Rect full{box.left, box.top, box.left + next(64 - box.left),
                    box.top + next(48 - box.top)};
    big->selectionKind = cmd::kSelectionCircle;
    big->selLeft = full.left, big->selTop = full.top, big->selRight = full.right,
    big->selBottom = full.bottom;
    CommitShape(big, 0, 0);
    Raster got;
    for (int y = 0; y < 48; ++y)
      for (int x = 0; x < 64; ++x) got.push_back(ReadSelectionPixel(big, x, y));
    ASSERT_EQ(got, EllipseReference(64, 48, full))
        << full.left << "," << full.top << " " << full.right << "," << full.bottom;
  }
}

TEST_F(DraftTest, RandomPolygonsMatchTheEvenOddRows) {
  uint32_t seed = 777;
  auto next = [&](int n) { return int((seed = seed * 1103515245 + 12345) >> 16) % n; };
  for (int i = 0; i < 80; ++i) {
    std::vector<Point> points(3 + next(8));
    for (Point& p : points) p = {next(50) - 5, next(40) - 5};  // some off the canvas
    points.push_back(points[0]);
    SetPoints(canvas, points);
    canvas->selectionKind = cmd::kSelectionPolygon;
    CommitShape(canvas, 0, 0);
    ASSERT_EQ(Values(), PolygonReference(40, 30, points)) << "polygon " << i;
  }
}

TEST_F(DraftTest, LineKeepsItsDirectionAndSnapsTowardsZero) {
  Drag(cmd::kSelectionLine, {30, 20}, {{5, 10}});
  EXPECT_EQ(canvas->selectionKind, cmd::kSelectionLine);
  EXPECT_EQ(Box(), (Rect{30, 20, 5, 10}));
  EXPECT_EQ(Values(), Uniform(40, 30, 0));  // a path to paint along: all selected
  std::set<std::tuple<std::string, int, int, int, int>> outline = {
      {"line", 30, 20, 5, 10}, PegAt(30, 20), PegAt(5, 10)};
  EXPECT_EQ(shown, outline);

  // An end follows the pointer, written into the box without a commit.
  int commits = 0;
  historyHooks.Add([&](Canvas*) { ++commits; });
  Drag(cmd::kSelectionLine, {6, 11}, {{8, 2}});
  EXPECT_EQ(Box(), (Rect{30, 20, 8, 2}));
  EXPECT_EQ(commits, 0);
  Drag(cmd::kSelectionLine, {19, 11}, {{21, 12}});  // the body
  EXPECT_EQ(Box(), (Rect{32, 21, 10, 3}));
  EXPECT_EQ(commits, 1);

  Hold({platform::VkShift});
  // -7.6 degrees is cut to 0, not to -15; the length is truncated.
  Drag(cmd::kSelectionLine, {2, 25}, {{32, 21}});
  EXPECT_EQ(Box(), (Rect{2, 25, 32, 25}));
  // 20.1 degrees gives 15: length 31, cos 29.94, sin 8.02.
  Drag(cmd::kSelectionLine, {2, 2}, {{32, 13}});
  EXPECT_EQ(Box(), (Rect{2, 2, 31, 10}));
  // 26.6 degrees gives 15 at length 33, (61, 13) from (30, 5), then the
  // canvas holds the end and the direction goes.
  Drag(cmd::kSelectionLine, {30, 5}, {{60, 20}});
  EXPECT_EQ(Box(), (Rect{30, 5, 39, 13}));
}

TEST_F(DraftTest, PolygonByClicksClosesOnItsFirstPoint) {
  using E = ClickEvent;
  Clicks(cmd::kSelectionPolygon, {5, 5},
         {{E::Move, {30, 5}},
          {E::LeftDown, {30, 5}},
          {E::Move, {30, 25}},
          {E::LeftDown, {30, 25}},
          {E::Move, {12, 25}},
          {E::Move, {5, 25}},
          {E::LeftDown, {5, 25}},
          {E::Move, {9, 9}},
          {E::RightUp, {9, 9}}});
  EXPECT_EQ(canvas->selectionKind, cmd::kSelectionPolygon);
  const std::vector<Point> square = {{5, 5}, {30, 5}, {30, 25}, {5, 25}, {5, 5}};
  ASSERT_EQ(canvas->draftPointCount, 5u);
  EXPECT_EQ(Values(), PolygonReference(40, 30, square));
  EXPECT_EQ(Box(), (Rect{5, 5, 30, 25}));
  std::set<std::tuple<std::string, int, int, int, int>> outline = {{"line", 5, 5, 30, 5},
                                                                   {"line", 30, 5, 30, 25},
                                                                   {"line", 30, 25, 5, 25},
                                                                   {"line", 5, 25, 5, 5},
                                                                   PegAt(5, 5),
                                                                   PegAt(30, 5),
                                                                   PegAt(30, 25),
                                                                   PegAt(5, 25)};
  EXPECT_EQ(shown, outline);

  // Peg 0 dragged moves the closing point with it.
  Drag(cmd::kSelectionPolygon, {5, 5}, {{2, 1}});
  EXPECT_EQ(canvas->draftPoints[4][0], 2.f);
  EXPECT_EQ(canvas->draftPoints[4][1], 1.f);
  // The body moves every point, off the canvas too.
  Drag(cmd::kSelectionPolygon, {20, 20}, {{35, 20}});
  EXPECT_EQ(canvas->draftPoints[0][0], 17.f);
  EXPECT_EQ(canvas->draftPoints[2][0], 45.f);
  EXPECT_EQ(Values(), PolygonReference(40, 30, {{17, 1}, {45, 5}, {45, 25}, {20, 25}, {17, 1}}));
}

TEST_F(DraftTest, PolygonRunsOfFewClicksAndPastTheCapacity) {
  using E = ClickEvent;
  // One click: count 3 with the closing point, an area of nothing.
  Clicks(cmd::kSelectionPolygon, {5, 5}, {{E::Move, {20, 5}}, {E::LeftDown, {20, 5}}});
  EXPECT_EQ(canvas->selectionKind, cmd::kSelectionPolygon);
  EXPECT_EQ(canvas->draftPointCount, 3u);
  EXPECT_EQ(Values(), Uniform(40, 30, 255));
  // No click: no Draft.
  Clicks(cmd::kSelectionPolygon, {25, 20}, {{E::Move, {20, 20}}});
  EXPECT_EQ(canvas->selectionKind, kNoDraft);
  EXPECT_EQ(canvas->draftPointCount, 0u);
  // Backspace down to nothing ends the run.
  Clicks(cmd::kSelectionPolygon, {8, 8},
         {{E::LeftDown, {9, 9}},
          {E::Backspace, {9, 9}},
          {E::Backspace, {9, 9}},
          {E::Backspace, {9, 9}},
          {E::LeftDown, {30, 9}}});
  EXPECT_EQ(canvas->selectionKind, kNoDraft);
  EXPECT_EQ(clicks.size(), 1u);
  // Clicks past the list's end end the run there, closed. (The band of
  // thousands of lines isn't watched.)
  selectionWindows.invertLine = nullptr;
  std::vector<std::pair<E::Type, Point>> many;
  for (int i = 0; i < 5200; ++i) many.push_back({E::LeftDown, {i % 40, (i / 40) % 30}});
  Clicks(cmd::kSelectionPolygon, {0, 0}, many);
  EXPECT_EQ(canvas->selectionKind, cmd::kSelectionPolygon);
  EXPECT_EQ(canvas->draftPointCount, 5120u);
  EXPECT_EQ(canvas->draftPoints[5119][0], 0.f);
  EXPECT_EQ(canvas->draftPoints[5119][1], 0.f);
  EXPECT_FALSE(clicks.empty());
}

TEST_F(DraftTest, PegMenuAddsAndDeletesPointsWithTheirCounts) {
  SetPoints(canvas, {{5, 5}, {30, 5}, {30, 25}, {5, 5}});
  canvas->selectionKind = cmd::kSelectionPolygon;
  CommitShape(canvas, 0, 0);
  currentTool = cmd::kSelectionPolygon;
  at = {5, 5};  // the first point, and the last
  menuAnswer = kAddPoint;
  EXPECT_EQ(pointerRoutes.draftRightPress(canvas), 1);
  ASSERT_EQ(menus.size(), 1u);
  EXPECT_EQ(menus[0].first, "tsDraftPoly");
  EXPECT_TRUE(menus[0].second[0].enabled);
  EXPECT_TRUE(menus[0].second[1].enabled);
  // A hit on the last index is index 0: the new point lies beside it.
  ASSERT_EQ(canvas->draftPointCount, 5u);
  EXPECT_EQ(canvas->draftPoints[0][0], 10.f);
  EXPECT_EQ(canvas->draftPoints[1][0], 5.f);
  EXPECT_EQ(canvas->draftPoints[4][0], 5.f);

  at = {10, 10};
  menuAnswer = kDeletePoint;
  EXPECT_EQ(pointerRoutes.draftRightPress(canvas), 1);
  ASSERT_EQ(canvas->draftPointCount, 4u);
  // Index 0 went: the new first point is copied to the last place.
  EXPECT_EQ(canvas->draftPoints[0][0], 5.f);
  EXPECT_EQ(canvas->draftPoints[3][0], 5.f);
  EXPECT_EQ(canvas->draftPoints[3][1], 5.f);

  // Off every peg the menu isn't the tool's.
  at = {20, 20};
  EXPECT_EQ(pointerRoutes.draftRightPress(canvas), 0);
  // The count falls by one even where nothing could be deleted.
  DeletePoint(canvas, 1, true);
  EXPECT_EQ(canvas->draftPointCount, 3u);
  DeletePoint(canvas, 1, true);
  EXPECT_EQ(canvas->draftPointCount, 2u);
  EXPECT_EQ(canvas->draftPoints[1][0], 30.f);
}

TEST_F(DraftTest, ConnectLineNeedsTwoClicksAndLeavesItsRubberPoint) {
  using E = ClickEvent;
  Clicks(cmd::kConnectLine, {5, 5},
         {{E::Move, {20, 5}},
          {E::LeftDown, {20, 5}},
          {E::Move, {50, 40}},
          {E::LeftDown, {50, 40}},
          {E::Move, {30, 2}},
          {E::RightUp, {30, 2}}});
  EXPECT_EQ(canvas->selectionKind, cmd::kConnectLine);
  ASSERT_EQ(canvas->draftPointCount, 3u);
  EXPECT_EQ(canvas->draftPoints[2][0], 39.f);  // clamped when fixed
  EXPECT_EQ(canvas->draftPoints[2][1], 29.f);
  EXPECT_EQ(Values(), Uniform(40, 30, 0));
  std::set<std::tuple<std::string, int, int, int, int>> outline = {
      {"line", 5, 5, 20, 5}, {"line", 20, 5, 39, 29}, PegAt(5, 5), PegAt(20, 5), PegAt(39, 29)};
  EXPECT_EQ(shown, outline);

  Clicks(cmd::kConnectLine, {5, 20}, {{E::Move, {20, 5}}, {E::LeftDown, {20, 5}}});
  EXPECT_EQ(canvas->selectionKind, kNoDraft);
  EXPECT_TRUE(shown.empty());
}
