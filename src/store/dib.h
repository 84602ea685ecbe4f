// Dib: a packed bottom-up device-independent bitmap, the form in which
// pictures meet the system, the clipboard and the file plug-ins. One block:
// a 40-byte info header (little-endian), the palette (8, 64 or 1,024 bytes
// for 1, 4 or 8 bits, none for 24), then the rows, bottom row first, each
// padded to 4 bytes, pixels blue, green, red.
//
// DibTile is a Dib with its geometry at hand and clipped row access; row y
// of a tile (0 the top of the picture) is stored at height - y - 1.
//
// BMP files are a 14-byte file header followed by a Dib.
#pragma once

#include <cstdint>
#include <string>

#include "store/plane_store.h"

constexpr int kDibHeaderBytes = 40;
constexpr int kBmpFileHeaderBytes = 14;

// Bytes per stored row: (bits x width + 31) / 32 x 4.
uint64_t DibStride(int64_t width, int bits);
// Palette bytes after the header: 8, 64, 1024 or 0 for 1, 4, 8, 24 bits;
// -1 for a depth a Dib doesn't hold.
int DibPaletteBytes(int bits);
// The 40-byte info header: size 40, width, height, planes 1, bits,
// compression 0, the rest zero.
void WriteDibHeader(uint8_t* out, int width, int height, int bits);

// A zeroed Dib block with its header and a grey ramp (entry i of n is
// i x 255 / (n - 1): i at 8 bits, i x 17 at 4 bits, 0 and 255 at 1 bit).
// Null for a size below 1, a depth other than 1, 4, 8, 24, a block over
// 2 GB, or when memory fails. Free with FreeDib.
uint8_t* CreateDib(int width, int height, int bits);
void FreeDib(uint8_t** dib);

struct DibTile {
  uint8_t* dib;  // owned
  int32_t width;
  int32_t height;
  uint32_t bits;
  uint32_t stride;
  uint32_t paletteBytes;
  uint32_t pixelOffset;  // 40 + paletteBytes
};

// Null for a size below 1 or when memory fails.
DibTile* CreateTile(int width, int height, int bits);
// Frees block and record and nulls the pointer; a null is a no-op.
void FreeTile(DibTile** tile);

// Clipped like PlaneStore.ReadRow: y outside fails; a negative x0 advances
// the buffer so that position k is column x0 + k; x0 past the last column or
// x1 negative fails; x1 is cut to the last column. 1, or 0 when nothing lies
// inside. The plain forms are 24-bit, the 8 forms 8-bit, the raw form counts
// columns in bytes of the row's (width x bits + 7) / 8 data bytes.
int ReadTileRow(const DibTile* tile, int y, int x0, int x1, void* dest);
int WriteTileRow(DibTile* tile, int y, int x0, int x1, const void* src);
int ReadTileRow8(const DibTile* tile, int y, int x0, int x1, void* dest);
int WriteTileRow8(DibTile* tile, int y, int x0, int x1, const void* src);
int ReadTileRowRaw(const DibTile* tile, int y, int x0, int x1, void* dest);
// 1-bit write, most significant bit first; 0 outside the tile.
int SetTileBit(DibTile* tile, int x, int y, int on);

// An 8- or 24-bit plane, or a tile, as a BMP file, with the wait cursor
// shown. 0 if the file can't be created or written, or the plane has another
// depth.
int SaveBmp(Plane* plane, const std::string& path);
int SaveTileBmp(const DibTile* tile, const std::string& path);

// Reads an uncompressed BMP of 1, 4, 8 or 24 bits, bottom-up or top-down,
// into a new plane of the Work Buffer kind. Indexed pictures whose palette
// is all grey become 8-bit planes holding the grey level of each index;
// other indexed pictures become 24-bit planes of the palette colours.
// Null when the file can't be opened, is short, has a wrong header, absurd
// dimensions or compression, or when memory fails.
Plane* LoadBmp(const std::string& path);
