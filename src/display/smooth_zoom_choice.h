// Choosing what Smooth Zoom enlarges: the dialog tsl_szoom with its list
// of factors and its check box, then a rectangle the user drags into place
// and confirms.
#pragma once

#include <string>
#include <vector>

#include "document/canvas.h"

constexpr int kSmoothZoomListRows = 5;

// The rows of the factor list as its list control shows them, sorted by
// text: "x16", "x2", "x32", "x4", "x8".
std::vector<std::string> SmoothZoomListRows();

// The factor a row yields: the row's index picks from the factor table,
// whatever the row reads, so "x16" gives 2. This mismatch is by design.
int SmoothZoomFactorOfRow(int row);

// What the dialog produces.
struct SmoothZoomDialogFields {
  int row;     // the list's selection
  int smooth;  // the check box `Smooth Zoom`
};

// The rectangle while it is being chosen; 1 x 1 when no choice is under
// way.
struct SmoothZoomChoice {
  int left, top, width, height;
  int factor, smooth;
};
constexpr SmoothZoomChoice kNoChoice{0, 0, 1, 1, 0, 0};
extern SmoothZoomChoice smoothZoomChoice;

// The dialog's answer makes the rectangle: canvasWidth / factor by
// canvasHeight / factor, centred on the active plane.
void BeginSmoothZoomChoice(const Canvas* canvas, const SmoothZoomDialogFields& fields);

// A press on the canvas while choosing: the rectangle follows the pointer.
void DragSmoothZoomChoice(Canvas* canvas);

// Confirmed: EnterSmoothZoom on the rectangle, with its result. Either way
// the rectangle returns to 1 x 1; 0 when not confirmed.
int EndSmoothZoomChoice(Canvas* canvas, int confirmed);
