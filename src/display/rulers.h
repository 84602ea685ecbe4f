// The rulers of a document: where their ticks fall, and the pointer marks
// that follow the pointer over the canvas.
#pragma once

#include <vector>

#include "display/view_windows.h"
#include "document/canvas.h"

struct RulerTick {
  int at;       // along the ruler, in its own pixels
  int hundred;  // a multiple of 100 canvas pixels; the others are of 50
  int blue;     // drawn blue; black otherwise
};

// The ticks of the ruler along axis that fall inside its length: every
// 50th canvas pixel at the middle of its view pixels, less the scroll. On
// the horizontal ruler the fiftieth ones are blue; on the vertical one all
// are black.
std::vector<RulerTick> RulerTicks(const Canvas* canvas, Axis axis, int length);

// The pointer stands on canvas position x, y: the status bar's position
// read-out while it is on, and the marks of the rulers while they show.
void ShowPosition(Canvas* canvas, int x, int y);
