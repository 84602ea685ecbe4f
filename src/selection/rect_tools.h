// The box (20001) and the circle (20003): a rectangle with eight pegs,
// corners 0 top left, 1 top right, 2 bottom right, 3 bottom left, and
// edge middles 10 top, 11 bottom, 12 left, 13 right, scanned in that
// order, a later hit replacing an earlier one.
#pragma once

#include "base/rect.h"
#include "display/grid.h"
#include "document/canvas.h"

// The box press as a picker of a rectangle: a new rectangle is dragged
// out and returned ordered and held to the canvas, with the Draft left
// alone. 0 when the pointer can't be read.
int BoxGesture(Canvas* canvas, int* outLeft, int* outTop, int* outRight, int* outBottom);

// The peg of that number moved to a position: a corner moves two sides,
// a middle one. With square set and a corner, the corner's y goes where
// the height equals the width on the side it now lies, the opposite
// corner staying.
void MoveRectPeg(Rect* box, int peg, CanvasPoint at, bool square);

void InstallRectTools();
