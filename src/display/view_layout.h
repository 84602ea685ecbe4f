// Where the windows of a document stand: frameWnd inside the margins of
// documentWnd, displayWnd inside frameWnd (moved to scroll, centred while
// the canvas is smaller than the window), the rulers along its edges, and
// the scroll bars. The Win32 side applies what these compute.
#pragma once

#include "display/view_windows.h"
#include "document/canvas.h"

// frameWnd's place in a document window of the given client size.
Rect FramePlacement(const Canvas* canvas, int documentWidth, int documentHeight);

struct ViewLayout {
  // A negative scroll was reset to 0: frameWnd's pixels move by these.
  int shiftX, shiftY;
  ScrollBarState horizontal, vertical;
  Rect display;         // in frameWnd
  Rect hRuler, vRuler;  // in documentWnd
};

// frameWnd got the client size: stores it, the extents and the scroll
// clamped to them, and says where everything goes.
ViewLayout LayOutView(Canvas* canvas, int clientWidth, int clientHeight);

// Where the canvas's top left stands in frameWnd at scroll 0.
int ViewOriginX(const Canvas* canvas);
int ViewOriginY(const Canvas* canvas);
