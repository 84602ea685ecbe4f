// The Undo Pen's snapshot: the active plane as it was when the last left
// stroke started, which a right-button stroke paints back (RestoreDab).
// The planes are undoPenImage and undoPenTransparency (place_dab.h).
#pragma once

#include "document/canvas.h"

// Replaces the snapshot by the active plane as 24 bits and its layer's
// transparency, both of the canvas's size. When the image plane can't be
// made, "MEMORY ERROR" is shown under the title "test" and the stroke
// paints on without a snapshot.
void TakeUndoPenSnapshot(Canvas* canvas);
// Frees both planes (choosing a right-click action does this).
void FreeUndoPenSnapshot();
