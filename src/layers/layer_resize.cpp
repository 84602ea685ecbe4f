#include "layers/layer_resize.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "display/grid.h"
#include "display/pointer_routing.h"
#include "display/redraw.h"
#include "display/view_windows.h"
#include "display/zoom.h"
#include "document/canvas_manager.h"
#include "document/canvas_slots.h"
#include "document/selection_rows.h"
#include "document/undo_history.h"
#include "layers/layer_command.h"
#include "layers/layer_copy.h"
#include "resources/strings.h"
#include "store/plane_ops.h"

SideChoice resizeSides;

namespace {

constexpr int kStringSmoothZoom = 1402;
constexpr int kStringBelowZero = 6000;

struct Session {
  Canvas* canvas = nullptr;
  int planeIndex = 0;
  bool boxShown = false;
};
Session session;

const PlaneSlot& SessionImage() {
  return session.canvas->planes[SlotIndex(LayerOf(session.planeIndex), 0)];
}

// Signed change of a side: positive moves it out.
int Change(const SideChoice& sides, int side) {
  if (!sides.checked[side]) return 0;
  return sides.shrink[side] ? -sides.amount[side] : sides.amount[side];
}

void InvertBox() {
  const Rect box = ResizedBox(SessionImage(), resizeSides);
  if (viewWindows.invertBox && !box.Empty())
    viewWindows.invertBox(session.canvas, ViewRectOf(session.canvas, box));
}

void ToggleBox(Canvas* canvas) {
  if (canvas == session.canvas && session.boxShown) InvertBox();
}

void ShowBox(bool show) {
  if (!session.canvas || session.boxShown == show) return;
  InvertBox();
  session.boxShown = show;
}

// The side whose edge lies within the grip of the view point, or -1.
int EdgeAt(const Rect& view, int x, int y) {
  const bool acrossX = x >= view.left - kEdgeGrip && x <= view.right + kEdgeGrip;
  const bool acrossY = y >= view.top - kEdgeGrip && y <= view.bottom + kEdgeGrip;
  if (acrossY && std::abs(x - view.left) <= kEdgeGrip) return kSideLeft;
  if (acrossY && std::abs(x - view.right) <= kEdgeGrip) return kSideRight;
  if (acrossX && std::abs(y - view.top) <= kEdgeGrip) return kSideTop;
  if (acrossX && std::abs(y - view.bottom) <= kEdgeGrip) return kSideBottom;
  return -1;
}

// A side's line set from where its edge was dragged to (canvas pixels).
void SetSideFromEdge(const PlaneSlot& image, int side, const CanvasPoint& at, SideChoice& sides) {
  int change = 0;
  switch (side) {
    case kSideLeft:
      change = image.left - at.x;
      break;
    case kSideRight:
      change = at.x - (image.left + image.width - 1);
      break;
    case kSideTop:
      change = image.top - at.y;
      break;
    case kSideBottom:
      change = at.y - (image.top + image.height - 1);
      break;
  }
  sides.checked[side] = change != 0;
  if (change == 0) return;
  sides.shrink[side] = change < 0;
  sides.amount[side] = std::min(std::abs(change), kMaxSideAmount);
}

void DragEdge(Canvas* canvas, int side) {
  const PlaneSlot& image = SessionImage();
  while (viewWindows.buttonHeld && viewWindows.buttonHeld(PointerButton::Left)) {
    CanvasPoint now;
    if (!PointerOnCanvas(canvas, &now, 0, 0)) break;
    SideChoice next = resizeSides;
    SetSideFromEdge(image, side, now, next);
    if (std::memcmp(&next, &resizeSides, sizeof next) == 0) continue;
    ResizeSidesChanged(next);
    if (layerWindows.resizeSidesShown) layerWindows.resizeSidesShown(resizeSides);
  }
}

void EndSession() {
  ShowBox(false);
  session = {};
}

}  // namespace

