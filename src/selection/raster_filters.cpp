// Sixteen pixels at a time in SSE2, which every x86-64 processor has; the
// few columns left at a row's end and its edges go one by one.
#include "selection/raster_filters.h"

#include <emmintrin.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

constexpr int kLanes = 16;

__m128i Load(const void* p) { return _mm_loadu_si128(static_cast<const __m128i*>(p)); }
void Store(void* p, __m128i v) { _mm_storeu_si128(static_cast<__m128i*>(p), v); }

const uint8_t* ClampedRow(const uint8_t* bytes, int width, int height, int y) {
  return bytes + static_cast<size_t>(std::clamp(y, 0, height - 1)) * static_cast<size_t>(width);
}

template <bool kMax>
__m128i Pick(__m128i a, __m128i b) {
  return kMax ? _mm_max_epu8(a, b) : _mm_min_epu8(a, b);
}
template <bool kMax>
uint8_t Pick(uint8_t a, uint8_t b) {
  return kMax ? std::max(a, b) : std::min(a, b);
}

// out[i] = extreme(a[i], b[i]) for n bytes; out may be a.
template <bool kMax>
void PickRows(const uint8_t* a, const uint8_t* b, uint8_t* out, int n) {
  int x = 0;
  for (; x + kLanes <= n; x += kLanes) Store(out + x, Pick<kMax>(Load(a + x), Load(b + x)));
  for (; x < n; ++x) out[x] = Pick<kMax>(a[x], b[x]);
}

// N passes of the 3 x 3 extreme with the edges repeated equal one pass of
// the (2N + 1) square with the edges repeated: each pass widens the reach
// by one, and a repeated edge adds no value the raster doesn't hold. So
// the work is one square, done as a column extreme and then a row one.
template <bool kMax>
class SquareExtreme {
 public:
  SquareExtreme(const uint8_t* from, uint8_t* to, int width, int height, int radius)
      : from_(from),
        to_(to),
        width_(width),
        height_(height),
        radius_(radius),
        span_(2 * radius + 1),
        suffix_(static_cast<size_t>(span_) * static_cast<size_t>(width)),
        prefix_(static_cast<size_t>(width)),
        column_(static_cast<size_t>(width)),
        extended_(static_cast<size_t>(width) + 2 * static_cast<size_t>(radius) + kLanes) {}

  // The column extreme of the rows y - N..y + N, block by block of 2N + 1
  // window starts (van Herk, Gil and Werman): within a block the suffix
  // extremes, then each window is a suffix of its block and a prefix of
  // the next, three operations a pixel whatever the radius.
  void Run(const std::function<void(int y)>& progress) {
    for (int block = -radius_; block <= height_ - 1 - radius_; block += span_) {
      uint8_t* last = Suffix(span_ - 1);
      std::copy_n(Row(block + span_ - 1), width_, last);
      for (int j = span_ - 2; j >= 0; --j)
        PickRows<kMax>(Suffix(j + 1), Row(block + j), Suffix(j), width_);
      for (int j = 0; j < span_; ++j) {
        const int y = block + j + radius_;
        if (y >= height_) break;
        progress(y);
        const uint8_t* column = Suffix(0);
        if (j > 0) {
          if (j == 1)
            std::copy_n(Row(block + span_), width_, prefix_.data());
          else
            PickRows<kMax>(prefix_.data(), Row(block + span_ + j - 1), prefix_.data(), width_);
          PickRows<kMax>(Suffix(j), prefix_.data(), column_.data(), width_);
          column = column_.data();
        }
        RowExtreme(column, to_ + static_cast<size_t>(y) * static_cast<size_t>(width_));
      }
    }
  }

 private:
  const uint8_t* Row(int y) const { return ClampedRow(from_, width_, height_, y); }
  uint8_t* Suffix(int j) {
    return suffix_.data() + static_cast<size_t>(j) * static_cast<size_t>(width_);
  }

  // The row extreme over x - N..x + N with the edges repeated, by doubling:
  // after k steps each place holds the extreme of 2^k places from it, and
  // two overlapping spans of the largest such length cover 2N + 1.
  void RowExtreme(const uint8_t* column, uint8_t* out) {
    uint8_t* e = extended_.data();
    std::fill_n(e, radius_, column[0]);
    std::copy_n(column, width_, e + radius_);
    std::fill_n(e + radius_ + width_, radius_, column[width_ - 1]);
    const int length = width_ + 2 * radius_;
    int reach = 1;
    for (; 2 * reach <= span_; reach *= 2) PickRows<kMax>(e, e + reach, e, length - reach);
    PickRows<kMax>(e, e + span_ - reach, out, width_);
  }

  const uint8_t* from_;
  uint8_t* to_;
  int width_, height_, radius_, span_;
  std::vector<uint8_t> suffix_, prefix_, column_, extended_;
};

// columns[x] += add[x] - drop[x], in 16-bit lanes; the true sums stay
// within 16 bits, so wrapping in between does no harm.
void SlideColumnSums(uint16_t* columns, const uint8_t* add, const uint8_t* drop, int width) {
  const __m128i zero = _mm_setzero_si128();
  int x = 0;
  for (; x + kLanes <= width; x += kLanes) {
    const __m128i in = Load(add + x), out = Load(drop + x);
    for (int half = 0; half < 2; ++half) {
      const __m128i plus = half ? _mm_unpackhi_epi8(in, zero) : _mm_unpacklo_epi8(in, zero);
      const __m128i minus = half ? _mm_unpackhi_epi8(out, zero) : _mm_unpacklo_epi8(out, zero);
      uint16_t* at = columns + x + 8 * half;
      Store(at, _mm_sub_epi16(_mm_add_epi16(Load(at), plus), minus));
    }
  }
  for (; x < width; ++x) columns[x] = static_cast<uint16_t>(columns[x] + add[x] - drop[x]);
}

