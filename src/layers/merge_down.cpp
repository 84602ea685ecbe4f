#include "layers/merge_down.h"

#include <memory>
#include <new>

#include "document/canvas_manager.h"
#include "document/undo_history.h"
#include "layers/block_compose.h"

int MergeDown(Canvas* canvas, int planeIndex, int mergeTransparency) {
  const int target = LayerOf(planeIndex);
  const int layers = CanvasManager.LayerCount(canvas);
  if (target < 1 || target >= layers) return 0;
  // The record copy is the rollback of the modes hidden for the merge.
  std::unique_ptr<Canvas> saved(new (std::nothrow) Canvas(*canvas));
  if (!saved) return 0;
  for (int layer = target + 1; layer < layers; ++layer)
    canvas->planes[SlotIndex(layer, 0)].mixMode = kMixHide;
  canvas->activePlane = 0;
  PlaneSlot* base = canvas->planes;
  Plane* coverage = mergeTransparency ? base[kTransparencyPosition].plane : nullptr;
  const int merged = ComposeIntoPlanes(canvas, 1, base[kImagePosition].plane, coverage, 0, 0, true);
  platform::ClearStatus();
  *canvas = *saved;
  saved.reset();
  if (!merged) return 0;
  for (int n = 0; n < target; ++n) CanvasManager.DeleteLayer(canvas, 1);
  // Entries of the merged layers would now land on the layers that slid
  // down into their places.
  UndoHistory.ClearUndo(canvas, 1, 0);
  UndoHistory.RecordUndo(canvas, 0, 1, -1, -1, -1, -1, 0);
  return 1;
}
