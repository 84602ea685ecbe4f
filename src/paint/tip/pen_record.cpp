#include "paint/tip/pen_record.h"

#include <cstring>

PenRecord pen;
TipState tipState;

void ResetPen() {
  PlaneStore.FreePlane(&pen.patternImage);
  PlaneStore.FreePlane(&pen.patternAlpha);
  PlaneStore.FreePlane(&pen.tipHigh);
  PlaneStore.FreePlane(&pen.tipLow);
  PlaneStore.FreePlane(&tipState.dotTip);
  std::memset(&pen, 0, sizeof pen);
  pen.colorThickness = 255;
  pen.density = 255;
  tipState = {};
}
