#include "paint/tip/pen_record.h"

#include <cstring>

PenRecord pen;
Plane* dotTip = nullptr;
int32_t dotTipActive = 0;
int32_t patternIsTip = 0;
int32_t dotPenPanel = 0;

void ResetPen() {
  PlaneStore.FreePlane(&pen.patternImage);
  PlaneStore.FreePlane(&pen.patternAlpha);
  PlaneStore.FreePlane(&pen.tipHigh);
  PlaneStore.FreePlane(&pen.tipLow);
  PlaneStore.FreePlane(&dotTip);
  std::memset(&pen, 0, sizeof pen);
  pen.colorThickness = 255;
  pen.density = 255;
  dotTipActive = 0;
  patternIsTip = 0;
  dotPenPanel = 0;
}
