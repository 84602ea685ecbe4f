// The fixed tips: a solid block and a frame. Neither is animated.
#include "paint/tip/tip_shapes.h"

// The block lies from the top left corner, not about the middle, and its
// low bytes stay 0 except for the single pixel of a zero radius.
void BlockTip(TipRaster& tip, const TipGeometry& g) {
  if (g.rx <= 0 && g.ry <= 0) {
    tip.Put(0, 0, 255, 255);
    return;
  }
  int w = int(2 * g.rx + 1), h = int(2 * g.ry + 1);
  for (int y = 0; y < h; ++y)
    for (int x = 0; x < w; ++x) tip.Put(x, y, 255, 0);
}

void FrameTip(TipRaster& tip) {
  for (int x = 0; x < tip.width; ++x) {
    tip.Put(x, 0, 255, 255);
    tip.Put(x, tip.height - 1, 255, 255);
  }
  for (int y = 0; y < tip.height; ++y) {
    tip.Put(0, y, 255, 255);
    tip.Put(tip.width - 1, y, 255, 255);
  }
}
