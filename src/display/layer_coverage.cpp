#include "display/layer_coverage.h"

#include <cstring>

#include "display/compose.h"
#include "pixel/mix_rows.h"

namespace {

bool Usable(const PlaneSlot& slot) { return slot.plane && slot.planeOff == 0; }

}  // namespace

void SpanCoverage(const PlaneSlot* layer, int y, int x0, const LayerSpan& span, uint8_t* cov) {
  const PlaneSlot& transparency = layer[kTransparencyPosition];
  if (!Usable(transparency) || !ReadLayerSpan(transparency.plane, layer[0], y, x0, span, 1, cov))
    std::memset(cov + span.first, 255, span.Count());
  uint8_t* p = composeRows.plane;
  // Empty positions among the further planes are skipped, not an end.
  for (int position = kFirstFurtherPosition; position < kPlanesPerLayer; ++position) {
    const PlaneSlot& slot = layer[position];
    const bool direct = slot.planeFlags[kFlagDirectCoverage] != 0;
    const bool clear = slot.planeFlags[kFlagTransparency] != 0;
    if (!Usable(slot) || !(direct || clear)) continue;
    if (!ReadLayerSpan(slot.plane, layer[0], y, x0, span, 1, p)) continue;
    if (direct) MultiplyCoverage(cov + span.first, p + span.first, span.Count(), false);
    if (clear) MultiplyCoverage(cov + span.first, p + span.first, span.Count(), true);
  }
}

void ApplyLineDraw(const PlaneSlot* layer, int y, int x0, const LayerSpan& span, uint8_t* bgr) {
  uint8_t* p = composeRows.plane;
  for (int position = 1; position < kPlanesPerLayer && layer[position].plane; ++position) {
    const PlaneSlot& slot = layer[position];
    if (!slot.planeFlags[kFlagLineDraw]) continue;
    if (!ReadLayerSpan(slot.plane, layer[0], y, x0, span, 1, p)) continue;
    MultiplyColours(bgr + 3 * span.first, p + span.first, span.Count());
  }
}

int LayerCoverageRow(Canvas* canvas, int y, int x0, int x1, uint8_t* out, int layerFirstIndex) {
  if (!canvas || layerFirstIndex < 0 || layerFirstIndex >= kPlaneSlots || x1 < x0) return 0;
  const PlaneSlot* layer = &canvas->planes[layerFirstIndex - PositionOf(layerFirstIndex)];
  if (!layer[0].plane) return 0;
  const int64_t n = static_cast<int64_t>(x1) - x0 + 1;
  if (!EnsureComposeRows(n)) return 0;
  if (!Usable(layer[kTransparencyPosition])) std::memset(out, 255, n);
  LayerSpan span;
  if (RowInLayer(layer[0], y) && SpanOfLayer(layer[0], x0, x1, &span))
    SpanCoverage(layer, y, x0, span, out);
  return 1;
}
