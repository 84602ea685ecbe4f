// The pen's outline over the canvas view: an ellipse of the tip's radii,
// or the box of a dot tip, at the pointer; with the Clone pen also a cross
// at the clone source (the pointer plus the clone offset). The portable
// side keeps where it stands and says what to draw; the window side draws
// it by inversion, so drawing the same outline again removes it.
#pragma once

#include "base/rect.h"
#include "document/canvas.h"

constexpr int kCloneCrossArm = 12;  // view pixels each way: a cross of 25

struct PenOutline {
  int ellipse;         // 1 an ellipse inside the box, 0 the box itself
  Rect box;            // view pixels
  int cross;           // the clone source's cross is drawn too
  int crossX, crossY;  // its middle, view pixels
};

// The outline for the pointer at canvas pixel (x, y).
PenOutline PenOutlineAt(const Canvas* canvas, int x, int y);

// Where the outline stands, and whether it is on the screen. What was
// drawn is kept, so that it is removed as drawn even if the pen or the
// zoom changed; it is kept by window, which may close meanwhile.
struct PenOutlineState {
  WindowHandle view = nullptr;  // displayWnd of the canvas it stands on
  int shown = 0;
  int x = 0, y = 0;  // canvas pixels
  PenOutline drawn{};
};
extern PenOutlineState penOutline;

// Takes the outline off at its old place and puts it at (x, y).
void MovePenOutline(Canvas* canvas, int x, int y);
// Off the screen, and back at its place on the canvas.
void HidePenOutline();
void ShowPenOutline(Canvas* canvas);
// The paint order's toggle: on a canvas that shows the outline, one more
// inverted drawing (around a repaint, which would otherwise cover it).
void TogglePenOutline(Canvas* canvas);
