// The picture of a whole canvas composed into a layer's planes, 256 x 256
// canvas pixels at a time, so that the tile stays small for any canvas.
#pragma once

#include "document/canvas.h"

constexpr int kMergeBlock = 256;

// Composes every block of source (without view shading) and writes its rows
// into image, whose top left stands at canvas (left, top); the rows of the
// coverage go likewise into coverage unless it is null. With showProgress
// the status bar shows block row x 100 / height as the walk goes. 1, or 0
// when a tile can't be made (the blocks done so far stay written).
int ComposeIntoPlanes(Canvas* source, int baseOpaque, Plane* image, Plane* coverage, int left,
                      int top, bool showProgress);
