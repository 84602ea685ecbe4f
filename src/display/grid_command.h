// The Grid command: a grid that shows goes off; otherwise the grid dialog
// asks for its pitch and snap, and the grid shows after OK.
#pragma once

#include <functional>

#include "document/canvas.h"

// What the grid dialog shows and returns.
struct GridChoice {
  int pitchX, pitchY;  // canvas pixels between lines
  int snap;            // pointer positions snap to the grid
};

// A pitch below 2 would draw every pixel over; one above 1,000 is never
// seen twice on a view.
constexpr int kMinGridPitch = 2;
constexpr int kMaxGridPitch = 1000;

// 1 when the grid changed: it went off, or OK turned it on with the
// entered pitch (kept within the limits above) and snap.
int ToggleGrid(Canvas* canvas);
