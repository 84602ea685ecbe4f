// Dot pens: the tip cut to the box of what is not white, the pen data
// folders listed in byte order, and the families shipped with the program.
#include <algorithm>
#include <cstring>
#include <fstream>

#include "paint/tip/dot_pen.h"
#include "store/dib.h"
#include "tip_test_support.h"

namespace {

using namespace tiptest;
namespace fs = std::filesystem;

class DotPenTest : public PenTest {
 protected:
  static Raster TipOf(Plane* tip) {
    Raster raster = Read(tip);
    PlaneStore.FreePlane(&tip);
    return raster;
  }
  static std::vector<std::string> Names(const char (*names)[kPenNameBytes], int count) {
    return {names, names + count};
  }
};

TEST_F(DotPenTest, TipIsTheBoxOfWhatIsNotWhiteCutTo256) {
  // Only pixels whose largest channel is below 255 count: pure yellow at
  // (10, 7) does not, the near white at (2, 5) does. Box x 2..6, y 2..5.
  SavePicture("pen.bmp", 12, 9,
              {{3, 4, 0, 0, 0},
               {6, 2, 30, 60, 92},
               {4, 4, 255, 0, 0},
               {10, 7, 255, 255, 0},
               {2, 5, 254, 254, 254}});
  Raster tip = TipOf(LoadDotTip(scratch / "pen.bmp"));
  ASSERT_EQ(std::make_pair(5, 4), std::make_pair(tip.width, tip.height));
  // Black, 255 - 182 / 3, red inside the box 255 - 255 / 3, 255 - 254, white.
  EXPECT_EQ((Bytes{255, 195, 170, 1, 0}),
            (Bytes{tip.at(1, 2), tip.at(4, 0), tip.at(2, 2), tip.at(0, 3), tip.at(0, 0)}));
  // All white, no file at all, or a broken one: one pixel of nothing.
  SavePicture("white.bmp", 7, 5, {});
  scratch.WriteText("broken.bmp", "BM broken");
  for (const char* name : {"white.bmp", "missing.bmp", "broken.bmp"})
    EXPECT_EQ((Raster{1, 1, {0}}), TipOf(LoadDotTip(scratch / name))) << name;
  // A grey picture, its box cut to the top left 256 columns.
  Plane* grey = PlaneStore.CreatePlane(300, 4, 8, 255, 1, Physical);
  PlaneStore.WritePixel8(grey, 0, 1, 100);
  PlaneStore.WritePixel8(grey, 299, 3, 0);
  tip = TipOf(MakeDotTip(grey));
  EXPECT_EQ(std::make_tuple(256, 3, 155),
            std::make_tuple(tip.width, tip.height, int(tip.at(0, 0))));
  PlaneStore.FreePlane(&grey);
}

TEST_F(DotPenTest, FoldersAndFilesAreListedInByteOrderUpToTheirLimits) {
  const fs::path pendata = scratch / "pendata";
  for (const char* family : {"b", "B", "a"}) fs::create_directories(pendata / family);
  fs::create_directories(pendata / std::string(40, 'x'));  // a name too long
  SavePicture("pendata/a/z.bmp", 4, 4, {{1, 1, 0, 0, 0}});
  SavePicture("pendata/a/Y.BMP", 4, 4, {{2, 3, 0, 0, 0}});
  scratch.WriteText("pendata/a/notes.txt", "not a pen");
  scratch.WriteText("pendata/c.bmp", "a file, not a family");

  ASSERT_EQ(3, PenDataList.Read(scratch.path()));
  EXPECT_EQ((std::vector<std::string>{"B", "a", "b"}), Names(PenDataList.folders, 3));
  EXPECT_EQ(0, PenDataList.fileCount);  // "B" is empty
  EXPECT_EQ(1, PenDataList.NextFolder());
  EXPECT_EQ((std::vector<std::string>{"Y.BMP", "z.bmp"}), Names(PenDataList.files, 2));
  ASSERT_EQ(2, PenDataList.fileCount);
  ASSERT_EQ(1, PenDataList.PickDotPen(1));
  EXPECT_EQ(1, PenDataList.fileInUse);
  EXPECT_EQ((Raster{1, 1, {255}}), Read(tipState.dotTip));
  EXPECT_EQ(0, PenDataList.PickDotPen(2));
  EXPECT_EQ("", PenDataList.FilePath(2));
  PenDataList.NextFolder();
  EXPECT_EQ(1, PenDataList.NextFolder());  // wraps to the first
  EXPECT_EQ(0, PenDataList.folderInUse);

  fs::remove_all(pendata);
  for (int i = 0; i < 25; ++i) fs::create_directories(pendata / ("f" + std::to_string(100 + i)));
  for (int i = 0; i < 35; ++i) std::ofstream(pendata / "f100" / (std::to_string(100 + i) + ".bmp"));
  ASSERT_EQ(kPenFolderLimit, PenDataList.Read(scratch.path()));
  EXPECT_STREQ("f119", PenDataList.folders[19]);
  EXPECT_EQ(kPenFileLimit, PenDataList.fileCount);
  EXPECT_STREQ("129.bmp", PenDataList.files[29]);
  EXPECT_EQ(0, PenDataList.Read(scratch.path() + "nowhere/"));  // no pendata at all
  EXPECT_EQ(0, PenDataList.NextFolder());
  EXPECT_EQ(0, PenDataList.PickDotPen(0));
}

TEST_F(DotPenTest, ShippedFamiliesGiveInkedTips) {
  ASSERT_EQ(3, PenDataList.Read(fs::path(TESEL_PENDATA_DIR).parent_path().string() + "/"));
  EXPECT_EQ((std::vector<std::string>{"chalk", "dots", "leaf"}), Names(PenDataList.folders, 3));
  for (int family = 0; family < 3; ++family) {
    ASSERT_EQ(1, PenDataList.SelectFolder(family));
    EXPECT_GE(PenDataList.fileCount, 3) << family;
    for (int i = 0; i < PenDataList.fileCount; ++i) {
      ASSERT_EQ(1, PenDataList.PickDotPen(i));
      Raster tip = Read(tipState.dotTip);
      EXPECT_GT(tip.width * tip.height, 4) << PenDataList.files[i];
      EXPECT_GT(*std::max_element(tip.bytes.begin(), tip.bytes.end()), 100) << PenDataList.files[i];
    }
  }
}

}  // namespace
