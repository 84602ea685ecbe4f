#include "adjust/channel_copy.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "base/command_ids.h"
#include "document/canvas_rows.h"
#include "document/selection_rows.h"
#include "pixel/hsv.h"
#include "pixel/mul_table.h"

namespace {

bool IsChannel(int channel) {
  return (channel >= kChannelRed && channel <= kChannelSelection) ||
         (channel >= kChannelFirstPlane && channel <= kChannelLastPlane);
}

// The rows of one canvas row of the layer that a copy reads.
struct LayerRows {
  std::vector<uint8_t> selection, image, mask, transparency, brightness, origin, destination;

  explicit LayerRows(int width)
      : selection(size_t(width)),
        image(size_t(width) * 3),
        mask(size_t(width)),
        transparency(size_t(width)),
        brightness(size_t(width)),
        origin(size_t(width)),
        destination(size_t(width)) {}
};

// Where the values of a channel lie in the rows: byte k at bytes[k * step].
struct ChannelBytes {
  uint8_t* bytes;
  int step;
};

ChannelBytes BytesOf(LayerRows& rows, int channel, bool isOrigin) {
  switch (channel) {
    case kChannelRed:
      return {rows.image.data() + 2, 3};
    case kChannelGreen:
      return {rows.image.data() + 1, 3};
    case kChannelBlue:
      return {rows.image.data(), 3};
    case kChannelMask:
      return {rows.mask.data(), 1};
    case kChannelTransparency:
      return {rows.transparency.data(), 1};
    case kChannelBrightness:
      return {rows.brightness.data(), 1};
    case kChannelSelection:
      return {rows.selection.data(), 1};
    default:
      return {isOrigin ? rows.origin.data() : rows.destination.data(), 1};
  }
}

uint8_t Mix(unsigned value, unsigned old, unsigned w) {
  return static_cast<uint8_t>(std::min(255u, unsigned(Mul255(value, 255 - w)) + Mul255(old, w)));
}

void ReadRows(Canvas* canvas, int y, int x0, int x1, int origin, int destination, LayerRows& rows) {
  ReadSelectionRow(canvas, y, x0, x1, rows.selection.data());
  ReadLayerPlaneRow(canvas, y, x0, x1, rows.image.data(), kImagePosition);
  ReadLayerPlaneRow(canvas, y, x0, x1, rows.mask.data(), kMaskPosition);
  ReadLayerPlaneRow(canvas, y, x0, x1, rows.transparency.data(), kTransparencyPosition);
  if (origin >= kChannelFirstPlane)
    ReadLayerPlaneRow(canvas, y, x0, x1, rows.origin.data(), PlanePositionOf(origin));
  if (destination >= kChannelFirstPlane)
    ReadLayerPlaneRow(canvas, y, x0, x1, rows.destination.data(), PlanePositionOf(destination));
  if (origin == kChannelBrightness)
    for (size_t k = 0; k < rows.brightness.size(); ++k) {
      const uint8_t* bgr = &rows.image[k * 3];
      rows.brightness[k] = std::max({bgr[0], bgr[1], bgr[2]});
    }
}

// New brightness v with the pixel's hue and saturation, mixed into each byte.
void MixBrightness(uint8_t* bgr, int v, unsigned w) {
  int h, s, old, r, g, b;
  RgbToHsv(bgr[2], bgr[1], bgr[0], &h, &s, &old, 1);
  HsvToRgb(h, s, v, &r, &g, &b, 1);
  bgr[0] = Mix(unsigned(b), bgr[0], w);
  bgr[1] = Mix(unsigned(g), bgr[1], w);
  bgr[2] = Mix(unsigned(r), bgr[2], w);
}

void CopyRow(LayerRows& rows, int origin, int destination, bool inverted, bool insideOnly) {
  const ChannelBytes from = BytesOf(rows, origin, true);
  const ChannelBytes to = BytesOf(rows, destination, false);
  for (size_t k = 0; k < rows.selection.size(); ++k) {
    unsigned v = from.bytes[k * from.step];
    if (inverted) v = 255 - v;
    const unsigned w = insideOnly ? rows.selection[k] : 0;
    uint8_t& d = to.bytes[k * to.step];
    if (destination == kChannelMask) {
      // Only as far as the layer is opaque.
      const unsigned u = Mul255(255 - w, rows.transparency[k]);
      d = static_cast<uint8_t>(std::min(255u, unsigned(Mul255(d, 255 - u)) + Mul255(v, u)));
    } else if (destination == kChannelBrightness) {
      MixBrightness(&rows.image[k * 3], int(v), w);
    } else {
      d = Mix(v, d, w);
    }
  }
}

}  // namespace

int CopyChannels(Canvas* canvas, int origin, int destination, bool inverted, bool insideOnly) {
  if (!IsChannel(origin) || !IsChannel(destination)) return 0;
  if (destination == kChannelSelection && !EnsurePlane(canvas, 0)) return 0;
  const int active = canvas->activePlane;
  const int width = canvas->planes[active].width;
  const int height = canvas->planes[active].height;
  canvas->activePlane = ActiveLayerBase(canvas);
  const PlaneSlot& image = canvas->planes[canvas->activePlane];
  const int x0 = image.left, x1 = image.left + width - 1;
  const int written = ChannelPosition(destination);
  LayerRows rows(std::max(width, 1));
  for (int row = 0; row < height; ++row) {
    const int y = image.top + row;
    ReadRows(canvas, y, x0, x1, origin, destination, rows);
    CopyRow(rows, origin, destination, inverted, insideOnly);
    if (written < 0) {
      WriteSelectionRow(canvas, y, x0, x1, rows.selection.data());
    } else {
      const ChannelBytes to = BytesOf(rows, destination, false);
      const uint8_t* start = written == kImagePosition ? rows.image.data() : to.bytes;
      WriteLayerPlaneRow(canvas, y, x0, x1, start, written);
    }
  }
  canvas->activePlane = active;
  if (destination == kChannelSelection) canvas->selectionKind = cmd::kSeedFill;
  return 1;
}
