#include "paint/stroke/stroke_loop.h"

#include "document/canvas_manager.h"
#include "document/undo_history.h"
#include "paint/modes/color_mask.h"
#include "paint/stroke/stroke_engine.h"
#include "paint/stroke/stroke_outline.h"
#include "paint/stroke/stroke_snapshot.h"
#include "paint/stroke/stroke_windows.h"
#include "paint/tip/pen_record.h"
#include "platform/platform.h"

namespace {

constexpr int kVkQ = 0x51;
constexpr int kVkApps = 0x5D;  // the context-menu key

}  // namespace

bool StrokeButtonHeld(int rightButton) {
  if (!rightButton) return platform::KeyDown(platform::VkLeftButton);
  return platform::KeyDown(platform::VkRightButton) || platform::KeyDown(kVkQ) ||
         platform::KeyDown(kVkApps);
}

bool SingleShotHeld() { return platform::KeyDown(platform::VkShift); }

int BeginStroke(Canvas* canvas, int rightButton) {
  StrokeEngine.savedMode = -1;
  const int undoPen = StrokeEngine.rightClickAction == kRightClickUndoPen;
  if (rightButton && !undoPen) return 0;
  if (!rightButton && undoPen) TakeUndoPenSnapshot(canvas);
  tipState.dabCount = 0;
  // The pen's outline stays off the screen while the stroke paints; only
  // the Clone pen's loop brings it back, to show the source as it moves.
  HidePenOutline();
  if (strokeWindows.draftOverlay) strokeWindows.draftOverlay(canvas, 0);
  StrokeEngine.running = 1;
  return 1;
}

void EndStroke(Canvas* canvas) {
  StrokeEngine.running = 0;
  if (strokeWindows.draftOverlay) strokeWindows.draftOverlay(canvas, 1);
  CanvasManager.MarkModified(canvas);
  FreeColorMaskMap();
  if (StrokeEngine.savedMode >= 0) pen.mode = static_cast<uint32_t>(StrokeEngine.savedMode);
}

void QualityPause() {
  switch (StrokeEngine.freehandQuality) {
    case 1:
      platform::BusyWait(4);
      break;
    case 2:
      platform::BusyWait(10);
      break;
    default:
      break;
  }
}

void RecordStrokeUndo(Canvas* canvas, const Rect& box) {
  UndoHistory.RecordUndo(canvas, -1, 1, box.left, box.top, box.right, box.bottom, 0);
}
