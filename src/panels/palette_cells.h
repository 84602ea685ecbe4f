// The palette cells and the gradient's data, as they lie in
// settings.paletteArea and in "palette\pal.dat": 40 corners, the
// gradient's words, 1,000 stops with their positions, then the 112 cells
// of the PALETTE page, four pages of 28.
#pragma once

#include <cstddef>
#include <cstdint>

#include "settings/settings.h"

// One cell: a colour, or an image kept in a file beside the program.
struct PaletteCell {
  uint32_t red, green, blue;  // 0..255
  uint32_t unused[9];
  uint32_t isImage;  // 1: the cell is the image in `path`
  char path[252];    // NUL-terminated
  // Where the planes of the image once stood in memory: nothing in the
  // file, cleared when it is read.
  uint32_t image, imageMask;
};
static_assert(sizeof(PaletteCell) == 312);
static_assert(offsetof(PaletteCell, isImage) == 48);
static_assert(offsetof(PaletteCell, path) == 52);
static_assert(offsetof(PaletteCell, image) == 304);

constexpr int kCornerSets = 10;
constexpr int kCornersPerSet = 4;
constexpr int kStopLines = 10;
constexpr int kStopsPerLine = 100;
constexpr int kPalettePages = 4;
constexpr int kCellsPerPage = 28;
constexpr int kPaletteCells = kPalettePages * kCellsPerPage;

// Byte offsets in the area.
constexpr size_t kCornersOffset = 0;
constexpr size_t kStopCountOffset = 12504;  // kStopLines words
constexpr size_t kStopsOffset = 12544;
constexpr size_t kStopPosOffset = 324544;  // kStopsPerLine words a line
constexpr size_t kCellsOffset = 328544;
static_assert(kCornersOffset + kCornerSets * kCornersPerSet * sizeof(PaletteCell) == 12480);
static_assert(kStopsOffset + kStopLines * kStopsPerLine * sizeof(PaletteCell) == kStopPosOffset);
static_assert(kStopPosOffset + kStopLines * kStopsPerLine * 4 == kCellsOffset);
static_assert(kCellsOffset + kPaletteCells * sizeof(PaletteCell) == kPaletteAreaBytes);

// The number of a page's cell, or -1 when there is no such cell.
int PaletteCellNumber(int page, int cell);
// Cell `number` (0..111) of the PALETTE page, read or written.
PaletteCell GetPaletteCell(int number);
void PutPaletteCell(int number, const PaletteCell& cell);

// After a read of the area: the pointer words cleared, and every path
// ended within its field, so that whatever the file held is safe to use.
void SettlePaletteArea();

// The first run's palette: every cell, corner and stop a random bright
// colour, and each line of stops at 0, a random tenth and 100.
void SeedPalette();
