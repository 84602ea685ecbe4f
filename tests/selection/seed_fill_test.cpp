// The seed fill against a slow fill written here from its rules: every
// value read a pixel at a time through the store, a plain visited array.
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <vector>

#include "base/command_ids.h"
#include "display/compose.h"
#include "display/view_windows.h"
#include "document/canvas_manager.h"
#include "document/selection_rows.h"
#include "platform/headless/headless.h"
#include "selection/draft_engine.h"
#include "selection/seed_fill.h"
#include "selection/gesture.h"
#include "selection/seed_source.h"
#include "store/dib.h"
#include "support/fixture.h"
#include "support/planes.h"

namespace {

struct Values {
  int v[3];
};

// What (x, y) reads as, by the rules.
Values SlowRead(Canvas* canvas, int x, int y) {
  if (seedLayer == kSeedAsViewed) {
    DibTile* tile = Compose(canvas, x, y, x, y, 0, 0);
    uint8_t bgr[3];
    ReadTileRow(tile, 0, 0, 0, bgr);
    FreeTile(&tile);
    return {{bgr[2], bgr[1], bgr[0]}};
  }
  int index = canvas->activePlane;
  const int position = seedPlane == 2 ? 3 : seedPlane;
  if (seedLayer >= 0 && seedPlane >= 0 && canvas->planes[seedLayer * 8 + position].plane)
    index = seedLayer * 8 + position;
  const PlaneSlot& slot = canvas->planes[index];
  const int px = x - slot.left, py = y - slot.top;
  uint32_t r = 0, g = 0, b = 0;
  const bool inside = px >= 0 && py >= 0 && px < slot.width && py < slot.height;
  if (inside && slot.bits == 24) PlaneStore.ReadPixel24(slot.plane, px, py, &r, &g, &b);
  if (inside && slot.bits == 8) {
    PlaneStore.ReadPixel8(slot.plane, px, py, &r);
    g = b = r;
  }
  Values values{{int(r), int(g), int(b)}};
  const PlaneSlot& t = canvas->planes[index - index % 8 + 2];
  if (seedLayer != kSeedCurrent || !t.plane) return values;
  uint32_t coverage = 0;
  if (inside) PlaneStore.ReadPixel8(t.plane, px, py, &coverage);
  for (int& value : values.v) value = coverage == 0 ? -100 : value * int(coverage) / 255;
  return values;
}

struct SlowResult {
  std::vector<uint8_t> raster;  // as the raster would be, not adding, from all 255
  Rect box = kNoSeedExtent;
  bool overflowed = false;
};

SlowResult SlowFill(Canvas* canvas, int sx, int sy) {
  const int w = canvas->canvasWidth, h = canvas->canvasHeight;
  sx = std::clamp(sx, 0, w - 1), sy = std::clamp(sy, 0, h - 1);
  const Values start = SlowRead(canvas, sx, sy);
  auto matches = [&](int x, int y) {
    const Values v = SlowRead(canvas, x, y);
    for (int c = 0; c < 3; ++c)
      if (std::abs(v.v[c] - start.v[c]) > seedTolerance) return false;
    return true;
  };
  std::vector<bool> visited(size_t(w) * h);
  auto open = [&](int x, int y) { return !visited[size_t(y) * w + x] && matches(x, y); };
  SlowResult result;
  std::vector<std::array<int, 2>> stack;
  int x = sx, y = sy;
  for (;;) {
    while (x >= 1 && open(x - 1, y)) --x;
    if (result.overflowed) break;
    bool up = false, down = false;
    while (x < w && open(x, y)) {
      visited[size_t(y) * w + x] = true;
      result.box = Union(result.box, Rect{x, y, x, y});
      for (int dy : {-1, 1}) {
        bool& flag = dy < 0 ? up : down;
        if (y + dy < 0 || y + dy >= h) continue;
        if (!open(x, y + dy)) {
          flag = false;
        } else if (!flag) {
          flag = true;
          if (stack.size() < size_t(kSeedStackLimit))
            stack.push_back({x, y + dy});
          else
            result.overflowed = true;
        }
      }
      ++x;
    }
    if (stack.empty()) break;
    x = stack.back()[0], y = stack.back()[1];
    stack.pop_back();
  }
  result.raster.assign(size_t(w) * h, 255);
  for (size_t i = 0; i < visited.size(); ++i)
    if (visited[i]) result.raster[i] = 0;
  return result;
}

class SeedFillTest : public TeselTest {
 protected:
  // A base layer and a smaller layer above it, offset (one that starts
  // left of the canvas and ends short of its right edge, or one inside),
  // made active; both of random colours from a few, with a little noise,
  // and the upper one's transparency partly 0.
  Canvas* RandomPicture(std::mt19937& random, int w, int h, bool leftOut) {
    Canvas* canvas = MakeBlank(w, h);
    const int upper = leftOut ? CanvasManager.AddLayer(canvas, -2, -3, w, h - 2)
                              : CanvasManager.AddLayer(canvas, 5, -3, w - 9, h - 2);
    const uint8_t levels[] = {0, 40, 90, 200, 255};
    auto colour = [&] { return uint8_t(levels[random() % 5] + random() % 7); };
    for (int index : {0, upper}) {
      const PlaneSlot& slot = canvas->planes[index];
      std::vector<uint8_t> bytes(size_t(slot.width) * slot.height * 3);
      // Blocks of 3 x 2 of one colour, so that regions form.
      for (int y = 0; y < slot.height; ++y)
        for (int x = 0; x < slot.width; ++x)
          for (int c = 0; c < 3; ++c)
            bytes[(size_t(y) * slot.width + x) * 3 + c] =
                (x % 3 || y % 2) && x > 0 && y > 0
                    ? bytes[(size_t(y - y % 2) * slot.width + x - x % 3) * 3 + c]
                    : colour();
      PutPlaneBytes(slot.plane, bytes);
      std::vector<uint8_t> coverage(size_t(slot.width) * slot.height);
      for (uint8_t& t : coverage) t = random() % 3 == 0 ? 0 : uint8_t(128 + random() % 128);
      PutPlaneBytes(canvas->planes[index + 2].plane, coverage);
    }
    CanvasManager.SelectPlane(canvas, upper);
    return canvas;
  }
};

TEST_F(SeedFillTest, MatchesTheSlowFillOnRandomPicturesInEveryMode) {
  std::mt19937 random(7);
  for (int round = 0; round < 48; ++round) {
    Canvas* canvas = RandomPicture(random, 41 + round, 30, round % 2);
    seedTolerance = std::array{0, 6, 20, 70}[round % 4];
    seedLayer = std::array{kSeedCurrent, kSeedAsViewed, 0, 1}[round / 4 % 4];
    seedPlane = std::array{0, 2, 1}[round % 3];
    // Outside the canvas too: the start is clamped.
    const int sx = int(random() % 60) - 10, sy = int(random() % 44) - 7;
    const SlowResult expected = SlowFill(canvas, sx, sy);
    ASSERT_EQ(SeedFill(canvas, sx, sy, false), 1);
    EXPECT_EQ(PlaneBytes(canvas->selectionPlane), expected.raster) << "round " << round;
    EXPECT_EQ(SelectionBox(canvas), expected.box) << "round " << round;
  }
}

TEST_F(SeedFillTest, EmptyPixelsOfTheLayerAreOneRegionAndBlackIsNotAmongThem) {
  Canvas* canvas = MakeBlank(6, 3);
  const int upper = CanvasManager.AddLayer(canvas, 0, 0, 6, 3);
  // Black everywhere; transparency 0 in columns 0..2 of rows 0 and 1 and
  // in column 5 of row 2, which touches them only through black pixels.
  PutPlaneBytes(canvas->planes[upper].plane, std::vector<uint8_t>(6 * 3 * 3, 0));
  PutPlaneBytes(canvas->planes[upper + 2].plane, {0, 0, 0, 255, 255, 255,  //
                                                  0, 0, 0, 255, 255, 255,  //
                                                  255, 255, 255, 255, 255, 0});
  CanvasManager.SelectPlane(canvas, upper);
  seedTolerance = 99;  // black is 100 away
  ASSERT_EQ(SeedFill(canvas, 1, 1, false), 1);
  EXPECT_EQ(PlaneBytes(canvas->selectionPlane),
            (std::vector<uint8_t>{0, 0, 0, 255, 255, 255,  //
                                  0, 0, 0, 255, 255, 255,  //
                                  255, 255, 255, 255, 255, 255}));
  EXPECT_EQ(SelectionBox(canvas), (Rect{0, 0, 2, 1}));
  // Values scale by T / 255, truncating: 200 at T 200 is 156 (not 157),
  // as 156 at T 255 is.
  std::vector<uint8_t> colours(6 * 3 * 3, 0);
  for (int c = 0; c < 3; ++c) colours[c] = 200, colours[3 + c] = 156;
  PutPlaneBytes(canvas->planes[upper].plane, colours);
  PutPlaneBytes(canvas->planes[upper + 2].plane,
                std::vector<uint8_t>{200, 255, 0, 0, 0, 0,  //
                                     0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
  seedTolerance = 0;
  ASSERT_EQ(SeedFill(canvas, 1, 0, false), 1);
  EXPECT_EQ(SelectionBox(canvas), (Rect{0, 0, 1, 0}));
  PutPlaneBytes(canvas->planes[upper].plane, std::vector<uint8_t>(6 * 3 * 3, 0));
  PutPlaneBytes(canvas->planes[upper + 2].plane, {0, 0, 0, 255, 255, 255,  //
                                                  0, 0, 0, 255, 255, 255,  //
                                                  255, 255, 255, 255, 255, 0});
  // At 100 the black pixels join, and through them the corner.
  seedTolerance = 100;
  ASSERT_EQ(SeedFill(canvas, 1, 1, false), 1);
  EXPECT_EQ(PlaneBytes(canvas->selectionPlane), std::vector<uint8_t>(18, 0));
}

TEST_F(SeedFillTest, ShiftAddsOnlyToARasterThatWasThere) {
  Canvas* canvas = MakeBlank(5, 2);
  // White but a grey column 2.
  std::vector<uint8_t> bytes(5 * 2 * 3, 255);
  for (int y = 0; y < 2; ++y)
    for (int c = 0; c < 3; ++c) bytes[(y * 5 + 2) * 3 + c] = 100;
  PutPlaneBytes(canvas->planes[0].plane, bytes);
  int at = 0;
  viewWindows.pointer = [&](Canvas*) { return PointerState{at, 0, at, 0, 1}; };
  headless::Recorded().pointer.keysDown = {platform::VkShift};
  // No raster yet: no adding, the box is what was marked.
  PressSeedFill(canvas);
  EXPECT_EQ(PlaneBytes(canvas->selectionPlane),
            (std::vector<uint8_t>{0, 0, 255, 255, 255, 0, 0, 255, 255, 255}));
  EXPECT_EQ(SelectionBox(canvas), (Rect{0, 0, 1, 1}));
  // A partial value outside the new area stays when adding.
  WriteSelectionRow(canvas, 1, 4, 4, std::vector<uint8_t>{77}.data());
  at = 4;
  PressSeedFill(canvas);
  EXPECT_EQ(PlaneBytes(canvas->selectionPlane),
            (std::vector<uint8_t>{0, 0, 255, 0, 0, 0, 0, 255, 0, 0}));
  EXPECT_EQ(SelectionBox(canvas), (Rect{0, 0, 4, 1}));
  // Without Shift the old area goes.
  headless::Recorded().pointer.keysDown = {};
  at = 2;
  PressSeedFill(canvas);
  EXPECT_EQ(PlaneBytes(canvas->selectionPlane),
            (std::vector<uint8_t>{255, 255, 0, 255, 255, 255, 255, 0, 255, 255}));
  EXPECT_EQ(SelectionBox(canvas), (Rect{2, 0, 2, 1}));
}

TEST_F(SeedFillTest, AFullStackStopsAfterItsRowAndKeepsWhatWasMarked) {
  // Row 1 matches whole; rows 0 and 2 in runs of `run` pixels with one
  // other between. The fill of row 1 pushes one seed a run above and
  // below: 7500 fit, the 7501st overflows, and then only row 1 is marked.
  seedTolerance = 0;
  auto fill = [&](int w, int run) {
    Canvas* canvas = MakeBlank(w, 3);
    std::vector<uint8_t> bytes(size_t(w) * 3 * 3, 0);
    for (int y : {0, 2})
      for (int x = run; x < w; x += run + 1)
        for (int c = 0; c < 3; ++c) bytes[(size_t(y) * w + x) * 3 + c] = 255;
    PutPlaneBytes(canvas->planes[0].plane, bytes);
    const SlowResult expected = SlowFill(canvas, 0, 1);
    EXPECT_EQ(SeedFill(canvas, 0, 1, false), 1);
    EXPECT_EQ(PlaneBytes(canvas->selectionPlane), expected.raster) << w << ", " << run;
    EXPECT_EQ(SelectionBox(canvas), expected.box) << w << ", " << run;
    return SelectionBox(canvas);
  };
  EXPECT_EQ(fill(7499, 1), (Rect{0, 0, 7498, 2}));  // 2 x 3750 seeds
  EXPECT_EQ(fill(7501, 1), (Rect{0, 1, 7500, 1}));  // 2 x 3751
  EXPECT_EQ(fill(7501, 2), (Rect{0, 0, 7500, 2}));  // one seed a run of two
}

TEST_F(SeedFillTest, APressCommitsTheFillAtThePointerAndEscStopsIt) {
  Canvas* canvas = MakeBlank(4, 4);
  viewWindows.pointer = [](Canvas*) { return PointerState{2, 3, 2, 3, 1}; };
  int histories = 0;
  historyHooks.Add([&](Canvas*) { ++histories; });
  PressSeedFill(canvas);
  EXPECT_EQ(canvas->selectionKind, cmd::kSeedFill);
  EXPECT_EQ(PlaneBytes(canvas->selectionPlane), std::vector<uint8_t>(16, 0));
  EXPECT_EQ(SelectionBox(canvas), (Rect{0, 0, 3, 3}));
  EXPECT_EQ(histories, 1);
  const auto texts = headless::MessagesTo(platform::Window::StatusBar, platform::MsgStatus);
  ASSERT_GE(texts.size(), 2u);
  EXPECT_EQ(texts[texts.size() - 2].wParam, platform::kStatusText);
  EXPECT_EQ(texts.back().wParam, platform::kStatusClear);
  // Held Esc stops after the first row's left scan: nothing is marked.
  headless::Recorded().pointer.keysDown = {0x1B};
  PressSeedFill(canvas);
  EXPECT_EQ(PlaneBytes(canvas->selectionPlane), std::vector<uint8_t>(16, 255));
  EXPECT_EQ(SelectionBox(canvas), kNoSeedExtent);
}

}  // namespace
