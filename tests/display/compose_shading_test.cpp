// Shading of the view: the outside of the selection in each outside mode,
// and the darkening outside the active plane's rectangle.
#include "compose_fixture.h"

namespace {

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
