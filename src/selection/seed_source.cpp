#include "selection/seed_source.h"

#include <algorithm>

#include "display/compose.h"
#include "document/canvas_rows.h"
#include "store/dib.h"

int32_t seedTolerance = 20;
int32_t seedLayer = kSeedCurrent;
int32_t seedPlane = -1;

namespace {

// The plane the settings name, or null.
const PlaneSlot* NamedPlane(Canvas* canvas) {
  if (seedLayer < 0 || seedLayer >= kMaxLayers || seedPlane < 0 || seedPlane >= kPlanesPerLayer)
    return nullptr;
  // The settings panel's list of planes leaves out the transparency.
  const int position = seedPlane == kTransparencyPosition ? seedPlane + 1 : seedPlane;
  const PlaneSlot& slot = canvas->planes[SlotIndex(seedLayer, position)];
  return slot.plane ? &slot : nullptr;
}

// x * t / 255, truncating, for x and t of 0..255.
int32_t ScaleByTransparency(int32_t x, int32_t t) { return x * t / 255; }

}  // namespace

SeedSource ChooseSeedSource(Canvas* canvas) {
  if (seedLayer == kSeedAsViewed) return {SeedSource::AsViewed, nullptr, nullptr};
  const PlaneSlot* active = &canvas->planes[canvas->activePlane];
  if (seedLayer == kSeedCurrent) {
    const PlaneSlot& transparency = canvas->planes[ActiveLayerBase(canvas) + kTransparencyPosition];
    return {SeedSource::Current, active, transparency.plane ? &transparency : nullptr};
  }
  const PlaneSlot* named = NamedPlane(canvas);
  return {SeedSource::Plane, named ? named : active, nullptr};
}

int ReadSeedRow(Canvas* canvas, const SeedSource& source, int y, std::vector<int32_t>& values) {
  const int width = canvas->canvasWidth;
  values.resize(size_t(width) * 3);
  static std::vector<uint8_t> bytes, coverage;
  bytes.assign(size_t(width) * 3, 0);
  if (source.kind == SeedSource::AsViewed) {
    DibTile* tile = Compose(canvas, 0, y, width - 1, y, 0, 0);
    if (!tile) return 0;
    ReadTileRow(tile, 0, 0, width - 1, bytes.data());
    FreeTile(&tile);
  } else if (source.slot->bits == 24) {
    ReadSlotSpan(*source.slot, y, 0, width - 1, bytes.data());
  } else {
    ReadSlotSpan(*source.slot, y, 0, width - 1, bytes.data());
    // One value in all three, spread from the back so nothing is read twice.
    for (int x = width - 1; x >= 0; --x)
      bytes[3 * x] = bytes[3 * x + 1] = bytes[3 * x + 2] = bytes[x];
  }
  // Rows run blue, green, red; the values red, green, blue.
  int32_t* out = values.data();
  const uint8_t* in = bytes.data();
  if (source.kind != SeedSource::Current || !source.transparency) {
    for (int x = 0; x < width; ++x) {
      out[3 * x] = in[3 * x + 2];
      out[3 * x + 1] = in[3 * x + 1];
      out[3 * x + 2] = in[3 * x];
    }
    return 1;
  }
  coverage.assign(size_t(width), 0);
  ReadSlotSpan(*source.transparency, y, 0, width - 1, coverage.data());
  for (int x = 0; x < width; ++x) {
    const int32_t t = coverage[x];
    out[3 * x] = t ? ScaleByTransparency(in[3 * x + 2], t) : kEmptySeedValue;
    out[3 * x + 1] = t ? ScaleByTransparency(in[3 * x + 1], t) : kEmptySeedValue;
    out[3 * x + 2] = t ? ScaleByTransparency(in[3 * x], t) : kEmptySeedValue;
  }
  return 1;
}
