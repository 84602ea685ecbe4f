// The command registry: each subsystem registers the handlers of the
// commands it owns, and the frame's and the document's handlers run them.
#pragma once

#include <cstdint>
#include <functional>

struct Canvas;

// A frame handler receives lParam (for 10007 a const char* path); a canvas
// handler the canvas.
using FrameCommandHandler = std::function<void(intptr_t lParam)>;
using CanvasCommandHandler = std::function<void(Canvas* canvas, intptr_t lParam)>;
void RegisterFrameCommand(int id, FrameCommandHandler handler);
void RegisterCanvasCommand(int id, CanvasCommandHandler handler);

// Each runs the registered handler and returns 1, or 0 when none is.
int RunFrameHandler(int id, intptr_t lParam);
int RunCanvasHandler(Canvas* canvas, int id, intptr_t lParam);
// Drops every registration.
void ClearCommandHandlers();
