// Composition against the reference: the blended stack in every mix mode,
// the cases where the answer is known without it, the display modes that
// show one layer or one plane, the coverage of the stack, the requests that
// give no tile, and the shading of the view: the outside of the selection in
// each outside mode and the darkening outside the active plane's rectangle.
#include "compose_fixture.h"

namespace {

using ComposeBlend = ComposeTest;

// A base of odd size and four layers hanging over its edges, each with its
// own arrangement of planes.
void BuildStack(ComposeTest& t) {
  t.AddLayer(0, 0, 45, 23);
  t.AddLayer(-3, 4, 40, 11);
  // Transparency switched off; a Transparency plane, one with both coverage
  // flags, and a Line Draw plane after a mask.
  t.AddLayer(7, -2, 50, 30, 1, 77);
  t.SetPlane(2, 1, -1);
  t.canvas->planes[2 * 8 + 2].planeOff = 1;
  t.SetPlane(2, 3, 3);
  PlaneSlot& both = t.SetPlane(2, 4, 2, Fill::Random);
  both.planeFlags[3] = 1;
  t.SetPlane(2, 5, 4, Fill::Random);
  // No transparency plane: the Line Draw plane after the gap is not reached,
  // while coverage planes past it still count.
  t.AddLayer(11, 3, 33, 17, 1, 30);
  PlaneStore.FreePlane(&t.canvas->planes[3 * 8 + 2].plane);
  t.SetPlane(3, 1, -1);
  t.SetPlane(3, 3, 4, Fill::Random);
  t.SetPlane(3, 4, 3);
  // A Transparency plane switched off.
  t.AddLayer(2, 1, 38, 20);
  t.SetPlane(4, 3, 3).planeOff = 1;
}

void SetModes(Canvas* canvas, int mode) {
  for (int layer = 0; canvas->planes[layer * 8].plane; ++layer)
    canvas->planes[layer * 8].mixMode = mode;
}

TEST_P(ComposeBlend, EveryModeMatchesTheArithmetic) {
  BuildStack(*this);
  for (int mode = 1; mode <= 9; ++mode) {
    SCOPED_TRACE(testing::Message() << "mode " << mode);
    SetModes(canvas.get(), mode);
    ExpectTile(-4, -3, 49, 26);
    ExpectTile(30, 0, 30, 22);
    ExpectTile(-4, -3, 49, 26, false, true);
  }
  // Hidden, unknown and mixed modes. With the base hidden, the lowest shown
  // layer on each row starts the picture, and layer 3's unknown mode still
  // gives it that place; so does layer 1 on its rows, even in a tile right
  // of it.
  const int modes[5] = {0, 8, 5, 12, 9};
  for (int layer = 0; layer < 5; ++layer) canvas->planes[layer * 8].mixMode = modes[layer];
  canvas->planes[0].opacityLoss = 255;
  ExpectTile(-4, -3, 49, 26);
  ExpectTile(-4, -3, 49, 26, false, true);
  ExpectTile(38, -3, 49, 26, false, true);
  canvas->planes[8].mixMode = 0;
  ExpectTile(-4, -3, 49, 26, false, true);
}

// More layers than are read at once, of every storage kind, some of them
// skipped or faded out.
TEST_P(ComposeBlend, TallStackOfEveryStorageKind) {
  const int modes[12] = {1, 9, 2, 0, 5, 8, 3, 6, 4, 7, 1, 13};
  const uint32_t kinds[3] = {Physical, Packed, Virtual};
  for (int layer = 0; layer < 12; ++layer) {
    AddLayer(layer == 0 ? 0 : (layer * 7) % 11 - 5, layer == 0 ? 0 : layer % 4 - 1,
             layer == 0 ? 47 : 36, layer == 0 ? 9 : 8, modes[layer], layer * 23 % 256,
             kinds[layer % 3]);
    if (layer % 3 == 1) SetPlane(layer, 1, -1), SetPlane(layer, 3, 4, Fill::Random);
  }
  canvas->planes[6 * 8].opacityLoss = 255;
  ExpectTile(-6, -2, 48, 9);
  ExpectTile(-6, -2, 48, 9, false, true);
  ExpectTile(2, 3, 52, 3);  // from the first column of the packed layer 1
  // Wider than all the row buffers together, and asked for from left of it:
  // the rest of a packed row must not spill past them.
  AddLayer(0, 0, 90000, 2, 1, 0, Packed);
  ExpectTile(-10, 0, 40, 1);
}

TEST_P(ComposeBlend, HandWorkedPictures) {
  settings.backgroundRed = 10, settings.backgroundGreen = 20, settings.backgroundBlue = 30;
  AddLayer(0, 0, 37, 4);
  SetPlane(0, 2, -1, Fill::Constant, 255);
  // Right of the canvas: background only.
  EXPECT_EQ(Row(50, 1, 90, true), Repeated({30, 20, 10}, 41));
  // The same picture in Difference over itself, fully covered: black.
  int twin = AddLayer(0, 0, 37, 4, 8);
  PlaneStore.CopyPlane(canvas->planes[twin * 8].plane, canvas->planes[0].plane);
  SetPlane(twin, 2, -1, Fill::Constant, 255);
  EXPECT_EQ(Row(0, 2, 36), Repeated({0, 0, 0}, 37));
  // A Line Draw plane of 0 paints black into the layer's colours.
  canvas->planes[twin * 8].mixMode = 1;
  SetPlane(twin, 1, -1);
  SetPlane(twin, 3, 4, Fill::Constant, 0);
  EXPECT_EQ(Row(0, 3, 36), Repeated({0, 0, 0}, 37));

  // An opaque base shows through its own transparency, whatever its mode;
  // fully covered in Hybrid, it multiplies itself.
  TearDown();
  SetUp();
  AddLayer(0, 0, 33, 3);
  SetPlane(0, 2, -1, Fill::Constant, 0);
  std::vector<uint8_t> image(3 * 33);
  PlaneStore.ReadRow(canvas->planes[0].plane, 1, 0, 32, image.data());
  for (int mode : {1, 2}) {
    canvas->planes[0].mixMode = mode;
    EXPECT_EQ(Row(0, 1, 32, false, true), image) << "mode " << mode;
  }
  SetPlane(0, 2, -1, Fill::Constant, 255);
  for (uint8_t& c : image) c = static_cast<uint8_t>((c * c + 128) / 255);
  EXPECT_EQ(Row(0, 1, 32, false, true), image);

  // Grey in Luminosity keeps the hue below: h of (200, 100, 50) is 20
  // degrees, 14 scaled; back at 19 degrees with s 191 and the source's v of
  // 90: (90, 43, 22).
  canvas->planes[0].mixMode = 1;
  int top = AddLayer(0, 0, 33, 3, 5);
  SetPlane(top, 2, -1, Fill::Constant, 255);
  for (int x = 0; x < 33; ++x) {
    PlaneStore.WritePixel24(canvas->planes[0].plane, x, 1, 200, 100, 50);
    PlaneStore.WritePixel24(canvas->planes[top * 8].plane, x, 1, 90, 90, 90);
  }
  EXPECT_EQ(Row(0, 1, 32), Repeated({22, 43, 90}, 33));
}

INSTANTIATE_TEST_SUITE_P(Kernels, ComposeBlend, ::testing::Bool(), PathName);

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
