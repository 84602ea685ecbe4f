// The raster filters against slow references written from the rules, on
// random rasters of awkward sizes (below, at and beyond a vector's width).
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <random>
#include <vector>

#include "pixel/vector_paths.h"
#include "selection/raster_filters.h"

namespace {

using Raster = std::vector<uint8_t>;

struct Size {
  int width, height;
};
constexpr Size kSizes[] = {{1, 1}, {1, 7}, {7, 1}, {5, 4}, {16, 3}, {17, 17}, {33, 9}, {70, 41}};

// Random values, or mostly 0 and 255 in blobs as a selection has them.
Raster RandomRaster(Size size, std::mt19937& random, bool blobs) {
  Raster raster(static_cast<size_t>(size.width) * size.height);
  for (uint8_t& v : raster) {
    const unsigned r = random();
    v = blobs ? ((r % 5 == 0) ? 0 : 255) : static_cast<uint8_t>(r);
  }
  return raster;
}

uint8_t At(const Raster& r, Size s, int x, int y) {
  return r[static_cast<size_t>(std::clamp(y, 0, s.height - 1)) * s.width +
           std::clamp(x, 0, s.width - 1)];
}

// N passes of the 3 x 3 extreme, each from a copy, edges repeated.
Raster SlowMinMax(Raster r, Size s, int passes, bool takeMax) {
  for (int i = 0; i < passes; ++i) {
    Raster next = r;
    for (int y = 0; y < s.height; ++y)
      for (int x = 0; x < s.width; ++x) {
        uint8_t best = At(r, s, x, y);
        for (int dy = -1; dy <= 1; ++dy)
          for (int dx = -1; dx <= 1; ++dx) {
            const uint8_t v = At(r, s, x + dx, y + dy);
            best = takeMax ? std::max(best, v) : std::min(best, v);
          }
        next[static_cast<size_t>(y) * s.width + x] = best;
      }
    r = next;
  }
  return r;
}

// The 2N square at -N..N-1, read as the rule says: columns outside don't
// count; a row outside isn't read, so the row read before counts again,
// and before any row was read that is row 0.
Raster SlowSquareMean(const Raster& r, Size s, int n) {
  Raster out(r.size());
  for (int y = 0; y < s.height; ++y)
    for (int x = 0; x < s.width; ++x) {
      int sum = 0, count = 0, lastRead = 0;
      for (int dy = -n; dy < n; ++dy) {
        const int row = y + dy;
        if (row >= 0 && row < s.height) lastRead = row;
        for (int dx = -n; dx < n; ++dx) {
          const int column = x + dx;
          if (column < 0 || column >= s.width) continue;
          sum += r[static_cast<size_t>(lastRead) * s.width + column];
          ++count;
        }
      }
      out[static_cast<size_t>(y) * s.width + x] = static_cast<uint8_t>(sum / count);
    }
  return out;
}

Raster SlowMean3x3(const Raster& r, Size s) {
  Raster out(r.size());
  for (int y = 0; y < s.height; ++y)
    for (int x = 0; x < s.width; ++x) {
      int sum = 0;
      for (int dy = -1; dy <= 1; ++dy)
        for (int dx = -1; dx <= 1; ++dx) sum += At(r, s, x + dx, y + dy);
      out[static_cast<size_t>(y) * s.width + x] = static_cast<uint8_t>(sum / 9);
    }
  return out;
}

// Runs a check with the SSE2 kernels, then with the AVX2 ones where the
// processor has them.
template <typename Check>
void OnEachPath(Check check) {
  const bool before = VectorPaths();
  for (const bool vector : {false, true}) {
    if (UseVectorPaths(vector) != vector) continue;
    SCOPED_TRACE(vector ? "AVX2" : "SSE2");
    check();
  }
  UseVectorPaths(before);
}

Raster FastMinMax(const Raster& r, Size s, int passes, bool takeMax) {
  Raster out(r.size());
  MinMaxSquare(r.data(), out.data(), s.width, s.height, passes, takeMax, [](int) {});
  return out;
}

TEST(RasterFilters, MinAndMaxPassesMatchTheReference) {
  OnEachPath([] {
    std::mt19937 random(1);
    for (const Size size : kSizes)
      for (const bool blobs : {false, true}) {
        const Raster raster = RandomRaster(size, random, blobs);
        for (const int passes : {1, 2, 3, 5, 8, 40})
          for (const bool takeMax : {false, true})
            EXPECT_EQ(FastMinMax(raster, size, passes, takeMax),
                      SlowMinMax(raster, size, passes, takeMax))
                << size.width << "x" << size.height << " passes " << passes << " max " << takeMax;
      }
  });
}

TEST(RasterFilters, SquareMeanMatchesTheReferenceAndReportsEachRow) {
  OnEachPath([] {
    std::mt19937 random(2);
    for (const Size size : kSizes)
      for (const int n : {1, 2, 3, 7, 50}) {
        const Raster raster = RandomRaster(size, random, n % 2 == 0);
        Raster out(raster.size());
        std::vector<int> rows;
        SquareMean(raster.data(), out.data(), size.width, size.height, n,
                   [&rows](int y) { rows.push_back(y); });
        EXPECT_EQ(out, SlowSquareMean(raster, size, n))
            << size.width << "x" << size.height << " N " << n;
        EXPECT_EQ(static_cast<int>(rows.size()), size.height);
      }
    // All 255 with the largest square: the sums reach their highest, and
    // the quotient must still come out whole.
    const Size big{120, 110};
    const Raster full(static_cast<size_t>(big.width) * big.height, 255);
    Raster out(full.size());
    SquareMean(full.data(), out.data(), big.width, big.height, 50, [](int) {});
    EXPECT_EQ(out, full);
  });
}

TEST(RasterFilters, RadiusOneMeansTheTwoByTwoSquareUpAndLeft) {
  // One selected pixel at (3, 2) among 255: the outputs whose square
  // {x-1, x} x {y-1, y} holds it are (3..4, 2..3), each 3 * 255 / 4.
  const Size size{6, 5};
  Raster raster(30, 255);
  raster[2 * 6 + 3] = 0;
  Raster out(raster.size());
  SquareMean(raster.data(), out.data(), size.width, size.height, 1, [](int) {});
  for (int y = 0; y < size.height; ++y)
    for (int x = 0; x < size.width; ++x)
      EXPECT_EQ(out[static_cast<size_t>(y) * 6 + x],
                (x >= 3 && x <= 4 && y >= 2 && y <= 3) ? 191 : 255)
          << x << "," << y;
}

TEST(RasterFilters, MeanOfNineTruncates) {
  OnEachPath([] {
    std::mt19937 random(3);
    for (const Size size : kSizes) {
      const Raster raster = RandomRaster(size, random, false);
      Raster out(raster.size());
      Mean3x3(raster.data(), out.data(), size.width, size.height);
      EXPECT_EQ(out, SlowMean3x3(raster, size)) << size.width << "x" << size.height;
    }
    // 8 x 255 + 254 = 2294: 254.88 truncates to 254.
    Raster nine(9, 255);
    nine[4] = 254;
    Raster out(9);
    Mean3x3(nine.data(), out.data(), 3, 3);
    EXPECT_EQ(out[4], 254);
  });
}

TEST(RasterFilters, DitherOnlySwapsValues) {
  // Swaps scatter the values but neither make nor lose one.
  const Size size{40, 30};
  Raster raster(static_cast<size_t>(size.width) * size.height);
  for (size_t i = 0; i < raster.size(); ++i) raster[i] = static_cast<uint8_t>(i * 7);
  std::map<uint8_t, int> before, after;
  for (uint8_t v : raster) ++before[v];
  DitherRandom random;
  const Raster original = raster;
  DitherPass(raster.data(), size.width, size.height, random);
  for (uint8_t v : raster) ++after[v];
  EXPECT_EQ(before, after);
  EXPECT_NE(raster, original);
}

}  // namespace
