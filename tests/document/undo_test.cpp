// The undo history: recording within undoCount, retiring old states, the
// history following one canvas, and clearing; Undo and Redo rebuilding
// states from whole copies and the records after them, size changes,
// layer positions and flat rows.
#include "undo_fixture.h"

namespace {

using UndoRestore = UndoTest;
using Geometry = std::array<int, 4>;

Geometry GeometryOf(const PlaneSlot& slot) {
  return {slot.left, slot.top, slot.width, slot.height};
}

TEST_F(UndoRestore, StepsRebuildEachStateFromTheNearestWholeCopy) {
  Canvas* canvas = MakeBlank(8, 6);
  ASSERT_EQ(CanvasManager.AddLayer(canvas, 2, 1, 5, 4), 8);
  CanvasManager.SelectPlane(canvas, 8);  // the base the user starts from
  EXPECT_EQ(Used(), Kinds{kUndoWhole});
  EXPECT_EQ(canvas->modified, 0u);
  EXPECT_EQ(UndoHistory.entries[0].plane->kind, Virtual);  // Undo Buffer, not Image Buffer

  std::vector<Bytes> states{Shown(canvas, 8)};
  const int strokes[4][5] = {
      {0, 0, 3, 2, 10}, {3, 2, 6, 4, 90}, {2, 1, 6, 4, 130}, {5, 3, 6, 4, 170}};
  for (const auto& s : strokes) {  // the third is a whole-plane operation
    Stroke(canvas, 8, s[0], s[1], s[2], s[3], s[4], s[4] == 130);
    states.push_back(Shown(canvas, 8));
  }
  for (int k = 3; k >= 0; --k) {
    EXPECT_EQ(UndoHistory.Undo(canvas, 1), 1);
    EXPECT_EQ(Shown(canvas, 8), states[k]) << k;
  }
  EXPECT_EQ(UndoHistory.Undo(canvas, 1), 0);
  for (int k = 1; k <= 4; ++k) {
    EXPECT_EQ(UndoHistory.Redo(canvas, 1), 1);
    EXPECT_EQ(Shown(canvas, 8), states[k]) << k;
  }
  EXPECT_EQ(UndoHistory.Redo(canvas, 1), 0);
  EXPECT_EQ(repaints, 8);
  // A stroke after going back: the states ahead are gone.
  UndoHistory.Undo(canvas, 0);
  Stroke(canvas, 8, 2, 1, 3, 1, 200);
  EXPECT_EQ(Used(), (Kinds{2, 1, 2, 2, 1}));
  EXPECT_EQ(UndoHistory.Redo(canvas, 0), 0);
}

TEST_F(UndoRestore, SizeChangeIsUndoneWithItsOrigin) {
  Canvas* canvas = MakeBlank(6, 5);
  CanvasManager.AddLayer(canvas, 2, 1, 3, 2);
  for (int image : {8, 0}) {
    CanvasManager.SelectPlane(canvas, image);
    Stroke(canvas, image, 0, 0, 5, 4, image + 3, true);
    const Bytes before = Shown(canvas, image);
    const Geometry old = GeometryOf(canvas->planes[image]);
    // What a resize leaves: new planes in the slots that had one, moved.
    for (PlaneSlot* slot = &canvas->planes[image]; slot < &canvas->planes[image + 8]; ++slot) {
      if (Plane* plane = slot->plane) {
        slot->plane = PlaneStore.CreatePlane(7, 6, static_cast<int>(plane->bits), 77, 1, Physical);
        PlaneStore.FreePlane(&plane);
      }
      slot->left = 1, slot->top = 0, slot->width = 7, slot->height = 6;
    }
    if (image == 0) canvas->canvasWidth = 7, canvas->canvasHeight = 6;
    UndoHistory.RecordUndo(canvas, -1, 1, -1, -1, -1, -1, 0);

    ASSERT_EQ(UndoHistory.Undo(canvas, 1), 1);
    const PlaneSlot* s = &canvas->planes[image];
    EXPECT_EQ(Shown(canvas, image), before);
    EXPECT_EQ(GeometryOf(s[0]), old);
    EXPECT_EQ(s[0].plane->kind, Physical);  // a canvas plane again: Image Buffer
    // The transparency takes the origin, not the size fields; the mask
    // wasn't recorded. The canvas size follows the base layer only.
    EXPECT_EQ(GeometryOf(s[2]), (Geometry{old[0], old[1], 7, 6}));
    EXPECT_EQ(GeometryOf(s[1]), (Geometry{1, 0, 7, 6}));
    EXPECT_EQ((Geometry{0, 0, canvas->canvasWidth, canvas->canvasHeight}), (Geometry{0, 0, 6, 5}));
  }
}

TEST_F(UndoRestore, PositionRecordsMoveEverySlotOfTheLayer) {
  Canvas* canvas = MakeBlank(6, 5);
  CanvasManager.AddLayer(canvas, 2, 1, 3, 2);
  CanvasManager.SelectPlane(canvas, 9);  // the mask's base
  auto origins = [&](int set, int left, int top) {
    int same = 0;
    for (PlaneSlot* slot = &canvas->planes[8]; slot < &canvas->planes[16]; ++slot) {
      if (set) slot->left = left, slot->top = top;
      same += slot->left == left && slot->top == top;
    }
    return same == kPlanesPerLayer;
  };
  canvas->undoLevel = 5;
  for (int place : {4, 0}) {
    origins(1, place, place - 1);
    EXPECT_EQ(UndoHistory.RecordUndo(canvas, -1, 1, kUndoPositionRequest, 0, 0, 0, 0), 1);
    EXPECT_EQ(canvas->undoLevel, 0u);
  }
  EXPECT_EQ(Used(), (Kinds{kUndoPosition, kUndoPosition, kUndoWhole}));
  UndoHistory.Undo(canvas, 0);
  EXPECT_TRUE(origins(0, 4, 3));
  UndoHistory.Undo(canvas, 0);  // a whole copy of the same size leaves the origin alone
  EXPECT_TRUE(origins(0, 4, 3));
  UndoHistory.Redo(canvas, 0);
  UndoHistory.Redo(canvas, 0);
  EXPECT_TRUE(origins(0, 0, -1));
}

TEST_F(UndoRestore, FlatRowsFillEveryRowAndVanishedPlanesAreSkipped) {
  Canvas* canvas = MakeBlank(4, 3);
  const int further = CanvasManager.AddPlane(canvas, 0, 1);
  // A flat record made by hand (nothing records one): row 0 of the image
  // plane and of its transparency.
  const Bytes row{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}, alpha{21, 22, 23, 24};
  UndoEntry& flat = UndoHistory.entries[0];
  flat.kind = kUndoFlatRow;
  flat.plane = PlaneStore.CreatePlane(4, 1, 24, 0, 0, Physical);
  flat.transparency = PlaneStore.CreatePlane(4, 1, 8, 0, 0, Physical);
  PlaneStore.WriteRow(flat.plane, 0, 0, 3, row.data());
  PlaneStore.WriteRow(flat.transparency, 0, 0, 3, alpha.data());
  UndoHistory.canvasSerial = canvas->serial;
  UndoHistory.RecordUndo(canvas, further, 1, 0, 0, 1, 1, 0);
  CanvasManager.DeletePlane(canvas, further);
  Stroke(canvas, 0, 0, 0, 3, 2, 99);

  Bytes expected;
  for (const Bytes* part : {&row, &alpha})
    for (int y = 0; y < 3; ++y) expected.insert(expected.end(), part->begin(), part->end());
  // Back past the stroke: the flat base, then the rectangle of the plane
  // now gone, which is skipped.
  ASSERT_EQ(UndoHistory.Undo(canvas, 1), 1);
  EXPECT_EQ(Shown(canvas, 0), expected);
}

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
  const Kinds expected[6] = {{2, 1},
                             {2, 2, 1},
                             {2, 2, 2, 1},
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
