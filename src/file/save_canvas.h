// Save and Save As: the canvas goes to its own name, or, the first time or
// when asked, to a name and format the user picks.
#pragma once

#include <string>

#include "document/canvas.h"

// The text the Save dialog's name field starts with: empty for "Untitled",
// else the name cut at its first dot.
std::string SaveDialogSeed(const std::string& name);

// forceDialog 1 is Save As; Shift turns Save into it, and so does a canvas
// still "Untitled". 1 when the canvas was saved or the user declined the
// flat format (then nothing was written but the question on closing is
// settled); 0 when cancelled or failed, and then the canvas stays
// modified, so that closing it never loses the work.
int SaveCanvas(Canvas* canvas, int forceDialog);
