// A change of zoom that keeps a point in view: the canvas point under the
// pointer, or the one at the middle of the window, ends in the middle of
// the window at the new zoom (as far as the scroll range allows).
#pragma once

#include "document/canvas.h"

// Sets the zoom step (kept within -3..10), lays the document out for it,
// scrolls and updates the status bar's zoom read-out. With keepCentre
// set, or with the pointer outside the document window, the point kept is
// the one at the middle of frameWnd.
void SetZoom(Canvas* canvas, int step, int keepCentre);
