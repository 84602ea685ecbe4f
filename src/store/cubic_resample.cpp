#include <emmintrin.h>

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
// passes give the very integers of the block formula. Each h (at most
// 255 times the sum of the tap sizes, under 2^17) is kept as 256 high + low,
// both 16 bits, so that the second pass multiplies and adds pairs of them
// at once: sum wy h = 256 sum wy high + sum wy low.

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
  std::vector<int16_t> high, low;  // h >> 8 and h & 255
};

// Columns with a carried tap get sums of some pixels of the row, which
// their own working replaces.
template <int kBytes>
void FilterAcross(const std::vector<Column>& columns, const uint8_t* row, FilteredRow& out) {
  int16_t* high = out.high.data();
  int16_t* low = out.low.data();
  for (const Column& column : columns) {
    const uint8_t* p0 = row + std::max(column.offset[0], 0);
    const uint8_t* p1 = row + std::max(column.offset[1], 0);
    const uint8_t* p2 = row + std::max(column.offset[2], 0);
    const uint8_t* p3 = row + std::max(column.offset[3], 0);
    for (int ch = 0; ch < kBytes; ch++) {
      const int32_t h = column.weight[0] * p0[ch] + column.weight[1] * p1[ch] +
                        column.weight[2] * p2[ch] + column.weight[3] * p3[ch];
      *high++ = static_cast<int16_t>(h >> 8);
      *low++ = static_cast<int16_t>(h & 255);
    }
  }
}

uint8_t Clamped(int32_t sum) { return static_cast<uint8_t>(std::clamp(sum >> 16, 0, 255)); }

// sum wy[j] h[j] for the eight bytes from k on, as 32-bit sums of the high
// and of the low parts, each pair of rows by one multiply-add.
void SumEight(const __m128i* weights, const FilteredRow* const* rows, int k, __m128i sums[2][2]) {
  for (int part = 0; part < 2; part++) {
    __m128i first = _mm_setzero_si128(), second = _mm_setzero_si128();
    for (int j = 0; j < 4; j += 2) {
      const std::vector<int16_t>& a = part ? rows[j]->low : rows[j]->high;
      const std::vector<int16_t>& b = part ? rows[j + 1]->low : rows[j + 1]->high;
      const __m128i va =
          _mm_loadu_si128(reinterpret_cast<const __m128i*>(&a[static_cast<size_t>(k)]));
      const __m128i vb =
          _mm_loadu_si128(reinterpret_cast<const __m128i*>(&b[static_cast<size_t>(k)]));
      first = _mm_add_epi32(first, _mm_madd_epi16(_mm_unpacklo_epi16(va, vb), weights[j / 2]));
      second = _mm_add_epi32(second, _mm_madd_epi16(_mm_unpackhi_epi16(va, vb), weights[j / 2]));
    }
    sums[part][0] = first;
    sums[part][1] = second;
  }
}

// Two 16-bit weights a, b over and over, to multiply pairs by.
__m128i WeightPairs(int32_t a, int32_t b) {
  return _mm_set1_epi32(
      static_cast<int32_t>(static_cast<uint16_t>(a) | static_cast<uint32_t>(b) << 16));
}

void FilterDown(const int32_t* wy, const FilteredRow* const* rows, int count, uint8_t* out) {
  const __m128i weights[2] = {WeightPairs(wy[0], wy[1]), WeightPairs(wy[2], wy[3])};
  int k = 0;
  for (; k + 8 <= count; k += 8) {
    __m128i sums[2][2];
    SumEight(weights, rows, k, sums);
    // 256 high + low, shifted down; the packs clamp to 0..255.
    const __m128i first =
        _mm_srai_epi32(_mm_add_epi32(_mm_slli_epi32(sums[0][0], 8), sums[1][0]), 16);
    const __m128i second =
        _mm_srai_epi32(_mm_add_epi32(_mm_slli_epi32(sums[0][1], 8), sums[1][1]), 16);
    const __m128i words = _mm_packs_epi32(first, second);
    _mm_storel_epi64(reinterpret_cast<__m128i*>(out + k), _mm_packus_epi16(words, words));
  }
  for (; k < count; k++) {
    int32_t sum = 0;
    for (int j = 0; j < 4; j++) {
      const size_t at = static_cast<size_t>(k);
      sum += wy[j] * (rows[j]->high[at] * 256 + rows[j]->low[at]);
    }
    out[k] = Clamped(sum);
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
      out[ch] = Clamped(sum);
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
    row.high.resize(static_cast<size_t>(width) * n);
    row.low.resize(static_cast<size_t>(width) * n);
  }
  std::vector<uint8_t> outRow = RowBuffer(out);
  EdgeBlock edge(n);
  for (int r = 0; r < height; r++) {
    const Sample sy = SampleOf(r, h, height);
    const uint8_t* rows[4];
    const FilteredRow* filtered[4];
    for (int j = 0; j < 4; j++) {
      const int y = std::clamp(sy.at - 1 + j, 0, h - 1);
      FilteredRow& row = held[y & 3];
      if (row.y != y) {
        ReadWholeRow(source, y, row.pixels.data());
        if (n == 3)
          FilterAcross<3>(columns, row.pixels.data(), row);
        else
          FilterAcross<1>(columns, row.pixels.data(), row);
        row.y = y;
      }
      rows[j] = row.pixels.data();
      filtered[j] = &row;
    }
    const int32_t* wy = taps[sy.fraction];
    FilterDown(wy, filtered, width * n, outRow.data());
    for (int c = 0; c < width && columns[static_cast<size_t>(c)].carried; c++) {
      edge.Resample(columns[static_cast<size_t>(c)], wy, rows, &outRow[static_cast<size_t>(c) * n]);
    }
    edge.EndRow(columns.back(), rows);
    WriteWholeRow(out, r, outRow.data());
  }
  return out;
}
