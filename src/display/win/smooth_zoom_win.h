// Smooth Zoom's windows: the dialog tsl_szoom and the frame's menu
// daZoomSel.
#pragma once

#include "display/smooth_zoom_choice.h"
#include "document/canvas.h"

// Shows fields over the frame; 1 after OK with fields holding the choice.
int RunSmoothZoomDialog(SmoothZoomDialogFields* fields);

// The menu at the pointer over canvas's view: the item chosen
// (ZoomFrameItem), 0 for none.
int RunZoomFrameMenu(Canvas* canvas);
