// The display modes that show one layer or one plane of it.
#include <cstring>

#include "display/compose_modes.h"
#include "display/compose_rows.h"
#include "display/layer_coverage.h"
#include "document/canvas_rows.h"
#include "pixel/mix_rows.h"
#include "pixel/mul_table.h"

namespace {

const PlaneSlot* ActiveLayer(const Canvas* canvas) {
  return &canvas->planes[ActiveLayerBase(canvas)];
}

// The active plane's row over the part of the request in its layer, into the
// plane buffer; false when row y or the columns miss the layer.
bool ActivePlaneRow(Canvas* canvas, int y, int x0, int x1, LayerSpan* span) {
  const PlaneSlot& layer = ActiveLayer(canvas)[0];
  const PlaneSlot& active = canvas->planes[canvas->activePlane];
  return RowInLayer(layer, y) && SpanOfLayer(layer, x0, x1, span) &&
         ReadLayerSpan(active.plane, layer, y, x0, *span, 1, composeRows.plane);
}

// Position 2 holds transparency, shown as thickness the other way round.
uint8_t ActiveValue(const Canvas* canvas, int k) {
  uint8_t p = composeRows.plane[k];
  return PositionOf(canvas->activePlane) == kTransparencyPosition ? 255 - p : p;
}

}  // namespace

void ThisLayerRow(Canvas* canvas, int y, int x0, int x1, int, uint8_t* row) {
  FillBackground(row, x1 - x0 + 1);
  const PlaneSlot* slots = ActiveLayer(canvas);
  const PlaneSlot& image = slots[kImagePosition];
  LayerSpan span;
  if (!image.plane || !RowInLayer(image, y) || !SpanOfLayer(image, x0, x1, &span)) return;
  uint8_t* source = composeRows.Source(0);
  if (!ReadLayerSpan(image.plane, image, y, x0, span, 3, source)) return;
  uint8_t* coverage = composeRows.Coverage(0);
  SpanCoverage(slots, y, x0, span, coverage);
  // Coverage alone: no opacity, no mix mode, no Line Draw planes.
  MixRow(kMixNormal, row + 3 * span.first, source + 3 * span.first, coverage + span.first, 255,
         span.Count());
}

void ChannelRow(Canvas* canvas, int y, int x0, int x1, int, uint8_t* row) {
  ThisLayerRow(canvas, y, x0, x1, 0, row);
  LayerSpan span;
  if (!ActivePlaneRow(canvas, y, x0, x1, &span)) return;
  const PlaneSlot& active = canvas->planes[canvas->activePlane];
  // Further planes that act on coverage show in green, every other plane
  // (the mask and the transparency plane among them) in red.
  const bool green = PositionOf(canvas->activePlane) >= kFirstFurtherPosition &&
                     (active.planeFlags[kFlagDirectCoverage] || active.planeFlags[kFlagTransparency]);
  for (int k = span.first; k <= span.last; ++k) {
    uint8_t* pixel = row + 3 * k;
    const uint8_t p = composeRows.plane[k];
    pixel[0] = static_cast<uint8_t>((pixel[0] + pixel[1] + pixel[2]) / 3);
    pixel[1] = green ? p : 0;
    pixel[2] = green ? 0 : p;
  }
}

void CompositionRow(Canvas* canvas, int y, int x0, int x1, int, uint8_t* row) {
  const int n = x1 - x0 + 1;
  ThisLayerRow(canvas, y, x0, x1, 0, row);
  LayerSpan span;
  if (!ActivePlaneRow(canvas, y, x0, x1, &span)) {
    std::memset(row, 0, 3 * static_cast<size_t>(n));
    return;
  }
  std::memset(row, 0, 3 * static_cast<size_t>(span.first));
  std::memset(row + 3 * (span.last + 1), 0, 3 * static_cast<size_t>(n - span.last - 1));
  // MUL(source, 255 - p) + MUL(black, p): the layer dimmed by the plane.
  for (int k = span.first; k <= span.last; ++k) {
    const uint8_t* byRest = MulTable[255 - ActiveValue(canvas, k)];
    for (int c = 0; c < 3; ++c) row[3 * k + c] = byRest[row[3 * k + c]];
  }
}

void ThicknessRow(Canvas* canvas, int y, int x0, int x1, int, uint8_t* row) {
  std::memset(row, 0, 3 * static_cast<size_t>(x1 - x0 + 1));
  LayerSpan span;
  if (!ActivePlaneRow(canvas, y, x0, x1, &span)) return;
  for (int k = span.first; k <= span.last; ++k) std::memset(row + 3 * k, ActiveValue(canvas, k), 3);
}
