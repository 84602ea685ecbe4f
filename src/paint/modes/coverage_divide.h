// The exact quotient x / n of the kind-0 blend, where x is a sum weighted
// by coverages that add up to n (1..510, so x is at most 255 n): a
// multiply by a rounded-up reciprocal stands in for the division. With x n
// below 2^32 the error of the reciprocal never reaches the next integer.
#pragma once

#include <cstdint>

constexpr int kMaxCoverageSum = 510;

struct CoverageReciprocals {
  uint64_t of[kMaxCoverageSum + 1];
};

constexpr CoverageReciprocals MakeCoverageReciprocals() {
  CoverageReciprocals table{};
  for (uint64_t n = 1; n <= kMaxCoverageSum; ++n) table.of[n] = (uint64_t(1) << 32) / n + 1;
  return table;
}

inline constexpr CoverageReciprocals kCoverageReciprocals = MakeCoverageReciprocals();

inline unsigned DivideByCoverage(unsigned x, unsigned n) {
  return unsigned((uint64_t(x) * kCoverageReciprocals.of[n]) >> 32);
}
