// One dab of the pen. The stroke loops call PlaceDab once per point they
// reach (once per pass of the freehand loop, once per tenth of a pixel of
// the segment walker), between ApplyPressure and RestorePen, with:
//   - x, y the canvas position as a double (the fraction matters with
//     Anti-Alias on),
//   - refresh 1 to repaint the dab's box at once (0 inside a segment, which
//     repaints its union itself),
//   - rightButton 1 on a right-button stroke of the Undo Pen,
//   - spacing the least distance between accepted dabs, honoured only while
//     `connected` is 1,
//   - first 1 before the first dab of a stroke; PlaceDab clears it.
// The four outputs (each may be null) receive the box touched, to merge
// into the stroke's bounding box; a dab refused by spacing gives the point.
// The loops own dabCount (dab_count.h) and `connected`, the clone offset
// (PenKernels.cloneOffsetX/Y, pen_modes.h), and the Undo Pen snapshot
// below; they call FreeColorMaskMap (color_mask.h) at the end of a stroke.
#pragma once

#include <cstdint>

#include "base/rect.h"
#include "document/canvas.h"
#include "paint/modes/dab_rows.h"
#include "paint/modes/tip_shift.h"
#include "paint/tip/tip.h"

// The dab blender: the tip of the current dab and its resampled rows.
struct PenBlenderObject {
  // Slack for the vector kernels after the largest tip (dab_rows.h).
  uint8_t tipHighBuffer[kTipBufferBytes + kRowBlock];
  uint8_t tipLowBuffer[kTipBufferBytes + kRowBlock];
  // The tip shifted by the dab's fraction (tip_shift.h): a column wider and
  // a row taller than the tip, with slack.
  uint8_t shiftedHigh[kShiftedTipBytes + kRowBlock];
  uint8_t shiftedLow[kShiftedTipBytes + kRowBlock];
  double lastDabX = 0.0, lastDabY = 0.0;  // the last dab accepted
  // 1 while the stroke runs through the segment walker: PlaceDab then
  // refuses a dab nearer than `spacing` to the last one.
  int32_t connected = 0;
  // The "Anti-Alias" check box of the paint panel: dabs at sub-pixel
  // positions. On at start.
  int32_t antiAlias = 1;
  // Milliseconds of busy wait before each dab, 0..100 (the "Speed" slider
  // stores 100 minus its position; "Fastest" sets 0).
  int32_t speedDelay = 0;

  void Reset();
};

extern PenBlenderObject PenBlender;

// The Undo Pen snapshot: the active plane as 24 bits and its transparency,
// both of the canvas's size, taken by the stroke loops when a left stroke
// starts with the right button set to "Undo Pen". Either may be null.
extern Plane* undoPenImage;
extern Plane* undoPenTransparency;

// Back to the start state: every pen mode setting, the kernels' state, the
// snapshot and the colour mask map.
void ResetPenModes();

// Places one dab (or, with rightButton, restores one from the snapshot).
// Returns 1 when the dab was placed, 0 when spacing refused it.
// The box touched goes to painted, which may be null.
int PlaceDab(Canvas* canvas, double x, double y, int refresh, int rightButton, Rect* painted,
             double spacing, int& first);

// The Undo Pen's dab centred on whole pixel x, y: the tip paints the
// snapshot back, through the mask and the selection. Returns the box
// touched.
Rect RestoreDab(Canvas* canvas, int x, int y);
