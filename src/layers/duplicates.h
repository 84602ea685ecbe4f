// The duplicates made over: on a resized canvas (mode 9) and resized
// (mode 6). Each describes the new canvas in CanvasRequest; the canvas's
// content comes from its fill.
#pragma once

#include "document/canvas.h"
#include "layers/layer_windows.h"

// Every layer keeps its size and its place over the picture; layer 0's
// sides move as the choice says. 0 with string 6000 when the base would
// go below 1 pixel.
int RequestResizedCanvas(Canvas* source, const SideChoice& sides);
int FillResizedCanvas(Canvas* canvas);

// Every layer's size and place scaled to a canvas of width x height.
void RequestResizedDuplicate(Canvas* source, int width, int height);
int FillResizedDuplicate(Canvas* canvas);