int ResizeLayerBySides(Canvas* canvas, int planeIndex) {
  if (canvas->smoothZoom > 0) {
    ShowCanvasBox(StringText(kStringSmoothZoom), platform::MbOk | platform::MbIconWarning);
    return 0;
  }
  if (session.canvas || !layerWindows.openResizeBySides) return 0;
  session.canvas = canvas;
  session.planeIndex = planeIndex;
  pointerRoutes.overlayToggles[kOverlayResizeBox] = ToggleBox;
  pointerRoutes.layerResizeClick = PressResizeBox;
  ShowBox(true);
  layerWindows.openResizeBySides(canvas, planeIndex);
  return 1;
}

bool LayerResizeOpen() { return session.canvas != nullptr; }

Rect ResizedBox(const PlaneSlot& image, const SideChoice& sides) {
  const Rect old = Rect::OfSize(image.left, image.top, image.width, image.height);
  return Rect{old.left - Change(sides, kSideLeft), old.top - Change(sides, kSideTop),
              old.right + Change(sides, kSideRight), old.bottom + Change(sides, kSideBottom)};
}

void ResizeSidesChanged(const SideChoice& sides) {
  ShowBox(false);
  resizeSides = sides;
  ShowBox(true);
}

int PressResizeBox(Canvas* canvas) {
  if (canvas != session.canvas || !viewWindows.pointer) return 0;
  const PointerState pointer = viewWindows.pointer(canvas);
  const int side = EdgeAt(ViewRectOf(canvas, ResizedBox(SessionImage(), resizeSides)),
                          pointer.viewX, pointer.viewY);
  if (side < 0) return 0;
  DragEdge(canvas, side);
  return 1;
}

int ApplyResizeBySides() {
  if (!session.canvas) return 0;
  ShowBox(false);
  Canvas* canvas = session.canvas;
  const int planeIndex = session.planeIndex;
  if (!ResizeLayer(canvas, planeIndex, resizeSides)) {
    ShowBox(true);
    return 0;
  }
  session = {};
  LayersChanged(canvas);
  return 1;
}

void CloseResizeBySides() { EndSession(); }

void ResizeCanvasGoing(Canvas* canvas) {
  if (canvas != session.canvas) return;
  EndSession();
  if (layerWindows.closeResizeBySides) layerWindows.closeResizeBySides();
}

Plane* PlaneOnBox(Plane* source, int position, const Rect& from, const Rect& box) {
  Plane* plane = PlaneStore.CreatePlane(box.Width(), box.Height(), static_cast<int>(source->bits),
                                        255, 1, ImageBufferKind());
  if (!plane) return nullptr;
  // New space is white and opaque, as on a new canvas; a mask starts clear.
  if (position == kMaskPosition) FillPlane(plane, 0);
  PastePlane(plane, source, from.left - box.left, from.top - box.top);
  return plane;
}

int ResizeLayer(Canvas* canvas, int planeIndex, const SideChoice& sides) {
  const int layer = LayerOf(planeIndex);
  PlaneSlot* slots = &canvas->planes[SlotIndex(layer, 0)];
  const Rect box = ResizedBox(slots[0], sides);
  if (box.Width() < 1 || box.Height() < 1) {
    ShowCanvasBox(StringText(kStringBelowZero), platform::MbOk | platform::MbIconWarning);
    return 0;
  }
  PlaneSlot old[kPlanesPerLayer];
  std::memcpy(old, slots, sizeof old);
  const Rect from = Rect::OfSize(old[0].left, old[0].top, old[0].width, old[0].height);
  if (!CopyLayerPlanes(slots, old, box, [&](Plane* source, int position) {
        return PlaneOnBox(source, position, from, box);
      }))
    return 0;
  if (layer == 0) {
    canvas->canvasWidth = box.Width();
    canvas->canvasHeight = box.Height();
    // The other layers keep their place over the picture.
    CanvasManager.NormalizeOrigins(canvas);
    canvas->selectionKind = 0;
    SetSelectionBox(canvas, WholeCanvas(canvas));
    if (viewWindows.resendDocumentSize) viewWindows.resendDocumentSize(canvas);
  }
  layersTitleHooks.Run(canvas);
  UndoHistory.ClearUndo(canvas, 1, 0);
  UndoHistory.RecordUndo(canvas, planeIndex, 1, -1, -1, -1, -1, 0);
  return 1;
}
