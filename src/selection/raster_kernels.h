// The row kernels of the raster filters, written once over a vector width
// V (SSE2 or AVX2: raster_filters.cpp and raster_filters_avx2.cpp). V
// gives Reg, kBytes and the operations below; the columns left at a row's
// end go one by one. Everything here is a template on V or file-local, so
// the two widths compile apart without sharing a symbol.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <vector>

namespace raster_kernels {

template <typename V>
static const uint8_t* ClampedRow(const uint8_t* bytes, int width, int height, int y) {
  return bytes + static_cast<size_t>(std::clamp(y, 0, height - 1)) * static_cast<size_t>(width);
}

template <typename V, bool kMax>
static typename V::Reg Pick(typename V::Reg a, typename V::Reg b) {
  return kMax ? V::Max8(a, b) : V::Min8(a, b);
}
template <bool kMax>
static uint8_t PickByte(uint8_t a, uint8_t b) {
  return kMax ? std::max(a, b) : std::min(a, b);
}

// out[i] = extreme(a[i], b[i]) for n bytes; out may be a.
template <typename V, bool kMax>
void PickRows(const uint8_t* a, const uint8_t* b, uint8_t* out, int n) {
  int x = 0;
  for (; x + V::kBytes <= n; x += V::kBytes)
    V::Store(out + x, Pick<V, kMax>(V::Load(a + x), V::Load(b + x)));
  for (; x < n; ++x) out[x] = PickByte<kMax>(a[x], b[x]);
}

// N passes of the 3 x 3 extreme with the edges repeated equal one pass of
// the (2N + 1) square with the edges repeated: each pass widens the reach
// by one, and a repeated edge adds no value the raster doesn't hold. So
// the work is one square, done as a column extreme and then a row one.
template <typename V, bool kMax>
class SquareExtreme {
 public:
  SquareExtreme(const uint8_t* from, uint8_t* to, int width, int height, int radius)
      : from_(from),
        to_(to),
        width_(width),
        height_(height),
        radius_(radius),
        span_(2 * radius + 1),
        suffix_(static_cast<size_t>(span_ - 1) * static_cast<size_t>(width)),
        prefix_(static_cast<size_t>(width)),
        extended_(static_cast<size_t>(width) + 2 * static_cast<size_t>(radius)) {}

  // The column extreme of the rows y - N..y + N, block by block of 2N + 1
  // window starts (van Herk, Gil and Werman): within a block the suffix
  // extremes, then each window is a suffix of its block and a prefix of
  // the next, three operations a pixel whatever the radius.
  void Run(const std::function<void(int y)>& progress) {
    uint8_t* column = extended_.data() + radius_;
    for (int block = -radius_; block <= height_ - 1 - radius_; block += span_) {
      // The last suffix is the block's last row itself, and the first
      // prefix the next block's first row: those are read in place.
      const uint8_t* next = Row(block + span_ - 1);
      for (int j = span_ - 2; j >= 0; --j) {
        PickRows<V, kMax>(next, Row(block + j), Suffix(j), width_);
        next = Suffix(j);
      }
      const uint8_t* prefix = nullptr;
      for (int j = 0; j < span_; ++j) {
        const int y = block + j + radius_;
        if (y >= height_) break;
        progress(y);
        if (j == 0) {
          std::copy_n(Suffix(0), width_, column);
        } else {
          if (j == 1) {
            prefix = Row(block + span_);
          } else {
            PickRows<V, kMax>(prefix, Row(block + span_ + j - 1), prefix_.data(), width_);
            prefix = prefix_.data();
          }
          PickRows<V, kMax>(j == span_ - 1 ? Row(block + j) : Suffix(j), prefix, column, width_);
        }
        RowExtreme(to_ + static_cast<size_t>(y) * static_cast<size_t>(width_));
      }
    }
  }

 private:
  const uint8_t* Row(int y) const { return ClampedRow<V>(from_, width_, height_, y); }
  uint8_t* Suffix(int j) {
    return suffix_.data() + static_cast<size_t>(j) * static_cast<size_t>(width_);
  }

  // The row extreme over x - N..x + N with the edges repeated, of the
  // column extremes standing N places into extended_, by doubling: after
  // k steps each place holds the extreme of 2^k places from it, and two
  // overlapping spans of the largest such length cover 2N + 1.
  void RowExtreme(uint8_t* out) {
    uint8_t* e = extended_.data();
    std::fill_n(e, radius_, e[radius_]);
    std::fill_n(e + radius_ + width_, radius_, e[radius_ + width_ - 1]);
    const int length = width_ + 2 * radius_;
    int reach = 1;
    for (; 2 * reach <= span_; reach *= 2) PickRows<V, kMax>(e, e + reach, e, length - reach);
    PickRows<V, kMax>(e, e + span_ - reach, out, width_);
  }

