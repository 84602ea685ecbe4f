// What a press on a row of the LAYER page does: the release of a row that
// was pressed and perhaps dragged, and the row's small buttons.
#pragma once

#include "document/canvas.h"

// A press on a row does nothing while a colour-adjust window or an object
// on the picture (Edit Bezier's frame, a floating piece) holds the pointer.
bool RowPressRefused();

// What became of a press of row `from` released over row `to`.
enum class RowRelease {
  Nothing,       // released off the rows
  LayerOptions,  // the active plane's row: its layer's options are asked for
  Selected,      // another plane of the same layer is active now
  Refused,       // a move during Smooth Zoom, refused with string 1401
  Moved,         // the layer was moved, or the move was refused and undone
};
RowRelease ReleaseRow(Canvas* canvas, int from, int to);

// The popup of the display-mode button (control 102) of a row.
enum class DisplayMenu {
  None,   // the button doesn't stand on this row
  Image,  // tsDispMenu: the modes of an image plane
  Plane,  // tsDispMenu2: the modes of a plane above position 0
};
DisplayMenu DisplayMenuOf(const Canvas* canvas, int row);
// The item chosen (from 1) in that popup becomes the active plane's mode.
void ChooseDisplayMode(Canvas* canvas, DisplayMenu menu, int choice);

// The eye (control 103): hides the row's layer, or shows it again in the
// mode it had.
void ToggleEye(Canvas* canvas, int row);
// The switch of a plane above position 0 (control 104).
void TogglePlaneOff(Canvas* canvas, int row);
