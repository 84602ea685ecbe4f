// "palette\pal.dat": the palette cells and gradient data, a memory image of
// the settings record's palette area.
#pragma once

#include <cstddef>
#include <string>

#include "settings/settings.h"

constexpr size_t kPaletteBlockBytes = 328544;  // corners, gradient words, stops
constexpr size_t kPaletteCellBytes = 312;      // one palette cell
constexpr size_t kPaletteCells = (kPaletteAreaBytes - kPaletteBlockBytes) / kPaletteCellBytes;
static_assert(kPaletteBlockBytes + kPaletteCells * kPaletteCellBytes == kPaletteAreaBytes);

// Reads the file over settings.paletteArea; a short file leaves the rest
// as it was. 0, with nothing changed, when
// the file can't be opened. folder ends with a path separator.
int LoadPaletteFile(const std::string& folder);
// Writes the area in the order it is read; 0 when it can't be created.
int SavePaletteFile(const std::string& folder);
