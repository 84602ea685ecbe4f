// The preview of tsl_rotate against pictures worked out by hand.
#include "layers/rotate_preview.h"
#include "support/fixture.h"

namespace {

using RotatePreviewTest = TeselTest;

constexpr uint32_t kGrey = 0x808080;
// Blue, green, red bytes of a colour written as 0xRRGGBB.
std::vector<uint8_t> Bgr(std::initializer_list<uint32_t> colours) {
  std::vector<uint8_t> bytes;
  for (uint32_t c : colours)
    bytes.insert(bytes.end(), {uint8_t(c), uint8_t(c >> 8), uint8_t(c >> 16)});
  return bytes;
}

constexpr uint32_t kRed = 0xFF0000, kBlue = 0x0000FF, kG = kGrey;

TEST_F(RotatePreviewTest, QuarterAndHalfTurnsOfATwoPixelLayer) {
  Canvas* canvas = MakeBlank(2, 1);
  Plane* image = canvas->planes[0].plane;
  PlaneStore.WritePixel24(image, 0, 0, 255, 0, 0);
  PlaneStore.WritePixel24(image, 1, 0, 0, 0, 255);

  // Unturned, red | blue fills the middle row of a 4 x 4 square at twice
  // the size: rows 1 and 2.
  EXPECT_EQ(RotatePreview(canvas, 0, 0, 4, kGrey), Bgr({kG, kG, kG, kG, kRed, kRed, kBlue, kBlue,
                                                        kRed, kRed, kBlue, kBlue, kG, kG, kG, kG}));
  // Clockwise, red comes on top: a column two wide in the middle.
  EXPECT_EQ(RotatePreview(canvas, 0, 90, 4, kGrey), Bgr({kG, kRed, kRed, kG, kG, kRed, kRed, kG, kG,
                                                         kBlue, kBlue, kG, kG, kBlue, kBlue, kG}));
  EXPECT_EQ(
      RotatePreview(canvas, 0, -90, 4, kGrey),
      Bgr({kG, kBlue, kBlue, kG, kG, kBlue, kBlue, kG, kG, kRed, kRed, kG, kG, kRed, kRed, kG}));
  EXPECT_EQ(
      RotatePreview(canvas, 0, 180, 4, kGrey),
      Bgr({kG, kG, kG, kG, kBlue, kBlue, kRed, kRed, kBlue, kBlue, kRed, kRed, kG, kG, kG, kG}));
}

TEST_F(RotatePreviewTest, AnEighthTurnFitsTheDiagonalAndAMissingLayerIsBackground) {
  Canvas* canvas = MakeBlank(3, 3);
  // At 45 degrees the 3 x 3 layer spans 3 x sqrt 2 = 4.24; a square of 4
  // scales it by 0.94, so the corners of the square miss the layer and the
  // centre hits the white middle.
  const std::vector<uint8_t> turned = RotatePreview(canvas, 0, 45, 4, kGrey);
  EXPECT_EQ(std::vector<uint8_t>(turned.begin(), turned.begin() + 3), Bgr({kG}));
  EXPECT_EQ(std::vector<uint8_t>(turned.end() - 3, turned.end()), Bgr({kG}));
  EXPECT_EQ(std::vector<uint8_t>(turned.begin() + 15, turned.begin() + 18), Bgr({0xFFFFFF}));
  EXPECT_EQ(RotatePreview(canvas, 5, 45, 2, kGrey), Bgr({kG, kG, kG, kG}));
}

}  // namespace
