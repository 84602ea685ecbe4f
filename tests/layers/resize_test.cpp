#include "display/view_windows.h"
#include "display/pointer_routing.h"
#include "document/undo_history.h"
#include "layers/layer_command.h"
#include "layers/layer_resize.h"
#include "layers_fixture.h"

namespace {

using Resize = LayersTest;

SideChoice Sides(std::array<int, 4> change) {
  SideChoice sides;
  for (int side = 0; side < 4; ++side) {
    sides.checked[side] = change[side] != 0;
    sides.amount[side] = std::abs(change[side]);
    sides.shrink[side] = change[side] < 0;
  }
  return sides;
}

TEST_F(Resize, BaseLayerGrowsWhiteAndTheOtherLayersStayOverTheirPixels) {
  Canvas* canvas = MakeLayered(30, 20, 1);
  Randomize(canvas->planes[1].plane);
  CanvasManager.AddLayer(canvas, 4, 5, 8, 6);
  canvas->selectionKind = 14001;
  std::vector<uint8_t> before[3];
  for (int p = 0; p < 3; ++p) before[p] = PlaneBytes(canvas->planes[p].plane);
  // Left out by 10, top in by 3, bottom out by 2; right unchecked.
  ASSERT_EQ(ResizeLayer(canvas, 0, Sides({10, 0, -3, 2})), 1);
  EXPECT_EQ((std::array{canvas->canvasWidth, canvas->canvasHeight}), (std::array{40, 19}));
  for (int p = 0; p < 8; ++p)
    EXPECT_EQ((std::array{canvas->planes[p].left, canvas->planes[p].top, canvas->planes[p].width}),
              (std::array{0, 0, 40}));
  EXPECT_EQ((std::array{canvas->planes[8].left, canvas->planes[8].top}), (std::array{14, 2}));
  EXPECT_EQ((std::array{canvas->selectionKind, canvas->selRight, canvas->selBottom}),
            (std::array{0, 39, 18}));
  for (int y = 0; y < 19; ++y)
    for (int x = 0; x < 40; ++x) {
      const int ox = x - 10, oy = y + 3;
      const bool old = ox >= 0 && oy < 20;
      for (int p = 0; p < 3; ++p) {
        const int bpp = p == 0 ? 3 : 1;
        for (int c = 0; c < bpp; ++c) {
          const int want = old ? before[p][(oy * 30 + ox) * bpp + c] : p == 1 ? 0 : 255;
          std::vector<uint8_t> px(3);
          PlaneStore.ReadRow(canvas->planes[p].plane, y, x, x, px.data());
          ASSERT_EQ(px[c], want) << p << ": " << x << ", " << y;
        }
      }
    }
  // No undo across a resize: one fresh whole record.
  EXPECT_EQ(UndoHistory.entries[0].kind, kUndoWhole);
  EXPECT_EQ(UndoHistory.entries[1].kind, kUndoEmpty);
  EXPECT_EQ(canvas->modified, 1u);
}

TEST_F(Resize, ALayerAboveMovesByItsOwnSidesAndBelowOneIsRefused) {
  Canvas* canvas = MakeLayered(100, 50, 1);
  CanvasManager.AddLayer(canvas, 10, 10, 100 - 20, 30);
  ASSERT_EQ(ResizeLayer(canvas, 8, Sides({-5, 7, 0, 0})), 1);
  EXPECT_EQ((std::array{canvas->planes[8].left, canvas->planes[8].width}), (std::array{15, 82}));
  EXPECT_EQ(canvas->canvasWidth, 100);
  EXPECT_EQ(canvas->planes[0].width, 100);

  Plane* base = canvas->planes[0].plane;
  EXPECT_EQ(ResizeLayer(canvas, 0, Sides({0, -100, 0, 0})), 0);
  EXPECT_EQ(BoxTexts(),
            std::vector<std::string>{
                "Change would make image size go below zero.  Process will be aborted."});
  EXPECT_EQ(canvas->planes[0].plane, base);
  EXPECT_EQ(canvas->canvasWidth, 100);
}

class ResizeSession : public LayersTest {
 protected:
  void SetUp() override {
    LayersTest::SetUp();
    layerWindows.openResizeBySides = [this](Canvas*, int planeIndex) { opened = planeIndex; };
    layerWindows.resizeSidesShown = [this](const SideChoice& sides) { shown.push_back(sides); };
    viewWindows.invertBox = [this](Canvas*, const Rect& box) { boxes.push_back(box); };
    // Zoom 100 %, scrolled nowhere: view pixels are canvas pixels.
    viewWindows.pointer = [](Canvas*) {
      const headless::PointerSample& p = headless::Recorded().pointer;
      return PointerState{p.x, p.y, p.x, p.y, 1};
    };
    viewWindows.buttonHeld = [](PointerButton) {
      platform::DrainPointerMessages();
      const auto& keys = headless::Recorded().pointer.keysDown;
      return std::find(keys.begin(), keys.end(), platform::VkLeftButton) != keys.end();
    };
  }
  int opened = -1;
  std::vector<SideChoice> shown;
  std::vector<Rect> boxes;
};

TEST_F(ResizeSession, TheBoxFollowsTheSidesAndAnEdgeDragSetsTheAmount) {
  Canvas* canvas = MakeLayered(60, 40, 1);
  canvas->smoothZoom = 1;
  EXPECT_EQ(ResizeLayerBySides(canvas, 0), 0);
  EXPECT_EQ(BoxTexts(), std::vector<std::string>{
                            "Size of layers cannot be changed while smooth zoom is in effect!"});
  canvas->smoothZoom = 0;
  resizeSides = Sides({0, 5, 0, 0});
  ASSERT_EQ(ResizeLayerBySides(canvas, 2), 1);
  EXPECT_EQ(opened, 2);
  EXPECT_TRUE(LayerResizeOpen());
  EXPECT_EQ(LayerCommand(canvas, kLayerItemDuplicate, 0), 0);  // refused while open
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0], Rect::OfSize(0, 0, 65, 40));
  ResizeSidesChanged(Sides({0, 5, 0, -4}));
  // Off at the old place, on at the new.
  ASSERT_EQ(boxes.size(), 3u);
  EXPECT_EQ(boxes[1], boxes[0]);
  EXPECT_EQ(boxes[2], Rect::OfSize(0, 0, 65, 36));

  // The bottom edge is taken at row 35 and dragged down to 44: out by 5.
  headless::ScriptPointer({{30, 44, {platform::VkLeftButton}}, {30, 44, {}}});
  headless::Recorded().pointer = {30, 35, {platform::VkLeftButton}};
  ASSERT_TRUE(pointerRoutes.layerResizeClick);
  EXPECT_EQ(pointerRoutes.layerResizeClick(canvas), 1);
  EXPECT_EQ(resizeSides.amount[kSideBottom], 5);
  EXPECT_FALSE(resizeSides.shrink[kSideBottom]);
  ASSERT_FALSE(shown.empty());
  EXPECT_EQ(shown.back().amount[kSideBottom], 5);
  EXPECT_EQ(boxes.back(), Rect::OfSize(0, 0, 65, 45));
  // A press away from the edges isn't the box's.
  headless::Recorded().pointer = {20, 20, {platform::VkLeftButton}};
  EXPECT_EQ(pointerRoutes.layerResizeClick(canvas), 0);

  ASSERT_EQ(ApplyResizeBySides(), 1);
  EXPECT_FALSE(LayerResizeOpen());
  EXPECT_EQ((std::array{canvas->canvasWidth, canvas->canvasHeight}), (std::array{65, 45}));
  // The box came off before the change: every drawing has its undoing.
  EXPECT_EQ(boxes.size() % 2, 0u);
  EXPECT_EQ(headless::MessagesTo(platform::Window::LayerPanel, platform::MsgLayerRedraw).size(),
            1u);
  // The sides are kept for the next use.
  EXPECT_EQ(resizeSides.amount[kSideRight], 5);

  // A canvas going away takes its session and dialog with it.
  bool closed = false;
  layerWindows.closeResizeBySides = [&] { closed = true; };
  ASSERT_EQ(ResizeLayerBySides(canvas, 0), 1);
  ResizeCanvasGoing(nullptr);
  EXPECT_TRUE(LayerResizeOpen());
  ResizeCanvasGoing(canvas);
  EXPECT_FALSE(LayerResizeOpen());
  EXPECT_TRUE(closed);
  EXPECT_EQ(boxes.size() % 2, 0u);
}

}  // namespace
