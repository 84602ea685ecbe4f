// Steps that the stroke loops share: the start and end of a stroke, the
// button test and the pause of each pass.
#pragma once

#include "document/canvas.h"
#include "base/rect.h"

// The button of the stroke is down: the left one, or for a right-button
// stroke the right one, Q or the context key, which count alike.
bool StrokeButtonHeld(int rightButton);
// Shift held: the stroke is a single dab.
bool SingleShotHeld();

// The start of every loop (no eraser mode saved yet): 0 when the right button has no stroke to run
// (the dropper takes over). A left stroke with the Undo Pen chosen takes a
// new snapshot. Then dabCount starts at 0 and the pen's outline and the
// Draft's overlay come off.
int BeginStroke(Canvas* canvas, int rightButton);
// The end of every loop: the Draft's overlay back, the canvas marked
// changed (the layer panel redraws it), the colour mask map freed, and the
// mode the stylus's eraser end replaced given back.
void EndStroke(Canvas* canvas);

// Each pass of the connecting loops pauses by freehandQuality: none, 4 ms
// or 10 ms.
void QualityPause();

// The stroke's box as the undo history's record of the active plane.
void RecordStrokeUndo(Canvas* canvas, const Rect& box);
