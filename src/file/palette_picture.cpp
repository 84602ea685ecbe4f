#include "file/palette_picture.h"

#include <cstdlib>

#include "platform/platform.h"

namespace {

constexpr int kCells = 4096;
constexpr int kPicks = 255;

constexpr uint8_t kPatterns[16][8] = {
    {0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00}, {0x88, 0x00, 0x00, 0x00, 0x88, 0x00, 0x00, 0x00},
    {0x88, 0x00, 0x22, 0x00, 0x88, 0x00, 0x22, 0x00}, {0xAA, 0x00, 0x22, 0x00, 0xAA, 0x00, 0x22, 0x00},
    {0xAA, 0x00, 0xAA, 0x00, 0xAA, 0x00, 0xAA, 0x00}, {0xAA, 0x44, 0xAA, 0x00, 0xAA, 0x44, 0xAA, 0x00},
    {0xAA, 0x44, 0xAA, 0x11, 0xAA, 0x44, 0xAA, 0x11}, {0xAA, 0x55, 0xAA, 0x11, 0xAA, 0x55, 0xAA, 0x11},
    {0xAA, 0x55, 0xAA, 0x55, 0xAA, 0x55, 0xAA, 0x55}, {0xAA, 0x55, 0xAA, 0xDD, 0xAA, 0x55, 0xAA, 0xDD},
    {0xAA, 0x77, 0xAA, 0xDD, 0xAA, 0x77, 0xAA, 0xDD}, {0xAA, 0x77, 0xAA, 0xFF, 0xAA, 0x77, 0xAA, 0xFF},
    {0xAA, 0xFF, 0xAA, 0xFF, 0xAA, 0xFF, 0xAA, 0xFF}, {0xAA, 0xFF, 0xBB, 0xFF, 0xAA, 0xFF, 0xBB, 0xFF},
    {0xEE, 0xFF, 0xFF, 0xFF, 0xEE, 0xFF, 0xFF, 0xFF}, {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF},
};


int Percent(int row, int rows, int from, int span) {
  return from + (rows > 1 ? span * row / (rows - 1) : 0);
}

bool Opaque(uint8_t slot2, uint8_t slot3) { return slot2 >= 128 && slot3 <= 128; }

// Colours as blue, green, red; a mirrored one may leave 0..255.
struct Colour {
  int b, g, r;
};

int Distance(const Colour& a, const uint8_t* entry) {
  return std::abs(a.b - entry[0]) + std::abs(a.g - entry[1]) + std::abs(a.r - entry[2]);
}

// The nearest of the picked colours; the lowest index wins a tie.
int Nearest(const Colour& c, const std::array<uint8_t, 1024>& palette) {
  int best = 0, bestDistance = Distance(c, &palette[0]);
  for (int i = 1; i < kPicks; ++i) {
    const int d = Distance(c, &palette[size_t(i) * 4]);
    if (d < bestDistance) best = i, bestDistance = d;
  }
  return best;
}

int Mapped(const Colour& pixel, const std::array<uint8_t, 1024>& palette, int x, int y) {
  const int p = Nearest(pixel, palette);
  const uint8_t* near = &palette[size_t(p) * 4];
  const int d1 = Distance(pixel, near);
  if (d1 == 0) return p;
  const int q = Nearest({2 * pixel.b - near[0], 2 * pixel.g - near[1], 2 * pixel.r - near[2]}, palette);
  const int d2 = Distance(pixel, &palette[size_t(q) * 4]);
  const int t = 15 * d1 / (d1 + d2);
  return (DitherPatternRow(t, y % 8) >> (7 - x % 8)) & 1 ? q : p;
}

}  // namespace

uint8_t DitherPatternRow(int t, int r) { return kPatterns[t][r]; }

std::vector<int> PickCells(std::vector<int64_t> histogram) {
  std::vector<int> picks;
  for (int n = 0; n < kPicks; ++n) {
    int best = 0;
    for (int cell = 1; cell < kCells; ++cell)
      if (histogram[size_t(cell)] > histogram[size_t(best)]) best = cell;
    picks.push_back(best);
    histogram[size_t(best)] = -1;
  }
  return picks;
}

QuantisedImage QuantisePicture(const PaletteSource& source) {
  QuantisedImage out;
  out.width = source.width, out.height = source.height;
  std::vector<uint8_t> rgb(size_t(source.width) * 3), slot2(size_t(source.width)),
      slot3(size_t(source.width));
  std::vector<int64_t> histogram(kCells, 0);
  for (int y = 0; y < source.height; ++y) {
    platform::ShowProgress(Percent(y, source.height, 0, 30));
    source.row(y, rgb.data(), slot2.data(), slot3.data());
    for (int x = 0; x < source.width; ++x) {
      if (!Opaque(slot2[size_t(x)], slot3[size_t(x)])) continue;
      const uint8_t* p = &rgb[size_t(x) * 3];
      ++histogram[size_t((p[2] >> 4) * 256 + (p[1] >> 4) * 16 + (p[0] >> 4))];
    }
  }
  const std::vector<int> picks = PickCells(histogram);
  for (int i = 0; i < kPicks; ++i) {
    const int cell = picks[size_t(i)];
    uint8_t* entry = &out.palette[size_t(i) * 4];
    entry[0] = uint8_t((cell & 15) * 255 / 15);
    entry[1] = uint8_t(((cell >> 4) & 15) * 255 / 15);
    entry[2] = uint8_t((cell >> 8) * 255 / 15);
  }
  out.palette[kTransparentIndex * 4] = out.palette[kTransparentIndex * 4 + 1] =
      out.palette[kTransparentIndex * 4 + 2] = 255;
  out.indices.assign(size_t(source.width) * size_t(source.height), kTransparentIndex);
  for (int y = 0; y < source.height; ++y) {
    platform::ShowProgress(Percent(y, source.height, 30, 70));
    source.row(y, rgb.data(), slot2.data(), slot3.data());
    for (int x = 0; x < source.width; ++x) {
      if (!Opaque(slot2[size_t(x)], slot3[size_t(x)])) continue;
      const uint8_t* p = &rgb[size_t(x) * 3];
      out.indices[size_t(y) * source.width + x] =
          uint8_t(Mapped({p[0], p[1], p[2]}, out.palette, x, y));
    }
  }
  platform::ClearStatus();
  return out;
}
