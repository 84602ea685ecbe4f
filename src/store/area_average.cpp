#include <algorithm>
#include <cmath>
#include <vector>

#include "store/plane_rows.h"
#include "store/resample.h"

namespace {

// The source cells under output cell k of n over a source length m, each
// with its overlap: output cell k spans [k m / n, (k + 1) m / n).
struct Span {
  int first;
  std::vector<double> overlap;
};

Span SpanOf(int k, int m, int n) {
  const double low = static_cast<double>(k) * m / n;
  const double high = static_cast<double>(k + 1) * m / n;
  Span span{static_cast<int>(std::floor(low)), {}};
  const int last = std::min(m - 1, static_cast<int>(std::ceil(high)) - 1);
  for (int i = span.first; i <= last; i++) {
    span.overlap.push_back(std::min(high, i + 1.0) - std::max(low, static_cast<double>(i)));
  }
  return span;
}

}  // namespace

Plane* AreaAverage(Plane* source, int width, int height) {
  Plane* out = NewResamplePlane(source, width, height);
  if (!out) return nullptr;
  const int n = static_cast<int>(source->bytesPerPixel);
  std::vector<Span> columns;
  columns.reserve(width);
  for (int c = 0; c < width; c++) columns.push_back(SpanOf(c, source->width, width));

  std::vector<uint8_t> row = RowBuffer(source);
  std::vector<uint8_t> outRow = RowBuffer(out);
  std::vector<double> sums(static_cast<size_t>(width) * n);
  std::vector<double> weights(width);
  for (int r = 0; r < height; r++) {
    const Span rows = SpanOf(r, source->height, height);
    std::fill(sums.begin(), sums.end(), 0.0);
    std::fill(weights.begin(), weights.end(), 0.0);
    for (size_t j = 0; j < rows.overlap.size(); j++) {
      ReadWholeRow(source, rows.first + static_cast<int>(j), row.data());
      for (int c = 0; c < width; c++) {
        const Span& cols = columns[c];
        for (size_t i = 0; i < cols.overlap.size(); i++) {
          const double weight = cols.overlap[i] * rows.overlap[j];
          const uint8_t* pixel = &row[(cols.first + i) * n];
          weights[c] += weight;
          for (int ch = 0; ch < n; ch++) sums[static_cast<size_t>(c) * n + ch] += weight * pixel[ch];
        }
      }
    }
    for (int c = 0; c < width; c++) {
      for (int ch = 0; ch < n; ch++) {
        const size_t at = static_cast<size_t>(c) * n + ch;
        outRow[at] = static_cast<uint8_t>(sums[at] / weights[c] + 0.5);
      }
    }
    WriteWholeRow(out, r, outRow.data());
  }
  return out;
}
