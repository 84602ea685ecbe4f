#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "platform/headless/headless.h"
#include "settings/number_lists.h"
#include "settings/side_path.h"
#include "shell/file_history.h"
#include "shell/temp_folder.h"

namespace {

class SideFilesTest : public ::testing::Test {
 protected:
  void SetUp() override { headless::Reset(); }
  TempFolder folder;
};

TEST_F(SideFilesTest, FileHistoryReadsEntriesOf256Bytes) {
  std::vector<uint8_t> file(8 * 256, 0);
  std::fill(file.begin(), file.begin() + 256, 'a');  // an entry with no end of its own
  std::strcpy(reinterpret_cast<char*>(file.data()) + 256, "C:\\pictures\\cat.tsl");
  folder.Write("fhist.dat", file);
  std::memset(fileHistory, 'x', sizeof fileHistory);

  EXPECT_EQ(1, ReadFileHistory(folder.path()));
  EXPECT_EQ(std::string(256, 'a'), fileHistory[0]);
  EXPECT_STREQ("C:\\pictures\\cat.tsl", fileHistory[1]);
  for (int i = 2; i < 8; ++i) EXPECT_STREQ("", fileHistory[i]) << i;

  // Written back, the file holds the first 256 bytes of each entry.
  ASSERT_EQ(1, WriteFileHistory(folder.path()));
  EXPECT_EQ(file, folder.Read("fhist.dat"));
}

TEST_F(SideFilesTest, EmptyOrMissingFileHistoryIsEmpty) {
  folder.WriteText("fhist.dat", "");
  std::memset(fileHistory, 'x', sizeof fileHistory);
  EXPECT_EQ(1, ReadFileHistory(folder.path()));
  for (int i = 0; i < 8; ++i) EXPECT_STREQ("", fileHistory[i]) << i;

  std::memset(fileHistory, 'x', sizeof fileHistory);
  EXPECT_EQ(0, ReadFileHistory(folder.path() + "missing/"));
  for (int i = 0; i < 8; ++i) EXPECT_STREQ("", fileHistory[i]) << i;
}

TEST_F(SideFilesTest, PenSizesKeepFiftyEntries) {
  std::string text;
  for (int i = 1; i <= 60; ++i) text += std::to_string(i) + " " + std::to_string(100 + i) + "\n";
  folder.WriteText("pensize.dat", text);
  EXPECT_EQ(1, ReadPenSizes(folder.path()));
  EXPECT_EQ(50, penSizes.Count());
  EXPECT_EQ(50, penSizes.column[0][49]);
  EXPECT_EQ(150, penSizes.column[1][49]);

  EXPECT_EQ(0, ReadPenSizes(folder.path() + "missing/"));
  EXPECT_EQ(1, penSizes.Count());
  EXPECT_EQ(1, penSizes.column[0][0]);
  EXPECT_EQ(1, penSizes.column[1][0]);
  EXPECT_EQ(-1, penSizes.column[0][1]);
}

TEST_F(SideFilesTest, UnreadableLineEndsTheList) {
  folder.WriteText("canvsize.dat", "640 480\n7\nwide\n800 600\n");
  EXPECT_EQ(1, ReadCanvasSizes(folder.path()));
  EXPECT_EQ(640, canvasSizes.column[0][0]);
  EXPECT_EQ(7, canvasSizes.column[0][1]);
  EXPECT_EQ(-1, canvasSizes.column[1][1]);  // half a pair
  EXPECT_EQ(-1, canvasSizes.column[0][2]);
  EXPECT_EQ(800, canvasSizes.column[0][3]);  // read, but behind the end
  EXPECT_EQ(2, canvasSizes.Count());

  ASSERT_EQ(1, WriteCanvasSizes(folder.path()));
  EXPECT_EQ("640 480\n7 -1\n", folder.ReadText("canvsize.dat"));

  EXPECT_EQ(0, ReadCanvasSizes(folder.path() + "missing/"));
  EXPECT_EQ(0, canvasSizes.Count());
}

TEST_F(SideFilesTest, PresetListsHoldOneNumberALine) {
  folder.WriteText("tlist00.dat", "10\n20\n");
  EXPECT_EQ(1, ReadTList(folder.path(), 0));
  EXPECT_EQ(2, presetLists[0].Count());
  EXPECT_EQ(20, presetLists[0].column[0][1]);

  EXPECT_EQ(0, ReadTList(folder.path(), 1));  // no tlist01.dat
  EXPECT_EQ(1, presetLists[1].Count());
  EXPECT_EQ(255, presetLists[1].column[0][0]);

  ASSERT_EQ(1, WriteTList(folder.path(), 1));
  EXPECT_EQ("255\n", folder.ReadText("tlist01.dat"));
  presetLists[0].column[0][2] = 30;
  ASSERT_EQ(1, WriteTList(folder.path(), 0));
  EXPECT_EQ("10\n20\n30\n", folder.ReadText("tlist00.dat"));

  EXPECT_EQ(0, ReadTList(folder.path(), 2));
  EXPECT_EQ(0, WriteTList(folder.path(), -1));
}

TEST(SidePathTest, SubfoldersTakeTheFoldersSeparator) {
  EXPECT_EQ("C:\\Tesel\\palette\\pal.dat", SidePath("C:\\Tesel\\", "palette\\pal.dat"));
  EXPECT_EQ("/opt/tesel/palette/pal.dat", SidePath("/opt/tesel/", "palette\\pal.dat"));
}

}  // namespace
