// The 8-bit blend. Strength e = Mul255(Mul255(tip, thickness) after
// dropout, 255 - protection); each channel becomes
// Mul255(d, 255 - e) + Mul255(s, e), with the transparency plane either
// mixed towards the source opacity (kind 1) or covered (kind 0, where the
// colour mixes with what is there by their coverages first).
#include "paint/modes/dab_rows.h"
#include "paint/modes/pen_rows.h"

namespace {

uint8_t strengthRow[kPenRowPixels + kRowBlock];

}  // namespace

void Blend8(const BlendRows& rows, TransparencyBlend how, unsigned thickness, unsigned density) {
  Strengths8(rows.tipHigh, rows.protect, thickness, density, strengthRow, rows.count, rows.slack);
  BlendColors8(ColorRows{rows.source, strengthRow, rows.sourceOpacity, rows.dest, rows.transparency,
                         rows.count, rows.slack},
               how);
}
