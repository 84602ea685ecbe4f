// Stored pens: the 200 bytes of the file checked by hand, the round trip,
// and files that are missing, short or damaged.
#include <cstring>
#include <fstream>
#include <iterator>

#include "paint/stored_pen.h"
#include "store/dib.h"
#include "tip_test_support.h"

namespace {

using namespace tiptest;

class StoredPenTest : public PenTest {
 protected:
  std::filesystem::path SlotFile(int slot) {
    return scratch.path / ("pen0" + std::to_string(slot));
  }
  Bytes FileBytes(int slot) {
    std::ifstream in(SlotFile(slot), std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(in), {});
  }
  void SetPen() {
    dotPenPanel = 0;
    pen.tipShape = 13;
    pen.colorThickness = 200;
    pen.density = 17;
    pen.radiusX = 3.25;
    pen.radiusY = 0.5;
    PenDataList.folderInUse = 2;
    PenDataList.fileInUse = 7;
  }
};

TEST_F(StoredPenTest, FileHoldsTheTipAndStrengthsAtTheirOffsets) {
  SetPen();
  pen.red = 99;
  ASSERT_EQ(1, SavePen(scratch.Prefix(), 4));
  Bytes expected(200, 0);
  expected[1] = 13;
  expected[2] = 7;
  expected[3] = 2;
  expected[4] = 200;
  expected[5] = 17;
  expected[16] = 0x0A;  // 3.25 = 0x400A000000000000, little-endian
  expected[17] = 0x40;
  expected[24] = 0xE0;  // 0.5 = 0x3FE0000000000000
  expected[25] = 0x3F;
  EXPECT_EQ(expected, FileBytes(4));
}

TEST_F(StoredPenTest, LoadBringsBackWhatWasStoredAndNothingElse) {
  SetPen();
  ASSERT_EQ(1, SavePen(scratch.Prefix(), 9));
  pen.tipShape = 2;
  pen.colorThickness = pen.density = 255;
  pen.radiusX = pen.radiusY = 40;
  pen.red = 12;
  pen.mode = 6;
  dotTipActive = 1;
  ASSERT_EQ(1, LoadPen(scratch.Prefix(), 9));
  EXPECT_EQ(13, pen.tipShape);
  EXPECT_EQ(200u, pen.colorThickness);
  EXPECT_EQ(17u, pen.density);
  EXPECT_EQ(3.25, pen.radiusX);
  EXPECT_EQ(0.5, pen.radiusY);
  EXPECT_EQ(12u, pen.red);  // colour and mode are not stored
  EXPECT_EQ(6u, pen.mode);
  EXPECT_EQ(0, dotTipActive);  // the brush panel is back
  ASSERT_NE(nullptr, pen.tipHigh);  // and the tip rebuilt
  EXPECT_EQ(8, pen.tipHigh->width);
  EXPECT_EQ(2, pen.tipHigh->height);
}

TEST_F(StoredPenTest, DotPenComesBackFromItsFolder) {
  std::filesystem::path family = scratch.path / "pendata" / "f";
  std::filesystem::create_directories(family);
  Plane* picture = PlaneStore.CreatePlane(3, 2, 8, 0, 1, Physical);
  ASSERT_EQ(1, SaveBmp(picture, (family / "a.bmp").string()));
  PlaneStore.FreePlane(&picture);
  PenDataList.Read(scratch.Prefix());
  PenDataList.PickDotPen(0);
  dotPenPanel = 1;
  ASSERT_EQ(1, SavePen(scratch.Prefix(), 1));
  PlaneStore.FreePlane(&dotTip);
  dotPenPanel = 0;
  ASSERT_EQ(1, LoadPen(scratch.Prefix(), 1));
  EXPECT_EQ(1, dotPenPanel);
  EXPECT_EQ(1, dotTipActive);
  EXPECT_EQ((Raster{3, 2, Bytes(6, 255)}), Read(dotTip));
}

TEST_F(StoredPenTest, BadFilesAndSlotsLeaveThePenAlone) {
  SetPen();
  EXPECT_EQ(0, SavePen(scratch.Prefix(), 0));
  EXPECT_EQ(0, SavePen(scratch.Prefix(), 10));
  EXPECT_EQ(0, SavePen(scratch.Prefix() + "nowhere/", 1));
  EXPECT_EQ(0, LoadPen(scratch.Prefix(), 5));  // missing

  Bytes file(200, 0);
  file[1] = 16;  // no such shape
  std::ofstream(SlotFile(5), std::ios::binary).write(reinterpret_cast<char*>(file.data()), 200);
  EXPECT_EQ(0, LoadPen(scratch.Prefix(), 5));
  file[1] = 3;
  std::ofstream(SlotFile(5), std::ios::binary).write(reinterpret_cast<char*>(file.data()), 199);
  EXPECT_EQ(0, LoadPen(scratch.Prefix(), 5));  // short
  EXPECT_EQ(13, pen.tipShape);
  EXPECT_EQ(3.25, pen.radiusX);
  EXPECT_EQ(nullptr, pen.tipHigh);

  // Radii out of range are brought in, as at start.
  double huge = 1e300, negative = -2;
  std::memcpy(&file[10], &huge, 8);
  std::memcpy(&file[18], &negative, 8);
  std::ofstream(SlotFile(5), std::ios::binary).write(reinterpret_cast<char*>(file.data()), 200);
  ASSERT_EQ(1, LoadPen(scratch.Prefix(), 5));
  EXPECT_EQ(127.0, pen.radiusX);
  EXPECT_EQ(0.0, pen.radiusY);
}

TEST_F(StoredPenTest, ShiftKeyStoresAndSaysSo) {
  SetPen();
  ASSERT_EQ(1, StoredPenKey(scratch.Prefix(), 3, true));
  ASSERT_EQ(1u, headless::Recorded().boxes.size());
  EXPECT_EQ("Now registered to [3]!", headless::Recorded().boxes[0].text);
  EXPECT_EQ(0, StoredPenKey(scratch.Prefix() + "nowhere/", 3, true));  // not stored: not said
  EXPECT_EQ(1u, headless::Recorded().boxes.size());
  pen.tipShape = 0;
  ASSERT_EQ(1, StoredPenKey(scratch.Prefix(), 3, false));
  EXPECT_EQ(13, pen.tipShape);
  EXPECT_EQ(1u, headless::Recorded().boxes.size());
}

}  // namespace
