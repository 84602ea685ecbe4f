// Edit Bezier (20013): a mode that turns and scales a finished Bezier path
// through a frame around it. Each change is applied to the path as it was
// when the mode began (kept in the path file), so errors don't pile up.
#pragma once

#include <cstdint>
#include <string>

#include "display/grid.h"
#include "document/canvas.h"

// The frame before size and angle, in canvas pixels; a body drag moves
// it. tapWidth and tapHeight are its size when the mode began.
struct EditFrame {
  int32_t tapLeft, tapRight, tapTop, tapBottom;
  int32_t tapWidth, tapHeight;
  int32_t tapSize;  // percent
};
extern EditFrame editFrame;

// Starts on a canvas holding a Bezier path (0 otherwise): angle 0, size
// 100, the frame from the Draft's box, the path backed up and the frame
// shown. backTool is what "Back to [Bezier]" returns to.
int BeginEditBezier(Canvas* canvas, int backTool);
// The frame goes; nothing when the mode isn't live.
void EndEditBezier();
// The canvas the mode is live on, null when none.
Canvas* EditBezierCanvas();

// The frame's corners, from the top left round, turned by the angle:
// from canvas values (hit tests) or view values (drawing).
struct FrameCorners {
  CanvasPoint centre;
  CanvasPoint corner[4];
};
FrameCorners CanvasFrame();
FrameCorners ViewFrame(const Canvas* canvas);

// The backup path scaled by tapSize and turned by angle about the centre
// of the Draft's box, moved with the frame, outlined and committed.
void ApplyEditFrame(Canvas* canvas);

// The routes of the mode, registered under 20013.
void InstallEditBezier();
// Not live, no frame, nothing to go back to (tests).
void ResetEditBezier();
