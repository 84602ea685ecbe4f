// The selection file (".TSS"), which the history's ".hst" files share: the
// Draft of a canvas in one of two forms told apart by the first word. Form
// A, every kind but the Bezier paths: the kind, the box, the point table
// and its count, and for the seed fill the raster as a packed 8-bit Dib.
// Form B, the Bezier paths: the kind and the global path whole. All words
// are little-endian 32-bit; no magic number or version stands in either.
#pragma once

#include <cstdint>
#include <string>

#include "document/canvas.h"

constexpr int kSelectionFileFixedBytes = 40988;  // form A without the raster
constexpr int kSelectionPathFileBytes = 122900;  // form B

// The fixed part of form A as the history's list reads it.
struct SelectionFileHead {
  int32_t kind;
  int32_t left, top, right, bottom;
};

// Writes the canvas's Draft to path, through a temporary name beside it
// that replaces path only when everything was written. 0 when refused (a
// shapeless selection has no kind to be told by) or failed; 1 also when
// there is no raster, in which case nothing is written.
int SaveSelection(const std::string& path, Canvas* canvas);

// Reads path into the canvas's Draft and rebuilds the raster, from the
// shape or, for the seed fill, from the file's raster (clipped to the
// canvas; what the file doesn't cover stays selected). A short raster
// shows "dib error" and goes on. Unless Shift is held, the tool of the
// kind becomes current. 0 when the file can't be opened. The Fill and Line
// buttons repaint in every case.
int LoadSelection(const std::string& path, Canvas* canvas);

// The first words of a file; false when it can't be opened.
bool ReadSelectionHead(const std::string& path, SelectionFileHead* head);
