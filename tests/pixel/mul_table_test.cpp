// The table and every row kernel against the arithmetic, over all inputs:
// the vector forms replace the table's lookups and must agree everywhere.
#include "pixel/mul_table.h"

#include <gtest/gtest.h>

#include <vector>

#include "pixel/mix_rows.h"
#include "support/pixel_reference.h"
#include "support/vector_paths.h"

namespace {

using RowKernels = BothPathsTest;

constexpr int kPairs = 65536;

TEST(MulTable, HoldsTheRoundedProductOfEveryPair) {
  for (unsigned k = 0; k < 256; ++k)
    for (unsigned v = 0; v < 256; ++v) {
      ASSERT_EQ(MulTable[k][v], (k * v + 128) / 255) << k << " x " << v;
      ASSERT_EQ(Mul255(k, v), Mul255(v, k));
    }
  // 1 x 127 rounds up from 127.5 / 255 with the + 128; a blend's terms
  // round on their own, so 1 over 1 at 128 makes 2.
  EXPECT_EQ((std::vector<int>{Mul255(255, 255), Mul255(1, 127), Mul255(1, 126),
                              Blend255(10, 250, 0), Blend255(10, 250, 255), Blend255(1, 1, 128)}),
            (std::vector<int>{255, 1, 0, 10, 250, 2}));
}

TEST_P(RowKernels, MultiplyEveryPair) {
  std::vector<uint8_t> cov(kPairs), flipped(kPairs), p(kPairs), bgr(3 * kPairs);
  for (int i = 0; i < kPairs; ++i) {
    cov[i] = flipped[i] = uint8_t(i);
    p[i] = uint8_t(i >> 8);
    for (int c = 0; c < 3; ++c) bgr[3 * i + c] = uint8_t(i + 85 * c);
  }
  MultiplyCoverage(cov.data(), p.data(), kPairs, false);
  MultiplyCoverage(flipped.data(), p.data(), kPairs, true);
  MultiplyColours(bgr.data(), p.data(), kPairs);
  for (int i = 0; i < kPairs; ++i) {
    const unsigned x = i & 255, y = i >> 8;
    ASSERT_EQ(cov[i], ref::Mul(x, y)) << x << " x " << y;
    ASSERT_EQ(flipped[i], ref::Mul(x, 255 - y)) << x << " x " << 255 - y;
    for (int c = 0; c < 3; ++c) ASSERT_EQ(bgr[3 * i + c], ref::Mul((i + 85 * c) & 255, y));
  }
}

// MUL(m, 255 - opacityLoss) for every pair, seen through a white source over
// black, where the blend gives a back as it is.
TEST_P(RowKernels, OpacityScalesEveryCoverage) {
  std::vector<uint8_t> cov(256), src(3 * 256, 255);
  for (int m = 0; m < 256; ++m) cov[m] = uint8_t(m);
  for (unsigned keep = 0; keep < 256; ++keep) {
    std::vector<uint8_t> acc(3 * 256, 0);
    MixRow(1, acc.data(), src.data(), cov.data(), keep, 256);
    for (unsigned m = 0; m < 256; ++m)
      ASSERT_EQ(acc[3 * m], ref::Mul(m, keep)) << m << ", " << keep;
  }
}

// Each mode for every pair of source and lower colour, fully covered, at
// three partial coverages, and at a coverage that runs through every value
// with each lower colour and with each source colour: every pair each term
// of the blend takes.
TEST_P(RowKernels, EveryModeForEveryPair) {
  std::vector<uint8_t> src(3 * kPairs), below(3 * kPairs), acc, varying(kPairs);
  for (int i = 0; i < kPairs; ++i) {
    varying[i] = uint8_t(3 * i + (i >> 8));
    for (int c = 0; c < 3; ++c) {
      src[3 * i + c] = uint8_t(i + 31 * c);
      below[3 * i + c] = uint8_t((i >> 8) + 57 * c);
    }
  }
  for (int mode = 1; mode <= 9; ++mode)
    for (int a : {255, 1, 128, 200, -1}) {
      SCOPED_TRACE(testing::Message() << "mode " << mode << ", a " << a);
      const std::vector<uint8_t> cov = a < 0 ? varying : std::vector<uint8_t>(kPairs, uint8_t(a));
      acc = below;
      MixRow(mode, acc.data(), src.data(), cov.data(), 255, kPairs);
      for (int i = 0; i < kPairs; ++i) {
        uint8_t mixed[3];
        ref::ModePixel(mode, &src[3 * i], &below[3 * i], mixed);
        for (int c = 0; c < 3; ++c)
          if (acc[3 * i + c] != ref::Blend(below[3 * i + c], mixed[c], cov[i]))
            FAIL() << "pixel " << i << " colour " << c << ": " << int(acc[3 * i + c]);
      }
    }
  // Unknown modes change nothing.
  for (int mode : {0, 10, -1}) {
    acc = below;
    MixRow(mode, acc.data(), src.data(), varying.data(), 255, kPairs);
    EXPECT_EQ(acc, below) << "mode " << mode;
  }
}

INSTANTIATE_TEST_SUITE_P(Kernels, RowKernels, ::testing::Bool(), PathName);

}  // namespace
