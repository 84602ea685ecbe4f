// The PALETTE page's cells and the pen: a left click takes a cell's colour
// or image into the pen, a right click stores the pen in the cell.
#pragma once

#include <string>

// Reads an image file through its reader as the pen's pattern: 24 bits on
// white, and its transparency when the file brought one (a bmp takes its
// ".bmm" mask instead). 0 when it can't be read; the pen stays as it was.
int LoadPenPattern(const std::string& path);

// The pen takes the cell: its colour, and its image as the pattern, or
// else the hue, saturation and value of its colour; the mode becomes
// Color. An image that can't be read leaves the colour and no pattern.
// 0 when there is no such cell.
int PickCell(int page, int cell);

// The cell takes the pen: its colour, and with a pattern the pattern's
// image and mask as "palette\pal%05d.bmp" and ".bmm" in folder. The cell's
// old image files go first. A pattern that can't be written leaves a
// colour cell. 0 when there is no such cell.
int StoreCell(const std::string& folder, int page, int cell);

// "palette\pal%05d" + extension, for cell number `number`.
std::string CellImagePath(const std::string& folder, int number, const char* extension);
