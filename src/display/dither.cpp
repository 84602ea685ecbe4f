#include "display/dither.h"

#include <vector>

#include "settings/settings.h"

namespace {

// Pattern k (the low 3 bits of a colour) sets k of every 8 bits; the bit
// for column x is 1 << x.
constexpr uint8_t kPatterns[8][8] = {
    {0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00},
    {0x88, 0x00, 0x00, 0x00, 0x88, 0x00, 0x00, 0x00},
    {0xAA, 0x00, 0xAA, 0x00, 0xAA, 0x00, 0xAA, 0x00},
    {0xAA, 0x55, 0xAA, 0x55, 0xAA, 0x55, 0xAA, 0x55},
    {0xAA, 0x55, 0xAA, 0xDD, 0xAA, 0x55, 0xAA, 0xDD},
    {0xAA, 0x77, 0xAA, 0xFF, 0xAA, 0x77, 0xAA, 0xFF},
    {0xAA, 0xFF, 0xBB, 0xFF, 0xAA, 0xFF, 0xBB, 0xFF},
    {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF},
};

}  // namespace

uint8_t DitherValue(uint8_t c, int x, int y) {
  int q = c >> 3;
  if ((kPatterns[c & 7][y & 7] & (1 << (x & 7))) && q < 31) ++q;
  return static_cast<uint8_t>(q * 255 / 31);
}

void DitherTile(DibTile* tile, int viewX, int viewY) {
  std::vector<uint8_t> row(static_cast<size_t>(tile->width) * 3);
  for (int y = 0; y < tile->height; ++y) {
    ReadTileRow(tile, y, 0, tile->width - 1, row.data());
    for (int x = 0; x < tile->width; ++x)
      for (int k = 0; k < 3; ++k) {
        uint8_t& c = row[static_cast<size_t>(x) * 3 + k];
        c = DitherValue(c, viewX + x, viewY + y);
      }
    WriteTileRow(tile, y, 0, tile->width - 1, row.data());
  }
}

bool DitherFor(int displayBits) {
  return (displayBits == 15 || displayBits == 16) && settings.ditherOn;
}
