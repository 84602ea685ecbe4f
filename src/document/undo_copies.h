// The pixels behind undo entries: making an entry's copies from a canvas,
// putting an entry back, and freeing it.
#pragma once

#include "document/canvas.h"
#include "document/undo_history.h"

// An entry with no copies, as every unused entry stands.
UndoEntry EmptyUndoEntry();

// Fills entry's copies and origin from the slot at entry.planeIndex, by
// entry.kind and bounds. 0 when a copy can't be made or the rectangle is
// empty; nothing made is then left behind.
int MakeUndoCopies(Canvas* canvas, UndoEntry& entry);

// Puts one entry back into the canvas; a slot without a plane is skipped.
// 1 when applied.
int ApplyUndoEntry(Canvas* canvas, const UndoEntry& entry);

// Frees both copies and empties the entry.
void FreeUndoEntry(UndoEntry& entry);
