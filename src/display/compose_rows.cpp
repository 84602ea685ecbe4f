#include "display/compose_rows.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <new>

#include "base/limits.h"
#include "settings/settings.h"

ComposeRowBuffers composeRows;

namespace {

bool Grow(uint8_t*& buffer, int64_t bytes) {
  uint8_t* grown = new (std::nothrow) uint8_t[bytes]();
  if (!grown) return false;
  delete[] buffer;
  buffer = grown;
  return true;
}

// A Packed plane moves a whole row whenever the read starts at column 0, so
// such a read that stops short of the last column goes through a buffer of
// a whole row and keeps the caller's buffer to the columns asked for.
bool MovesWholeRow(const Plane* plane, int first, int last) {
  return plane->kind == Packed && first == 0 && last < plane->width - 1;
}

bool EnsureBounce(int64_t bytes) {
  if (bytes <= composeRows.bounceBytes) return true;
  if (!Grow(composeRows.bounce, bytes)) return false;
  composeRows.bounceBytes = bytes;
  return true;
}

uint8_t Channel(int32_t value) { return static_cast<uint8_t>(std::clamp(value, 0, 255)); }

}  // namespace

bool EnsureComposeRows(int64_t pixels) {
  // Always room for the widest canvas row, so most requests never grow them.
  pixels = std::max<int64_t>(pixels, kMaxCanvasSide);
  if (pixels <= composeRows.pixels) return true;
  if (!Grow(composeRows.sources, kLayerBatch * 3 * pixels) ||
      !Grow(composeRows.coverages, kLayerBatch * pixels) || !Grow(composeRows.plane, pixels))
    return false;
  composeRows.pixels = pixels;
  return true;
}

bool RowInLayer(const PlaneSlot& slot, int y) {
  return y >= slot.top && static_cast<int64_t>(y) < static_cast<int64_t>(slot.top) + slot.height;
}

bool SpanOfLayer(const PlaneSlot& slot, int x0, int x1, LayerSpan* span) {
  int64_t first = std::max<int64_t>(x0, slot.left);
  int64_t last = std::min<int64_t>(x1, static_cast<int64_t>(slot.left) + slot.width - 1);
  if (first > last) return false;
  span->first = static_cast<int>(first - x0);
  span->last = static_cast<int>(last - x0);
  return true;
}

bool ReadPlaneColumns(Plane* plane, int row, int first, int last, unsigned bytesPerPixel,
                      uint8_t* dest) {
  if (!plane || plane->bytesPerPixel != bytesPerPixel) return false;
  if (first < 0) {
    dest += static_cast<int64_t>(-static_cast<int64_t>(first)) * bytesPerPixel;
    first = 0;
  }
  last = std::min(last, plane->width - 1);
  if (first > last) return false;
  if (!MovesWholeRow(plane, first, last))
    return PlaneStore.ReadRow(plane, row, first, last, dest) == 1;
  if (!EnsureBounce(static_cast<int64_t>(plane->width) * bytesPerPixel)) return false;
  if (!PlaneStore.ReadRow(plane, row, 0, last, composeRows.bounce)) return false;
  std::memcpy(dest, composeRows.bounce, static_cast<size_t>(last + 1) * bytesPerPixel);
  return true;
}

bool ReadLayerSpan(Plane* plane, const PlaneSlot& slot, int y, int x0, const LayerSpan& span,
                   unsigned bytesPerPixel, uint8_t* row) {
  // The span lies in the layer, so both are at least 0; only a far-off
  // layer could take them past the range of a column.
  int64_t first = static_cast<int64_t>(x0) + span.first - slot.left;
  int64_t last = static_cast<int64_t>(x0) + span.last - slot.left;
  if (first > INT32_MAX) return false;
  return ReadPlaneColumns(plane, y - slot.top, static_cast<int>(first),
                          static_cast<int>(std::min<int64_t>(last, INT32_MAX)), bytesPerPixel,
                          row + static_cast<size_t>(span.first) * bytesPerPixel);
}

void PrefetchLayerSpan(const Plane* plane, const PlaneSlot& slot, int y, int x0,
                       const LayerSpan& span) {
  const int64_t row = static_cast<int64_t>(y) - slot.top;
  const int64_t first = static_cast<int64_t>(x0) + span.first - slot.left;
  const int64_t last = static_cast<int64_t>(x0) + span.last - slot.left;
  // The span lies in the layer, so only a far-off layer takes these out of range.
  if (row > INT32_MAX || first > INT32_MAX) return;
  PlaneStore.PrefetchRows(plane, static_cast<int>(row), 1, static_cast<int>(first),
                          static_cast<int>(std::min<int64_t>(last, INT32_MAX)));
}

void FillBackground(uint8_t* row, int n) {
  const uint8_t bgr[3] = {Channel(settings.backgroundBlue), Channel(settings.backgroundGreen),
                          Channel(settings.backgroundRed)};
  for (int k = 0; k < n; ++k) std::memcpy(row + 3 * k, bgr, 3);
}

uint8_t* TileRow(DibTile* tile, int y) {
  return tile->dib + tile->pixelOffset + static_cast<size_t>(tile->height - 1 - y) * tile->stride;
}
