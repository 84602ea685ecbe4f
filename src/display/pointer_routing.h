// How the pointer's raw events on displayWnd reach the tools. The order of
// the claims and the table by tool are fixed here; what each route does
// belongs to the subsystem of that tool, which fills its members of
// `pointerRoutes`. A member left empty is a route whose owner hasn't
// landed: the event then does nothing there.
#pragma once

#include <functional>

#include "base/hook_list.h"
#include "display/grid.h"
#include "document/canvas.h"

// A button going down, with the tool in use (currentTool), the keys held
// at that moment and where on the screen it happened: the view's own drags
// count the pointer's travel from there, however late the press is taken.
struct PointerPress {
  int tool;
  int shift, ctrl, space;
  int screenX = 0, screenY = 0;
};

constexpr int kPenModeClone = 7;
// The clone offset stands below this while no clone source is set.
constexpr int kNoCloneSource = -1000;
constexpr int kStringCloneNeedsSource = 1411;

// What the left button does by tool.
enum class ToolRoute {
  PenStroke,    // 20005: the connecting routine for pen modes 0, 5, 6, 9, 10, 11
  PlainStroke,  // 20000
  DraftObject,  // 14001, 14003, 20006, 20013, 20507: press and drag of an object
                // (Smooth Zoom's frame is the view's own)
  DraftPoint,   // every other tool
};
ToolRoute ToolRouteOf(int tool);

// The drawings over the picture that their owners toggle (view_paint.h).
enum Overlay {
  kOverlayPenOutline,  // only on the canvas that shows it
  kOverlayLoopeBox,
  kOverlayResizeBox,
  kOverlayDraft,
  kOverlayZoomFrame,  // the rectangle Smooth Zoom is about to enlarge
  kOverlayEditFrame,  // Edit Bezier's frame around the path
  kOverlayCount,
};

struct PointerRoutes {
  // The left press with Shift while the pen is in mode Clone.
  std::function<void(Canvas*)> setCloneSource;
  // Claims tried before the tool, each 1 when it took the press.
  std::function<int(Canvas*, int rightButton)> colourAdjustPick;  // a colour-adjust window is open
  std::function<int(Canvas*, int rightButton)> detectSelectionPick;  // Detect Selection is open
  std::function<int(Canvas*)> loopeClick;                         // the Loope window is open
  std::function<int(Canvas*)> layerResizeClick;                   // a layer resize by drag is open
  std::function<int(Canvas*)> layerResizeMove;

  // The pen.
  std::function<int()> penMode;
  std::function<int()> cloneOffset;
  std::function<void(Canvas*, int connecting)> stroke;
  // The stroke routine's second form: the pen's menu, or taking the
  // colour; 0 when it declines.
  std::function<int(Canvas*)> strokeSecondForm;
  std::function<void(Canvas*)> colourPicker;

  // The Draft. The right-button handlers answer 0 when they decline.
  std::function<void(Canvas*)> draftObjectPress;
  std::function<void(Canvas*)> draftPointPress;
  std::function<int(Canvas*)> draftRightPress;
  std::function<int(Canvas*)> selectionPopup;

  // The tool's drawing at the pointer on each move (outline or cursor).
  std::function<void(Canvas*, const CanvasPoint& at)> toolPointer;
  // The pointer left the view: what follows it (the pen's outline) goes.
  std::function<void(Canvas*)> pointerLeft;
  // Each overlay's toggle: one call takes it off, the next puts it back.
  std::function<void(Canvas*)> overlayToggles[kOverlayCount];

  // The layer commands a right press on a layer leads to.
  std::function<int(Canvas*, int layer)> layerPartsMenu;  // tsLayPartsMenu2: item, 0 for none
  std::function<void(Canvas*, int layer, int item)> layerCommand;
  std::function<void(Canvas*, int layer)> layerOptions;
};

extern PointerRoutes pointerRoutes;

// Run before a left or right press is routed: what reads the planes in
// the background stops first, since the press may change them.
extern HookList<Canvas*> pressHooks;

void LeftButtonDown(Canvas* canvas, const PointerPress& press);
void RightButtonDown(Canvas* canvas, const PointerPress& press);
// Hand scroll, held by the middle button.
void MiddleButtonDown(Canvas* canvas, const PointerPress& press);
void PointerMoved(Canvas* canvas);
void PointerLeft(Canvas* canvas);
