// The wire against a slow reference of its score and Track written here
// from the rules, and its click loop on a picture with a strong edge.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <vector>

#include "base/command_ids.h"
#include "display/view_fixture.h"
#include "document/canvas_rows.h"
#include "document/selection_rows.h"
#include "selection/draft.h"
#include "selection/draft_engine.h"
#include "selection/point_tools.h"
#include "selection/selection_windows.h"
#include "selection/shape_tool.h"
#include "selection/wire_tool.h"
#include "selection/wire_track.h"

namespace {

using Points = std::vector<std::array<int, 2>>;

// --- The reference: one pixel at a time, straight from the rules. ---

int RefLuma(Canvas* canvas, int x, int y) {
  const PlaneSlot& slot = canvas->planes[canvas->activePlane];
  x = std::min(std::max(x, slot.left), slot.left + slot.width - 1);
  y = std::min(std::max(y, slot.top), slot.top + slot.height - 1);
  uint8_t bgr[3];
  ReadImageRow(canvas, y, x, x, bgr);
  return (151 * bgr[0] + 77 * bgr[1] + 28 * bgr[2]) / 256;
}

int RefStrength(Canvas* canvas, int x, int y) {
  const int kx[3][3] = {{1, 0, -1}, {2, 0, -2}, {1, 0, -1}};
  const int ky[3][3] = {{1, 2, 1}, {0, 0, 0}, {-1, -2, -1}};
  int gx = 0, gy = 0;
  for (int j = 0; j < 3; ++j)
    for (int i = 0; i < 3; ++i) {
      const int v = RefLuma(canvas, x + i - 1, y + j - 1);
      gx += kx[j][i] * v, gy += ky[j][i] * v;
    }
  return std::min(255, static_cast<int>(std::sqrt(gx * gx + gy * gy)));
}

int RefDistance(int dx, int dy) { return static_cast<int>(std::sqrt(dx * dx + dy * dy)); }

std::array<int, 2> RefBest(Canvas* canvas, int x, int y, int last) {
  const int xprev = x, yprev = y;  // the walked position is the previous point
  int d2 = RefDistance(x - xprev, x - yprev);
  bool keepLuma = true;
  if (d2 >= 65) d2 = 0, keepLuma = false;
  std::array<int, 2> best{x, y};
  int bestScore = 0;
  for (int py = y - 10; py <= y + 10; ++py)
    for (int px = x - 10; px <= x + 10; ++px) {
      const int s = RefStrength(canvas, px, py);
      const int d1 = RefDistance(px - x, py - y);
      const int luma = keepLuma ? RefLuma(canvas, px, py) - RefLuma(canvas, x, y) : 0;
      int score = (s - (d2 + d1 * 2) * 4) * 2 - std::abs(luma) / 4 - std::abs(s - last);
      if (score < 0) score = 0;
      if (score > bestScore) bestScore = score, best = {px, py};
    }
  return best;
}

Points RefThin(Points p) {
  for (bool again = true; again;) {
    again = false;
    for (size_t i = 0; i + 2 < p.size(); ++i) {
      const auto a = p[i], b = p[i + 1], c = p[i + 2];
      if (std::abs((a[0] - c[0]) * (b[1] - c[1]) - (b[0] - c[0]) * (a[1] - c[1])) < 10) {
        p.erase(p.begin() + i + 1);
        again = true;
        break;
      }
    }
  }
  return p;
}

Points RefTrack(Canvas* canvas, int x0, int y0, int x1, int y1, int last) {
  const int dx = x1 - x0, dy = y1 - y0;
  const int length = std::max(std::abs(dx), std::abs(dy));
  Points p;
  for (int i = 0; i < length; i += 2) {
    int wx, wy;
    if (std::abs(dx) >= std::abs(dy))
      wx = x0 + (dx < 0 ? -i : i), wy = y0 + dy * i / length;
    else
      wy = y0 + (dy < 0 ? -i : i), wx = x0 + dx * i / length;
    p.push_back(RefBest(canvas, wx, wy, last));
  }
  return RefThin(p);
}

Points AsPoints(const std::vector<CanvasPoint>& points) {
  Points p;
  for (const CanvasPoint& c : points) p.push_back({c.x, c.y});
  return p;
}

Points DraftPoints(const Canvas* canvas) {
  Points p;
  for (uint32_t i = 0; i < canvas->draftPointCount; ++i)
    p.push_back(
        {static_cast<int>(canvas->draftPoints[i][0]), static_cast<int>(canvas->draftPoints[i][1])});
  return p;
}

class WireTest : public ViewTest {
 protected:
  // Every pixel from its position, as blue, green, red.
  template <typename Colour>
  void Paint(Canvas* canvas, Colour colour) {
    std::vector<uint8_t> row(canvas->canvasWidth * 3);
    for (int y = 0; y < canvas->canvasHeight; ++y) {
      for (int x = 0; x < canvas->canvasWidth; ++x) colour(x, y, &row[x * 3]);
      WriteImageRow(canvas, y, 0, canvas->canvasWidth - 1, row.data());
    }
  }
  // Dark left of column 40, light grey from it on.
  Canvas* EdgePicture() {
    Canvas* canvas = MakeBlank(80, 60);
    Paint(canvas, [](int x, int, uint8_t* bgr) { bgr[0] = bgr[1] = bgr[2] = x < 40 ? 0 : 200; });
    return canvas;
  }

