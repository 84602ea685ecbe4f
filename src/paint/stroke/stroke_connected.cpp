// RunConnectedStroke: segments between the pixels the pointer reaches.
#include <cmath>

#include "paint/modes/place_dab.h"
#include "paint/stroke/stroke_engine.h"
#include "paint/stroke/stroke_loop.h"
#include "paint/stroke/stroke_loops.h"
#include "paint/stroke/stroke_position.h"
#include "paint/stroke/stroke_pressure.h"
#include "paint/stroke/stroke_segment.h"
#include "paint/tip/pen_record.h"
#include "platform/platform.h"
#include "settings/settings.h"

namespace {

// A tablet takes the stroke when pressure acts on the pen and a packet
// is there at the start.
bool TabletTakesStroke() {
  const StrokeEngineObject& e = StrokeEngine;
  if (!(e.reflectOnThick || e.reflectOnDensity || e.reflectOnSize)) return false;
  if (tabletLink.state != kTabletUsable) return false;
  TabletPacket packet;
  return ReadTabletSample(&packet, 1) != 0;
}

// The pixel a position rounds to.
int Rounded(double v) { return static_cast<int>(std::trunc(v + 0.5)); }

}  // namespace

int RunConnectedStroke(Canvas* canvas, int x, int y, int rightButton) {
  if (TabletTakesStroke()) return RunTabletStroke(canvas, x, y, rightButton);
  const double spacing = StrokeSpacing();
  int first = 1;
  Rect box = kNoBox;
  double lastX = -1.0, lastY = -1.0;
  if (!BeginStroke(canvas, rightButton)) return 0;
  const uint32_t savedThick = pen.colorThickness;
  const bool singleShot = SingleShotHeld();

  for (;;) {
    platform::DrainPointerMessages();
    if (!StrokeButtonHeld(rightButton)) break;
    QualityPause();
    const StrokePoint at = StrokePosition(canvas, first);
    ApplyPressure(first, -1);
    Rect painted = kNoBox;
    if (first || singleShot) {
      PlaceDab(canvas, at.x, at.y, 1, rightButton, &painted, spacing, first);
      lastX = at.x;
      lastY = at.y;
    } else if (Rounded(at.x) != Rounded(lastX) || Rounded(at.y) != Rounded(lastY)) {
      DrawPenSegment(canvas, lastX, lastY, at.x, at.y, 0, rightButton, &painted, 1, spacing,
                     first);
      lastX = at.x;
      lastY = at.y;
    }
    box = Union(box, painted);
    RestorePen();
    ++tipState.dabCount;
    first = 0;
    if (singleShot) break;
  }

  pen.colorThickness = savedThick;
  EndStroke(canvas);
  if (!settings.restrainUndoDuringFreehand) RecordStrokeUndo(canvas, box);
  return 1;
}