// sums[x] / divisor for four lanes, truncated. A sum is below 2^24 and the
// divisor at most 10,000, so both are exact as floats, and the correctly
// rounded quotient lies within 2^-16 of the true one while a fraction is
// at least 1/10,000 away from the next whole number: truncation gives the
// integer quotient exactly.
__m128i Quotients(__m128i sums, __m128 divisor) {
  return _mm_cvttps_epi32(_mm_div_ps(_mm_cvtepi32_ps(sums), divisor));
}

// One row of the square mean from the column sums: prefix sums along the
// row make each square's sum one subtraction. prefix has width + 1 places.
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
  const __m128 divisor = _mm_set1_ps(static_cast<float>(4 * radius * radius));
  int x = insideFirst;
  for (; x + kLanes <= insideEnd; x += kLanes) {
    __m128i q[4];
    for (int k = 0; k < 4; ++k) {
      const int at = x + 4 * k;
      q[k] =
          Quotients(_mm_sub_epi32(Load(prefix + at + radius), Load(prefix + at - radius)), divisor);
    }
    Store(to + x, _mm_packus_epi16(_mm_packs_epi32(q[0], q[1]), _mm_packs_epi32(q[2], q[3])));
  }
  for (; x < width; ++x) one(x);
}

}  // namespace

void MinMaxSquare(const uint8_t* from, uint8_t* to, int width, int height, int radius, bool takeMax,
                  const std::function<void(int y)>& progress) {
  if (width < 1 || height < 1 || radius < 1) return;
  if (takeMax)
    SquareExtreme<true>(from, to, width, height, radius).Run(progress);
  else
    SquareExtreme<false>(from, to, width, height, radius).Run(progress);
}

void SquareMean(const uint8_t* from, uint8_t* to, int width, int height, int radius,
                const std::function<void(int y)>& progress) {
  if (width < 1 || height < 1 || radius < 1) return;
  const auto row = [&](int y) { return ClampedRow(from, width, height, y); };
  // 2N rows of 255 sum to at most 25,500: the column sums fit 16 bits.
  std::vector<uint16_t> columns(static_cast<size_t>(width));
  std::vector<uint32_t> prefix(static_cast<size_t>(width) + 1);
  const std::vector<uint8_t> nothing(static_cast<size_t>(width));
  for (int dy = -radius; dy < radius; ++dy)
    SlideColumnSums(columns.data(), row(dy), nothing.data(), width);
  for (int y = 0; y < height; ++y) {
    progress(y);
    MeanOfColumnSums(columns.data(), prefix.data(), to + static_cast<size_t>(y) * width, width,
                     radius);
    SlideColumnSums(columns.data(), row(y + radius), row(y - radius), width);
  }
}

void Mean3x3(const uint8_t* from, uint8_t* to, int width, int height) {
  if (width < 1 || height < 1) return;
  std::vector<uint16_t> column(static_cast<size_t>(width) + 2);
  uint16_t* v = column.data() + 1;
  const __m128i zero = _mm_setzero_si128();
  // floor(s / 9) = (s * 7282) >> 16 for every sum of nine bytes: the
  // factor exceeds 65536 / 9 by 2/9, which adds less than 0.008 to s / 9,
  // whose fraction is at most 8/9.
  const __m128i ninth = _mm_set1_epi16(7282);
  for (int y = 0; y < height; ++y) {
    const uint8_t* a = ClampedRow(from, width, height, y - 1);
    const uint8_t* b = ClampedRow(from, width, height, y);
    const uint8_t* c = ClampedRow(from, width, height, y + 1);
    int x = 0;
    for (; x + kLanes <= width; x += kLanes) {
      const __m128i ra = Load(a + x), rb = Load(b + x), rc = Load(c + x);
      Store(v + x,
            _mm_add_epi16(_mm_add_epi16(_mm_unpacklo_epi8(ra, zero), _mm_unpacklo_epi8(rb, zero)),
                          _mm_unpacklo_epi8(rc, zero)));
      Store(v + x + 8,
            _mm_add_epi16(_mm_add_epi16(_mm_unpackhi_epi8(ra, zero), _mm_unpackhi_epi8(rb, zero)),
                          _mm_unpackhi_epi8(rc, zero)));
    }
    for (; x < width; ++x) v[x] = static_cast<uint16_t>(a[x] + b[x] + c[x]);
    v[-1] = v[0];
    v[width] = v[width - 1];
    uint8_t* out = to + static_cast<size_t>(y) * static_cast<size_t>(width);
    for (x = 0; x + kLanes <= width; x += kLanes) {
      __m128i q[2];
      for (int half = 0; half < 2; ++half) {
        const uint16_t* at = v + x + 8 * half;
        const __m128i sum = _mm_add_epi16(_mm_add_epi16(Load(at - 1), Load(at)), Load(at + 1));
        q[half] = _mm_mulhi_epu16(sum, ninth);
      }
      Store(out + x, _mm_packus_epi16(q[0], q[1]));
    }
    for (; x < width; ++x) out[x] = static_cast<uint8_t>((v[x - 1] + v[x] + v[x + 1]) / 9);
  }
}

void DitherPass(uint8_t* bytes, int width, int height, DitherRandom& random) {
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) {
      const int dx = static_cast<int>(random.Next() % 9) - 4;
      const int dy = static_cast<int>(random.Next() % 9) - 4;
      const size_t target = static_cast<size_t>(std::clamp(y + dy, 0, height - 1)) * width +
                            static_cast<size_t>(std::clamp(x + dx, 0, width - 1));
      std::swap(bytes[static_cast<size_t>(y) * width + x], bytes[target]);
    }
}
