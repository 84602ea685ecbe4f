#include "selection/seed_source.h"

#include <cstdlib>
#include <cstring>

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

// The slot's plane covers columns 0 .. width - 1 of canvas row y.
bool Spans(const PlaneSlot& slot, int y, int width) {
  return slot.left <= 0 && slot.left + slot.width >= width && y >= slot.top &&
         y < slot.top + slot.height;
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

int ReadSeedRow(Canvas* canvas, const SeedSource& source, int y, uint8_t* bgr, uint8_t* coverage) {
  const int width = canvas->canvasWidth;
  const bool scaled = source.kind == SeedSource::Current && source.transparency;
  // What the slot doesn't cover reads as 0.
  if (source.kind == SeedSource::AsViewed || !Spans(*source.slot, y, width)) {
    std::memset(bgr, 0, size_t(width) * 3);
    if (scaled) std::memset(coverage, 0, size_t(width));
  }
  if (!scaled) std::memset(coverage, 255, size_t(width));
  if (source.kind == SeedSource::AsViewed) {
    DibTile* tile = Compose(canvas, 0, y, width - 1, y, 0, 0);
    if (!tile) return 0;
    ReadTileRow(tile, 0, 0, width - 1, bgr);
    FreeTile(&tile);
    return 1;
  }
  ReadSlotSpan(*source.slot, y, 0, width - 1, bgr);
  // One value in all three, spread from the back so nothing is read twice.
  if (source.slot->bits == 8)
    for (int x = width - 1; x >= 0; --x) bgr[3 * x] = bgr[3 * x + 1] = bgr[3 * x + 2] = bgr[x];
  if (source.kind == SeedSource::Current && source.transparency)
    ReadSlotSpan(*source.transparency, y, 0, width - 1, coverage);
  return 1;
}

SeedValues SeedValuesOf(const uint8_t* bgr, uint8_t coverage) {
  if (coverage == 0) return {kEmptySeedValue, kEmptySeedValue, kEmptySeedValue};
  return {ScaleByTransparency(bgr[2], coverage), ScaleByTransparency(bgr[1], coverage),
          ScaleByTransparency(bgr[0], coverage)};
}

SeedMatcher::SeedMatcher(const SeedValues& start, int32_t tolerance) {
  const int32_t starts[3] = {start.blue, start.green, start.red};
  for (int channel = 0; channel < 3; ++channel)
    for (int t = 0; t < 256; ++t)
      for (int c = 0; c < 256; ++c) {
        const int32_t value = t == 0 ? kEmptySeedValue : ScaleByTransparency(c, t);
        near_[t].member[channel][c] = std::abs(value - starts[channel]) <= tolerance ? 1 : 0;
      }
}

void SeedMatcher::MatchRow(const uint8_t* bgr, const uint8_t* coverage, int n, uint8_t* out) const {
  // A row of one transparency (an opaque layer, or none) is one test.
  // All bytes are alike when the row equals itself moved by one.
  if (n > 0 && std::memcmp(coverage, coverage + 1, size_t(n - 1)) == 0)
    return MatchChannelSets(near_[coverage[0]], bgr, n, 1, 0, out);
  for (int x = 0; x < n; ++x, bgr += 3) {
    const ChannelSets& sets = near_[coverage[x]];
    out[x] = sets.member[0][bgr[0]] & sets.member[1][bgr[1]] & sets.member[2][bgr[2]];
  }
}
