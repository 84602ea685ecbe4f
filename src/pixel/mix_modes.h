// The nine mix modes, one pixel at a time: what each does to the source
// colour s against the picture d below before the common blend. The row
// kernels build on these; the vector kernels use them for their tails.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "pixel/hsv_pixel.h"
#include "pixel/mul_table.h"

namespace mix {

// Channel by channel: new s from s and d.
struct Normal {
  static unsigned Channel(unsigned s, unsigned) { return s; }
};
struct Hybrid {
  static unsigned Channel(unsigned s, unsigned d) { return MulTable[s][d]; }
};
struct Lighten {
  static unsigned Channel(unsigned s, unsigned d) { return std::max(s, d); }
};
struct Darken {
  static unsigned Channel(unsigned s, unsigned d) { return std::min(s, d); }
};
struct HighLight {
  static unsigned Channel(unsigned s, unsigned d) { return std::min(255u, s + d); }
};
struct Difference {
  static unsigned Channel(unsigned s, unsigned d) {
    return static_cast<unsigned>(std::abs(static_cast<int>(s) - static_cast<int>(d)));
  }
};
struct Overlay {
  static unsigned Channel(unsigned s, unsigned d) {
    int si = static_cast<int>(s), di = static_cast<int>(d);
    if (di < 128) return static_cast<unsigned>(std::min(255, di * si * 2 / 255));
    return static_cast<unsigned>(std::clamp(255 + (di - 255) * (255 - si) * 2 / 255, 0, 255));
  }
};

// Whole pixels, through hue, saturation and value.
struct Luminosity {
  static void Pixel(const uint8_t* s, const uint8_t* d, uint8_t* out) {
    Hsv below = PixelToHsv(d);
    HsvToPixel({below.h, below.s, ValueOf(s)}, out);
  }
};
struct HueSaturation {
  static void Pixel(const uint8_t* s, const uint8_t* d, uint8_t* out) {
    Hsv above = PixelToHsv(s);
    HsvToPixel({above.h, above.s, ValueOf(d)}, out);
  }
};

template <class Mode>
concept ChannelMode = requires(unsigned c) { Mode::Channel(c, c); };

template <class Mode>
inline void NewSource(const uint8_t* s, const uint8_t* d, uint8_t* out) {
  if constexpr (ChannelMode<Mode>) {
    for (int c = 0; c < 3; ++c) out[c] = static_cast<uint8_t>(Mode::Channel(s[c], d[c]));
  } else {
    Mode::Pixel(s, d, out);
  }
}

// acc = BLEND(acc, mode(src, acc), MUL(cov, keep)) over n pixels. A pixel
// whose a is 0 is left as it is, which is what the blend gives for it.
template <class Mode>
void MixPixels(uint8_t* acc, const uint8_t* src, const uint8_t* cov, unsigned keep, int n) {
  const uint8_t* keepRow = MulTable[keep];
  for (int i = 0; i < n; ++i) {
    unsigned a = keepRow[cov[i]];
    if (a == 0) continue;
    uint8_t* d = acc + 3 * i;
    uint8_t s[3];
    NewSource<Mode>(src + 3 * i, d, s);
    const uint8_t* byA = MulTable[a];
    const uint8_t* byRest = MulTable[255 - a];
    for (int c = 0; c < 3; ++c) d[c] = static_cast<uint8_t>(byRest[d[c]] + byA[s[c]]);
  }
}

// Each colour c = MUL(c, p).
inline void MultiplyColourPixels(uint8_t* bgr, const uint8_t* p, int n) {
  for (int i = 0; i < n; ++i) {
    const uint8_t* byP = MulTable[p[i]];
    for (int c = 0; c < 3; ++c) bgr[3 * i + c] = byP[bgr[3 * i + c]];
  }
}

// cov = MUL(cov, p), or MUL(cov, 255 - p) with complement set.
inline void MultiplyCoveragePixels(uint8_t* cov, const uint8_t* p, int n, bool complement) {
  const unsigned flip = complement ? 255 : 0;
  for (int i = 0; i < n; ++i) cov[i] = MulTable[cov[i]][p[i] ^ flip];
}

}  // namespace mix
