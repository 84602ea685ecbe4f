// Scrolling a view: the scroll bar requests, and the scroll at the edges
// of frameWnd during a drag. A scroll moves the pixels already shown and
// lets only what came into view be painted.
#pragma once

#include "display/view_windows.h"
#include "document/canvas.h"

// Scroll bar requests by their Win32 numbers (SB_LINEUP ... SB_BOTTOM), so
// the window side passes LOWORD(wParam) through.
enum : int {
  kScrollLineUp = 0,
  kScrollLineDown = 1,
  kScrollPageUp = 2,
  kScrollPageDown = 3,
  kScrollThumbPosition = 4,
  kScrollThumbTrack = 5,
  kScrollTop = 6,
  kScrollBottom = 7,
};

// The pointer this close to an edge of frameWnd scrolls a drag along.
constexpr int kAutoScrollEdge = 8;

// Carries out one request on one axis; thumb is the position of the thumb
// requests. A line is max(1, ToView(1)) view pixels, a page ten lines. The
// move is clamped to the extent; the view pixels moved, 0 for none.
int ScrollView(Canvas* canvas, Axis axis, int request, int thumb = 0);

// One page towards each edge of frameWnd that the pointer stands within 8
// pixels of, left before right and top before bottom; paints at once when
// the view moved. 1 when it moved.
int ScrollAtEdge(Canvas* canvas);
