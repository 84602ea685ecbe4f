// The path file byte for byte, its round trip, and files that are no path.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "base/command_ids.h"
#include "document/selection_rows.h"
#include "selection/draft.h"
#include "selection/draft_engine.h"
#include "selection/path_file.h"
#include "support/fixture.h"
#include "support/temp_folder.h"

namespace {

uint32_t Word(const std::vector<uint8_t>& bytes, size_t offset) {
  return bytes[offset] | bytes[offset + 1] << 8 | bytes[offset + 2] << 16 |
         uint32_t(bytes[offset + 3]) << 24;
}

void PutWord(std::vector<uint8_t>* bytes, size_t offset, uint32_t v) {
  for (int i = 0; i < 4; ++i) (*bytes)[offset + i] = static_cast<uint8_t>(v >> (8 * i));
}

class PathFileTest : public TeselTest {
 protected:
  void SetUp() override {
    TeselTest::SetUp();
    pathFileFolder = folder.path();
    canvas = MakeBlank(64, 48);
    canvas->serial = 42;
  }
  // A Free Bezier of three nodes, every one of the 5120 nodes filled so
  // that the whole table shows in the file.
  void MakePath() {
    for (int i = 0; i < kMaxPathNodes; ++i)
      Draft.nodes[i] = {i, -i, i * 2, i * 3, 70000 + i, -5 - i};
    Draft.nodeCount = 3, Draft.closed = 1, Draft.openIndex = 0, Draft.selectedNode = 2;
    canvas->selectionKind = cmd::kFreeBezier;
    canvas->selLeft = -3, canvas->selTop = 4, canvas->selRight = 50, canvas->selBottom = 60;
  }
  // What a restore may change, to see that a bad file changes none of it.
  std::vector<uint8_t> State() {
    std::vector<uint8_t> state(sizeof Draft + 5 * 4);
    std::memcpy(state.data(), &Draft, sizeof Draft);
    std::memcpy(&state[sizeof Draft], &canvas->selectionKind, 5 * 4);
    return state;
  }

  TempFolder folder;
  Canvas* canvas = nullptr;
};

TEST_F(PathFileTest, SaveWritesEveryNodeLittleEndianAndRestoreBringsThePathBack) {
  MakePath();
  EnsurePlane(canvas, 1);
  const std::vector<uint8_t> saved = State();
  ASSERT_EQ(SavePath(canvas, 1), 1);
  const std::vector<uint8_t> bytes = folder.Read("00042.drf");
  ASSERT_EQ(bytes.size(), 122916u);
  EXPECT_EQ(Word(bytes, 0), 20012u);
  EXPECT_EQ(std::vector<uint8_t>(bytes.begin() + 4, bytes.begin() + 8),
            (std::vector<uint8_t>{0xFD, 0xFF, 0xFF, 0xFF}));
  EXPECT_EQ(Word(bytes, 8), 4u);
  EXPECT_EQ(Word(bytes, 12), 50u);
  EXPECT_EQ(Word(bytes, 16), 60u);
  // Node 5119, the last of the table, field c2x.
  EXPECT_EQ(Word(bytes, 20 + 5119 * 24 + 16), 75119u);
  EXPECT_EQ(Word(bytes, 20 + 7 * 24 + 4), uint32_t(-7));
  EXPECT_EQ(Word(bytes, 122900), 3u);
  EXPECT_EQ(Word(bytes, 122904), 1u);
  EXPECT_EQ(Word(bytes, 122908), 0u);
  EXPECT_EQ(Word(bytes, 122912), 2u);
  // Cleared afterwards: no shape, the canvas's box, the raster kept.
  EXPECT_EQ(canvas->selectionKind, kNoDraft);
  EXPECT_EQ(SelectionBox(canvas), (Rect{0, 0, 63, 47}));
  EXPECT_NE(canvas->selectionPlane, nullptr);

  Draft = {};
  int entries = 0;
  historyHooks.Add([&](Canvas*) { ++entries; });
  ASSERT_EQ(RestorePath(canvas, 0), 1);
  EXPECT_EQ(canvas->selectionKind, kNoDraft);
  EXPECT_EQ(SelectionBox(canvas), (Rect{-3, 4, 50, 60}));
  EXPECT_EQ(Draft.nodes[4000].c2y, -4005);
  EXPECT_EQ(Draft.selectedNode, 2);
  EXPECT_EQ(entries, 0);
  ASSERT_EQ(RestorePath(canvas, 1), 1);
  EXPECT_EQ(State(), saved);  // the kind back too: all as it was
  EXPECT_EQ(entries, 1);

  // Other kinds write nothing, and that is success; nothing is cleared.
  folder.Write("00042.drf", {});
  canvas->selectionKind = cmd::kSelectionBox;
  EXPECT_EQ(SavePath(canvas, 1), 1);
  EXPECT_EQ(folder.Read("00042.drf").size(), 0u);
  EXPECT_EQ(canvas->selectionKind, cmd::kSelectionBox);
  // No folder to write in: the save fails and the shape stays.
  pathFileFolder = folder / "missing/";
  canvas->selectionKind = cmd::kBezier;
  EXPECT_EQ(SavePath(canvas, 1), 0);
  EXPECT_EQ(canvas->selectionKind, cmd::kBezier);
}

TEST_F(PathFileTest, FilesThatAreNoWholePathRestoreNothing) {
  MakePath();
  ASSERT_EQ(SavePath(canvas, 0), 1);
  const std::vector<uint8_t> good = folder.Read("00042.drf");
  Draft.nodes[1].x = 999;
  canvas->selectionKind = cmd::kSelectionBox;
  const std::vector<uint8_t> before = State();
  auto refused = [&](std::vector<uint8_t> bytes) {
    folder.Write("00042.drf", bytes);
    return RestorePath(canvas, 1) == 0 && State() == before;
  };
  EXPECT_TRUE(refused({}));
  EXPECT_TRUE(refused(std::vector<uint8_t>(good.begin(), good.end() - 1)));
  std::vector<uint8_t> longer = good;
  longer.push_back(0);
  EXPECT_TRUE(refused(longer));
  for (auto [offset, value] : std::vector<std::pair<size_t, uint32_t>>{
           {0, 20004},              // not a Bezier kind
           {122900, 5121},          // more nodes than the table
           {122900, uint32_t(-1)},  // a negative count
           {122904, 2},             // closed neither 0 nor 1
           {122908, 4},             // openIndex beyond the count
           {122912, 3},             // selectedNode beyond the count
           {122912, uint32_t(-2)},
           {4, 0x40000000},               // a box side far off
           {20 + 2 * 24 + 8, 0x7FFFFFFF}  // a used node's handle far off
       }) {
    std::vector<uint8_t> bad = good;
    PutWord(&bad, offset, value);
    EXPECT_TRUE(refused(bad)) << offset;
  }
  // Far values in nodes beyond the count don't matter.
  std::vector<uint8_t> unused = good;
  PutWord(&unused, 20 + 3 * 24, 0x7FFFFFFF);
  folder.Write("00042.drf", unused);
  EXPECT_EQ(RestorePath(canvas, 0), 1);
  EXPECT_EQ(Draft.nodes[1].x, 1);
  DeletePathFile(canvas);
  EXPECT_FALSE(platform::FileExists(folder / "00042.drf"));
  EXPECT_EQ(RestorePath(canvas, 1), 0);
}

}  // namespace
