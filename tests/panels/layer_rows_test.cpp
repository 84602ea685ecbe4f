#include <tuple>

#include "document/canvas_fixture.h"
#include "panels/layer_rows.h"
#include "panels/layer_scroll.h"

namespace {

class LayerRows : public CanvasTest {
 protected:
  // Layer 0 plain; layer 1 hidden, with a further plane; layer 2 made
  // without a mask, so that its planes stop at the image.
  Canvas* ThreeLayers() {
    Canvas* canvas = MakeBlank(8, 8);
    CanvasManager.AddLayer(canvas, 0, 0, 4, 4);
    CanvasManager.AddPlane(canvas, 8, 0);
    canvas->planes[8].mixMode = kMixHide;
    settings.noMaskPlane = 1;
    CanvasManager.AddLayer(canvas, 0, 0, 4, 4);
    settings.noMaskPlane = 0;
    return canvas;
  }
};

using Place = std::tuple<int, int, int, int, int>;  // index, x, y, width, height
std::vector<Place> Places(const Canvas* canvas) {
  std::vector<Place> places;
  for (const RowPlace& p : LayOutRows(canvas))
    places.emplace_back(p.index, p.x, p.y, p.width, p.height);
  return places;
}

WindowHandle Handle(int n) { return reinterpret_cast<WindowHandle>(intptr_t(0x1000 + n)); }

TEST_F(LayerRows, EveryPlaneButTheTransparencyStandsAndHiddenLayersStepIn) {
  Canvas* canvas = ThreeLayers();
  EXPECT_EQ((std::vector<int>{0, 1, 2, 8, 9, 10, 11, 16}), RowPlanes(canvas));
  settings.showPlanes = 1;
  EXPECT_EQ((std::vector<Place>{{0, 2, 0, 102, 32},
                                {1, 16, 32, 102, 32},
                                {2, 16, 64, 0, 0},
                                {8, 12, 64, 102, 32},
                                {9, 16, 96, 102, 32},
                                {10, 16, 128, 0, 0},
                                {11, 16, 128, 102, 32},
                                {16, 2, 160, 102, 32}}),
            Places(canvas));
  EXPECT_EQ(std::pair(6u, 192u), std::pair(layerPanel.visibleRowCount, layerPanel.listHeight));

  // Only the images have height; a layer of five planes is one row.
  settings.showPlanes = 0;
  CanvasManager.AddPlane(canvas, 0, 1);
  CanvasManager.AddPlane(canvas, 0, 0);
  const std::vector<Place> places = Places(canvas);
  EXPECT_EQ(10u, places.size());
  std::vector<Place> tall;
  for (const Place& p : places)
    if (std::get<4>(p)) tall.push_back(p);
  EXPECT_EQ((std::vector<Place>{{0, 2, 0, 102, 32}, {8, 12, 32, 102, 32}, {16, 2, 64, 102, 32}}),
            tall);
  EXPECT_EQ(std::pair(3u, 96u), std::pair(layerPanel.visibleRowCount, layerPanel.listHeight));
}

TEST_F(LayerRows, RowWindowsAreFoundOnlyForPlanesThatExist) {
  Canvas* canvas = ThreeLayers();
  for (int index : RowPlanes(canvas)) layerPanel.layerRows[index] = Handle(index);
  layerPanel.layerRows[24] = Handle(24);  // a row left over from a layer that went
  EXPECT_EQ(9, RowOfWindow(Handle(9), canvas));
  EXPECT_EQ(16, RowOfWindow(Handle(16), canvas));
  EXPECT_EQ(-1, RowOfWindow(Handle(24), canvas));
  EXPECT_EQ(-1, RowOfWindow(Handle(5), canvas));
  EXPECT_EQ(-1, RowOfWindow(nullptr, canvas));
}

TEST_F(LayerRows, ScrollingStaysWithinTheList) {
  layerPanel.listHeight = 160;
  EXPECT_EQ(0, SizeList(100));
  EXPECT_EQ(60, MaxScrollOffset());
  EXPECT_EQ(1, ScrollList(kScrollLineDown, 0));
  EXPECT_EQ(10, ScrollList(kScrollPageDown, 0));
  EXPECT_EQ(-1, ScrollList(kScrollLineUp, 0));
  EXPECT_EQ(10, layerPanel.scrollOffset);
  EXPECT_EQ(50, ScrollList(kScrollThumbTrack, 200));  // clamped at the end
  EXPECT_EQ(0, ScrollList(kScrollBottom, 0));
  EXPECT_EQ(-60, ScrollList(kScrollTop, 0));
  EXPECT_EQ(0, ScrollList(kScrollPageUp, 0));
  EXPECT_EQ(0, ScrollList(8, 0));  // end of scroll: nothing
  EXPECT_EQ(25, ScrollList(kScrollThumbPosition, 25));
  // A window taller than the list shows it from the top.
  EXPECT_EQ(-25, SizeList(300));
  EXPECT_EQ(std::pair(0, 300u), std::pair(layerPanel.scrollOffset, layerPanel.clientHeight));
  EXPECT_EQ(0, ScrollList(kScrollPageDown, 0));
}

}  // namespace
