// Recording and clearing of the undo history.
#include "document/undo_history.h"

#include <algorithm>

#include "document/undo_copies.h"
#include "settings/settings.h"

UndoHistoryObject UndoHistory;

namespace {

// The number of rectangles allowed after a whole copy is 3 x undoCount.
constexpr uint32_t kRectanglesPerCount = 3;

}  // namespace

UndoHistoryObject::UndoHistoryObject() : position(0), canvasSerial(0) {
  std::fill(std::begin(entries), std::end(entries), EmptyUndoEntry());
}

int UndoHistoryObject::RecordUndo(Canvas* canvas, int planeIndex, int changed, int left, int top,
                                  int right, int bottom, int reserved) {
  if (planeIndex < 0) planeIndex = canvas->activePlane;
  if (changed) canvas->modified = 1;
  // A count below 0 can only come from a damaged settings file: off too.
  const int count = settings.undoCount;
  if (count <= 0) return 1;

  // The history follows the canvas in use.
  if (canvas->serial != canvasSerial) {
    canvasSerial = canvas->serial;
    ClearUndo(canvas, 1, 0);
    position = 0;
  }
  if (left >= 0) {
    if (++canvas->undoLevel > kRectanglesPerCount * static_cast<uint32_t>(count)) {
      canvas->undoLevel = 0;
      left = top = right = bottom = -1;
    }
  } else {
    canvas->undoLevel = 0;
  }
  // The states newer than the one shown can't be reached any more.
  if (position > 0) DropNewerThan(position);
  position = 0;

  UndoEntry entry = EmptyUndoEntry();
  entry.kind = left == kUndoPositionRequest ? kUndoPosition : left < 0 ? kUndoWhole : kUndoRect;
  entry.reserved = static_cast<uint32_t>(reserved);
  entry.left = left;
  entry.top = top;
  entry.right = right;
  entry.bottom = bottom;
  entry.tag = static_cast<int32_t>(canvas->serial);
  entry.planeIndex = planeIndex;
  if (!MakeUndoCopies(canvas, entry)) return 0;
  Store(entry);
  return 1;
}

void UndoHistoryObject::ClearUndo(Canvas* canvas, int all, int thenRecord) {
  const int end = all ? kUndoEntries : UsedCount();
  for (int i = 0; i < end; ++i) FreeUndoEntry(entries[i]);
  if (thenRecord && canvas) RecordUndo(canvas, -1, 1, -1, -1, -1, -1, 0);
}

void UndoHistoryObject::Reset() {
  ClearUndo(nullptr, 1, 0);
  position = 0;
  canvasSerial = 0;
}

int UndoHistoryObject::UsedCount() const {
  int used = 0;
  while (used < kUndoEntries && entries[used].kind != kUndoEmpty) ++used;
  return used;
}

void UndoHistoryObject::DropNewerThan(int index) {
  for (int i = 0; i < index; ++i) FreeUndoEntry(entries[i]);
  std::move(entries + index, entries + kUndoEntries, entries);
  std::fill(entries + kUndoEntries - index, entries + kUndoEntries, EmptyUndoEntry());
}

// Retire and shift: beyond undoCount entries, everything older than the
// first whole copy from index undoCount on goes; the rectangles between
// stay, since they need that base. Then the new entry goes in front.
void UndoHistoryObject::Store(const UndoEntry& entry) {
  int used = UsedCount();
  const int count = settings.undoCount;
  if (used > count) {
    for (int i = count; i < used; ++i) {
      if (!IsUndoBase(entries[i])) continue;
      for (int older = i + 1; older < used; ++older) FreeUndoEntry(entries[older]);
      used = i + 1;
      break;
    }
  }
  // A history of rectangles without a base may fill the array: the oldest
  // falls off the end.
  if (used == kUndoEntries) FreeUndoEntry(entries[--used]);
  std::move_backward(entries, entries + used, entries + used + 1);
  entries[0] = entry;
}
