// The drop shadow of a layer: its planes grow by the offset and the blur,
// the layer is pre-blended with the shadow's colour, and the shadow shows
// through the transparency plane.
#pragma once

#include "document/canvas.h"

// 1, or 0 when the layer has no transparency plane (string 1403) or a
// plane can't be made; the layer then stays as it was.
int DropShadow(Canvas* canvas, int layer, int dx, int dy, int blur, int red, int green, int blue);
