// Recording: the limit of undoCount, retiring old states, the history
// following one canvas, and clearing.
#include "undo_fixture.h"

namespace {

using UndoRecord = UndoTest;

TEST_F(UndoRecord, RetiringKeepsTheBaseOfTheRectanglesItKeeps) {
  settings.undoCount = 1;
  Canvas* canvas = MakeBlank(4, 4);
  UndoHistory.RecordUndo(canvas, -1, 0, -1, -1, -1, -1, 0);
  std::vector<Bytes> states;
  auto stroke = [&] {
    Stroke(canvas, 0, 1, 1, 2, 2, static_cast<int>(states.size()) * 40);
    states.push_back(Shown(canvas, 0));
  };
  const Kinds expected[6] = {{2, 1}, {2, 2, 1}, {2, 2, 2, 1},
                             {1, 2, 2, 2, 1},  // the fourth rectangle exceeds 3 x 1
                             {2, 1, 2, 2, 2, 1},
                             {2, 2, 1}};  // a second whole copy beyond index 1
  for (const Kinds& kinds : expected) {
    stroke();
    EXPECT_EQ(Used(), kinds) << states.size();
  }
  // An empty rectangle records nothing, yet counts.
  EXPECT_EQ(UndoHistory.RecordUndo(canvas, 0, 1, 3, 0, 2, 0, 0), 0);
  EXPECT_EQ(canvas->undoLevel, 3u);
  EXPECT_EQ(UndoHistory.Undo(canvas, 0) + UndoHistory.Undo(canvas, 0), 2);
  EXPECT_EQ(Shown(canvas, 0), states[3]);
  EXPECT_EQ(UndoHistory.Undo(canvas, 0), 0);

  settings.undoCount = 2;
  Stroke(canvas, 0, 0, 0, 3, 3, 1, true);
  for (int i = 0; i < 7; ++i) stroke();
  EXPECT_EQ(Used()[0], kUndoWhole);  // the seventh rectangle
  EXPECT_EQ(Used()[1], kUndoRect);
}

TEST_F(UndoRecord, BaselessRecordsFillTheArrayAndRebuildNothing) {
  settings.undoCount = 10;
  Canvas* canvas = MakeBlank(4, 4);
  for (int i = 0; i < 60; ++i) {  // position records keep undoLevel down
    Stroke(canvas, 0, 0, 0, 1, 1, i);
    UndoHistory.RecordUndo(canvas, 0, 1, kUndoPositionRequest, 0, 0, 0, 0);
  }
  EXPECT_EQ(Used().size(), 100u);
  const Bytes shown = Shown(canvas, 0);
  EXPECT_EQ(UndoHistory.Undo(canvas, 1), 1);  // the step is taken, nothing rebuilt
  EXPECT_EQ(Shown(canvas, 0), shown);
  EXPECT_EQ(repaints, 0);
  Stroke(canvas, 0, 0, 0, 1, 1, 9);  // the tail moves up behind the new one
  EXPECT_EQ(UndoHistory.entries[1].kind, kUndoRect);
}

TEST_F(UndoRecord, CountZeroRecordsNothingButModifiedFollowsTheFlag) {
  Canvas* canvas = MakeBlank(3, 3);
  for (int count : {0, -4}) {  // -4 only from a damaged file
    settings.undoCount = count;
    canvas->modified = 0;
    EXPECT_EQ(UndoHistory.RecordUndo(canvas, -1, 0, -1, -1, -1, -1, 0), 1);
    EXPECT_EQ(canvas->modified, 0u);
    EXPECT_EQ(Stroke(canvas, 0, 0, 0, 1, 1, 5), 1);
    EXPECT_EQ(canvas->modified, 1u);
    EXPECT_TRUE(Used().empty());
  }
}

TEST_F(UndoRecord, HistoryServesOneCanvasAndClearingLeavesThePosition) {
  Canvas* a = MakeBlank(3, 3);
  Canvas* b = MakeBlank(3, 3);
  Stroke(a, 0, 0, 0, 1, 1, 5, true);
  Stroke(a, 0, 0, 0, 1, 1, 6);
  Stroke(b, 0, 0, 0, 1, 1, 7, true);
  EXPECT_EQ(Used(), Kinds{kUndoWhole});
  EXPECT_EQ(UndoHistory.entries[0].tag, static_cast<int32_t>(b->serial));
  Stroke(b, 0, 0, 0, 1, 1, 8);
  EXPECT_EQ(UndoHistory.Undo(a, 1), 0);
  EXPECT_EQ(UndoHistory.Undo(b, 1), 1);

  UndoHistory.ClearUndo(b, 0, 0);
  EXPECT_TRUE(Used().empty());
  EXPECT_EQ(UndoHistory.entries[0].tag, -1);
  EXPECT_EQ(UndoHistory.position, 1);
  b->modified = 0;
  UndoHistory.ClearUndo(b, 1, 1);
  EXPECT_EQ(Used(), Kinds{kUndoWhole});
  EXPECT_EQ(b->modified, 1u);
  CanvasManager.AddLayer(b, 0, 0, 2, 2);
  CanvasManager.MoveLayer(b, 1, 0);  // refused, and still clears
  EXPECT_TRUE(Used().empty());
}

}  // namespace
