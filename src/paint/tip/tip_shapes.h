// The generated tip shapes, each filling a raster of its own whose size
// BuildTip has chosen. Internal to the tip builder.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

struct TipRaster {
  TipRaster(int w, int h) : width(w), height(h), high(size_t(w) * h), low(size_t(w) * h) {}
  int width, height;
  std::vector<uint8_t> high, low;

  void Put(int x, int y, uint8_t highByte, uint8_t lowByte) {
    if (x < 0 || y < 0 || x >= width || y >= height) return;
    high[size_t(y) * width + x] = highByte;
    low[size_t(y) * width + x] = lowByte;
  }
  // A 16-bit strength; values above 16 bits keep their lowest 16.
  void PutStrength(int x, int y, uint32_t v) { Put(x, y, uint8_t(v >> 8), uint8_t(v)); }
};

// The radii as every shape sees them.
struct TipGeometry {
  double rx, ry;
  int32_t ix, iy;              // trunc(rx), trunc(ry)
  int32_t rxSquared, rySquared, product;

  // Inside the ellipse about (ix, iy), in whole pixels.
  bool Inside(int x, int y) const { return Distance(x, y) <= product; }
  int32_t Distance(int x, int y) const {
    int32_t dx = x > ix ? x - ix : ix - x, dy = y > iy ? y - iy : iy - y;
    return dx * dx * rySquared + dy * dy * rxSquared;
  }
};

void SoftTip(TipRaster& tip, const TipGeometry& g, double divisor, bool inverted);
void SprayTip(TipRaster& tip, const TipGeometry& g);
void SoftSprayTip(TipRaster& tip, const TipGeometry& g);
void LifeTip(TipRaster& tip, const TipGeometry& g, int32_t dabCount);
// Rays and chords; a peak of 0 draws them at full strength.
void RaysTip(TipRaster& tip, const TipGeometry& g, uint32_t peak);
void ChordsTip(TipRaster& tip, const TipGeometry& g, uint32_t peak);
void BlockTip(TipRaster& tip, const TipGeometry& g);
void FrameTip(TipRaster& tip);
