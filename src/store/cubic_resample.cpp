#include <algorithm>
#include <cstring>
#include <vector>

#include "store/plane_rows.h"
#include "store/resample.h"

namespace {

// Weights of the four taps, in 1/256 units, for fractions i / 256.
using TapTable = int32_t[256][4];

// The outer taps (t in 1..2) and the inner taps (t in 0..1) of each kernel.
double OuterTap(int kernel, double t) {
  if (kernel == 1) {
    return 1.7777777777777777 - 3.3333333333333335 * t + 2 * t * t - 0.3888888888888889 * t * t * t;
  }
  return 4 - 8 * t + 5 * t * t - t * t * t;
}

double InnerTap(int kernel, double t) {
  if (kernel == 1) {
    return 0.8888888888888888 - 2 * t * t + 1.1666666666666667 * t * t * t;
  }
  return 1 - 2 * t * t + t * t * t;
}

int32_t Weight(double tap) { return static_cast<int32_t>(tap * 256); }

// Built on first use of a kernel and kept until another kernel is asked for.
const TapTable& TapsOf(int kernel) {
  static int builtFor = 0;
  static TapTable taps;
  if (builtFor != kernel) {
    for (int i = 0; i < 256; i++) {
      const double f = i / 256.0;
      taps[i][0] = Weight(OuterTap(kernel, f + 1));
      taps[i][1] = Weight(InnerTap(kernel, f));
      taps[i][2] = Weight(InnerTap(kernel, 1 - f));
      taps[i][3] = Weight(OuterTap(kernel, 2 - f));
    }
    builtFor = kernel;
  }
  return taps;
}

// Source position and fraction (in 1/256) of output index k of n over m.
struct Sample {
  int at;
  int fraction;
};

Sample SampleOf(int k, int m, int n) {
  const int64_t scaled = static_cast<int64_t>(k) * m;
  const int64_t at = scaled / n;
  return {static_cast<int>(at), static_cast<int>(((scaled - n * at) << 8) / n)};
}

}  // namespace

Plane* CubicResample(Plane* source, int width, int height, int kernel) {
  Plane* out = NewResamplePlane(source, width, height);
  if (!out) return nullptr;
  const TapTable& taps = TapsOf(kernel);
  const int w = source->width;
  const int h = source->height;
  const int n = static_cast<int>(source->bytesPerPixel);

  std::vector<Sample> columns(width);
  for (int c = 0; c < width; c++) columns[c] = SampleOf(c, w, width);

  std::vector<uint8_t> rows[4];
  int rowHeld[4] = {-1, -1, -1, -1};
  for (auto& row : rows) row = RowBuffer(source);
  std::vector<uint8_t> outRow = RowBuffer(out);
  // Source columns left or right of the plane keep whatever the block held
  // before, as a clipped row read leaves them: the edge pixels lean on the
  // last ones gathered. That is the resampler's known look and stays.
  uint8_t block[4][4][3] = {};

  for (int r = 0; r < height; r++) {
    const Sample sy = SampleOf(r, h, height);
    for (int j = 0; j < 4; j++) {
      const int y = std::clamp(sy.at - 1 + j, 0, h - 1);
      if (rowHeld[j] != y) ReadWholeRow(source, y, rows[j].data());
      rowHeld[j] = y;
    }
    const int32_t* wy = taps[sy.fraction];
    for (int c = 0; c < width; c++) {
      const Sample sx = columns[c];
      const int32_t* wx = taps[sx.fraction];
      for (int i = 0; i < 4; i++) {
        const int x = sx.at - 1 + i;
        if (x < 0 || x >= w) continue;
        for (int j = 0; j < 4; j++) std::memcpy(block[j][i], &rows[j][static_cast<size_t>(x) * n], n);
      }
      for (int ch = 0; ch < n; ch++) {
        int32_t sum = 0;
        for (int j = 0; j < 4; j++) {
          for (int i = 0; i < 4; i++) sum += wy[j] * wx[i] * block[j][i][ch];
        }
        outRow[static_cast<size_t>(c) * n + ch] = static_cast<uint8_t>(std::clamp(sum >> 16, 0, 255));
      }
    }
    WriteWholeRow(out, r, outRow.data());
  }
  return out;
}
