// The display modes that show one layer or one plane, the coverage of the
// stack, the requests that give no tile, and the shading of the view: the
// outside of the selection in each outside mode and the darkening outside
// the active plane's rectangle.
#include "compose_fixture.h"

namespace {

using ComposeDisplay = ComposeTest;

// A base and a smaller layer with a plane at every position.
void BuildLayers(ComposeTest& t) {
  t.AddLayer(0, 0, 44, 21, 1);
  t.AddLayer(-5, 3, 41, 13, 0, 90);  // hidden and faded: neither counts alone
  t.SetPlane(1, 1, -1);
  t.canvas->planes[8 + 2].planeFlags[kFlagTransparency] = 1;  // still shown in red
  t.SetPlane(1, 3, 3);
  t.SetPlane(1, 4, -1, Fill::Random);
  t.SetPlane(1, 5, 2);
  t.SetPlane(1, 6, 4, Fill::Random);
}

void Activate(Canvas* canvas, int index, uint8_t displayMode) {
  canvas->activePlane = index;
  canvas->planes[index].displayMode = displayMode;
}

TEST_P(ComposeDisplay, OneLayerAndItsPlanesOrNoTile) {
  BuildLayers(*this);
  for (int position = 0; position < 7; ++position)
    for (uint8_t mode :
         {kDisplayThisLayerOnly, kDisplayChannel, kDisplayComposition, kDisplayThickness}) {
      if (position == 0 && mode != kDisplayThisLayerOnly) continue;
      SCOPED_TRACE(testing::Message() << "position " << position << " mode " << int(mode));
      Activate(canvas.get(), 8 + position, mode);
      ExpectTile(-7, -1, 40, 18);
    }
  Activate(canvas.get(), 0, kDisplayThisLayerOnly);
  ExpectTile(-3, -2, 46, 22);

  EXPECT_EQ(Compose(canvas.get(), 5, 0, 4, 3, 0, 0), nullptr);
  EXPECT_EQ(Compose(canvas.get(), 0, 3, 4, 2, 0, 0), nullptr);
  EXPECT_EQ(ComposeCoverage(canvas.get(), 4, 0, 3, 0), nullptr);
  // An empty slot, the 24-bit image plane as a thickness, unknown modes,
  // no such plane.
  for (auto [index, mode] : {std::pair{8 + 7, kDisplayChannel},
                             {8, kDisplayThickness},
                             {0, 2},
                             {0, 9},
                             {0, 14},
                             {0, 255},
                             {1024, 0}}) {
    if (index < 1024) Activate(canvas.get(), index, mode);
    canvas->activePlane = index;
    EXPECT_EQ(Compose(canvas.get(), 0, 0, 4, 4, 0, 0), nullptr) << index << " " << int(mode);
  }
}

TEST_P(ComposeDisplay, CoverageOfTheStackAndOfOneLayer) {
  AddLayer(0, 0, 40, 12);
  AddLayer(0, 0, 40, 12, 7);  // High Light adds no cover
  AddLayer(0, 0, 40, 12, 3, 100);
  SetPlane(2, 4, 3);
  AddLayer(0, 0, 40, 12, 0);   // hidden
  AddLayer(0, 0, 40, 12, 11);  // unknown mode
  AddLayer(0, 0, 40, 12, 9, 20);
  AddLayer(0, 20, 40, 3, 1);  // below the rectangle's rows
  DibTile* tile = ComposeCoverage(canvas.get(), 2, 1, 37, 10);
  ASSERT_NE(tile, nullptr);
  ASSERT_EQ(tile->bits, 8u);
  std::vector<uint8_t> row(36);
  for (int y = 1; y <= 10; ++y) {
    ReadTileRow8(tile, y - 1, 0, 35, row.data());
    for (int x = 2; x <= 37; ++x) {
      unsigned acc = 0;
      for (int layer : {0, 2, 5}) {
        unsigned a = ref::Mul(ref::Coverage(*canvas, layer, x, y),
                              255 - canvas->planes[layer * 8].opacityLoss);
        acc = 255 - ref::Mul(255 - acc, 255 - a);
      }
      ASSERT_EQ(row[x - 2], acc) << x << ", " << y;
    }
  }
  FreeTile(&tile);

  // With a transparency plane, columns outside the layer keep what they
  // held; without one, 255 stands everywhere but where further planes act.
  TearDown();
  SetUp();
  BuildLayers(*this);
  for (unsigned outside : {77u, 255u}) {
    canvas->planes[8 + 2].planeOff = outside == 255;
    std::vector<uint8_t> out(50, 77);
    ASSERT_EQ(LayerCoverageRow(canvas.get(), 7, -10, 39, out.data(), outside == 255 ? 8 : 8 + 4),
              1);
    for (int x = -10; x <= 39; ++x)
      ASSERT_EQ(out[x + 10], x >= -5 && x < 36 ? ref::Coverage(*canvas, 1, x, 7) : outside) << x;
  }
  std::vector<uint8_t> out(10);
  EXPECT_EQ(LayerCoverageRow(canvas.get(), 7, 0, 9, out.data(), 16), 0);
  EXPECT_EQ(LayerCoverageRow(canvas.get(), 7, 0, 9, out.data(), 1024), 0);
}

INSTANTIATE_TEST_SUITE_P(Kernels, ComposeDisplay, ::testing::Bool(), PathName);

using ComposeShading = ComposeTest;

constexpr int kSelectAll = 20001;

TEST_P(ComposeShading, OutsideOfTheSelectionInEachModeAndOfTheActiveRectangle) {
  AddLayer(0, 0, 46, 25);
  AddLayer(4, 3, 33, 9, 2);
  canvas->selectionKind = kSelectAll;
  canvas->selectionPlane = MakePlane(46, 25, 8, Fill::Edges);
  for (int mode = 0; mode < 3; ++mode) {
    SCOPED_TRACE(testing::Message() << "outside mode " << mode);
    settings.outsideDisplay = mode;
    ExpectTile(-20, -19, 49, 27, true);
    ExpectTile(3, 9, 40, 9, true);
    settings.darkenOutsideBoundary = 1;
    canvas->activePlane = 8 + 2;
    ExpectTile(-20, -19, 49, 27, true);
    settings.darkenOutsideBoundary = 0;
    canvas->activePlane = 0;
  }
  // Without shadeForView, a clean picture; no raster: all selected.
  settings.outsideDisplay = 2;
  ExpectTile(-2, -2, 47, 26, false);
  PlaneStore.FreePlane(&canvas->selectionPlane);
  ExpectTile(-2, -2, 47, 26, true);
  // Left of the canvas: the background, times 4 / 5; not shaded, as it is.
  settings.backgroundRed = 255, settings.backgroundGreen = 4, settings.backgroundBlue = 99;
  settings.darkenOutsideBoundary = 1;
  canvas->selectionKind = 0;
  canvas->activePlane = 8;
  EXPECT_EQ(Row(-2, 0, -1, true), Repeated({79, 3, 204}, 2));
  EXPECT_EQ(Row(-2, 0, -1), Repeated({99, 4, 255}, 2));
  ExpectTile(-2, -1, 47, 26, true);
}

TEST_P(ComposeShading, CheckCellsAreEightCanvasPixels) {
  AddLayer(0, 0, 40, 40);
  PlaneStore.FreePlane(&canvas->planes[0].plane);
  canvas->planes[0].plane = MakePlane(40, 40, 24, Fill::Constant, 100);
  SetPlane(0, 2, -1, Fill::Constant, 255);
  canvas->selectionKind = kSelectAll;
  canvas->selectionPlane = MakePlane(40, 40, 8, Fill::Constant, 255);
  settings.outsideDisplay = 1;
  // (7 x 100) >> 3 = 87, plus 32 where both or neither of x mod 16 and
  // y mod 16 reach 8; fully outside, the blend gives that alone.
  const std::vector<uint8_t> picture = Picture(5, 3, 38, 36, true);
  std::vector<int> greens;
  for (auto [x, y] :
       {std::pair{5, 3}, {7, 7}, {8, 7}, {8, 8}, {15, 15}, {16, 15}, {16, 16}, {23, 31}})
    greens.push_back(picture[3 * ((y - 3) * 34 + x - 5) + 1]);
  EXPECT_EQ(greens, (std::vector<int>{119, 119, 87, 119, 119, 87, 119, 87}));
  // Hide still blends: 1 at half coverage rounds to 2.
  settings.outsideDisplay = 0;
  PlaneStore.FreePlane(&canvas->selectionPlane);
  canvas->selectionPlane = MakePlane(40, 40, 8, Fill::Constant, 128);
  PlaneStore.FreePlane(&canvas->planes[0].plane);
  canvas->planes[0].plane = MakePlane(40, 40, 24, Fill::Constant, 1);
  EXPECT_EQ(Row(0, 0, 0, true), (std::vector<uint8_t>{2, 2, 2}));
}

INSTANTIATE_TEST_SUITE_P(Kernels, ComposeShading, ::testing::Bool(), PathName);

}  // namespace
