// Thirty-two pixels at a time in 16-bit lanes (see display/avx2_bytes.h
// for why the products are exact).
#include "pixel/mix_rows_avx2.h"

#include "pixel/avx2_bytes.h"
#include "pixel/mix_modes.h"

namespace avx2 {
namespace {

// The mix modes on 32 colour bytes: new s from s and d.
struct Normal {
  using Scalar = mix::Normal;
  AVX2_CODE static __m256i Apply(__m256i s, __m256i) { return s; }
};
struct Hybrid {
  using Scalar = mix::Hybrid;
  AVX2_CODE static __m256i Apply(__m256i s, __m256i d) { return Mul8(s, d); }
};
struct Lighten {
  using Scalar = mix::Lighten;
  AVX2_CODE static __m256i Apply(__m256i s, __m256i d) { return _mm256_max_epu8(s, d); }
};
struct Darken {
  using Scalar = mix::Darken;
  AVX2_CODE static __m256i Apply(__m256i s, __m256i d) { return _mm256_min_epu8(s, d); }
};
struct HighLight {
  using Scalar = mix::HighLight;
  AVX2_CODE static __m256i Apply(__m256i s, __m256i d) { return _mm256_adds_epu8(s, d); }
};
struct Difference {
  using Scalar = mix::Difference;
  AVX2_CODE static __m256i Apply(__m256i s, __m256i d) {
    return _mm256_or_si256(_mm256_subs_epu8(s, d), _mm256_subs_epu8(d, s));
  }
};
// Below 128: 2ds / 255. From 128: 255 - 2(255 - d)(255 - s) / 255, which is
// what the signed form truncating toward zero gives. Complementing d and s
// where d >= 128, and the result after, makes both the same product; it
// stays below 255, so neither clamp ever acts.
struct Overlay {
  using Scalar = mix::Overlay;
  AVX2_CODE static __m256i Twice(__m256i x, __m256i y) {
    __m256i product = _mm256_mullo_epi16(x, y);
    return Div255Plus1(_mm256_add_epi16(_mm256_add_epi16(product, product), _mm256_set1_epi16(1)));
  }
  AVX2_CODE static __m256i Apply(__m256i s, __m256i d) {
    __m256i upper = _mm256_cmpgt_epi8(Zero(), d);  // d >= 128
    __m256i x = _mm256_xor_si256(d, upper);
    __m256i y = _mm256_xor_si256(s, upper);
    __m256i f = _mm256_packus_epi16(Twice(Low16(x), Low16(y)), Twice(High16(x), High16(y)));
    return _mm256_xor_si256(f, upper);
  }
};

template <class Mode>
AVX2_CODE void MixRowOf(uint8_t* acc, const uint8_t* src, const uint8_t* cov, unsigned keep,
                        int n) {
  const __m256i keepBytes = _mm256_set1_epi8(static_cast<char>(keep));
  int i = 0;
  for (; i + 32 <= n; i += 32) {
    __m256i a = Load(cov + i);
    if (keep != 255) a = Mul8(a, keepBytes);  // MUL(m, 255) is m
    if (_mm256_testz_si256(a, a)) continue;  // a of 0 leaves the picture
    uint8_t* d = acc + 3 * i;
    const uint8_t* s = src + 3 * i;
    __m256i spread[3];
    Spread(a, spread);
    const bool opaque = _mm256_movemask_epi8(_mm256_cmpeq_epi8(a, Ones())) == -1;
    for (int part = 0; part < 3; ++part) {
      __m256i below = Load(d + 32 * part);
      __m256i mixed = Mode::Apply(Load(s + 32 * part), below);
      // BLEND(d, s, 255) is s.
      Store(d + 32 * part, opaque ? mixed : Mix8(below, mixed, spread[part]));
    }
  }
  mix::MixPixels<typename Mode::Scalar>(acc + 3 * i, src + 3 * i, cov + i, keep, n - i);
}

AVX2_CODE void MultiplyColoursOf(uint8_t* bgr, const uint8_t* p, int n) {
  int i = 0;
  for (; i + 32 <= n; i += 32) {
    __m256i spread[3];
    Spread(Load(p + i), spread);
    for (int part = 0; part < 3; ++part) {
      uint8_t* c = bgr + 3 * i + 32 * part;
      Store(c, Mul8(Load(c), spread[part]));
    }
  }
  mix::MultiplyColourPixels(bgr + 3 * i, p + i, n - i);
}

AVX2_CODE void MultiplyCoverageOf(uint8_t* cov, const uint8_t* p, int n, bool complement) {
  const __m256i flip = complement ? Ones() : Zero();
  int i = 0;
  for (; i + 32 <= n; i += 32)
    Store(cov + i, Mul8(Load(cov + i), _mm256_xor_si256(Load(p + i), flip)));
  mix::MultiplyCoveragePixels(cov + i, p + i, n - i, complement);
}

}  // namespace

MixKernel MixKernelOf(int mixMode) {
  switch (mixMode) {
    case 1: return MixRowOf<Normal>;
    case 2: return MixRowOf<Hybrid>;
    case 3: return MixRowOf<Lighten>;
    case 4: return MixRowOf<Darken>;
    case 7: return MixRowOf<HighLight>;
    case 8: return MixRowOf<Difference>;
    case 9: return MixRowOf<Overlay>;
    default: return nullptr;  // Luminosity and Hue and Saturation work on whole pixels
  }
}

void MultiplyColours(uint8_t* bgr, const uint8_t* p, int n) { MultiplyColoursOf(bgr, p, n); }

void MultiplyCoverage(uint8_t* cov, const uint8_t* p, int n, bool complement) {
  MultiplyCoverageOf(cov, p, n, complement);
}

}  // namespace avx2
