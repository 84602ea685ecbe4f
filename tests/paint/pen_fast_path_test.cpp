// The dab's row kernels, plain and vector, against the arithmetic written
// out: every pair of bytes each product takes, every quotient the Over
// blend forms, and rows of every length up to past the vector blocks, with
// and without slack.
#include "paint/modes/coverage_divide.h"
#include "paint/modes/dab_rows.h"
#include "paint/modes/dab_rows_avx2.h"
#include "pen_mode_support.h"
#include "pixel/vector_paths.h"
#include "support/vector_paths.h"

namespace {

using namespace pentest;

unsigned Mix(unsigned keep, unsigned put, unsigned a) {
  return std::min(255u, ref::Mul(keep, 255 - a) + ref::Mul(put, a));
}

class RowKernels : public BothPathsTest {
 protected:
  // n values from f(i), then slack of zeros.
  template <typename F>
  static std::vector<uint8_t> Row(int n, F f) {
    std::vector<uint8_t> row(size_t(n) + 2 * kRowBlock, 0);
    for (int i = 0; i < n; ++i) row[i] = uint8_t(f(i));
    return row;
  }
  std::mt19937 random{77};
};

constexpr int kPairs = 65536;

// Every pair of neighbours at every fraction across, then every pair of
// shifted rows at every fraction down (a fraction of 0 across passes a
// column through unchanged).
TEST_P(RowKernels, ShiftTakesEveryPairAtEveryFraction) {
  static const std::vector<uint8_t> mix = [] {  // Mix(keep, put, f) at f << 16 | keep << 8 | put
    std::vector<uint8_t> table(256 * kPairs);
    for (unsigned i = 0; i < table.size(); ++i)
      table[i] = uint8_t(Mix(i >> 8 & 255, i & 255, i >> 16));
    return table;
  }();
  const int n = 2 * kPairs;
  const auto padded = Row(n + 1, [](int i) { return i % 2 ? (i / 2) >> 8 : (i / 2) & 255; });
  const auto lower = Row(n, [](int i) { return i * 7; });
  const auto same = Row(kPairs + 1, [](int i) { return (i - 1) >> 8; });
  const auto below = Row(kPairs, [](int i) { return i & 255; });
  std::vector<uint8_t> upper(n + kRowBlock), out(n + kRowBlock);
  for (unsigned f = 0; f < 256; ++f) {
    ShiftRow(padded.data(), lower.data(), f, 255 - f, upper.data(), out.data(), n);
    for (int c = 0; c < n; ++c)
      if (upper[c] != mix[f << 16 | padded[c + 1] << 8 | padded[c]] ||
          out[c] != mix[(255 - f) << 16 | upper[c] << 8 | lower[c]])
        FAIL() << "fraction " << f << " column " << c;
    ShiftRow(same.data(), below.data(), 0, f, upper.data(), out.data(), kPairs);
    for (int c = 0; c < kPairs; ++c)
      if (out[c] != mix[f << 16 | c]) FAIL() << "fy " << f << " pair " << c << ": " << int(out[c]);
  }
}

// Every tip value with every protection at every thickness; then, with
// and without dropout (the same draws as the plain code), rows of every
// length up to past three blocks, with and without slack.
TEST_P(RowKernels, StrengthsOfEveryPair) {
  const auto tip = Row(kPairs, [](int i) { return i & 255; });
  const auto protect = Row(kPairs, [](int i) { return i >> 8; });
  std::vector<uint8_t> out(kPairs + kRowBlock);
  for (unsigned k = 0; k < 256; ++k) {
    Strengths8(tip.data(), protect.data(), k, 255, out.data(), kPairs, k % 2 == 0);
    for (int i = 0; i < kPairs; ++i)
      if (out[i] != ref::Mul(ref::Mul(i & 255, k), 255 - (i >> 8)))
        FAIL() << "thickness " << k << " pair " << i << ": " << int(out[i]);
  }
  for (unsigned density : {130u, 255u})
    for (int n = 1; n <= 3 * kRowBlock; ++n)
      for (bool slack : {false, true}) {
        // Exact rows, so that reading past them shows under the sanitizers.
        std::vector<uint8_t> t(n), p(n), got(n + kRowBlock);
        for (int i = 0; i < n; ++i)
          t[i] = uint8_t(random()), p[i] = uint8_t(random() % 3 ? 0 : random());
        if (slack) t.resize(n + kRowBlock), p.resize(n + kRowBlock);
        std::srand(unsigned(n));
        Strengths8(t.data(), p.data(), 200, density, got.data(), n, slack);
        std::srand(unsigned(n));
        for (int i = 0; i < n; ++i) {
          unsigned a = ref::Mul(t[i], 200);
          if (a > 0 && density < 255 && unsigned(std::rand()) % 255 > density) a = 0;
          ASSERT_EQ(got[i], ref::Mul(a, 255 - p[i])) << "length " << n << " pixel " << i;
        }
      }
}

// Blends count pixels whose inputs f(i, s, e, S, d, A) gives, against the
// 8-bit blend of a full tip at the strength e.
template <typename F>
void CheckBlend(TransparencyBlend how, int count, bool slack, F f) {
  const size_t room = size_t(count) + kRowBlock;
  std::vector<uint8_t> s(3 * room), S(room), e(room), d(3 * room), A(room);
  for (int i = 0; i < count; ++i) f(i, &s[3 * i], &e[i], &S[i], &d[3 * i], &A[i]);
  std::vector<uint8_t> wantD = d, wantA = A;
  if (!slack) s.resize(3 * size_t(count)), S.resize(count);
  BlendColors8(ColorRows{s.data(), e.data(), S.data(), d.data(), A.data(), count, slack}, how);
  for (int i = 0; i < count; ++i)
    RefBlend8(&s[3 * i], &wantD[3 * i], e[i], 0,
              how == TransparencyBlend::None ? nullptr : &wantA[i], S[i],
              how == TransparencyBlend::Over ? 0 : 1, 255, 255, std::rand);
  for (auto* row : {&d, &wantD}) row->resize(3 * size_t(count));
  for (auto* row : {&A, &wantA}) row->resize(how == TransparencyBlend::None ? 0 : count);
  ASSERT_EQ(d, wantD) << count << " pixels";
  ASSERT_EQ(A, wantA) << count << " pixels";
}

// Every strength with every lower colour (and, for the transparency, every
// coverage) against source colours that change from pass to pass; the Over
// blend over every coverage and strength; and rows of every length up to
// past three blocks.
TEST_P(RowKernels, ColourBlendOfEveryPair) {
  for (auto how : {TransparencyBlend::None, TransparencyBlend::Replace, TransparencyBlend::Over}) {
    SCOPED_TRACE(int(how));
    const bool over = how == TransparencyBlend::Over;
    for (unsigned pass = 0; pass < 8; ++pass)
      CheckBlend(how, kPairs, pass % 2,
                 [&](int i, uint8_t* s, uint8_t* e, uint8_t* S, uint8_t* d, uint8_t* A) {
                   *e = uint8_t(i >> 8), *A = uint8_t(over ? i : i * 3 + pass),
                   *S = uint8_t(i * 5 + pass * 33);
                   for (int c = 0; c < 3; ++c)
                     d[c] = uint8_t(over ? i * 11 + pass * 37 + c : i + c),
                     s[c] = uint8_t(i * 7 + pass * 29 + 85 * c);
                 });
    for (int count = 1; count <= 100; ++count)
      CheckBlend(how, count, count % 2 == 0,
                 [&](int, uint8_t* s, uint8_t* e, uint8_t* S, uint8_t* d, uint8_t* A) {
                   *e = uint8_t(random() % 4 ? random() : 0),
                   *A = uint8_t(random() % 4 ? random() : 0);
                   *S = uint8_t(random());
                   for (int c = 0; c < 3; ++c) d[c] = uint8_t(random()), s[c] = uint8_t(random());
                 });
  }
}

INSTANTIATE_TEST_SUITE_P(Pen, RowKernels, ::testing::Bool(), PathName);

// The Over blend's division, by reciprocals and in single floats, for every
// sum it can be given by every coverage sum n (0 standing for 1 in floats).
TEST(CoverageQuotients, EveryQuotientIsExact) {
  for (unsigned n = 1; n <= kMaxCoverageSum; ++n)
    for (unsigned x = 0; x <= 255 * n; ++x)
      if (DivideByCoverage(x, n) != x / n) FAIL() << x << " / " << n;
  if (!VectorPathsAvailable()) GTEST_SKIP() << "no AVX2";
  std::vector<int32_t> x, n, q;
  for (int32_t coverage = 0; coverage <= 510; ++coverage) {
    const int32_t divisor = std::max(coverage, 1);
    x.clear();
    for (int32_t sum = 0; sum <= 255 * divisor || x.size() % 8; ++sum) x.push_back(sum);
    n.assign(x.size(), coverage);
    q.assign(x.size(), -1);
    avx2::CoverageQuotientBlocks(x.data(), n.data(), q.data(), int(x.size() / 8));
    for (size_t i = 0; i < x.size(); ++i)
      if (q[i] != x[i] / divisor) FAIL() << x[i] << " / " << divisor << ": " << q[i];
  }
}

}  // namespace
