// The accurate blend of Double Accuracy: 16 bits a channel, the high byte
// in the plane and the low byte in its accuracyPlane. Protection and
// thickness multiply first here, and dropout acts on the thickness; all
// products are unsigned 32-bit and truncate.
#include <cstdlib>

#include "paint/modes/blend_kernels.h"
#include "pixel/mul_table.h"

namespace {

template <TransparencyBlend How, bool Dropout>
struct Pixels16 {
  static void Run(const BlendRows& rows, unsigned thickness, unsigned density);
};

template <TransparencyBlend How, bool Dropout>
void Pixels16<How, Dropout>::Run(const BlendRows& rows, unsigned thickness, unsigned density) {
  for (int i = 0; i < rows.count; ++i) {
    uint32_t th = thickness;
    if (Dropout && th >= 1 && unsigned(std::rand()) % 255 > density) th = 0;
    const uint32_t q = (255 - rows.protect[i]) * th / 255;
    const uint32_t t16 = rows.tipHigh[i] * 256u + (rows.tipLow ? rows.tipLow[i] : 255u);
    const uint32_t e = t16 * (q * 257) / 65535;
    const uint32_t inv = 65535 - e;
    const uint32_t coverage = How == TransparencyBlend::None ? 0 : rows.transparency[i];
    const uint32_t a16 = coverage * 257;
    uint8_t* hi = rows.dest + 3 * i;
    uint8_t* lo = rows.destLow + 3 * i;
    for (int c = 0; c < 3; ++c) {
      const uint32_t d = hi[c] * 256u + lo[c];
      const uint32_t s16 = rows.source[3 * i + c] * 257u;
      uint32_t out;
      if (How == TransparencyBlend::Over) {
        const uint32_t n = a16 + e;
        out = n == 0 ? s16 : (a16 * d / n + e * s16 / n) * inv / 65535 + e * s16 / 65535;
      } else {
        out = inv * d / 65535 + e * s16 / 65535;
      }
      hi[c] = uint8_t(out >> 8);
      lo[c] = uint8_t(out & 255);
    }
    if constexpr (How == TransparencyBlend::Over) {
      rows.transparency[i] = uint8_t((inv * a16 / 65535 + e) >> 8);
    } else if constexpr (How == TransparencyBlend::Replace) {
      const unsigned e8 = (e >> 8) & 255;
      rows.transparency[i] =
          uint8_t(Mul255(rows.sourceOpacity[i], e8) + Mul255(coverage, 255 - e8));
    }
  }
}

}  // namespace

void Blend16(const BlendRows& rows, TransparencyBlend how, unsigned thickness, unsigned density) {
  DispatchBlend<Pixels16>(rows, how, thickness, density);
}
