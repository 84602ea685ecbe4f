// The stroke loops. Each runs while its button is held, one pass per poll
// of the pointer, and returns 1 when it ran a stroke, or 0 when the right
// button has nothing to paint (the right-click action is the Dropper, and
// the caller starts it). The x and y given are not used: every position
// comes from polling.
#pragma once

#include "base/rect.h"
#include "document/canvas.h"

// One dab per pass, at the whole pixel under the pointer, also while the
// pointer stands still. The row caches of the active layer run wide
// meanwhile. For FreeHand, and for the pen modes that dab in place.
int RunFreehandStroke(Canvas* canvas, int x, int y, int rightButton);
// Segments from the last position to the new one whenever the pointer
// reaches another pixel (rounded). Hands the stroke to RunTabletStroke
// when pressure acts on the pen and a tablet answers at the start.
int RunConnectedStroke(Canvas* canvas, int x, int y, int rightButton);
// As the connected loop, but a pass paints only when a tablet packet came,
// and the samples are recorded for Auto Smooth. The stroke is always
// recorded for undo; with Auto Smooth it is then undone and replayed.
int RunTabletStroke(Canvas* canvas, int x, int y, int rightButton);
// Paints a recorded tablet stroke again from its samples: midpoints put
// between them, the pressure faded in and out over the first and last
// 100 ms, the positions smoothed over ten slots. The box given grows by
// what is painted and is recorded for undo. Nothing is done for fewer
// than two samples; count may exceed what was stored.
int ReplaySmoothedStroke(Canvas* canvas, int rightButton, int count, const Rect& box);
