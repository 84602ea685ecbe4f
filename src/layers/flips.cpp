#include "layers/flips.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "document/canvas_rows.h"
#include "document/undo_history.h"
#include "layers/block_compose.h"
#include "document/selection_rows.h"

namespace {

constexpr int kProgressRows = 5;

// The box in the layer's own columns and rows, clipped to it.
Rect LayerBox(const Canvas* canvas, const PlaneSlot& image) {
  const Rect box = SelectionBox(canvas);
  return Rect{std::max(box.left - image.left, 0), std::max(box.top - image.top, 0),
              std::min(box.right - image.left, image.width - 1),
              std::min(box.bottom - image.top, image.height - 1)};
}

// Two pixels trade places; one that lies outside the selection keeps its own.
void Trade(uint8_t* a, uint8_t* b, int bpp, bool aTakes, bool bTakes) {
  for (int c = 0; c < bpp; ++c) {
    const uint8_t oldA = a[c];
    if (aTakes) a[c] = b[c];
    if (bTakes) b[c] = oldA;
  }
}

// Rows a and b of the box trade pixels, except where the row receiving one
// lies outside the selection.
void SwapRows(Canvas* canvas, const PlaneSlot& image, Plane* plane, const Rect& box, int a, int b,
              std::vector<uint8_t> rows[4]) {
  const int bpp = static_cast<int>(plane->bytesPerPixel);
  PlaneStore.ReadRow(plane, a, box.left, box.right, rows[0].data());
  PlaneStore.ReadRow(plane, b, box.left, box.right, rows[1].data());
  const int x0 = box.left + image.left, x1 = box.right + image.left;
  ReadSelectionRow(canvas, a + image.top, x0, x1, rows[2].data());
  ReadSelectionRow(canvas, b + image.top, x0, x1, rows[3].data());
  for (int k = 0; k < box.Width(); ++k)
    Trade(&rows[0][bpp * k], &rows[1][bpp * k], bpp, rows[2][k] == 0, rows[3][k] == 0);
  PlaneStore.WriteRow(plane, a, box.left, box.right, rows[0].data());
  PlaneStore.WriteRow(plane, b, box.left, box.right, rows[1].data());
}

// Within each row of the box, columns trade places from the outside in.
void MirrorRow(Canvas* canvas, const PlaneSlot& image, Plane* plane, const Rect& box, int y,
               std::vector<uint8_t> rows[4]) {
  const int bpp = static_cast<int>(plane->bytesPerPixel);
  PlaneStore.ReadRow(plane, y, box.left, box.right, rows[0].data());
  ReadSelectionRow(canvas, y + image.top, box.left + image.left, box.right + image.left,
                   rows[2].data());
  for (int l = 0, r = box.Width() - 1; l < r; ++l, --r)
    Trade(&rows[0][bpp * l], &rows[0][bpp * r], bpp, rows[2][l] == 0, rows[2][r] == 0);
  PlaneStore.WriteRow(plane, y, box.left, box.right, rows[0].data());
}

}  // namespace

int FlipLayer(Canvas* canvas, FlipAxis axis) {
  const int first = SlotIndex(LayerOf(canvas->activePlane), 0);
  PlaneSlot* slots = &canvas->planes[first];
  const Rect box = LayerBox(canvas, slots[0]);
  if (box.Empty()) return 0;
  const int active = canvas->activePlane;
  canvas->activePlane = first;
  std::vector<uint8_t> rows[4];
  for (auto& row : rows) row.resize(static_cast<size_t>(box.Width()) * 3);
  for (int position = 0; position < kPlanesPerLayer && slots[position].plane; ++position) {
    Plane* plane = slots[position].plane;
    if (axis == FlipAxis::Vertical) {
      for (int a = box.top, b = box.bottom; a < b; ++a, --b) {
        if ((a - box.top) % kProgressRows == 0)
          platform::ShowProgress((a - box.top) * 200 / std::max(box.Height(), 1));
        SwapRows(canvas, slots[0], plane, box, a, b, rows);
      }
    } else {
      for (int y = box.top; y <= box.bottom; ++y) {
        if ((y - box.top) % kProgressRows == 0) platform::ShowProgress((y - box.top) * 100 / box.Height());
        MirrorRow(canvas, slots[0], plane, box, y, rows);
      }
    }
  }
  platform::ClearStatus();
  UndoHistory.RecordUndo(canvas, first, 1, box.left + slots[0].left, box.top + slots[0].top,
                         box.right + slots[0].left, box.bottom + slots[0].top, 0);
  canvas->activePlane = active;
  return 1;
}