  const uint8_t* from_;
  uint8_t* to_;
  int width_, height_, radius_, span_;
  std::vector<uint8_t> suffix_, prefix_, extended_;
};

template <typename V>
void MinMaxSquare(const uint8_t* from, uint8_t* to, int width, int height, int radius, bool takeMax,
                  const std::function<void(int y)>& progress) {
  if (takeMax)
    SquareExtreme<V, true>(from, to, width, height, radius).Run(progress);
  else
    SquareExtreme<V, false>(from, to, width, height, radius).Run(progress);
}

// columns[x] += add[x] - drop[x] in 16-bit lanes; the true sums stay
// within 16 bits, so wrapping in between does no harm.
template <typename V>
void SlideColumnSums(uint16_t* columns, const uint8_t* add, const uint8_t* drop, int width) {
  constexpr int kStep = V::kBytes / 2;
  int x = 0;
  for (; x + kStep <= width; x += kStep)
    V::Store(columns + x,
             V::Sub16(V::Add16(V::Load(columns + x), V::Widen(add + x)), V::Widen(drop + x)));
  for (; x < width; ++x) columns[x] = static_cast<uint16_t>(columns[x] + add[x] - drop[x]);
}

// One row of the square mean from the column sums: prefix sums along the
// row make each square's sum one subtraction. prefix has width + 1 places.
template <typename V>
void MeanOfColumnSums(const uint16_t* columns, uint32_t* prefix, uint8_t* to, int width,
                      int radius) {
  prefix[0] = 0;
  for (int x = 0; x < width; ++x) prefix[x + 1] = prefix[x] + columns[x];
  const auto one = [&](int x) {
    const int first = std::max(x - radius, 0), end = std::min(x + radius, width);
    const uint32_t count = static_cast<uint32_t>(end - first) * 2u * static_cast<uint32_t>(radius);
    to[x] = static_cast<uint8_t>((prefix[end] - prefix[first]) / count);
  };
  // Inside, the square has all its 2N columns.
  const int insideFirst = std::min(radius, width),
            insideEnd = std::max(width - radius + 1, insideFirst);
  for (int x = 0; x < insideFirst; ++x) one(x);
  // A sum is below 2^24 and the divisor at most 10,000, so both are exact
  // as floats, and the correctly rounded quotient lies within 2^-16 of
  // the true one while a fraction is at least 1/10,000 away from the next
  // whole number: float division truncated gives the integer quotient.
  const float divisor = static_cast<float>(4 * radius * radius);
  constexpr int kStep = V::kBytes / 4;
  int x = insideFirst;
  for (; x + kStep <= insideEnd; x += kStep)
    V::StoreQuotients(to + x, V::Sub32(V::Load(prefix + x + radius), V::Load(prefix + x - radius)),
                      divisor);
  for (; x < width; ++x) one(x);
}

template <typename V>
void SquareMean(const uint8_t* from, uint8_t* to, int width, int height, int radius,
                const std::function<void(int y)>& progress) {
  const auto row = [&](int y) { return ClampedRow<V>(from, width, height, y); };
  // 2N rows of 255 sum to at most 25,500: the column sums fit 16 bits.
  std::vector<uint16_t> columns(static_cast<size_t>(width));
  std::vector<uint32_t> prefix(static_cast<size_t>(width) + 1);
  const std::vector<uint8_t> nothing(static_cast<size_t>(width));
  for (int dy = -radius; dy < radius; ++dy)
    SlideColumnSums<V>(columns.data(), row(dy), nothing.data(), width);
  for (int y = 0; y < height; ++y) {
    progress(y);
    MeanOfColumnSums<V>(columns.data(), prefix.data(), to + static_cast<size_t>(y) * width, width,
                        radius);
    SlideColumnSums<V>(columns.data(), row(y + radius), row(y - radius), width);
  }
}

// floor(s / 9) = (s * 7282) >> 16 for every sum of nine bytes: the factor
// exceeds 65536 / 9 by 2/9, which adds less than 0.008 to s / 9, whose
// fraction is at most 8/9.
template <typename V>
void Mean3x3(const uint8_t* from, uint8_t* to, int width, int height) {
  constexpr int kStep = V::kBytes / 2;
  std::vector<uint16_t> column(static_cast<size_t>(width) + 2);
  uint16_t* v = column.data() + 1;
  const typename V::Reg ninth = V::Set16(7282);
  for (int y = 0; y < height; ++y) {
    const uint8_t* a = ClampedRow<V>(from, width, height, y - 1);
    const uint8_t* b = ClampedRow<V>(from, width, height, y);
    const uint8_t* c = ClampedRow<V>(from, width, height, y + 1);
    int x = 0;
    for (; x + kStep <= width; x += kStep)
      V::Store(v + x, V::Add16(V::Add16(V::Widen(a + x), V::Widen(b + x)), V::Widen(c + x)));
    for (; x < width; ++x) v[x] = static_cast<uint16_t>(a[x] + b[x] + c[x]);
    v[-1] = v[0];
    v[width] = v[width - 1];
    uint8_t* out = to + static_cast<size_t>(y) * static_cast<size_t>(width);
    for (x = 0; x + kStep <= width; x += kStep)
      V::StoreNarrow16(out + x, V::MulHi16(V::Add16(V::Add16(V::Load(v + x - 1), V::Load(v + x)),
                                                    V::Load(v + x + 1)),
                                           ninth));
    for (; x < width; ++x) out[x] = static_cast<uint8_t>((v[x - 1] + v[x] + v[x + 1]) / 9);
  }
}

}  // namespace raster_kernels
