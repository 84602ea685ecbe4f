// The 8-bit blend. Strength e = Mul255(Mul255(tip, thickness) after
// dropout, 255 - protection); each channel becomes
// Mul255(d, 255 - e) + Mul255(s, e), with the transparency plane either
// mixed towards the source opacity (kind 1) or covered (kind 0, where the
// colour mixes with what is there by their coverages first).
#include <cstdlib>

#include "display/mul_table.h"
#include "paint/blend_kernels.h"
#include "paint/coverage_divide.h"

namespace {

template <TransparencyBlend How, bool Dropout>
struct Pixels8 {
  static void Run(const BlendRows& rows, unsigned thickness, unsigned density);
};

template <TransparencyBlend How, bool Dropout>
void Pixels8<How, Dropout>::Run(const BlendRows& rows, unsigned thickness, unsigned density) {
  const uint8_t* thick = MulTable[thickness];
  for (int i = 0; i < rows.count; ++i) {
    unsigned a = thick[rows.tipHigh[i]];
    if (Dropout && a > 0 && unsigned(std::rand()) % 255 > density) a = 0;
    const unsigned e = MulTable[a][255 - rows.protect[i]];
    const uint8_t* keep = MulTable[255 - e];
    const uint8_t* put = MulTable[e];
    uint8_t* d = rows.dest + 3 * i;
    const uint8_t* s = rows.source + 3 * i;
    if constexpr (How == TransparencyBlend::Over) {
      const unsigned coverage = rows.transparency[i];
      const unsigned n = coverage + e;
      for (int c = 0; c < 3; ++c) {
        if (n == 0) {
          d[c] = s[c];
        } else {
          const unsigned m = DivideByCoverage(coverage * d[c] + e * s[c], n);
          d[c] = uint8_t(keep[m] + put[s[c]]);
        }
      }
      rows.transparency[i] = uint8_t(keep[coverage] + put[255]);
    } else {
      if (e == 0) continue;  // Mul255(d, 255) is d: nothing changes
      for (int c = 0; c < 3; ++c) d[c] = uint8_t(keep[d[c]] + put[s[c]]);
      if constexpr (How == TransparencyBlend::Replace)
        rows.transparency[i] = uint8_t(put[rows.sourceOpacity[i]] + keep[rows.transparency[i]]);
    }
  }
}

}  // namespace

void Blend8(const BlendRows& rows, TransparencyBlend how, unsigned thickness, unsigned density) {
  DispatchBlend<Pixels8>(rows, how, thickness, density);
}
