#include "paint/control/tip_preview.h"

#include <algorithm>

#include "paint/tip/pen_record.h"
#include "paint/tip/tip.h"
#include "paint/tip/tip_panels.h"

namespace {

constexpr uint8_t kBackground[3] = {kTipPreviewBackground & 0xFF,
                                    (kTipPreviewBackground >> 8) & 0xFF,
                                    (kTipPreviewBackground >> 16) & 0xFF};  // blue, green, red

std::vector<uint8_t> Background(int width, int height) {
  std::vector<uint8_t> bgr(size_t(std::max(width, 0)) * std::max(height, 0) * 3);
  for (size_t i = 0; i < bgr.size(); i += 3) std::copy_n(kBackground, 3, &bgr[i]);
  return bgr;
}

// The plane's shaded picture over the background.
void DrawTip(const Plane* tip, int boxWidth, int boxHeight, std::vector<uint8_t>& bgr) {
  if (!tip || boxWidth <= 0 || boxHeight <= 0) return;
  const BoxFit fit = FitInBox(tip->width, tip->height, boxWidth, boxHeight);
  std::vector<uint8_t> row(tip->width), strongest(fit.width);
  for (int y = 0; y < fit.height; ++y) {
    std::fill(strongest.begin(), strongest.end(), 0);
    for (int ty = y * fit.factor; ty < std::min(tip->height, (y + 1) * fit.factor); ++ty) {
      PlaneStore.ReadRow(const_cast<Plane*>(tip), ty, 0, tip->width - 1, row.data());
      for (int tx = 0; tx < tip->width; ++tx)
        strongest[tx / fit.factor] = std::max(strongest[tx / fit.factor], row[tx]);
    }
    uint8_t* out = &bgr[(size_t(fit.top + y) * boxWidth + fit.left) * 3];
    for (int x = 0; x < fit.width; ++x) std::fill_n(out + x * 3, 3, TipPreviewShade(strongest[x]));
  }
}

}  // namespace

BoxFit FitInBox(int width, int height, int boxWidth, int boxHeight) {
  auto up = [](int n, int d) { return (n + d - 1) / d; };
  // ceil(n / f) <= box exactly when f >= n / box.
  const int factor =
      std::max({1, up(width, std::max(boxWidth, 1)), up(height, std::max(boxHeight, 1))});
  const int w = up(width, factor), h = up(height, factor);
  return {factor, (boxWidth - w) / 2, (boxHeight - h) / 2, w, h};
}

std::vector<uint8_t> TipPreview(int boxWidth, int boxHeight) {
  std::vector<uint8_t> bgr = Background(boxWidth, boxHeight);
  DrawTip(tipState.dotTipActive && tipState.dotTip ? tipState.dotTip : pen.tipHigh, boxWidth, boxHeight, bgr);
  return bgr;
}

std::vector<uint8_t> ShapePicture(int shape, double r, int size) {
  const PenRecord saved = pen;
  pen.tipHigh = pen.tipLow = nullptr;
  pen.tipShape = std::clamp(shape, 0, kTipShapeCount - 1);
  pen.radiusX = pen.radiusY = ClampTipRadius(r);
  std::vector<uint8_t> bgr = Background(size, size);
  if (BuildTip()) DrawTip(pen.tipHigh, size, size, bgr);
  PlaneStore.FreePlane(&pen.tipHigh);
  PlaneStore.FreePlane(&pen.tipLow);
  pen = saved;
  return bgr;
}
