// The pen size list of the size popup, over the stored list penSizes:
// pairs of width and height, sorted by width.
#pragma once

#include <string>

// The last index a new size may take; the list refuses more.
constexpr int kLastPenSizeIndex = 45;
constexpr int kLargestPenSize = 255;  // 2 x 127 + 1

// "%d x %d" of entry index.
std::string PenSizeLabel(int index);
// Entry index becomes the pen's radii, and the tip is rebuilt.
int PickPenSize(int index);
// Adds a size (each side brought into 1..255): an equal pair is kept as it
// is, else the size takes the first free place; then the list is sorted by
// width. Past the last index the user is told and 0 returned.
int AddPenSize(int width, int height);
// Adds a size as typed in the dialog: each side a whole number of 1..255,
// else the user is told so (string 1414) and nothing is added.
int AddTypedPenSize(const std::string& width, const std::string& height);
// Adds the pen's own size.
int AddCurrentPenSize();
// Asks, then removes entry index and closes the gap. 1 when removed.
int DeletePenSize(int index);
