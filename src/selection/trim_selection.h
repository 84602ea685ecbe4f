// Trim Selection: a new canvas of the Draft's box holding the part of
// every layer inside it. The source's pixels and raster stay as they are;
// only the box counts.
#pragma once

#include "document/canvas.h"

// Describes that canvas in CanvasRequest (mode 10): one layer for each
// layer of the source that reaches into the ordered box, with its part
// placed relative to the box. 0 when no layer does.
int RequestTrimmedCanvas(Canvas* source);
// Mode 10's content: each part cut from the source's layer.
int FillTrimmedCanvas(Canvas* canvas);