  // The click loop's events, each with the pointer where it happens and
  // Shift up or down; the loop ends with a right click when they run out.
  struct Event {
    ClickEvent::Type type;
    int x, y;
    bool shift = false;
  };
  void Script(Canvas*, std::initializer_list<Event> list) { events.insert(events.end(), list); }
  void ScriptEvents() {
    viewWindows.pointer = [this](Canvas*) { return PointerState{at[0], at[1], at[0], at[1], 1}; };
    selectionWindows.nextClickEvent = [this](Canvas*) {
      if (events.empty()) return ClickEvent{ClickEvent::RightUp};
      const Event e = events.front();
      events.pop_front();
      at = {e.x, e.y};
      headless::Recorded().pointer.keysDown.clear();
      if (e.shift) headless::Recorded().pointer.keysDown.push_back(platform::VkShift);
      return ClickEvent{e.type};
    };
  }

  std::deque<Event> events;
  std::array<int, 2> at{};
};

TEST_F(WireTest, BestPixelAndTrackMatchTheReferenceOnANoisyPicture) {
  Canvas* canvas = MakeBlank(120, 70);
  // A noisy picture whose channels differ, so that the order of the luma
  // weights shows; rows far from the diagonal make the |x - y| >= 65 case.
  uint32_t seed = 12345;
  Paint(canvas, [&](int x, int y, uint8_t* bgr) {
    for (int c = 0; c < 3; ++c) {
      seed = seed * 1103515245u + 12345u;
      bgr[c] = static_cast<uint8_t>(((x / 7 + y / 5) % 2 ? 180 : 40) + (seed >> 16) % 40 * (c + 1));
    }
  });
  for (int last : {0, 90, 255})
    for (auto [x, y] : std::vector<std::pair<int, int>>{{0, 0},
                                                        {5, 3},
                                                        {60, 30},
                                                        {119, 69},
                                                        {-8, 75},
                                                        {100, 10},
                                                        {110, 2},
                                                        {30, 66},
                                                        {125, -4}})
      EXPECT_EQ(AsPoints({BestPixel(canvas, {x, y}, last)})[0], RefBest(canvas, x, y, last))
          << x << "," << y << " last " << last;
  for (auto [x0, y0, x1, y1] : std::vector<std::array<int, 4>>{
           {3, 4, 100, 20}, {100, 60, 10, 50}, {20, 5, 24, 65}, {90, 65, 70, 1}, {50, 50, 51, 51}})
    EXPECT_EQ(AsPoints(Track(canvas, {x0, y0}, {x1, y1}, 120)),
              RefTrack(canvas, x0, y0, x1, y1, 120));

  // On an 8-bit plane the one value is the luma: the mask of the layer.
  const int position = CanvasManager.AddPlane(canvas, 0, 0);
  ASSERT_GT(position, 0);
  CanvasManager.SelectPlane(canvas, SlotIndex(0, position));
  std::vector<uint8_t> mask(canvas->canvasWidth);
  for (int y = 0; y < canvas->canvasHeight; ++y) {
    for (int x = 0; x < canvas->canvasWidth; ++x) mask[x] = (x * 7 + y * 3) % 11 * 23;
    WritePlaneSpan(ActiveSlot(canvas).plane, y, 0, canvas->canvasWidth - 1, mask.data());
  }
  EXPECT_EQ(RefLuma(canvas, 3, 2), (3 * 7 + 2 * 3) % 11 * 23);
  EXPECT_EQ(AsPoints(Track(canvas, {5, 60}, {90, 8}, 40)), RefTrack(canvas, 5, 60, 90, 8, 40));
}

TEST_F(WireTest, ThinningDropsNearlyStraightMiddlesAndLooksBackAfterEachDrop) {
  // (2,0) lies on its line; once (6,3) goes, (0,0) (4,0) (8,9) is looked
  // at again (twice its area 36) and stays.
  std::vector<CanvasPoint> points{{0, 0}, {2, 0}, {4, 0}, {6, 3}, {8, 9}};
  ThinTrack(&points);
  EXPECT_EQ(AsPoints(points), (Points{{0, 0}, {4, 0}, {8, 9}}));
  // Twice the area exactly 10 stays; 9 goes.
  points = {{0, 0}, {5, 2}, {10, 0}};
  ThinTrack(&points);
  EXPECT_EQ(points.size(), 3u);
  points = {{0, 0}, {3, 1}, {9, 0}};
  ThinTrack(&points);
  EXPECT_EQ(points.size(), 2u);
}

TEST_F(WireTest, RunSnapsToTheEdgeTracksItAndClosesOnTheFirstPoint) {
  Canvas* canvas = EdgePicture();
  int outlines = 0;
  ShapeTool polygon;
  polygon.outline = [&](Canvas*) { ++outlines; };
  RegisterShapeTool(cmd::kSelectionPolygon, polygon);
  ScriptEvents();
  at = {35, 5};
  Script(canvas, {
                     {ClickEvent::Move, 45, 10},  // 10 + 5 < 25: no Track
                     {ClickEvent::Move, 39, 50},
                     {ClickEvent::LeftDown, 39, 50},
                     {ClickEvent::LeftDown, 10, 50, true},
                     {ClickEvent::LeftDown, 5, 5, true},
                     {ClickEvent::Backspace, 5, 5},
                     {ClickEvent::LeftDown, 10, 10, true},
                     {ClickEvent::Move, 12, 12, true},
                     {ClickEvent::RightUp, 12, 12},
                 });
  RunWire(canvas);
  // Columns 39 and 40 both have strength 4 x 200, cut to 255; from the
  // cursor at (35,5) the best score is 255 - 4 x 4, at (39,3) to (39,7),
  // and rows are scanned from the top.
  EXPECT_EQ(lastEdgeStrength, 255);
  // The Track down the edge stays in column 39 (distance 0 wins) and thins
  // to its ends; Shift places points, the last followed the pointer and
  // then took the first point's place.
  EXPECT_EQ(DraftPoints(canvas), (Points{{39, 3}, {39, 3}, {39, 49}, {10, 50}, {39, 3}}));
  EXPECT_EQ(canvas->selectionKind, cmd::kSelectionPolygon);
  EXPECT_EQ(ReadSelectionPixel(canvas, 30, 40), 0);
  EXPECT_EQ(ReadSelectionPixel(canvas, 5, 5), 255);
  EXPECT_EQ(SelectionBox(canvas), (Rect{10, 3, 39, 50}));
  EXPECT_EQ(outlines, 1);  // shown at rest once the run is over

  // A right click before two more points leaves no Draft: a raster of all
  // 255, as every empty shape commits.
  Script(canvas, {{ClickEvent::RightUp, 20, 20}});
  at = {20, 20};
  RunWire(canvas);
  EXPECT_EQ(canvas->selectionKind, kNoDraft);
  EXPECT_EQ(canvas->draftPointCount, 0u);
  // Backspace past the first point ends the run.
  Script(canvas, {{ClickEvent::Backspace, 20, 20}, {ClickEvent::Move, 60, 60}});
  RunWire(canvas);
  EXPECT_EQ(events.size(), 1u);
}

TEST_F(WireTest, ARunThatFillsThePointListEndsClosed) {
  Canvas* canvas = MakeBlank(40, 40);
  ScriptEvents();
  at = {1, 1};
  for (int i = 0; i < kMaxDraftPoints + 80; ++i)
    events.push_back({ClickEvent::LeftDown, 2 + i % 30, 3 + i / 30 % 30, true});
  RunWire(canvas);
  // 5119 clicks fill the list; the next one ends the run.
  EXPECT_EQ(events.size(), 80u);
  EXPECT_EQ(canvas->draftPointCount, static_cast<uint32_t>(kMaxDraftPoints));
  EXPECT_EQ(canvas->selectionKind, cmd::kSelectionPolygon);
  EXPECT_EQ(canvas->draftPoints[kMaxDraftPoints - 1][0], 1.0f);
  EXPECT_EQ(canvas->draftPoints[kMaxDraftPoints - 1][1], 1.0f);

  // A Track that has no room for all it found: one place left, the run
  // ends with it, closed.
  events.clear();
  at = {1, 1};
  for (int i = 0; i < kMaxDraftPoints - 2; ++i)
    events.push_back({ClickEvent::LeftDown, 2 + i % 30, 3, true});
  events.push_back({ClickEvent::Move, 20, 39});
  events.push_back({ClickEvent::LeftDown, 5, 5, true});
  RunWire(canvas);
  EXPECT_EQ(events.size(), 1u);
  EXPECT_EQ(canvas->draftPointCount, static_cast<uint32_t>(kMaxDraftPoints));
  EXPECT_EQ(canvas->draftPoints[kMaxDraftPoints - 1][0], 1.0f);
}

TEST_F(WireTest, PressEditsThePolygonItLeftAndOutlinesTheFileKindWithEveryTenthPeg) {
  Canvas* canvas = EdgePicture();
  InstallPointTools();
  InstallWire();
  // A triangle the wire left: a press on its peg is the polygon's.
  const float triangle[][2] = {{10, 10}, {50, 10}, {30, 40}, {10, 10}};
  std::memcpy(canvas->draftPoints, triangle, sizeof triangle);
  canvas->draftPointCount = 4;
  canvas->selectionKind = cmd::kSelectionPolygon;
  CommitShape(canvas, 0, 0);
  ScriptEvents();
  at = {50, 10};
  Script(canvas, {{ClickEvent::LeftDown, 30, 30, true}, {ClickEvent::LeftDown, 20, 30, true}});
  ShapeToolOf(cmd::kWire)->press(canvas);
  EXPECT_EQ(events.size(), 2u);
  EXPECT_EQ(canvas->selectionKind, cmd::kSelectionPolygon);
  // Off the polygon the press begins a run.
  at = {5, 55};
  ShapeToolOf(cmd::kWire)->press(canvas);
  EXPECT_EQ(events.size(), 0u);
  EXPECT_EQ(canvas->draftPointCount, 3u);

  int lines = 0;
  std::vector<Rect> pegs;
  selectionWindows.invertLine = [&](Canvas*, OutlinePen pen, int, int, int, int) {
    EXPECT_EQ(pen, OutlinePen::Dotted);
    ++lines;
  };
  selectionWindows.invertBox = [&](Canvas*, const Rect& box) { pegs.push_back(box); };
  canvas->selectionKind = cmd::kWire;
  canvas->draftPointCount = 23;
  for (int i = 0; i < 23; ++i) canvas->draftPoints[i][0] = float(i), canvas->draftPoints[i][1] = 7;
  ShapeToolOf(cmd::kWire)->outline(canvas);
  EXPECT_EQ(lines, 22);
  EXPECT_EQ(pegs, (std::vector<Rect>{{-4, 3, 4, 11}, {6, 3, 14, 11}, {16, 3, 24, 11}}));
}

}  // namespace
