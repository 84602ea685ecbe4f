// The line (20002): its start in the box's left and top, its end in right
// and bottom, so that left may exceed right. Two pegs, at the ends.
#pragma once

#include "display/grid.h"

// With Shift the end turns to a multiple of 15 degrees from the start,
// cut towards zero, at the length the drag had.
CanvasPoint SnapTo15Degrees(CanvasPoint start, CanvasPoint end);

void InstallLineTool();
