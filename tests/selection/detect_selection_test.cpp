// Detect Selection's pick against pixels tested here one at a time by the
// rules, its sampling from the canvas, and the dialog's life.
#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "base/command_ids.h"
#include "display/compose.h"
#include "display/view_windows.h"
#include "document/canvas_manager.h"
#include "document/selection_rows.h"
#include "document/undo_history.h"
#include "pixel/hsv.h"
#include "selection/detect_selection.h"
#include "selection/draft_engine.h"
#include "selection/selection_windows.h"
#include "store/dib.h"
#include "support/fixture.h"
#include "support/planes.h"

namespace {

class DetectSelectionTest : public TeselTest {
 protected:
  void SetUp() override {
    TeselTest::SetUp();
    selectionWindows.openDetectDialog = [this](Canvas*) {
      ++opened;
      return static_cast<WindowHandle>(this);
    };
    selectionWindows.closeDetectDialog = [this] { ++closed; };
  }
  // A white base and a random layer of 20 x 9 at (3, -2) on a 24 x 10
  // canvas, whose top rows lie above the canvas; the layer is active.
  Canvas* Picture() {
    Canvas* canvas = MakeBlank(24, 10);
    upper = CanvasManager.AddLayer(canvas, 3, -2, 20, 9);
    std::mt19937 random(3);
    std::vector<uint8_t> bytes(20 * 9 * 3);
    for (uint8_t& byte : bytes) byte = uint8_t(random() % 4 * 85);
    PutPlaneBytes(canvas->planes[upper].plane, bytes);
    std::vector<uint8_t> coverage(20 * 9);
    for (uint8_t& t : coverage) t = uint8_t(random() % 2 * 200);
    PutPlaneBytes(canvas->planes[upper + 2].plane, coverage);
    CanvasManager.SelectPlane(canvas, upper + 2);
    return canvas;
  }
  // Whether the channels of a red, green, blue pixel are all picked.
  static bool Picked(uint32_t r, uint32_t g, uint32_t b) {
    int c[3] = {int(r), int(g), int(b)};
    if (pickIsHsv) RgbToHsv(int(r), int(g), int(b), &c[0], &c[1], &c[2], 1);
    return pickTable[0][c[0]] && pickTable[1][c[1]] && pickTable[2][c[2]];
  }
  // The output expected at canvas (x, y) from the rules, or -1 off the layer.
  int Expected(Canvas* canvas, int x, int y, uint8_t hit, uint8_t miss) {
    const PlaneSlot& slot = canvas->planes[upper];
    if (x < slot.left || y < slot.top || x >= slot.left + slot.width || y >= slot.top + slot.height)
      return -1;
    uint32_t r, g, b;
    if (pickDisplayed) {
      const int saved = canvas->activePlane;
      canvas->activePlane = upper;
      DibTile* tile = Compose(canvas, x, y, x, y, 0, 0);
      canvas->activePlane = saved;
      uint8_t bgr[3];
      ReadTileRow(tile, 0, 0, 0, bgr);
      FreeTile(&tile);
      r = bgr[2], g = bgr[1], b = bgr[0];
    } else {
      PlaneStore.ReadPixel24(slot.plane, x - slot.left, y - slot.top, &r, &g, &b);
    }
    return Picked(r, g, b) != (pickCondition == 1) ? hit : miss;
  }
  int upper = 0;
  int opened = 0, closed = 0;
};

TEST_F(DetectSelectionTest, PicksTheLayersPixelsInEachChannelModeAndCondition) {
  Canvas* canvas = Picture();
  OpenDetectSelection(canvas);
  ASSERT_EQ(pickDialog, static_cast<WindowHandle>(this));
  // The image plane shows while the dialog is open.
  EXPECT_EQ(canvas->activePlane, upper);
  // A shape of another kind was there before.
  canvas->selectionKind = cmd::kSelectionBox;
  std::mt19937 random(11);
  for (int round = 0; round < 8; ++round) {
    pickIsHsv = round % 2;
    pickCondition = round / 2 % 2;
    pickDisplayed = round / 4;
    for (int bar = 0; bar < 3; ++bar)
      for (int i = 0; i < 256; ++i) PickColumn(bar, i, random() % 3 != 0);
    ASSERT_EQ(ExecutePick(), 1);
    EXPECT_EQ(canvas->selectionKind, cmd::kSeedFill);
    EXPECT_EQ(SelectionBox(canvas), (Rect{0, 0, 23, 9}));
    EXPECT_EQ(canvas->activePlane, upper);
    for (int y = 0; y < 10; ++y)
      for (int x = 0; x < 24; ++x) {
        const int expected = Expected(canvas, x, y, 0, 255);
        // Off the layer the raster stays selected.
        EXPECT_EQ(ReadSelectionPixel(canvas, x, y), expected < 0 ? 0 : expected)
            << "round " << round << " at " << x << ", " << y;
      }
  }
  // An empty table: nothing of the layer with Same as, all with Other than.
  InitializePicks();
  pickCondition = 0;
  ExecutePick();
  EXPECT_EQ(ReadSelectionPixel(canvas, 3, 0), 255);
  EXPECT_EQ(SelectionBounds(canvas), (Rect{0, 0, 23, 9}));  // the outside of the layer
  pickCondition = 1;
  ExecutePick();
  EXPECT_EQ(SelectionBounds(canvas), (Rect{0, 0, 23, 9}));
  EXPECT_EQ(ReadSelectionPixel(canvas, 3, 0), 0);
}

TEST_F(DetectSelectionTest, ATargetPlaneTakesTheHitsAsCoverageAndOKRecordsIt) {
  Canvas* canvas = Picture();
  const int oldPlane = canvas->activePlane;
  OpenDetectSelection(canvas);
  const std::vector<PickTargetItem> targets = PickTargets(canvas);
  ASSERT_EQ(targets.size(), 3u);
  EXPECT_EQ(targets[0].target, 0);
  EXPECT_EQ(targets[1].target, 1);
  EXPECT_EQ(targets[2].target, 2);
  SetPickTarget(1);
  EXPECT_EQ(canvas->activePlane, upper + 1);
  pickDisplayed = 0;
  ReversePicks();         // everything picked
  PickColumn(0, 300, 0);  // past the end: red 255 unpicked
  ExecutePick();
  for (int y = 0; y < 7; ++y)
    for (int x = 0; x < 20; ++x)
      EXPECT_EQ(PixelValue(canvas->planes[upper + 1].plane, x, y + 2),
                uint32_t(Expected(canvas, x + 3, y, 255, 0)));
  EXPECT_EQ(canvas->selectionPlane, nullptr);
  EXPECT_EQ(canvas->activePlane, upper + 1);
  int histories = 0;
  historyHooks.Add([&](Canvas*) { ++histories; });
  ConfirmDetectSelection();
  EXPECT_EQ(histories, 0);          // only the selection goes to the history
  EXPECT_EQ(canvas->modified, 1u);  // the undo step of the changed plane
  EXPECT_EQ(canvas->activePlane, oldPlane);
  EXPECT_EQ(pickDialog, nullptr);
  EXPECT_EQ(closed, 1);
  // The table survives the closing, and the dialog opens again.
  OpenDetectSelection(canvas);
  EXPECT_EQ(pickTable[1][7], 1);
  EXPECT_EQ(pickTarget, 0);
  OpenDetectSelection(canvas);  // one at a time
  EXPECT_EQ(opened, 2);
  pickTarget = 0;
  ConfirmDetectSelection();
  EXPECT_EQ(histories, 1);
}

TEST_F(DetectSelectionTest, PressesOnTheCanvasSampleTheComposedColours) {
  Canvas* canvas = Picture();
  OpenDetectSelection(canvas);
  std::vector<std::string> cursors;
  std::vector<bool> shrinks;
  selectionWindows.showCursor = [&](const std::string& name) { cursors.push_back(name); };
  selectionWindows.shrinkDetectDialog = [&](bool toBars) { shrinks.push_back(toBars); };
  // An opaque layer; two positions, the second above the canvas, taken at
  // its top row.
  PutPlaneBytes(canvas->planes[upper + 2].plane, std::vector<uint8_t>(20 * 9, 255));
  PlaneStore.WritePixel24(canvas->planes[upper].plane, 1, 3, 10, 120, 30);    // canvas (4, 1)
  PlaneStore.WritePixel24(canvas->planes[upper].plane, 7, 2, 200, 100, 250);  // canvas (10, 0)
  std::vector<PointerState> path = {{4, 1, 4, 1, 1}, {10, -5, 10, -5, 1}};
  size_t step = 0;
  viewWindows.pointer = [&](Canvas*) { return path[std::min(step, path.size() - 1)]; };
  viewWindows.buttonHeld = [&](PointerButton) { return ++step < path.size(); };
  pickIsHsv = 1;
  EXPECT_EQ(SampleForDetectSelection(canvas, 0), 1);
  EXPECT_EQ(cursors, (std::vector<std::string>{"cross", ""}));
  EXPECT_EQ(shrinks, (std::vector<bool>{true, false}));
  // What the view shows at both points, each channel picked.
  int picked = 0;
  for (auto [x, y] : {std::pair{4, 1}, std::pair{10, 0}}) {
    DibTile* tile = Compose(canvas, x, y, x, y, 0, 0);
    uint8_t bgr[3];
    ReadTileRow(tile, 0, 0, 0, bgr);
    FreeTile(&tile);
    EXPECT_TRUE(Picked(bgr[2], bgr[1], bgr[0]));
  }
  for (int bar = 0; bar < 3; ++bar)
    for (int i = 0; i < 256; ++i) picked += pickTable[bar][i];
  EXPECT_EQ(picked, 6);
  // The secondary button unpicks the same.
  step = 0;
  EXPECT_EQ(SampleForDetectSelection(canvas, 1), 1);
  picked = 0;
  for (int bar = 0; bar < 3; ++bar)
    for (int i = 0; i < 256; ++i) picked += pickTable[bar][i];
  EXPECT_EQ(picked, 0);
  // Closed, presses go to the tools again.
  CloseDetectSelection();
  EXPECT_EQ(SampleForDetectSelection(canvas, 0), 0);
}

TEST_F(DetectSelectionTest, TheBarsScalesAreTheChannels) {
  EXPECT_EQ(PickScaleColour(0, 200, 0), 200u);
  EXPECT_EQ(PickScaleColour(1, 200, 0), 200u << 8);
  EXPECT_EQ(PickScaleColour(2, 200, 0), 200u << 16);
  EXPECT_EQ(PickScaleColour(2, 9, 1), 0x090909u);
  // Hue 0 is red; hue 64 of 255 is a quarter turn on, 90 degrees: green
  // full, red at (1 - 30/60) of full, truncated.
  EXPECT_EQ(PickScaleColour(0, 0, 1), 0x0000FFu);
  EXPECT_EQ(PickScaleColour(1, 255, 1) & 0x00FF00u, 0x00FF00u);
  EXPECT_EQ(PickScaleColour(1, 0, 1), 0xFFFFFFu);
}

}  // namespace
