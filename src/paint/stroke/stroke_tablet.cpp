// RunTabletStroke: the connected stroke driven by tablet packets, recorded
// for Auto Smooth.
#include <cmath>

#include "document/undo_history.h"
#include "paint/modes/place_dab.h"
#include "paint/stroke/stroke_engine.h"
#include "paint/stroke/stroke_loop.h"
#include "paint/stroke/stroke_loops.h"
#include "paint/stroke/stroke_position.h"
#include "paint/stroke/stroke_pressure.h"
#include "paint/stroke/stroke_segment.h"
#include "paint/tip/pen_record.h"
#include "paint/tip/tip.h"
#include "platform/platform.h"
#include "settings/settings.h"

namespace {

// Samples beyond the room are counted, not kept.
void RecordSample(int index, const StrokePoint& at, const TabletPacket& packet) {
  if (index >= kStrokeSampleLimit) return;
  StrokeEngine.strokeSamples[2 * index] = {static_cast<float>(at.x), static_cast<float>(at.y),
                                           packet.pressure, packet.tick};
}

}  // namespace

int RunTabletStroke(Canvas* canvas, int, int, int rightButton) {
  const double spacing = StrokeSpacing();
  int first = 1;
  Rect box = kNoBox;
  double lastX = -1.0, lastY = -1.0;
  if (!BeginStroke(canvas, rightButton)) return 0;
  // The replay undoes the stroke first, so there must be an entry to undo.
  const int32_t savedUndoCount = settings.undoCount;
  if (StrokeEngine.autoSmooth && settings.undoCount == 0) settings.undoCount = 2;
  const uint32_t savedThick = pen.colorThickness;
  const bool singleShot = SingleShotHeld();
  int count = 0;

  for (;;) {
    platform::DrainPointerMessages();
    if (!StrokeButtonHeld(rightButton)) break;
    QualityPause();
    const StrokePoint at = StrokePosition(canvas, first);
    TabletPacket packet{};
    if (!ReadTabletSample(&packet, first)) continue;
    if (packet.orientation < 0) UseStylusEraser();
    ApplyPressure(first, packet.pressure);
    RecordSample(count++, at, packet);
    Rect painted = kNoBox;
    if (first) {
      PlaceDab(canvas, std::trunc(at.x), std::trunc(at.y), 1, rightButton, &painted, spacing,
               first);
      lastX = at.x;
      lastY = at.y;
    } else if (at.x != lastX || at.y != lastY) {
      DrawPenSegment(canvas, lastX, lastY, at.x, at.y, 0, rightButton, &painted, 1, spacing,
                     first);
      lastX = at.x;
      lastY = at.y;
    }
    box = Union(box, painted);
    ++tipState.dabCount;
    RestorePen();
    first = 0;
    if (singleShot) break;
  }

  RecordStrokeUndo(canvas, box);
  // A tap is not replayed: undoing it would leave nothing, as the replay
  // paints nothing for fewer than two samples.
  if (StrokeEngine.autoSmooth && count >= 2) {
    UndoHistory.Undo(canvas, 0);
    ReplaySmoothedStroke(canvas, rightButton, count, box);
  }
  pen.colorThickness = savedThick;
  EndStroke(canvas);
  settings.undoCount = savedUndoCount;
  // Pressure on the size may have left a tip of another size.
  BuildTip();
  return 1;
}
