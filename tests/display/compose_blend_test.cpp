// The blended stack in every mix mode against the reference, and the cases
// where the answer is known without it.
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

}  // namespace
