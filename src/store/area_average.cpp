#include <emmintrin.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "store/plane_rows.h"
#include "store/resample.h"

// Doubles do not add in any order alike: each output pixel adds its
// products in one fixed order, source rows outer and source columns inner,
// weight = column overlap x row overlap, and every byte of the picture
// depends on that order staying as it is.

namespace {

// The source cells under one output cell: the first, how many, and the
// overlap of each.
struct Span {
  int first;
  int count;
  const double* overlap;
};

// The source cells under output cell k of n over a source length m, each
// with its overlap: output cell k spans [k m / n, (k + 1) m / n). The
// overlaps of all cells lie one after another in `overlaps`.
std::vector<Span> SpansOf(int m, int n, std::vector<double>& overlaps) {
  std::vector<Span> spans(static_cast<size_t>(n));
  std::vector<size_t> starts(static_cast<size_t>(n));
  overlaps.clear();
  for (int k = 0; k < n; k++) {
    const double low = static_cast<double>(k) * m / n;
    const double high = static_cast<double>(k + 1) * m / n;
    Span& span = spans[static_cast<size_t>(k)];
    span.first = static_cast<int>(std::floor(low));
    const int last = std::min(m - 1, static_cast<int>(std::ceil(high)) - 1);
    span.count = std::max(last - span.first + 1, 0);
    starts[static_cast<size_t>(k)] = overlaps.size();
    for (int i = span.first; i <= last; i++) {
      overlaps.push_back(std::min(high, i + 1.0) - std::max(low, static_cast<double>(i)));
    }
  }
  for (int k = 0; k < n; k++)
    spans[static_cast<size_t>(k)].overlap = overlaps.data() + starts[static_cast<size_t>(k)];
  return spans;
}

// Three bytes a pixel: blue and green in one pair of lanes, red and the
// weight in the other, so that each lane adds exactly what it would alone.
void AverageRow3(const std::vector<Span>& columns, const Span& rows, const uint8_t* const* source,
                 uint8_t* out) {
  for (const Span& cols : columns) {
    __m128d blueGreen = _mm_setzero_pd();
    __m128d redWeight = _mm_setzero_pd();
    for (int j = 0; j < rows.count; j++) {
      const uint8_t* pixel = source[j] + static_cast<size_t>(cols.first) * 3;
      for (int i = 0; i < cols.count; i++, pixel += 3) {
        const __m128d weight = _mm_set1_pd(cols.overlap[i] * rows.overlap[j]);
        blueGreen = _mm_add_pd(blueGreen, _mm_mul_pd(weight, _mm_set_pd(pixel[1], pixel[0])));
        redWeight = _mm_add_pd(redWeight, _mm_mul_pd(weight, _mm_set_pd(1.0, pixel[2])));
      }
    }
    // Each mean is sum / weight + 0.5, truncated, as one division a lane.
    const __m128d half = _mm_set1_pd(0.5);
    const __m128d weights = _mm_unpackhi_pd(redWeight, redWeight);
    const __m128i means = _mm_cvttpd_epi32(_mm_add_pd(_mm_div_pd(blueGreen, weights), half));
    const __m128i red = _mm_cvttpd_epi32(_mm_add_sd(_mm_div_sd(redWeight, weights), half));
    *out++ = static_cast<uint8_t>(_mm_cvtsi128_si32(means));
    *out++ = static_cast<uint8_t>(_mm_cvtsi128_si32(_mm_srli_si128(means, 4)));
    *out++ = static_cast<uint8_t>(_mm_cvtsi128_si32(red));
  }
}

void AverageRow1(const std::vector<Span>& columns, const Span& rows, const uint8_t* const* source,
                 uint8_t* out) {
  for (const Span& cols : columns) {
    double sum = 0;
    double weights = 0;
    for (int j = 0; j < rows.count; j++) {
      const uint8_t* pixel = source[j] + cols.first;
      for (int i = 0; i < cols.count; i++) {
        const double weight = cols.overlap[i] * rows.overlap[j];
        weights += weight;
        sum += weight * pixel[i];
      }
    }
    *out++ = static_cast<uint8_t>(sum / weights + 0.5);
  }
}

}  // namespace

Plane* AreaAverage(Plane* source, int width, int height) {
  Plane* out = NewResamplePlane(source, width, height);
  if (!out) return nullptr;
  const int n = static_cast<int>(source->bytesPerPixel);
  std::vector<double> columnOverlaps, rowOverlaps;
  const std::vector<Span> columns = SpansOf(source->width, width, columnOverlaps);
  const std::vector<Span> rowSpans = SpansOf(source->height, height, rowOverlaps);

  // An output row wants a few consecutive source rows, and the next one
  // starts where it ends: a ring of rows by y keeps each read once.
  int ringSize = 1;
  for (const Span& span : rowSpans) ringSize = std::max(ringSize, span.count);
  std::vector<std::vector<uint8_t>> ring(static_cast<size_t>(ringSize), RowBuffer(source));
  std::vector<int> ringHeld(static_cast<size_t>(ringSize), -1);
  std::vector<const uint8_t*> spanRows(static_cast<size_t>(ringSize));
  std::vector<uint8_t> outRow = RowBuffer(out);
  for (int r = 0; r < height; r++) {
    const Span& span = rowSpans[static_cast<size_t>(r)];
    for (int j = 0; j < span.count; j++) {
      const int y = span.first + j;
      const size_t slot = static_cast<size_t>(y % ringSize);
      if (ringHeld[slot] != y) ReadWholeRow(source, y, ring[slot].data());
      ringHeld[slot] = y;
      spanRows[static_cast<size_t>(j)] = ring[slot].data();
    }
    if (n == 3)
      AverageRow3(columns, span, spanRows.data(), outRow.data());
    else
      AverageRow1(columns, span, spanRows.data(), outRow.data());
    WriteWholeRow(out, r, outRow.data());
  }
  return out;
}
