#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

#include "store/plane_rows.h"
#include "store/resample.h"

// Each output byte is (sum over j, i of wy[j] wx[i] p[j][i]) >> 16 over a
// block of 4 x 4 source pixels. The sum is worked in two passes: each source
// row is filtered across once into exact integer sums h = sum wx[i] p[i],
// kept for the output rows that use it, and each output byte is then
// sum wy[j] h[j]. No step rounds and no sum leaves 32 bits, so the two
// passes give the very integers of the block formula.

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

// What an output column takes from each source row: its four weights and
// the byte offsets of its four pixels.
//
// A tap left or right of the plane takes the pixel that tap last took,
// further left in the same output row; one that took none yet in the row
// takes what it held at the end of the row before (zeros at first). That is
// the resampler's known look at the edges, and it stays. Columns with such
// a carried tap are worked apart, pixel by pixel; they are the first ones,
// since a tap that has met the plane has a pixel from then on.
struct Column {
  std::array<int32_t, 4> weight;
  std::array<int, 4> offset;  // bytes into the row; -1: carried from the row before
  bool carried;
};

std::vector<Column> ColumnsOf(const TapTable& taps, int w, int width, int n) {
  std::vector<Column> columns(static_cast<size_t>(width));
  std::array<int, 4> last = {-1, -1, -1, -1};
  for (int c = 0; c < width; c++) {
    const Sample sx = SampleOf(c, w, width);
    Column& column = columns[static_cast<size_t>(c)];
    column.carried = false;
    for (int i = 0; i < 4; i++) {
      const int x = sx.at - 1 + i;
      if (x >= 0 && x < w) last[i] = x * n;
      column.weight[i] = taps[sx.fraction][i];
      column.offset[i] = last[i];
      column.carried = column.carried || last[i] < 0;
    }
  }
  return columns;
}

// One source row as read and filtered across; held in slot y & 3, since
// an output row wants four consecutive rows (fewer at the edges).
struct FilteredRow {
  int y = -1;
  std::vector<uint8_t> pixels;
  std::vector<int32_t> sums;
};

template <int kBytes>
void FilterAcross(const std::vector<Column>& columns, const uint8_t* row, int32_t* sums) {
  for (const Column& column : columns) {
    if (column.carried) {
      sums += kBytes;
      continue;
    }
    const uint8_t* p0 = row + column.offset[0];
    const uint8_t* p1 = row + column.offset[1];
    const uint8_t* p2 = row + column.offset[2];
    const uint8_t* p3 = row + column.offset[3];
    for (int ch = 0; ch < kBytes; ch++) {
      *sums++ = column.weight[0] * p0[ch] + column.weight[1] * p1[ch] + column.weight[2] * p2[ch] +
                column.weight[3] * p3[ch];
    }
  }
}

void FilterDown(const int32_t* wy, const int32_t* const* sums, int count, uint8_t* out) {
  const int32_t* h0 = sums[0];
  const int32_t* h1 = sums[1];
  const int32_t* h2 = sums[2];
  const int32_t* h3 = sums[3];
  for (int k = 0; k < count; k++) {
    const int32_t sum = wy[0] * h0[k] + wy[1] * h1[k] + wy[2] * h2[k] + wy[3] * h3[k];
    out[k] = static_cast<uint8_t>(std::clamp(sum >> 16, 0, 255));
  }
}

// The block of the resampler for the columns with carried taps: `held`
// is each tap's pixel at the end of the row before, by tap row and column.
class EdgeBlock {
 public:
  explicit EdgeBlock(int n) : n_(n) {}

  void Resample(const Column& column, const int32_t* wy, const uint8_t* const* rows,
                uint8_t* out) const {
    for (int ch = 0; ch < n_; ch++) {
      int32_t sum = 0;
      for (int j = 0; j < 4; j++) {
        for (int i = 0; i < 4; i++) {
          const int at = column.offset[i];
          const uint8_t p = at < 0 ? held_[j][i][ch] : rows[j][at + ch];
          sum += wy[j] * column.weight[i] * p;
        }
      }
      out[ch] = static_cast<uint8_t>(std::clamp(sum >> 16, 0, 255));
    }
  }

  // What each tap holds once the last column of the row is done.
  void EndRow(const Column& last, const uint8_t* const* rows) {
    for (int j = 0; j < 4; j++) {
      for (int i = 0; i < 4; i++) {
        if (last.offset[i] >= 0) std::memcpy(held_[j][i], rows[j] + last.offset[i], n_);
      }
    }
  }

 private:
  int n_;
  uint8_t held_[4][4][4] = {};
};

}  // namespace

Plane* CubicResample(Plane* source, int width, int height, int kernel) {
  Plane* out = NewResamplePlane(source, width, height);
  if (!out) return nullptr;
  const TapTable& taps = TapsOf(kernel);
  const int h = source->height;
  const int n = static_cast<int>(source->bytesPerPixel);
  const std::vector<Column> columns = ColumnsOf(taps, source->width, width, n);

  FilteredRow held[4];
  for (FilteredRow& row : held) {
    row.pixels = RowBuffer(source);
    row.sums.resize(static_cast<size_t>(width) * n);
  }
  std::vector<uint8_t> outRow = RowBuffer(out);
  EdgeBlock edge(n);
  for (int r = 0; r < height; r++) {
    const Sample sy = SampleOf(r, h, height);
    const uint8_t* rows[4];
    const int32_t* sums[4];
    for (int j = 0; j < 4; j++) {
      const int y = std::clamp(sy.at - 1 + j, 0, h - 1);
      FilteredRow& row = held[y & 3];
      if (row.y != y) {
        ReadWholeRow(source, y, row.pixels.data());
        if (n == 3)
          FilterAcross<3>(columns, row.pixels.data(), row.sums.data());
        else
          FilterAcross<1>(columns, row.pixels.data(), row.sums.data());
        row.y = y;
      }
      rows[j] = row.pixels.data();
      sums[j] = row.sums.data();
    }
    const int32_t* wy = taps[sy.fraction];
    FilterDown(wy, sums, width * n, outRow.data());
    for (int c = 0; c < width && columns[static_cast<size_t>(c)].carried; c++) {
      edge.Resample(columns[static_cast<size_t>(c)], wy, rows, &outRow[static_cast<size_t>(c) * n]);
    }
    edge.EndRow(columns.back(), rows);
    WriteWholeRow(out, r, outRow.data());
  }
  return out;
}
