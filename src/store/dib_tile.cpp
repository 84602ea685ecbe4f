#include <cstdlib>
#include <cstring>
#include <new>

#include "store/dib.h"
#include "store/little_endian.h"

namespace {

// A Dib block must stay addressable by the 32-bit sizes of its headers.
constexpr uint64_t kMaxDibBytes = 0x7fffffff;

// The stored bytes of one clipped tile row, and how far the caller's buffer
// advances for columns left of 0.
struct RowSpan {
  uint8_t* stored;
  size_t skip;
  size_t bytes;
};

// Clips columns x0..x1 of row y as PlaneStore.ReadRow does; 'unit' is bytes
// per column and 'columns' the number of columns in a row.
bool ClipSpan(const DibTile* tile, int y, int x0, int x1, int columns, int unit, RowSpan* span) {
  if (y < 0 || y >= tile->height) return false;
  size_t skip = 0;
  if (x0 < 0) {
    skip = static_cast<size_t>(-static_cast<int64_t>(x0)) * unit;
    x0 = 0;
  }
  if (x0 > columns - 1 || x1 < 0) return false;
  if (x1 > columns - 1) x1 = columns - 1;
  if (x1 < x0) return false;
  const size_t row = static_cast<size_t>(tile->height - y - 1) * tile->stride;
  span->stored = tile->dib + tile->pixelOffset + row + static_cast<size_t>(x0) * unit;
  span->skip = skip;
  span->bytes = static_cast<size_t>(x1 - x0 + 1) * unit;
  return true;
}

int ReadSpan(const DibTile* tile, int y, int x0, int x1, int columns, int unit, void* dest) {
  RowSpan span;
  if (!ClipSpan(tile, y, x0, x1, columns, unit, &span)) return 0;
  std::memcpy(static_cast<uint8_t*>(dest) + span.skip, span.stored, span.bytes);
  return 1;
}

int WriteSpan(DibTile* tile, int y, int x0, int x1, int unit, const void* src) {
  RowSpan span;
  if (!ClipSpan(tile, y, x0, x1, tile->width, unit, &span)) return 0;
  std::memcpy(span.stored, static_cast<const uint8_t*>(src) + span.skip, span.bytes);
  return 1;
}

}  // namespace

uint64_t DibStride(int64_t width, int bits) {
  return (static_cast<uint64_t>(bits) * static_cast<uint64_t>(width) + 31) / 32 * 4;
}

int DibPaletteBytes(int bits) {
  switch (bits) {
    case 1: return 8;
    case 4: return 64;
    case 8: return 1024;
    case 24: return 0;
    default: return -1;
  }
}

void WriteDibHeader(uint8_t* out, int width, int height, int bits) {
  std::memset(out, 0, kDibHeaderBytes);
  PutU32(out, kDibHeaderBytes);
  PutU32(out + 4, static_cast<uint32_t>(width));
  PutU32(out + 8, static_cast<uint32_t>(height));
  PutU16(out + 12, 1);  // planes
  PutU16(out + 14, static_cast<uint32_t>(bits));
}

uint8_t* CreateDib(int width, int height, int bits) {
  const int paletteBytes = DibPaletteBytes(bits);
  if (width < 1 || height < 1 || paletteBytes < 0) return nullptr;
  const uint64_t size = kDibHeaderBytes + paletteBytes + DibStride(width, bits) * height;
  if (size > kMaxDibBytes) return nullptr;
  auto* dib = static_cast<uint8_t*>(std::calloc(size, 1));
  if (!dib) return nullptr;
  WriteDibHeader(dib, width, height, bits);
  const int entries = paletteBytes / 4;
  for (int i = 0; i < entries; i++) {
    const auto grey = static_cast<uint8_t>(i * 255 / (entries - 1));
    std::memset(dib + kDibHeaderBytes + 4 * i, grey, 3);
  }
  return dib;
}

void FreeDib(uint8_t** dib) {
  std::free(*dib);
  *dib = nullptr;
}

DibTile* CreateTile(int width, int height, int bits) {
  uint8_t* dib = CreateDib(width, height, bits);
  if (!dib) return nullptr;
  auto* tile = new (std::nothrow) DibTile{};
  if (!tile) {
    FreeDib(&dib);
    return nullptr;
  }
  tile->dib = dib;
  tile->width = width;
  tile->height = height;
  tile->bits = static_cast<uint32_t>(bits);
  tile->stride = static_cast<uint32_t>(DibStride(width, bits));
  tile->paletteBytes = static_cast<uint32_t>(DibPaletteBytes(bits));
  tile->pixelOffset = kDibHeaderBytes + tile->paletteBytes;
  return tile;
}

void FreeTile(DibTile** tile) {
  if (!*tile) return;
  FreeDib(&(*tile)->dib);
  delete *tile;
  *tile = nullptr;
}

int ReadTileRow(const DibTile* tile, int y, int x0, int x1, void* dest) {
  return ReadSpan(tile, y, x0, x1, tile->width, 3, dest);
}

int WriteTileRow(DibTile* tile, int y, int x0, int x1, const void* src) {
  return WriteSpan(tile, y, x0, x1, 3, src);
}

int ReadTileRow8(const DibTile* tile, int y, int x0, int x1, void* dest) {
  return ReadSpan(tile, y, x0, x1, tile->width, 1, dest);
}

int WriteTileRow8(DibTile* tile, int y, int x0, int x1, const void* src) {
  return WriteSpan(tile, y, x0, x1, 1, src);
}

int ReadTileRowRaw(const DibTile* tile, int y, int x0, int x1, void* dest) {
  const auto dataBytes = static_cast<int>((static_cast<int64_t>(tile->width) * tile->bits + 7) / 8);
  return ReadSpan(tile, y, x0, x1, dataBytes, 1, dest);
}

int SetTileBit(DibTile* tile, int x, int y, int on) {
  if (x < 0 || x >= tile->width || y < 0 || y >= tile->height) return 0;
  uint8_t* byte = tile->dib + tile->pixelOffset +
                  static_cast<size_t>(tile->height - y - 1) * tile->stride + x / 8;
  const auto mask = static_cast<uint8_t>(0x80 >> (x % 8));
  *byte = on ? (*byte | mask) : (*byte & ~mask);
  return 1;
}
