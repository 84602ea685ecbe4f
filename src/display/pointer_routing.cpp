#include "display/pointer_routing.h"

#include "base/command_ids.h"
#include "display/pick_layer.h"
#include "display/pointer_gestures.h"
#include "display/rulers.h"
#include "display/smooth_zoom_frame.h"
#include "platform/platform.h"
#include "resources/strings.h"

PointerRoutes pointerRoutes;
HookList<Canvas*> pressHooks;

namespace {

bool Claims(const std::function<int(Canvas*)>& claim, Canvas* canvas) {
  return claim && claim(canvas);
}

bool PenConnects(int mode) {
  return mode == 0 || mode == 5 || mode == 6 || mode == 9 || mode == 10 || mode == 11;
}

int PenMode() { return pointerRoutes.penMode ? pointerRoutes.penMode() : 0; }

// A clone stroke needs its source first.
void Stroke(Canvas* canvas, int connecting) {
  if (PenMode() == kPenModeClone && pointerRoutes.cloneOffset &&
      pointerRoutes.cloneOffset() < kNoCloneSource) {
    platform::ShowMessageBox(platform::Window::Frame, StringText(kStringCloneNeedsSource),
                             kProductName, platform::MbOk | platform::MbIconInformation);
    return;
  }
  if (pointerRoutes.stroke) pointerRoutes.stroke(canvas, connecting);
}

void ColourPicker(Canvas* canvas) {
  if (pointerRoutes.colourPicker) pointerRoutes.colourPicker(canvas);
}

void CallIfSet(const std::function<void(Canvas*)>& route, Canvas* canvas) {
  if (route) route(canvas);
}

}  // namespace

ToolRoute ToolRouteOf(int tool) {
  switch (tool) {
    case cmd::kFreeHandConnect:
      return ToolRoute::PenStroke;
    case cmd::kFreeHand:
      return ToolRoute::PlainStroke;
    case cmd::kPaste:
    case cmd::kPasteFromFile:
    case cmd::kPlaceText:
    case cmd::kEditBezier:
    case cmd::kSmoothZoom:
      return ToolRoute::DraftObject;
    default:
      return ToolRoute::DraftPoint;
  }
}

void LeftButtonDown(Canvas* canvas, const PointerPress& press) {
  pressHooks.Run(canvas);
  if (press.shift && PenMode() == kPenModeClone)
    return CallIfSet(pointerRoutes.setCloneSource, canvas);
  if (pointerRoutes.colourAdjustPick && pointerRoutes.colourAdjustPick(canvas, 0)) return;
  if (pointerRoutes.detectSelectionPick && pointerRoutes.detectSelectionPick(canvas, 0)) return;
  if (Claims(pointerRoutes.loopeClick, canvas)) return;
  if (Claims(pointerRoutes.layerResizeClick, canvas)) return;
  if (press.ctrl) return PickLayer(canvas, 0, press.shift);
  if (press.space) return HandScroll(canvas, PointerButton::Left, press.screenX, press.screenY);
  switch (ToolRouteOf(press.tool)) {
    case ToolRoute::PenStroke:
      return Stroke(canvas, PenConnects(PenMode()));
    case ToolRoute::PlainStroke:
      return Stroke(canvas, 0);
    case ToolRoute::DraftObject:
      // Smooth Zoom's frame is the view's own object.
      if (press.tool == cmd::kSmoothZoom) return PressZoomFrame(canvas);
      return CallIfSet(pointerRoutes.draftObjectPress, canvas);
    case ToolRoute::DraftPoint:
      return CallIfSet(pointerRoutes.draftPointPress, canvas);
  }
}

void RightButtonDown(Canvas* canvas, const PointerPress& press) {
  pressHooks.Run(canvas);
  if (pointerRoutes.colourAdjustPick && pointerRoutes.colourAdjustPick(canvas, 1)) return;
  if (pointerRoutes.detectSelectionPick && pointerRoutes.detectSelectionPick(canvas, 1)) return;
  if (press.ctrl) return PickLayer(canvas, 1, press.shift);
  if (press.space) return ZoomDrag(canvas, press.screenX);
  switch (ToolRouteOf(press.tool)) {
    case ToolRoute::PenStroke:
    case ToolRoute::PlainStroke:
      if (!Claims(pointerRoutes.strokeSecondForm, canvas)) ColourPicker(canvas);
      return;
    case ToolRoute::DraftObject: {
      const bool taken = press.tool == cmd::kSmoothZoom
                             ? ZoomFrameMenu(canvas) != 0
                             : Claims(pointerRoutes.draftRightPress, canvas);
      if (!taken) ColourPicker(canvas);
      return;
    }
    case ToolRoute::DraftPoint:
      if (!Claims(pointerRoutes.draftRightPress, canvas) &&
          !Claims(pointerRoutes.selectionPopup, canvas))
        ColourPicker(canvas);
      return;
  }
}

void MiddleButtonDown(Canvas* canvas, const PointerPress& press) {
  HandScroll(canvas, PointerButton::Middle, press.screenX, press.screenY);
}

void PointerMoved(Canvas* canvas) {
  if (Claims(pointerRoutes.layerResizeMove, canvas)) return;
  CanvasPoint at;
  if (!PointerOnCanvas(canvas, &at, 0, 0)) return;
  ShowPosition(canvas, at.x, at.y);
  if (pointerRoutes.toolPointer) pointerRoutes.toolPointer(canvas, at);
}

void PointerLeft(Canvas* canvas) {
  if (pointerRoutes.pointerLeft) pointerRoutes.pointerLeft(canvas);
}
