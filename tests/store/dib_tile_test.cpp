#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "store/dib.h"

namespace {

using Bytes = std::vector<uint8_t>;

Bytes At(const uint8_t* at, size_t n) { return {at, at + n}; }

TEST(DibTile, NewBlocksHaveTheirHeaderAndGreyRamps) {
  EXPECT_EQ(CreateTile(0, 5, 24), nullptr);
  EXPECT_EQ(CreateTile(5, -1, 8), nullptr);
  EXPECT_EQ(CreateTile(3, 2, 16), nullptr);
  DibTile* none = nullptr;
  FreeTile(&none);

  uint8_t* dib = CreateDib(3, 2, 24);
  Bytes header = {40, 0, 0, 0, 3, 0, 0, 0, 2, 0, 0, 0, 1, 0, 24, 0};
  header.resize(40 + 24, 0);  // the rest of the header, then two zeroed rows of 12
  EXPECT_EQ(At(dib, 64), header);
  FreeDib(&dib);
  EXPECT_EQ(dib, nullptr);

  DibTile* tile = CreateTile(5, 3, 4);
  ASSERT_NE(tile, nullptr);
  EXPECT_EQ((Bytes{uint8_t(tile->width), uint8_t(tile->height), uint8_t(tile->bits), uint8_t(tile->stride),
                   uint8_t(tile->paletteBytes), uint8_t(tile->pixelOffset)}),
            (Bytes{5, 3, 4, 4, 64, 104}));
  // Unlike a 4-bit plane's, the tile's 4-bit ramp is stretched to white.
  EXPECT_EQ(At(tile->dib + 40 + 4 * 1, 4), (Bytes{17, 17, 17, 0}));
  EXPECT_EQ(At(tile->dib + 40 + 4 * 15, 4), (Bytes{255, 255, 255, 0}));
  FreeTile(&tile);
  EXPECT_EQ(tile, nullptr);
  tile = CreateTile(2, 2, 8);
  EXPECT_EQ(At(tile->dib + 40 + 4 * 200, 4), (Bytes{200, 200, 200, 0}));
  FreeTile(&tile);
  tile = CreateTile(2, 2, 1);
  EXPECT_EQ(At(tile->dib + 40, 8), (Bytes{0, 0, 0, 0, 255, 255, 255, 0}));
  FreeTile(&tile);
}

TEST(DibTile, RowsAreStoredBottomUpAndClipLikePlaneRows) {
  DibTile* tile = CreateTile(4, 3, 24);  // stride 12
  const uint8_t row[12] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
  EXPECT_EQ(WriteTileRow(tile, 0, 0, 3, row), 1);
  EXPECT_EQ(At(tile->dib + tile->pixelOffset + 24, 12), At(row, 12));  // the top is stored last

  uint8_t buffer[18];
  std::memset(buffer, 0xee, sizeof buffer);
  EXPECT_EQ(ReadTileRow(tile, 0, -3, 2, buffer), 1);
  EXPECT_EQ(At(buffer, 9), Bytes(9, 0xee));  // the places of columns -3..-1
  EXPECT_EQ(At(buffer + 9, 9), At(row, 9));
  std::memset(buffer, 0xee, sizeof buffer);
  EXPECT_EQ(ReadTileRow(tile, 0, 2, 40, buffer), 1);  // x1 cut to the last column
  EXPECT_EQ(At(buffer, 7), (Bytes{7, 8, 9, 10, 11, 12, 0xee}));
  std::memset(buffer, 0xee, sizeof buffer);
  EXPECT_EQ(ReadTileRow(tile, 0, 0, -1, buffer) + ReadTileRow(tile, 0, 4, 6, buffer) +
                ReadTileRow(tile, 3, 0, 3, buffer) + ReadTileRow(tile, -1, 0, 3, buffer),
            0);
  EXPECT_EQ(At(buffer, 18), Bytes(18, 0xee));

  // Writing from column -1 takes the source from its second pixel on.
  EXPECT_EQ(WriteTileRow(tile, 2, -1, 2, row), 1);
  EXPECT_EQ(At(tile->dib + tile->pixelOffset, 12), (Bytes{4, 5, 6, 7, 8, 9, 10, 11, 12, 0, 0, 0}));
  EXPECT_EQ(WriteTileRow(tile, 2, 4, 9, row), 0);
  FreeTile(&tile);

  tile = CreateTile(5, 2, 8);
  EXPECT_EQ(WriteTileRow8(tile, 1, -2, 2, row), 1);  // columns 0..2 from places 2..4
  EXPECT_EQ(At(tile->dib + tile->pixelOffset, 5), (Bytes{3, 4, 5, 0, 0}));
  EXPECT_EQ(ReadTileRow8(tile, 1, 1, 1, buffer), 1);
  EXPECT_EQ(buffer[0], 4);
  FreeTile(&tile);
}

TEST(DibTile, RawRowsCountBytesAndBitsGoMostSignificantFirst) {
  DibTile* tile = CreateTile(5, 1, 4);  // five 4-bit pixels: three bytes and padding
  tile->dib[tile->pixelOffset + 2] = 0xa0;
  tile->dib[tile->pixelOffset + 3] = 0x77;
  uint8_t raw[4] = {1, 1, 1, 1};
  EXPECT_EQ(ReadTileRowRaw(tile, 0, 0, 9, raw), 1);
  EXPECT_EQ(At(raw, 4), (Bytes{0, 0, 0xa0, 1}));
  EXPECT_EQ(ReadTileRowRaw(tile, 0, 3, 3, raw), 0);
  FreeTile(&tile);

  tile = CreateTile(10, 2, 1);  // stride 4; row 0 stored second
  const uint8_t* top = tile->dib + tile->pixelOffset + 4;
  EXPECT_EQ(SetTileBit(tile, 0, 0, 1) + SetTileBit(tile, 9, 0, 1) + SetTileBit(tile, 3, 0, 1), 3);
  EXPECT_EQ(At(top, 2), (Bytes{0x90, 0x40}));
  EXPECT_EQ(SetTileBit(tile, 3, 0, 0), 1);
  EXPECT_EQ(top[0], 0x80);
  EXPECT_EQ(SetTileBit(tile, 10, 0, 1) + SetTileBit(tile, 0, 2, 1) + SetTileBit(tile, -1, 0, 1), 0);
  EXPECT_EQ(At(tile->dib + tile->pixelOffset, 4), Bytes(4, 0));
  FreeTile(&tile);
}

}  // namespace
