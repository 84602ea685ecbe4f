#include <algorithm>

#include "display/compose_modes.h"
#include "display/compose_rows.h"
#include "display/layer_coverage.h"
#include "pixel/mix_rows.h"

namespace {

// How far ahead the rows of the stack are asked for: a small tile reads a
// short piece of each of many planes per row, too scattered for the
// processor to foresee.
constexpr int kRowsAhead = 1;

// A layer whose colours are read and that waits to be mixed.
struct ReadLayer {
  const PlaneSlot* slots;
  int mixMode;
  unsigned keep;
  LayerSpan span;
};

void PrefetchStack(const Canvas* canvas, int y, int x0, int x1) {
  for (int layer = 0; layer < kMaxLayers; ++layer) {
    const PlaneSlot* slots = &canvas->planes[layer * kPlanesPerLayer];
    LayerSpan span;
    if (!slots[kImagePosition].plane) break;
    if (!RowInLayer(slots[0], y) || slots[0].mixMode < 1 || !SpanOfLayer(slots[0], x0, x1, &span))
      continue;
    PrefetchLayerSpan(slots[kImagePosition].plane, slots[0], y, x0, span);
    if (slots[kTransparencyPosition].plane)
      PrefetchLayerSpan(slots[kTransparencyPosition].plane, slots[0], y, x0, span);
  }
}

}  // namespace

void BlendedRow(Canvas* canvas, int y, int x0, int x1, int baseOpaque, uint8_t* row) {
  FillBackground(row, x1 - x0 + 1);
  PrefetchStack(canvas, y + kRowsAhead, x0, x1);
  // Layers are read a batch at a time, so that their reads overlap, then
  // their coverage is made and they are mixed, bottom up.
  ReadLayer batch[kLayerBatch];
  int pending = 0;
  auto mixPending = [&] {
    for (int i = 0; i < pending; ++i) {
      ApplyLineDraw(batch[i].slots, y, x0, batch[i].span, composeRows.Source(i));
      SpanCoverage(batch[i].slots, y, x0, batch[i].span, composeRows.Coverage(i));
    }
    for (int i = 0; i < pending; ++i) {
      const LayerSpan& span = batch[i].span;
      MixRow(batch[i].mixMode, row + 3 * span.first, composeRows.Source(i) + 3 * span.first,
             composeRows.Coverage(i) + span.first, batch[i].keep, span.Count());
    }
    pending = 0;
  };
  bool baseTaken = !baseOpaque;
  for (int layer = 0; layer < kMaxLayers; ++layer) {
    const PlaneSlot* slots = &canvas->planes[layer * kPlanesPerLayer];
    const PlaneSlot& image = slots[kImagePosition];
    if (!image.plane) break;
    if (!RowInLayer(image, y) || image.mixMode < 1) continue;
    // The lowest layer that is shown on this row starts the picture, even
    // where its coverage or its mode would let nothing through. Nothing
    // waits to be mixed below it.
    const bool base = !baseTaken;
    baseTaken = true;
    LayerSpan span;
    if (!SpanOfLayer(image, x0, x1, &span)) continue;
    if (base) ReadLayerSpan(image.plane, image, y, x0, span, 3, row);
    // An unknown mode, or a layer with nothing left of its opacity, changes
    // nothing further.
    const unsigned keep = 255 - static_cast<unsigned>(std::clamp(image.opacityLoss, 0, 255));
    if (image.mixMode > 9 || keep == 0) continue;
    if (!ReadLayerSpan(image.plane, image, y, x0, span, 3, composeRows.Source(pending))) continue;
    batch[pending++] = {slots, image.mixMode, keep, span};
    if (pending == kLayerBatch) mixPending();
  }
  mixPending();
}
