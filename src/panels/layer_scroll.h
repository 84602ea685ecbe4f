// Scrolling the list of rows, in pixels, kept within the list.
#pragma once

// The requests are the view's scroll bar requests (kScrollLineUp ...).
#include "display/view_scroll.h"

// Applies a request (thumb: the thumb's position) to scrollOffset and
// returns how far the list moved, 0 for an unknown request.
int ScrollList(int request, int thumb);

// The list's window has a new height: the offset stays within the list.
// Returns how far the list moved.
int SizeList(int clientHeight);

// The largest offset: nothing past the last row scrolls into view.
int MaxScrollOffset();
