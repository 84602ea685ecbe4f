// The selection history on disk: names by time and number, trimming,
// the list's lines, recall, and the folder it lives in.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "base/command_ids.h"
#include "base/command_registry.h"
#include "document/selection_rows.h"
#include "platform/headless/headless.h"
#include "selection/draft_engine.h"
#include "selection/install.h"
#include "selection/selection_history.h"
#include "selection/selection_windows.h"
#include "settings/settings.h"
#include "support/fixture.h"
#include "support/temp_folder.h"

namespace {

class SelectionHistoryTest : public TeselTest {
 protected:
  void SetUp() override {
    TeselTest::SetUp();
    InstallSelection(program.path());
    settings.selectionHistorySize = 20;
    At(2026, 3, 9, 14, 5, 7);
  }
  void At(int year, int month, int day, int hour, int minute, int second) {
    headless::Recorded().localTime = {year, month, day, hour, minute, second};
  }
  // A box committed as a tool's gesture commits it.
  void CommitBox(Canvas* canvas, int l, int t, int r, int b) {
    canvas->selectionKind = cmd::kSelectionBox;
    canvas->selLeft = l, canvas->selTop = t, canvas->selRight = r, canvas->selBottom = b;
    CommitShape(canvas, 1, 0);
  }
  std::vector<std::string> Names() {
    std::vector<std::string> names = platform::ListFiles(historyFolder, ".hst");
    std::sort(names.begin(), names.end());
    return names;
  }
  TempFolder program;
};

TEST_F(SelectionHistoryTest, EachCommitLeavesAFileNamedByTimeAndAFreeNumber) {
  EXPECT_EQ(historyFolder, program / "selhist/");
  Canvas* canvas = MakeBlank(20, 20);
  CommitBox(canvas, 1, 2, 3, 4);
  CommitBox(canvas, 5, 6, 7, 8);  // the same second: only the number tells them apart
  At(2026, 3, 9, 14, 5, 8);
  CommitBox(canvas, 0, 0, 9, 9);
  // No shape, no file: a shapeless raster is not kept.
  canvas->selectionKind = kShapelessSelection;
  CommitShape(canvas, 1, 0);
  EXPECT_EQ(Names(), (std::vector<std::string>{"20260309140507_0000.hst", "20260309140507_0001.hst",
                                               "20260309140508_0002.hst"}));
  // A number freed by a deletion is taken again.
  platform::RemoveFile(historyFolder + "20260309140507_0001.hst");
  EXPECT_EQ(NextHistoryNumber(), 1);

  EXPECT_EQ(HistoryNumberOf("20260309140508_0042.hst"), 42);
  EXPECT_EQ(HistoryNumberOf("a_b_0x12.hst"), -1);
  EXPECT_EQ(HistoryNumberOf("plain.hst"), -1);
}

TEST_F(SelectionHistoryTest, TrimmingKeepsTheNewestUpToTheLimit) {
  settings.selectionHistorySize = 5;
  Canvas* canvas = MakeBlank(20, 20);
  for (int second = 0; second < 7; ++second) {
    At(2026, 1, 1, 0, 0, second);
    CommitBox(canvas, 1, 1, 2, 2);
  }
  // Seven made, the two oldest gone: their numbers are free again.
  EXPECT_EQ(Names(), (std::vector<std::string>{"20260101000002_0002.hst", "20260101000003_0003.hst",
                                               "20260101000004_0004.hst", "20260101000005_0005.hst",
                                               "20260101000006_0006.hst"}));
  EXPECT_EQ(NextHistoryNumber(), 1);
}

TEST_F(SelectionHistoryTest, ListShowsNewestFirstWithNumberKindAndBox) {
  int refills = 0;
  selectionWindows.refillHistoryList = [&] { ++refills; };
  Canvas* canvas = MakeBlank(20, 20);
  CommitBox(canvas, 3, 4, 10, 12);
  At(2026, 3, 9, 14, 6, 0);
  canvas->selectionKind = cmd::kSeedFill;
  CommitShape(canvas, 1, 0);
  EXPECT_EQ(refills, 2);
  // Files of other sources: a kind without a short name, a name without a
  // number, and a file that can't be read, which the list leaves out.
  std::vector<uint8_t> odd(40988, 0);
  odd[0] = 0x39, odd[1] = 0x30;  // 12345
  program.Write("selhist/20260309150000_0007.hst", odd);
  std::vector<uint8_t> box(40988, 0);
  box[0] = 0x21, box[1] = 0x4e, box[4] = 1, box[16] = 2;  // 20001, [1,0]-[0,2]
  program.Write("selhist/20250101000000.hst", box);
  std::filesystem::create_symlink(program / "gone", program / "selhist/20260309160000_0008.hst");

  std::vector<std::string> labels;
  for (const HistoryLine& line : HistoryLines()) labels.push_back(line.label);
  // Every kind numbered below the seed fill shows its box, known or not.
  EXPECT_EQ(labels, (std::vector<std::string>{"7:[12345][0,0]-[0,0]", "1:SeedFill",
                                              "0:Box[3,4]-[10,12]", "Box[1,0]-[0,2]"}));
}

TEST_F(SelectionHistoryTest, RecallLoadsTheEntryAndMakesItTheNewest) {
  Canvas* canvas = MakeBlank(20, 20);
  CommitBox(canvas, 3, 4, 10, 12);
  At(2026, 3, 9, 14, 6, 0);
  CommitBox(canvas, 0, 0, 1, 1);
  Canvas* other = MakeBlank(30, 30);
  At(2026, 3, 10, 9, 0, 0);
  ASSERT_EQ(RecallHistoryEntry("20260309140507_0000.hst", other), 1);
  EXPECT_EQ(SelectionBox(other), (Rect{3, 4, 10, 12}));
  // Loading adds no entry; the recalled one is renamed, its number kept.
  EXPECT_EQ(Names(),
            (std::vector<std::string>{"20260309140600_0001.hst", "20260310090000_0000.hst"}));
  EXPECT_EQ(HistoryLines().front().label, "0:Box[3,4]-[10,12]");
  EXPECT_EQ(RecallHistoryEntry("20200101000000_0009.hst", other), 0);
}

TEST_F(SelectionHistoryTest, UnwritableProgramFolderSendsTheHistoryToTheUsersFolder) {
  TempFolder user;
  headless::Recorded().userDataFolder = user.path();
  program.WriteText("blocked", "a file where the folder would be");
  ChooseHistoryFolder(program / "blocked/");
  EXPECT_EQ(historyFolder, user / "selhist/");
  headless::Recorded().userDataFolder.clear();
  ChooseHistoryFolder(program / "blocked/");
  EXPECT_EQ(historyFolder, "");
  // Without a folder nothing is kept and nothing fails.
  Canvas* canvas = MakeBlank(20, 20);
  CommitBox(canvas, 1, 1, 2, 2);
  EXPECT_TRUE(HistoryLines().empty());
}

TEST_F(SelectionHistoryTest, CommandsAskForTheFileThroughTheDialog) {
  Canvas* canvas = MakeBlank(20, 20);
  CommitBox(canvas, 2, 3, 4, 5);
  std::vector<std::string> asked;
  std::string answer = program / "picked.tss";
  selectionWindows.fileDialog = [&](bool save, const std::string& filter, const std::string& ext,
                                    std::string* path) {
    asked.push_back((save ? "save " : "open ") + filter + " " + ext);
    *path = answer;
    return !answer.empty();
  };
  ASSERT_EQ(RunCanvasHandler(canvas, cmd::kSaveSelection, 0), 1);
  EXPECT_TRUE(program.Exists("picked.tss"));
  Deselect(canvas);
  ASSERT_EQ(RunCanvasHandler(canvas, cmd::kLoadSelection, 0), 1);
  EXPECT_EQ(SelectionBox(canvas), (Rect{2, 3, 4, 5}));
  answer.clear();  // cancelled: nothing happens
  ASSERT_EQ(RunCanvasHandler(canvas, cmd::kSaveSelection, 0), 1);
  EXPECT_EQ(asked, (std::vector<std::string>{"save Selection[*.TSS]/*.TSS/ tss",
                                             "open Selection[*.TSS]/*.TSS/ tss",
                                             "save Selection[*.TSS]/*.TSS/ tss"}));

  int toggles = 0;
  selectionWindows.toggleSettingsPanel = [&] { ++toggles; };
  RunFrameHandler(cmd::kSettingsPanel, 0);
  EXPECT_EQ(toggles, 1);
}

}  // namespace
