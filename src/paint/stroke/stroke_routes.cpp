#include "paint/stroke/stroke_routes.h"

#include "base/current_tool.h"
#include "display/pointer_routing.h"
#include "display/view_paint.h"
#include "paint/modes/color_mask.h"
#include "paint/modes/pen_modes.h"
#include "paint/modes/place_dab.h"
#include "paint/stroke/stroke_clone_source.h"
#include "paint/stroke/stroke_dropper.h"
#include "paint/stroke/stroke_engine.h"
#include "paint/stroke/stroke_loops.h"
#include "paint/stroke/stroke_outline.h"
#include "paint/stroke/stroke_snapshot.h"
#include "paint/tip/pen_record.h"

namespace {

// The modes that move paint along the path take the segment walker; the
// others dab where the pointer is, again and again, also standing still.
bool ModeConnects(uint32_t mode) {
  return mode == kModeColor || mode == kModeFilter || mode == kModeEraser ||
         mode == kModeClockwise || mode == kModeCounterclockwise || mode == kModeLayer;
}

int Stroke(Canvas* canvas, int connecting, int rightButton) {
  PenBlender.connected = connecting;
  return connecting ? RunConnectedStroke(canvas, 0, 0, rightButton)
                    : RunFreehandStroke(canvas, 0, 0, rightButton);
}

bool OnPenTool() {
  return currentTool == cmd::kFreeHandConnect || currentTool == cmd::kFreeHand;
}

}  // namespace

void InstallStrokeEngine() {
  pointerRoutes.penMode = [] { return static_cast<int>(pen.mode); };
  pointerRoutes.cloneOffset = [] { return static_cast<int>(PenKernels.cloneOffsetX); };
  pointerRoutes.setCloneSource = SetCloneSource;
  pointerRoutes.stroke = [](Canvas* canvas, int connecting) { Stroke(canvas, connecting, 0); };
  // The right button runs the loop the left one would, restoring from the
  // Undo Pen's snapshot; with the Dropper chosen it declines.
  pointerRoutes.strokeSecondForm = [](Canvas* canvas) {
    const int connecting = currentTool == cmd::kFreeHandConnect && ModeConnects(pen.mode);
    return Stroke(canvas, connecting, 1);
  };
  pointerRoutes.colourPicker = RunDropper;
  pointerRoutes.pointerLeft = [](Canvas*) { HidePenOutline(); };
  pointerRoutes.toolPointer = [](Canvas* canvas, const CanvasPoint& at) {
    if (OnPenTool() && StrokeEngine.showOutline)
      MovePenOutline(canvas, at.x, at.y);
    else
      HidePenOutline();
  };
  pointerRoutes.overlayToggles[kOverlayPenOutline] = TogglePenOutline;
}

void ChooseRightClickAction(int action) {
  StrokeEngine.rightClickAction = action;
  FreeUndoPenSnapshot();
}
