// "palette\pal.dat": the palette cells and gradient data, a memory image of
// the settings record's palette area (palette_cells.h lays it out).
#pragma once

#include <string>

// Reads the file over settings.paletteArea, then settles what it read (no
// pointers, paths ended). A short file leaves the rest as it was, bytes
// past the area are not read. 0, with nothing changed, when the file can't
// be opened. folder ends with a path separator.
int LoadPaletteFile(const std::string& folder);
// Writes the area in the order it is read; 0 when it can't be created.
int SavePaletteFile(const std::string& folder);
