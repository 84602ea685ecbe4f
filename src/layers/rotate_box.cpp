#include "layers/rotate_box.h"

#include <algorithm>

#include "document/undo_history.h"
#include "document/selection_rows.h"
#include "settings/settings.h"
#include "store/plane_ops.h"
#include "store/rotate_plane.h"

int RotateLayerBox(Canvas* canvas, double degrees) {
  const int first = SlotIndex(LayerOf(canvas->activePlane), 0);
  const PlaneSlot& image = canvas->planes[first];
  const Rect selection = SelectionBox(canvas);
  const Rect box{std::max(selection.left, image.left), std::max(selection.top, image.top),
                 std::min(selection.right, image.left + image.width - 1),
                 std::min(selection.bottom, image.top + image.height - 1)};
  if (box.Empty()) return 0;
  Plane* work = CropPlane(image.plane, box.left - image.left, box.top - image.top,
                          box.right - image.left, box.bottom - image.top);
  if (!work) return 0;
  Plane* turned = RotatePlane(work, degrees, box.Width(), box.Height(), 255,
                              static_cast<uint32_t>(settings.workBuffer));
  PlaneStore.FreePlane(&work);
  if (!turned) return 0;
  PastePlane(image.plane, turned, box.left - image.left, box.top - image.top);
  PlaneStore.FreePlane(&turned);
  UndoHistory.RecordUndo(canvas, first, 1, box.left, box.top, box.right, box.bottom, 0);
  return 1;
}
