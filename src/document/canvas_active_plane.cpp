// The active plane and what hangs on it: the accuracy plane, the origin
// of the layers, the modified state.
#include "document/canvas_manager.h"
#include "document/canvas_slots.h"
#include "document/undo_history.h"
#include "platform/platform.h"

void CanvasManagerObject::SelectPlane(Canvas* canvas, int index) {
  if (index < 0 || index >= kPlaneSlots || !canvas->planes[index].plane) return;
  canvas->activePlane = index;
  // A fresh base of the plane as it stands, without marking a change.
  UndoHistory.RecordUndo(canvas, -1, 0, -1, -1, -1, -1, 0);
  ResetAccuracy(canvas, 1);
}

void CanvasManagerObject::ResetAccuracy(Canvas* canvas, int make) {
  for (PlaneSlot& slot : canvas->planes) PlaneStore.FreePlane(&slot.accuracyPlane);
  PlaneSlot& active = canvas->planes[canvas->activePlane];
  if (!make || !canvas->doubleAccuracy || !active.plane) return;
  // Without one the plane simply stays at standard accuracy.
  active.accuracyPlane = PlaneStore.CreatePlane(active.plane->width, active.plane->height,
                                                static_cast<int>(active.plane->bits), 0, 0,
                                                ImageBufferKind());
}

void CanvasManagerObject::ClearAccuracy(Canvas* canvas) {
  Plane* accuracy = canvas->planes[canvas->activePlane].accuracyPlane;
  if (accuracy) FillPlane(accuracy, 0);
}

int CanvasManagerObject::NormalizeOrigins(Canvas* canvas) {
  const int dx = canvas->planes[0].left, dy = canvas->planes[0].top;
  const int slots = LayerCount(canvas) * kPlanesPerLayer;
  for (int index = 0; index < slots; ++index) {
    canvas->planes[index].left -= dx;
    canvas->planes[index].top -= dy;
  }
  return 1;
}

void CanvasManagerObject::MarkModified(Canvas* canvas) {
  canvas->modified = 1;
  platform::SendToWindow(platform::Window::LayerPanel, platform::MsgLayerRedraw,
                         canvas->activePlane, 0);
}
