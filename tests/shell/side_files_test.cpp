// The files beside the program: the file history, the number lists, the
// help document, and the paths of subfolders.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "platform/headless/headless.h"
#include "settings/number_lists.h"
#include "settings/side_path.h"
#include "shell/file_history.h"
#include "shell/help_file.h"
#include "support/fixture.h"
#include "support/temp_folder.h"

namespace {

class SideFilesTest : public TeselTest {
 protected:
  TempFolder folder;
};

std::vector<std::string> History() {
  return std::vector<std::string>(fileHistory, fileHistory + 8);
}

TEST_F(SideFilesTest, FileHistoryReadsEntriesOf256Bytes) {
  std::vector<uint8_t> file(8 * 256, 0);
  std::fill(file.begin(), file.begin() + 256, 'a');  // an entry with no end of its own
  std::strcpy(reinterpret_cast<char*>(file.data()) + 256, "C:\\pictures\\cat.tsl");
  folder.Write("fhist.dat", file);
  std::memset(fileHistory, 'x', sizeof fileHistory);
  EXPECT_EQ(1, ReadFileHistory(folder.path()));
  EXPECT_EQ(History(), (std::vector<std::string>{std::string(256, 'a'), "C:\\pictures\\cat.tsl", "",
                                                 "", "", "", "", ""}));
  // Written back, the file holds the first 256 bytes of each entry.
  ASSERT_EQ(1, WriteFileHistory(folder.path()));
  EXPECT_EQ(file, folder.Read("fhist.dat"));

  // Empty or missing: an empty history.
  folder.WriteText("fhist.dat", "");
  std::memset(fileHistory, 'x', sizeof fileHistory);
  EXPECT_EQ(1, ReadFileHistory(folder.path()));
  EXPECT_EQ(History(), std::vector<std::string>(8));
  std::memset(fileHistory, 'x', sizeof fileHistory);
  EXPECT_EQ(0, ReadFileHistory(folder.path() + "missing/"));
  EXPECT_EQ(History(), std::vector<std::string>(8));
}

TEST_F(SideFilesTest, NumberListsStopAtTheirLimitOrAnUnreadableLine) {
  std::string text;
  for (int i = 1; i <= 60; ++i) text += std::to_string(i) + " " + std::to_string(100 + i) + "\n";
  folder.WriteText("pensize.dat", text);
  EXPECT_EQ(1, ReadPenSizes(folder.path()));
  EXPECT_EQ(50, penSizes.Count());
  EXPECT_EQ(std::tie(penSizes.column[0][49], penSizes.column[1][49]), std::make_tuple(50, 150));
  EXPECT_EQ(0, ReadPenSizes(folder.path() + "missing/"));  // the one entry 1 x 1
  EXPECT_EQ(std::tie(penSizes.column[0][0], penSizes.column[1][0], penSizes.column[0][1]),
            std::make_tuple(1, 1, -1));

  folder.WriteText("canvsize.dat", "640 480\n7\nwide\n800 600\n");
  EXPECT_EQ(1, ReadCanvasSizes(folder.path()));
  // Half a pair, then the end; 800 is read but lies behind it.
  EXPECT_EQ(std::tie(canvasSizes.column[0][1], canvasSizes.column[1][1], canvasSizes.column[0][2],
                     canvasSizes.column[0][3]),
            std::make_tuple(7, -1, -1, 800));
  EXPECT_EQ(2, canvasSizes.Count());
  ASSERT_EQ(1, WriteCanvasSizes(folder.path()));
  EXPECT_EQ("640 480\n7 -1\n", folder.ReadText("canvsize.dat"));
  EXPECT_EQ(0, ReadCanvasSizes(folder.path() + "missing/"));
  EXPECT_EQ(0, canvasSizes.Count());
}

TEST_F(SideFilesTest, PresetListsHoldOneNumberALine) {
  folder.WriteText("tlist00.dat", "10\n20\n");
  EXPECT_EQ(1, ReadTList(folder.path(), 0));
  EXPECT_EQ(std::make_tuple(presetLists[0].Count(), presetLists[0].column[0][1]),
            std::make_tuple(2, 20));
  EXPECT_EQ(0, ReadTList(folder.path(), 1));  // no tlist01.dat
  EXPECT_EQ(std::make_tuple(presetLists[1].Count(), presetLists[1].column[0][0]),
            std::make_tuple(1, 255));
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

TEST_F(SideFilesTest, HelpFileOpensBesideTheProgramOrSaysWhyNot) {
  std::vector<std::string> opened;
  bool shellTakesIt = true;
  auto open = [&](const std::string& path) {
    opened.push_back(path);
    return shellTakesIt;
  };
  const std::string path = folder / "tesel_help.html";
  const std::string missing = "The help file [" + path + "] cannot be opened!";
  EXPECT_EQ(OpenHelp(folder.path(), open), 0);
  EXPECT_TRUE(opened.empty());  // nothing to hand to the shell
  EXPECT_EQ(BoxTexts(), std::vector<std::string>{missing});

  folder.WriteText("tesel_help.html", "<html></html>");
  EXPECT_EQ(OpenHelp(folder.path(), open), 1);
  EXPECT_EQ(opened, std::vector<std::string>{path});
  EXPECT_EQ(headless::Recorded().boxes.size(), 1u);

  shellTakesIt = false;  // no program for HTML
  EXPECT_EQ(OpenHelp(folder.path(), open), 0);
  EXPECT_EQ(BoxTexts(), (std::vector<std::string>{missing, missing}));
}

}  // namespace
