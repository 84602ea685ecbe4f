#include "panels/palette_cells.h"

#include <cstdlib>
#include <cstring>

#include "pixel/hsv.h"
#include "store/little_endian.h"

namespace {

constexpr int kSeededStops = 3;

PaletteCell CellAt(size_t offset) {
  PaletteCell cell;
  std::memcpy(&cell, settings.paletteArea + offset, sizeof cell);
  return cell;
}

void PutCellAt(size_t offset, const PaletteCell& cell) {
  std::memcpy(settings.paletteArea + offset, &cell, sizeof cell);
}

// Every cell of the area in turn: corners, stops, the page's cells.
template <typename Visit>
void ForEachCell(Visit visit) {
  const size_t blocks[][2] = {{kCornersOffset, kCornerSets * kCornersPerSet},
                              {kStopsOffset, kStopLines * kStopsPerLine},
                              {kCellsOffset, kPaletteCells}};
  for (const auto& block : blocks)
    for (size_t i = 0; i < block[1]; ++i) {
      const size_t offset = block[0] + i * sizeof(PaletteCell);
      PaletteCell cell = CellAt(offset);
      visit(cell);
      PutCellAt(offset, cell);
    }
}

void PutWord(size_t offset, int32_t value) {
  PutU32(settings.paletteArea + offset, uint32_t(value));
}

}  // namespace

int PaletteCellNumber(int page, int cell) {
  if (page < 0 || page >= kPalettePages || cell < 0 || cell >= kCellsPerPage) return -1;
  return page * kCellsPerPage + cell;
}

PaletteCell GetPaletteCell(int number) {
  return CellAt(kCellsOffset + number * sizeof(PaletteCell));
}

void PutPaletteCell(int number, const PaletteCell& cell) {
  PutCellAt(kCellsOffset + number * sizeof(PaletteCell), cell);
}

void SettlePaletteArea() {
  ForEachCell([](PaletteCell& cell) {
    cell.image = cell.imageMask = 0;
    cell.path[sizeof cell.path - 1] = '\0';
  });
}

void SeedPalette() {
  ForEachCell([](PaletteCell& cell) {
    const int hue = std::rand() & 255;
    const int saturation = std::rand() & 255;
    int r, g, b;
    HsvToRgb(hue, saturation, 255, &r, &g, &b, 1);
    cell.red = uint32_t(r);
    cell.green = uint32_t(g);
    cell.blue = uint32_t(b);
    cell.isImage = 0;
  });
  for (int line = 0; line < kStopLines; ++line) {
    PutWord(kStopCountOffset + line * 4, kSeededStops);
    const size_t positions = kStopPosOffset + line * kStopsPerLine * 4;
    PutWord(positions, 0);
    PutWord(positions + 4, std::rand() % 10 * 10);
    PutWord(positions + 8, 100);
  }
}
