// Palette-only writing: for a writer that takes 8-bit pictures only, the
// picture is reduced to 255 colours, picked by a histogram of 4-bit cells,
// and dithered between the nearest colour and the one across from it by
// sixteen 8 x 8 ordered patterns. Index 255 is white and marks what is
// transparent.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

#include "document/canvas.h"

constexpr int kTransparentIndex = 255;

struct QuantisedImage {
  int width = 0, height = 0;
  std::vector<uint8_t> indices;            // row 0 first
  std::array<uint8_t, 1024> palette = {};  // blue, green, red, 0
};

// The rows of a picture and of its two transparency planes.
struct PaletteSource {
  int width, height;
  // Row y: 24-bit pixels (blue, green, red), slot 2 (255 where absent) and
  // slot 3 (0 where absent) of the base layer.
  std::function<void(int y, uint8_t* rgb, uint8_t* slot2, uint8_t* slot3)> row;
};

// A pixel counts as opaque when slot 2 says so (128 and above) and slot 3
// doesn't say otherwise (128 and below). Progress goes to the status bar as
// code 3, 0..30 % for the histogram and 30..100 % for the mapping.
QuantisedImage QuantisePicture(const PaletteSource& source);

// The 255 most frequent cells of a 4,096-cell histogram, most frequent
// first, the lowest cell winning a tie; empty cells fill what is left.
std::vector<int> PickCells(std::vector<int64_t> histogram);

// Row r of dither pattern t (0..15), most significant bit at the left.
uint8_t DitherPatternRow(int t, int r);
