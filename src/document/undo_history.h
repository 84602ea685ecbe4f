// UndoHistory: the states of one canvas after each change, newest first.
// A record keeps what a plane looks like after an operation; an earlier
// state is rebuilt from the nearest older whole copy plus the rectangles
// recorded after it. So a stroke keeps only its bounding box while a
// whole-plane operation keeps a full copy. The history serves one canvas at
// a time: recording on another canvas forgets the previous one's entries.
#pragma once

#include <cstdint>
#include <functional>

#include "document/canvas.h"

constexpr int kUndoEntries = 100;

enum UndoKind : uint32_t {
  kUndoEmpty = 0,
  kUndoWhole = 1,     // a copy of the whole plane
  kUndoRect = 2,      // a rectangle of it
  kUndoFlatRow = 3,   // row 0 of a plane known to be of one value
  kUndoPosition = 5,  // the layer's left and top only
};

// RecordUndo's left for a record of the layer's position.
constexpr int kUndoPositionRequest = -10;

struct UndoEntry {
  uint32_t kind;
  Plane* plane;         // the pixels
  Plane* transparency;  // position 2 of the layer, for an image plane that has one
  uint32_t reserved;
  int32_t left, top, right, bottom;  // canvas coordinates, inclusive; -1 for whole copies
  int32_t tag;                       // the canvas's serial; -1 on an empty entry
  int32_t planeIndex;
  int32_t originLeft, originTop;  // the slot's left and top at recording
};

// Whole copies and flat rows are the bases that later records build on.
inline bool IsUndoBase(const UndoEntry& entry) {
  return entry.kind == kUndoWhole || entry.kind == kUndoFlatRow;
}

class UndoHistoryObject {
 public:
  UndoHistoryObject();

  // Records the state of a plane after a change. planeIndex -1 is the
  // active plane; changed 1 sets `modified`. left below 0 asks for a whole
  // copy, left -10 for the layer's position, left 0 or above for that
  // rectangle. 1 when recorded (or when undoCount turns recording off),
  // 0 when nothing could be stored.
  int RecordUndo(Canvas* canvas, int planeIndex, int changed, int left, int top, int right,
                 int bottom, int reserved);
  // Frees the entries: all 100, or up to the first empty one. With
  // thenRecord, a whole record of the active plane follows, changed set.
  // `position` stays as it was.
  void ClearUndo(Canvas* canvas, int all, int thenRecord);
  // One step back or forward: 1 when there was one to take.
  int Undo(Canvas* canvas, int doRepaint);
  int Redo(Canvas* canvas, int doRepaint);

  // Frees every entry and returns to the start state (tests).
  void Reset();

  UndoEntry entries[kUndoEntries];
  int32_t position;  // the entry that stands for what the picture shows
  uint32_t canvasSerial;

  // Repaints the document after a step taken with doRepaint; the shell
  // binds it to its windows.
  std::function<void(Canvas* canvas)> repaint;

 private:
  int UsedCount() const;
  void DropNewerThan(int index);
  void Store(const UndoEntry& entry);
  int StepTo(Canvas* canvas, int target, int doRepaint);
};

extern UndoHistoryObject UndoHistory;
