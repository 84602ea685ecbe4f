// The zoom read-out: a field at the right end of the status bar with the
// active view's zoom, on white at 100 %, on a yellow tint above and a cyan
// tint below.
#pragma once

#include "display/zoom.h"

// Shows the read-out; an empty text hides it (no document is open).
void ShowZoomReadout(const ZoomReadout& readout);
