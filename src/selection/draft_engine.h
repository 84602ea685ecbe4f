// The Draft engine: the life of a canvas's shape from the press that draws
// it to the raster it commits, and the routes that bring the pointer to
// the tool owning the shape.
#pragma once

#include "base/hook_list.h"
#include "document/canvas.h"

// What the Draft lets the Fill and Line commands do.
struct DraftAllows {
  bool canFill, canLine;
};
DraftAllows AllowedBy(int selectionKind);

// Turns the shape into the raster: a new raster of all 0 (the seed fill's
// is already made), the box ordered (a line keeps its direction), the
// kind's area written as 0 inside 255. repaint repaints the view;
// addToHistory runs historyHooks.
void CommitShape(Canvas* canvas, int addToHistory, int repaint);
// The shape forgotten and the raster freed: everything is selected again.
void Deselect(Canvas* canvas);
// Draws the outline of the canvas's shape once; a second call erases it.
void EraseOutline(Canvas* canvas);

// Run by CommitShape when the history is asked for (the history level adds
// its entry writer).
extern HookList<Canvas*> historyHooks;
// Run when what the Draft allows may have changed: the Fill and Line
// buttons repaint.
extern HookList<> draftAllowsHooks;
