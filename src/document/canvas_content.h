// The content of a new canvas by CanvasRequest mode. Mode 0 (New) is the
// blank canvas and needs no routine; the subsystems that own the other
// modes (files, clipboard, merging, duplicates) register theirs here,
// since they sit above the document level. A routine returns 0 only when
// the canvas can't stand at all; a partial failure reports itself and
// returns 1.
#pragma once

#include "document/canvas.h"

using CanvasContentFill = int (*)(Canvas* canvas);

// Registers (or, with null, removes) the routine of one mode.
void SetCanvasContentFill(int mode, CanvasContentFill fill);

// The routine of a mode, or null when none is registered.
CanvasContentFill CanvasContentFillOf(int mode);
