// The duplicates made over: on a resized canvas (mode 9), resized (mode 6)
// and rotated (mode 7). Each describes the new canvas in CanvasRequest; the canvas's
// content comes from its fill.
#pragma once

#include "document/canvas.h"
#include "layers/layer_windows.h"

// What the dialogs of the three last chose; they open with it again.
struct DuplicateChoices {
  SideChoice canvasSides;
  ResizeChoice size;  // width 0: the canvas's present size
  RotateChoice rotation;
};
extern DuplicateChoices lastDuplicateChoices;

// Every layer keeps its size and its place over the picture; layer 0's
// sides move as the choice says. 0 with string 6000 when the base would
// go below 1 pixel.
int RequestResizedCanvas(Canvas* source, const SideChoice& sides);
int FillResizedCanvas(Canvas* canvas);

// Every layer's size and place scaled to a canvas of width x height.
void RequestResizedDuplicate(Canvas* source, int width, int height);
int FillResizedDuplicate(Canvas* canvas);

// Every layer turned by whole degrees (clockwise positive) about the
// canvas's centre: its turned corners place it, the turned plane's box
// sizes it, and layer 0 comes to (0, 0).
void RequestRotatedDuplicate(Canvas* source, int degrees);
int FillRotatedDuplicate(Canvas* canvas);
