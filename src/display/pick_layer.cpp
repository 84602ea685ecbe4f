#include "display/pick_layer.h"

#include <algorithm>

#include "display/box_drag.h"
#include "display/pointer_routing.h"
#include "display/redraw.h"
#include "display/smooth_zoom.h"
#include "document/canvas_manager.h"
#include "platform/platform.h"

namespace {

void ShowCorners(const PlaneSlot& slot, int left, int top) {
  platform::SendToWindow(platform::Window::StatusBar, platform::MsgStatus,
                         platform::kStatusFirstCorner, platform::PackCorner(left, top));
  platform::SendToWindow(platform::Window::StatusBar, platform::MsgStatus,
                         platform::kStatusSecondCorner,
                         platform::PackCorner(left + slot.width - 1, top + slot.height - 1));
}

void NoLayerPicked(Canvas* canvas, int rightButton) {
  if (!rightButton) return CanvasManager.SelectPlane(canvas, 0);
  if (pointerRoutes.layerOptions) pointerRoutes.layerOptions(canvas, 0);
  platform::SendToWindow(platform::Window::LayerPanel, platform::MsgLayerRedraw, -1,
                         reinterpret_cast<intptr_t>(canvas));
}

// A drag that ends where it began is a click, which activates the layer.
void MoveLayerByDrag(Canvas* canvas, int layer) {
  const PlaneSlot first = canvas->planes[SlotIndex(layer, 0)];
  const CanvasPoint end = DragCanvasBox(canvas, first.left, first.top, first.width, first.height,
                                        [&](int left, int top) { ShowCorners(first, left, top); });
  if (end.x == first.left && end.y == first.top)
    return CanvasManager.SelectPlane(canvas, SlotIndex(layer, 0));
  for (int position = 0; position < kPlanesPerLayer; ++position) {
    canvas->planes[SlotIndex(layer, position)].left = end.x;
    canvas->planes[SlotIndex(layer, position)].top = end.y;
  }
  const Rect from = Rect::OfSize(first.left, first.top, first.width, first.height);
  const Rect to = Rect::OfSize(end.x, end.y, first.width, first.height);
  RedrawRect(canvas, Union(ViewRectOf(canvas, from), ViewRectOf(canvas, to)));
}

}  // namespace

int LayerAt(const Canvas* canvas, int x, int y) {
  for (int layer = CanvasManager.LayerCount(canvas) - 1; layer > 0; --layer) {
    const PlaneSlot& slot = canvas->planes[SlotIndex(layer, 0)];
    if (slot.mixMode >= 1 && x >= slot.left && x < slot.left + slot.width && y >= slot.top &&
        y < slot.top + slot.height)
      return layer;
  }
  return 0;
}

void PickLayer(Canvas* canvas, int rightButton, int shift) {
  CanvasPoint at;
  if (!PointerOnCanvas(canvas, &at, 0, 0)) return;
  canvas->modified = 1;
  if (RefusedInSmoothZoom(canvas, kStringLayersCannotMove)) return;
  const int layer = shift ? LayerOf(canvas->activePlane) : LayerAt(canvas, at.x, at.y);
  if (layer < 1) return NoLayerPicked(canvas, rightButton);
  if (!rightButton) return MoveLayerByDrag(canvas, layer);
  const int item = pointerRoutes.layerPartsMenu ? pointerRoutes.layerPartsMenu(canvas, layer) : 0;
  if (item && pointerRoutes.layerCommand) pointerRoutes.layerCommand(canvas, layer, item);
}
