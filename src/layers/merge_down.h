// Merge with lower: every layer from the base up to the one of planeIndex
// is merged into the base layer.
#pragma once

#include "document/canvas.h"

// 1, or 0 when the layer is the base layer or memory fails. The layers
// above keep their modes and slide down into the places freed.
int MergeDown(Canvas* canvas, int planeIndex, int mergeTransparency);
