#include "paint/tip/text_tip.h"

#include <algorithm>
#include <vector>

#include "paint/tip/dot_pen.h"
#include "paint/tip/pen_record.h"
#include "resources/strings.h"

TextTipSettings DefaultTextTip() {
  TextTipSettings tip;
  tip.text = kProductName;
  tip.face = "ＭＳ ゴシック";
  return tip;
}

int ClampTextTipSize(int size) { return std::clamp(size, kTextTipMinSize, kTextTipMaxSize); }

int SetTextTip(Plane* rendered) {
  if (!rendered || rendered->bits != 8) return 0;
  int width = std::min(rendered->width, kDotTipLimit);
  int height = std::min(rendered->height, kDotTipLimit);
  Plane* tip = PlaneStore.CreatePlane(width, height, 8, 0, 1, Physical);
  if (!tip) return 0;
  std::vector<uint8_t> row(width);
  for (int y = 0; y < height; ++y) {
    PlaneStore.ReadRow(rendered, y, 0, width - 1, row.data());
    for (uint8_t& v : row) v = uint8_t(255 - v);
    PlaneStore.WriteRow(tip, y, 0, width - 1, row.data());
  }
  PlaneStore.FreePlane(&tipState.dotTip);
  tipState.dotTip = tip;
  return 1;
}
