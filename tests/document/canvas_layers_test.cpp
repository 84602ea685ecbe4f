#include "canvas_fixture.h"

namespace {

using CanvasLayers = CanvasTest;

std::unique_ptr<Canvas> Copy(const Canvas* canvas) { return std::make_unique<Canvas>(*canvas); }
bool SameBytes(const Canvas* a, const Canvas* b) { return std::memcmp(a, b, sizeof(Canvas)) == 0; }

TEST_F(CanvasLayers, StackHoldsAtMost128Layers) {
  Canvas* canvas = MakeBlank(6, 6);
  for (int layer = 1; layer < 128; ++layer)
    ASSERT_EQ(CanvasManager.AddLayer(canvas, layer, 2, 3, 4), layer * 8);
  EXPECT_EQ(CanvasManager.LayerCount(canvas), 128);
  const PlaneSlot* last = &canvas->planes[127 * 8];
  EXPECT_STREQ(last[0].name, "LAYER127");
  EXPECT_EQ(last[0].left, 127);
  EXPECT_TRUE(AllBytes(last[0].plane, 255));
  EXPECT_TRUE(AllBytes(last[1].plane, 0));
  EXPECT_TRUE(AllBytes(last[2].plane, 255));

  auto before = Copy(canvas);
  EXPECT_EQ(CanvasManager.AddLayer(canvas, 0, 0, 6, 6), 0);
  EXPECT_EQ(CanvasManager.DuplicateLayer(canvas, 8), 0);
  EXPECT_TRUE(SameBytes(canvas, before.get()));
}

TEST_F(CanvasLayers, MovesThatWouldResizeTheBaseAreUndone) {
  Canvas* canvas = MakeBlank(100, 100);
  CanvasManager.AddLayer(canvas, 10, 10, 50, 50);
  CanvasManager.AddLayer(canvas, 0, 0, 100, 100);
  auto before = Copy(canvas);
  EXPECT_EQ(CanvasManager.MoveLayer(canvas, 1, 0), 0);
  EXPECT_EQ(CanvasManager.MoveLayer(canvas, 0, 2), 0);  // brings the small layer 1 down to 0
  EXPECT_TRUE(SameBytes(canvas, before.get()));
  const std::string refusal =
      "Cannot make change of layer positions that would change the size of base layer!";
  EXPECT_EQ(BoxTexts(), (std::vector<std::string>{refusal, refusal}));
  // No layer there, or no move at all: nothing, without a word.
  EXPECT_EQ(CanvasManager.MoveLayer(canvas, 1, 3), 0);
  EXPECT_EQ(CanvasManager.MoveLayer(canvas, 2, 2), 0);
  EXPECT_TRUE(SameBytes(canvas, before.get()));
  EXPECT_EQ(BoxTexts().size(), 2u);
}

TEST_F(CanvasLayers, SameSizeLayerTakesTheBaseAndOriginsFollow) {
  Canvas* canvas = MakeBlank(100, 100);
  CanvasManager.AddLayer(canvas, 20, 30, 10, 10);
  CanvasManager.AddLayer(canvas, 5, 7, 100, 100);
  Plane* base = canvas->planes[0].plane;
  Plane* small = canvas->planes[8].plane;
  Plane* big = canvas->planes[16].plane;
  EXPECT_EQ(CanvasManager.MoveLayer(canvas, 2, 0), 1);
  EXPECT_TRUE(headless::Recorded().boxes.empty());
  EXPECT_EQ(canvas->planes[0].plane, big);
  EXPECT_EQ(canvas->planes[8].plane, base);
  EXPECT_EQ(canvas->planes[16].plane, small);
  const int expected[3][2] = {{0, 0}, {-5, -7}, {15, 23}};
  for (int index = 0; index < 24; ++index) {
    EXPECT_EQ(canvas->planes[index].left, expected[index / 8][0]) << index;
    EXPECT_EQ(canvas->planes[index].top, expected[index / 8][1]) << index;
  }
  EXPECT_EQ(CanvasManager.MoveLayer(canvas, 0, 1), 1);  // and upwards
  EXPECT_EQ(canvas->planes[0].plane, base);
  EXPECT_EQ(canvas->planes[8].left, 5);
}

TEST_F(CanvasLayers, ActivePlaneFallsBackWhenItsSlotEmpties) {
  settings.noTransparencyPlane = 1;
  Canvas* canvas = MakeBlank(8, 8);  // layer 0 without transparency
  settings.noTransparencyPlane = 0;
  CanvasManager.AddLayer(canvas, 0, 0, 8, 8);
  CanvasManager.SelectPlane(canvas, 10);
  CanvasManager.MoveLayer(canvas, 1, 0);  // index 10 is now an empty slot
  EXPECT_EQ(canvas->activePlane, 8);
  CanvasManager.SelectPlane(canvas, 3);  // empty: ignored
  EXPECT_EQ(canvas->activePlane, 8);

  CanvasManager.AddLayer(canvas, 0, 0, 4, 4);
  Plane* top = canvas->planes[16].plane;
  CanvasManager.SelectPlane(canvas, 17);
  CanvasManager.DeleteLayer(canvas, 1);
  EXPECT_EQ(CanvasManager.LayerCount(canvas), 2);
  EXPECT_EQ(canvas->planes[8].plane, top);
  EXPECT_EQ(canvas->planes[17].plane, nullptr);
  EXPECT_EQ(canvas->activePlane, 0);
  CanvasManager.DeleteLayer(canvas, 0);  // the base stays
  EXPECT_EQ(CanvasManager.LayerCount(canvas), 2);
}

TEST_F(CanvasLayers, DuplicateCopiesEveryPlaneUnderANewName) {
  Canvas* canvas = MakeBlank(3, 2);
  PlaneSlot* s = canvas->planes;
  PlaneStore.WritePixel24(s[0].plane, 2, 1, 10, 20, 30);
  ASSERT_EQ(CanvasManager.AddPlane(canvas, 0, 0), 3);
  PlaneStore.WritePixel8(s[3].plane, 0, 1, 5);
  s[0].mixMode = 4;
  EXPECT_EQ(CanvasManager.DuplicateLayer(canvas, 2), 8);
  EXPECT_STREQ(s[8].name, "LAYER1");
  EXPECT_STREQ(s[11].name, "1M");
  EXPECT_EQ(s[8].mixMode, 4);
  for (int position = 0; position < 4; ++position) EXPECT_NE(s[8 + position].plane, s[position].plane);
  EXPECT_EQ(s[12].plane, nullptr);
  EXPECT_EQ(Pixel24(s[8].plane, 2, 1), (Rgb{10, 20, 30}));
  EXPECT_EQ(Pixel24(s[8].plane, 0, 0), (Rgb{255, 255, 255}));
  EXPECT_TRUE(AllBytes(s[10].plane, 255));
  EXPECT_EQ(Pixel8(s[11].plane, 0, 1), 5u);
}

TEST_F(CanvasLayers, EightPositionsAtMostAndNamesTakeTheLowestFreeDigit) {
  Canvas* canvas = MakeBlank(4, 3);
  PlaneSlot* s = canvas->planes;
  EXPECT_EQ(CanvasManager.AddPlane(canvas, 1, 0), 3);
  EXPECT_EQ(CanvasManager.AddPlane(canvas, 0, 1), 4);
  EXPECT_EQ(CanvasManager.AddPlane(canvas, 2, 1), 5);
  EXPECT_STREQ(s[3].name, "1M");
  EXPECT_STREQ(s[4].name, "1T");
  EXPECT_STREQ(s[5].name, "2T");
  EXPECT_EQ(s[5].displayMode, 10);
  EXPECT_EQ(s[5].mixMode, 0);
  EXPECT_TRUE(AllBytes(s[5].plane, 0));

  Plane* twoT = s[5].plane;
  EXPECT_EQ(CanvasManager.DeletePlane(canvas, 4), 4);  // "1T" goes, "2T" slides down
  EXPECT_EQ(s[4].plane, twoT);
  EXPECT_EQ(CanvasManager.AddPlane(canvas, 0, 1), 5);
  EXPECT_STREQ(s[5].name, "1T");
  EXPECT_EQ(CanvasManager.AddPlane(canvas, 0, 0), 6);
  EXPECT_EQ(CanvasManager.AddPlane(canvas, 0, 0), 7);
  EXPECT_STREQ(s[7].name, "3M");
  EXPECT_EQ(CanvasManager.AddPlane(canvas, 0, 0), -1);
  EXPECT_EQ(CanvasManager.AddPlane(canvas, 8, 0), -1);  // no layer 1
  EXPECT_EQ(CanvasManager.DeletePlane(canvas, 0), -1);  // the image stays
  EXPECT_EQ(CanvasManager.DeletePlane(canvas, 7), 7);
  EXPECT_EQ(CanvasManager.DeletePlane(canvas, 7), -1);
}

TEST_F(CanvasLayers, UserLayerIsClampedCentredAndLandsAboveTheActiveLayer) {
  Canvas* canvas = MakeBlank(100, 100);
  EXPECT_EQ(CanvasManager.AddLayerByUser(canvas, 500, 700), 8);
  const PlaneSlot& added = canvas->planes[8];
  EXPECT_EQ(added.left, 0);
  EXPECT_EQ(added.top, 0);
  EXPECT_EQ(added.width, 100);
  EXPECT_EQ(added.height, 100);
  EXPECT_EQ(canvas->activePlane, 8);
  auto told = headless::MessagesTo(platform::Window::LayerPanel, platform::MsgLayerRedraw);
  ASSERT_EQ(told.size(), 1u);
  EXPECT_EQ(told[0].wParam, -1);
  EXPECT_EQ(told[0].lParam, reinterpret_cast<intptr_t>(canvas));

  // With the active layer at place 5 of 9, the new layer lands at place 6.
  for (int layer = 2; layer < 9; ++layer) CanvasManager.AddLayer(canvas, 0, 0, 100, 100);
  Plane* sixth = canvas->planes[48].plane;
  CanvasManager.SelectPlane(canvas, 40);
  EXPECT_EQ(CanvasManager.AddLayerByUser(canvas, 31, 40), 48);
  EXPECT_EQ(canvas->planes[48].left, 34);  // (100 - 31) / 2
  EXPECT_EQ(canvas->planes[48].top, 30);
  EXPECT_EQ(canvas->planes[56].plane, sixth);
  EXPECT_EQ(canvas->activePlane, 48);

  // A plane that can't be made: the box, and nothing placed or told.
  headless::Reset();
  settings.imageBuffer = Virtual;
  headless::Recorded().failMappings = 1;
  EXPECT_EQ(CanvasManager.AddLayerByUser(canvas, 10, 10), -1);
  EXPECT_EQ(CanvasManager.LayerCount(canvas), 10);
  EXPECT_EQ(BoxTexts().back(), "memory error0");
  EXPECT_TRUE(headless::MessagesTo(platform::Window::LayerPanel, platform::MsgLayerRedraw).empty());
  EXPECT_EQ(canvas->activePlane, 48);
}

}  // namespace
