// The Draft engine's routes: a press of either button on the view goes to
// the tool that owns the shape, a move asks it for a cursor, and what a
// finished gesture does by itself follows the paint panel's "Selection"
// option.
#pragma once

#include "document/canvas.h"

// The left press: the tool in use draws, edits or moves its shape, and the
// keys held at the end and the option above finish it.
void PressPrimary(Canvas* canvas);
// The right press, after the view's own claims (the colour-adjust and
// Detect Selection samplers, Ctrl, Space): the tool's peg menu first, 1
// when it took the press; then the action menu, 1 when it showed.
int PegMenuPress(Canvas* canvas);
int ActionMenu(Canvas* canvas);
// The pointer moved with no button down: the cursor the tool in use
// gives over the Draft.
void HoverCursor(Canvas* canvas);
// The key check after a gesture: Ctrl or X posts Fill, Z posts Line, then
// the "Selection" option, with the outside shading off meanwhile.
void FinishGesture(Canvas* canvas);

// The routes of the view and the Deselect command.
void InstallDraftRoutes();
