// The handlers other subsystems registered for their commands; used by
// the frame's and the document's handlers.
#pragma once

#include <cstdint>

#include "document/canvas.h"

// Each runs the registered handler and returns 1, or 0 when none is.
int RunFrameHandler(int id, intptr_t lParam);
int RunCanvasHandler(Canvas* canvas, int id, intptr_t lParam);
// Drops every registration.
void ClearCommandHandlers();
