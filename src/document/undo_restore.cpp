// Stepping through the undo history: a state is rebuilt from the nearest
// older whole copy, then every record after it up to the one wanted.
#include "document/canvas_manager.h"
#include "document/undo_copies.h"
#include "document/undo_history.h"

namespace {

bool Used(const UndoEntry* entries, int index) {
  return index >= 0 && index < kUndoEntries && entries[index].kind != kUndoEmpty;
}

}  // namespace

int UndoHistoryObject::Undo(Canvas* canvas, int doRepaint) {
  if (canvas->serial != canvasSerial || !Used(entries, position + 1)) return 0;
  return StepTo(canvas, position + 1, doRepaint);
}

int UndoHistoryObject::Redo(Canvas* canvas, int doRepaint) {
  if (canvas->serial != canvasSerial || position == 0 || !Used(entries, position - 1)) return 0;
  return StepTo(canvas, position - 1, doRepaint);
}

// Without a base the step stops silently, with `position` already moved.
int UndoHistoryObject::StepTo(Canvas* canvas, int target, int doRepaint) {
  position = target;
  int base = target;
  while (base < kUndoEntries && !IsUndoBase(entries[base])) {
    if (entries[base].kind == kUndoEmpty) return 1;
    ++base;
  }
  if (base == kUndoEntries) return 1;
  for (int i = base; i >= target; --i)
    if (ApplyUndoEntry(canvas, entries[i])) CanvasManager.MarkModified(canvas);
  if (doRepaint && repaint) repaint(canvas);
  return 1;
}
