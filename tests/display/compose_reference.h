// A slow, pixel-at-a-time composer written straight from the arithmetic of
// composition, sharing no code with the one under test: the expected
// pictures of the composition tests come from here.
#pragma once

#include <cstdint>
#include <vector>

#include "document/canvas.h"
#include "support/pixel_reference.h"

namespace ref {

// Blue, green, red rows, top row first, no padding.
struct Picture {
  int width = 0;
  int height = 0;
  std::vector<uint8_t> bytes;
  uint8_t* At(int x, int y) { return &bytes[3 * (static_cast<size_t>(y) * width + x)]; }
};

// What Compose must give; background, outside mode and boundary flag come
// from the settings record.
Picture Compose(const Canvas& canvas, int x0, int y0, int x1, int y1, bool shade, bool baseOpaque);
// The coverage of one layer at a canvas pixel inside it.
unsigned Coverage(const Canvas& canvas, int layer, int x, int y);

}  // namespace ref
