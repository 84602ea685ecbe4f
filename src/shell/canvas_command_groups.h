// The document handler's own groups of commands. Each returns 1 when the
// command is one of its group.
#pragma once

#include "document/canvas.h"

// View state: rulers, zoom, outside display, accuracy, window size.
int ViewCommand(Canvas* canvas, int id);
// Whole-plane operations and the row cache test commands.
int PictureCommand(Canvas* canvas, int id);
