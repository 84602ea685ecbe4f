// The segment walker: a straight piece of a stroke walked in tenths of a
// pixel, with a dab offered at every step. The walker doesn't space the
// dabs; PlaceDab refuses those nearer than `spacing` to the last one it
// accepted while `connected` is set, which spaces them evenly at any slope.
#pragma once

#include "base/rect.h"
#include "document/canvas.h"

// The spacing factor of strokes, and of the Line command and the outlines
// of a selection, which want denser dabs.
constexpr double kStrokeSpacingFactor = 0.05;
constexpr double kLineSpacingFactor = 0.125;

// The least distance between the dabs of a segment: the tip's smaller side
// times factor, and at least one pixel.
double StrokeSpacing(double factor = kStrokeSpacingFactor);

// Walks from (x0, y0) to (x1, y1) along the longer axis (y on a tie) in
// steps of 0.1, each step a PlaceDab without repaint and one more in
// dabCount. Unless exactEnd is set, the end of a walk longer than 1.5
// pixels is pulled back by half a pixel, so the point where the next
// segment starts is painted once. A segment of no length places nothing.
// With refresh the union of the dabs is repainted once at the end. The
// union goes to painted unless it is null (kNoBox when nothing was touched).
void DrawPenSegment(Canvas* canvas, double x0, double y0, double x1, double y1, int exactEnd,
                    int rightButton, Rect* painted, int refresh, double spacing, int& first);
