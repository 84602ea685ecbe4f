// Flips of the selection's box in the active layer: every plane of the
// layer turns over in place, and pixels outside the selection stay.
#pragma once

#include "document/canvas.h"

enum class FlipAxis { Vertical, Horizontal };

// 1, or 0 when the box misses the layer. Ends with an undo record of the
// box on the layer's image.
int FlipLayer(Canvas* canvas, FlipAxis axis);
