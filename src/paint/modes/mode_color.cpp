// Mode Color: the pen's flat colour, its pattern, or the gradient, cut by
// the Tone Filter. The tone works on coverage (255 paints), which is then
// turned into protection.
#include <cstring>

#include "paint/modes/mode_kernels.h"
#include "paint/modes/pen_modes.h"
#include "paint/tip/pen_record.h"

namespace {

void Invert(uint8_t* row, int count) {
  for (int i = 0; i < count; ++i) row[i] = uint8_t(255 - row[i]);
}

bool PatternActive() {
  return pen.patternActive && pen.patternImage && pen.patternImage->bits == 24;
}

// The pattern moves with the dab when it is the tip itself; otherwise it is
// anchored to the canvas. Its alpha is the coverage, full without one.
void PatternRow(const ModeRows& rows, const RowSpan& span, const Rect& box) {
  Plane* image = pen.patternImage;
  const int ty = Wrap(tipState.patternIsTip ? span.y - box.top : span.y, image->height);
  const int tx = tipState.patternIsTip ? 0 : Wrap(span.x0, image->width);
  std::memset(rows.protect, 255, size_t(span.Count()));
  ReadTiled(image, ty, tx, span.Count(), rows.source);
  const Plane* alpha = pen.patternAlpha;
  if (alpha && alpha->bits == 8 && alpha->width == image->width && alpha->height == image->height)
    ReadTiled(pen.patternAlpha, ty, tx, span.Count(), rows.protect);
}

}  // namespace

// Four pixels at a time, then one by one.
void FillColor(uint8_t* row, int count) {
  const uint8_t pixel[3] = {uint8_t(pen.blue), uint8_t(pen.green), uint8_t(pen.red)};
  uint8_t four[12];
  for (int k = 0; k < 4; ++k) std::memcpy(four + 3 * k, pixel, 3);
  int i = 0;
  for (; i + 4 <= count; i += 4) std::memcpy(row + 3 * i, four, sizeof four);
  for (; i < count; ++i) std::memcpy(row + 3 * i, pixel, 3);
}

bool FlatColorKernel() {
  return pen.mode == kModeColor && pen.colorStyle != 1 && !PatternActive() && !penSources.toneRow;
}

int ColorKernel(Canvas*, const ModeRows& rows, const RowSpan& span, const Rect& box) {
  const int count = span.Count();
  if (pen.colorStyle == 1) {
    // A gradient pen paints nothing until gradients are there to give it.
    if (!penSources.gradientRow) return PaintNothing(rows, span);
    penSources.gradientRow(rows.source, span.y, span.x0, span.x1, box);
    std::memset(rows.protect, 0, size_t(count));
    return kBlendOver;
  }
  const bool pattern = PatternActive();
  if (pattern) {
    PatternRow(rows, span, box);
  } else {
    FillColor(rows.source, count);
    // Uncut, the flat colour covers everything.
    if (!penSources.toneRow) {
      std::memset(rows.protect, 0, size_t(count));
      return kBlendOver;
    }
  }
  CutByTone(span.y, span.x0, span.x1, box, rows.protect, !pattern);
  Invert(rows.protect, count);
  return kBlendOver;
}
