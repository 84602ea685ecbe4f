#include <tuple>

#include "canvas_fixture.h"

namespace {

using CanvasLayers = CanvasTest;

std::unique_ptr<Canvas> Copy(const Canvas* canvas) { return std::make_unique<Canvas>(*canvas); }
bool SameBytes(const Canvas* a, const Canvas* b) { return std::memcmp(a, b, sizeof(Canvas)) == 0; }
std::vector<std::string> Names(const PlaneSlot* slots, int count) {
  std::vector<std::string> names;
  for (int i = 0; i < count; ++i) names.emplace_back(slots[i].name);
  return names;
}

TEST_F(CanvasLayers, DuplicateCopiesEveryPlaneAndTheStackStopsAt128) {
  Canvas* canvas = MakeBlank(3, 2);
  PlaneSlot* s = canvas->planes;
  PlaneStore.WritePixel24(s[0].plane, 2, 1, 10, 20, 30);
  ASSERT_EQ(3, CanvasManager.AddPlane(canvas, 0, 0));
  PlaneStore.WritePixel8(s[3].plane, 0, 1, 5);
  s[0].mixMode = 4;
  EXPECT_EQ(8, CanvasManager.DuplicateLayer(canvas, 2));
  EXPECT_EQ((std::vector<std::string>{"LAYER1", "0M", "0T", "1M"}), Names(&s[8], 4));
  EXPECT_EQ(4, s[8].mixMode);
  for (int position = 0; position < 4; ++position) EXPECT_NE(s[position].plane, s[8 + position].plane);
  EXPECT_EQ(nullptr, s[12].plane);
  EXPECT_EQ((Rgb{10, 20, 30}), PixelRgb(s[8].plane, 2, 1));
  EXPECT_EQ((Rgb{255, 255, 255}), PixelRgb(s[8].plane, 0, 0));
  EXPECT_TRUE(AllBytes(s[10].plane, 255));
  EXPECT_EQ(5u, PixelValue(s[11].plane, 0, 1));

  for (int layer = 2; layer < 128; ++layer)
    ASSERT_EQ(layer * 8, CanvasManager.AddLayer(canvas, layer, 2, 3, 4));
  const PlaneSlot* last = &s[127 * 8];
  EXPECT_STREQ("LAYER127", last[0].name);
  EXPECT_EQ(127, last[0].left);
  EXPECT_TRUE(AllBytes(last[0].plane, 255) && AllBytes(last[1].plane, 0) && AllBytes(last[2].plane, 255));
  auto before = Copy(canvas);
  EXPECT_EQ(0, CanvasManager.AddLayer(canvas, 0, 0, 6, 6));
  EXPECT_EQ(0, CanvasManager.DuplicateLayer(canvas, 8));
  EXPECT_TRUE(SameBytes(canvas, before.get()));
}

TEST_F(CanvasLayers, MovesKeepTheBaseSizeOrAreUndone) {
  Canvas* canvas = MakeBlank(100, 100);
  PlaneSlot* s = canvas->planes;
  CanvasManager.AddLayer(canvas, 20, 30, 10, 10);
  CanvasManager.AddLayer(canvas, 5, 7, 100, 100);
  CanvasManager.SelectPlane(canvas, CanvasManager.AddPlane(canvas, 16, 0));  // index 19
  auto before = Copy(canvas);
  EXPECT_EQ(0, CanvasManager.MoveLayer(canvas, 1, 0));
  EXPECT_EQ(0, CanvasManager.MoveLayer(canvas, 0, 2));  // brings the small layer 1 down to 0
  EXPECT_TRUE(SameBytes(canvas, before.get()));
  const std::string refusal =
      "Cannot make change of layer positions that would change the size of base layer!";
  EXPECT_EQ((std::vector<std::string>{refusal, refusal}), BoxTexts());
  EXPECT_EQ(0, CanvasManager.MoveLayer(canvas, 1, 3));  // no layer there, or no move: nothing said
  EXPECT_EQ(0, CanvasManager.MoveLayer(canvas, 2, 2));
  EXPECT_TRUE(SameBytes(canvas, before.get()));

  // A layer of the same size takes the base; the origins follow it to (0, 0),
  // and the active index, left on an empty slot, falls back to its layer's image.
  Plane* base = s[0].plane;
  Plane* small = s[8].plane;
  Plane* big = s[16].plane;
  EXPECT_EQ(1, CanvasManager.MoveLayer(canvas, 2, 0));
  EXPECT_EQ(2u, BoxTexts().size());
  EXPECT_EQ(std::tuple(big, base, small), std::tuple(s[0].plane, s[8].plane, s[16].plane));
  const int origins[3][2] = {{0, 0}, {-5, -7}, {15, 23}};
  for (int index = 0; index < 24; ++index)
    EXPECT_EQ(std::pair(origins[index / 8][0], origins[index / 8][1]), std::pair(s[index].left, s[index].top));
  EXPECT_EQ(16, canvas->activePlane);
  CanvasManager.SelectPlane(canvas, 19);  // empty: ignored
  EXPECT_EQ(16, canvas->activePlane);
  EXPECT_EQ(1, CanvasManager.MoveLayer(canvas, 0, 1));  // and upwards
  EXPECT_EQ(std::pair(base, 5), std::pair(s[0].plane, s[8].left));

  CanvasManager.DeleteLayer(canvas, 1);  // the layers above slide down
  EXPECT_EQ(std::tuple(2, small, static_cast<Plane*>(nullptr), 0),
            std::tuple(CanvasManager.LayerCount(canvas), s[8].plane, s[16].plane, canvas->activePlane));
  CanvasManager.DeleteLayer(canvas, 0);  // the base stays
  EXPECT_EQ(2, CanvasManager.LayerCount(canvas));
}

TEST_F(CanvasLayers, EightPositionsAtMostAndNamesTakeTheLowestFreeDigit) {
  Canvas* canvas = MakeBlank(4, 3);
  PlaneSlot* s = canvas->planes;
  EXPECT_EQ(3, CanvasManager.AddPlane(canvas, 1, 0));
  EXPECT_EQ(4, CanvasManager.AddPlane(canvas, 0, 1));
  EXPECT_EQ(5, CanvasManager.AddPlane(canvas, 2, 1));
  EXPECT_EQ((std::vector<std::string>{"1M", "1T", "2T"}), Names(&s[3], 3));
  EXPECT_EQ(std::tuple(10, 0), std::tuple(s[5].displayMode, s[5].mixMode));
  EXPECT_TRUE(AllBytes(s[5].plane, 0));
  Plane* twoT = s[5].plane;
  EXPECT_EQ(4, CanvasManager.DeletePlane(canvas, 4));  // "1T" goes, "2T" slides down
  EXPECT_EQ(twoT, s[4].plane);
  EXPECT_EQ(5, CanvasManager.AddPlane(canvas, 0, 1));
  EXPECT_EQ(6, CanvasManager.AddPlane(canvas, 0, 0));
  EXPECT_EQ(7, CanvasManager.AddPlane(canvas, 0, 0));
  EXPECT_EQ((std::vector<std::string>{"1M", "2T", "1T", "2M", "3M"}), Names(&s[3], 5));
  EXPECT_EQ(-1, CanvasManager.AddPlane(canvas, 0, 0));
  EXPECT_EQ(-1, CanvasManager.AddPlane(canvas, 8, 0));  // no layer 1
  EXPECT_EQ(-1, CanvasManager.DeletePlane(canvas, 0));  // the image stays
  EXPECT_EQ(7, CanvasManager.DeletePlane(canvas, 7));
  EXPECT_EQ(-1, CanvasManager.DeletePlane(canvas, 7));
}

TEST_F(CanvasLayers, UserLayerIsClampedCentredAndLandsAboveTheActiveLayer) {
  Canvas* canvas = MakeBlank(100, 100);
  const PlaneSlot* s = canvas->planes;
  EXPECT_EQ(8, CanvasManager.AddLayerByUser(canvas, 500, 700));
  EXPECT_EQ(std::tuple(0, 0, 100, 100, 8),
            std::tuple(s[8].left, s[8].top, s[8].width, s[8].height, canvas->activePlane));
  auto told = headless::MessagesTo(platform::Window::LayerPanel, platform::MsgLayerRedraw);
  ASSERT_EQ(1u, told.size());
  EXPECT_EQ(std::pair(intptr_t{-1}, intptr_t(canvas)), std::pair(told[0].wParam, told[0].lParam));

  // With the active layer at place 5 of 9, the new layer lands at place 6.
  for (int layer = 2; layer < 9; ++layer) CanvasManager.AddLayer(canvas, 0, 0, 100, 100);
  Plane* sixth = s[48].plane;
  CanvasManager.SelectPlane(canvas, 40);
  EXPECT_EQ(48, CanvasManager.AddLayerByUser(canvas, 31, 40));
  EXPECT_EQ(std::tuple(34, 30, sixth, 48),  // (100 - 31) / 2, (100 - 40) / 2
            std::tuple(s[48].left, s[48].top, s[56].plane, canvas->activePlane));

  headless::Reset();  // a plane that can't be made: the box, and nothing placed or told
  settings.imageBuffer = Virtual;
  headless::Recorded().failMappings = 1;
  EXPECT_EQ(-1, CanvasManager.AddLayerByUser(canvas, 10, 10));
  EXPECT_EQ(std::pair(10, 48), std::pair(CanvasManager.LayerCount(canvas), canvas->activePlane));
  EXPECT_EQ("memory error0", LastBoxText());
  EXPECT_TRUE(headless::Recorded().messages.empty());
}

}  // namespace
