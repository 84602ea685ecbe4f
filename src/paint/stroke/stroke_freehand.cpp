// RunFreehandStroke: a dab in each pass, where the pointer is.
#include <cmath>

#include "paint/modes/pen_modes.h"
#include "paint/modes/pen_rows.h"
#include "paint/modes/place_dab.h"
#include "paint/stroke/stroke_loop.h"
#include "paint/stroke/stroke_loops.h"
#include "paint/stroke/stroke_outline.h"
#include "paint/stroke/stroke_position.h"
#include "paint/stroke/stroke_pressure.h"
#include "paint/stroke/stroke_segment.h"
#include "paint/tip/pen_record.h"
#include "platform/platform.h"
#include "settings/settings.h"

int RunFreehandStroke(Canvas* canvas, int, int, int rightButton) {
  const double spacing = StrokeSpacing();
  int first = 1;
  Rect box = kNoBox;
  if (!BeginStroke(canvas, rightButton)) return 0;
  const bool singleShot = SingleShotHeld();
  // Only the Clone pen's outline moves with the stroke: it shows the source.
  const bool clone = pen.mode == kModeClone;
  SetLayerRowCaches(canvas, true);

  for (;;) {
    platform::DrainPointerMessages();
    if (!StrokeButtonHeld(rightButton)) break;
    const StrokePoint at = StrokePosition(canvas, first);
    ApplyPressure(first, -1);
    const int x = static_cast<int>(std::trunc(at.x)), y = static_cast<int>(std::trunc(at.y));
    Rect dab = kNoBox;
    PlaceDab(canvas, x, y, 1, rightButton, &dab, spacing, first);
    // Both coordinates must change before the outline follows.
    if (clone && x != penOutline.x && y != penOutline.y) MovePenOutline(canvas, x, y);
    box = Union(box, dab);
    RestorePen();
    first = 0;
    ++tipState.dabCount;
    if (singleShot) break;
  }

  SetLayerRowCaches(canvas, false);
  if (clone) ShowPenOutline(canvas);
  EndStroke(canvas);
  if (!settings.restrainUndoDuringFreehand) RecordStrokeUndo(canvas, box);
  return 1;
}
