// Convert to New Layer: the selection's box of the active layer becomes a
// new layer, clear outside the selection. The old layer stays as it was.
#pragma once

#include "document/canvas.h"

// The new layer's index (its position 0); -1 when no layer is free or a
// plane can't be made, and then nothing has changed.
int ConvertSelectionToLayer(Canvas* canvas);
