#include "paint/stroke/stroke_pressure.h"

#include <algorithm>

#include "paint/modes/pen_modes.h"
#include "paint/stroke/stroke_engine.h"
#include "paint/tip/pen_record.h"
#include "paint/tip/tip.h"
#include "pixel/mul_table.h"

TabletLink tabletLink;

namespace {

constexpr double kOneIn255 = 0.00392156862745098;

uint32_t Scaled(uint32_t value, int pressure) {
  return Mul255(std::min<uint32_t>(value, 255), static_cast<unsigned>(pressure));
}

}  // namespace

void UseStylusEraser() {
  if (StrokeEngine.savedMode < 0) StrokeEngine.savedMode = static_cast<int32_t>(pen.mode);
  pen.mode = kModeEraser;
}

int ReadTabletSample(TabletPacket* out, int first) {
  if (tabletLink.state != kTabletUsable || !tabletLink.readSample) return 0;
  return tabletLink.readSample(out, first);
}

int ApplyPressure(int first, int pressure) {
  StrokeEngineObject& e = StrokeEngine;
  if (tabletLink.state != kTabletUsable) return 0;
  if (!first && !e.tabletSeen) return 0;
  e.savedPen = pen;
  const bool reflect =
      e.reflectOnThick || e.reflectOnDensity || (e.reflectOnSize && !tipState.dotTipActive);

  bool packet = pressure >= 0;
  if (pressure < 0) {
    TabletPacket sample{};
    if (ReadTabletSample(&sample, first)) {
      packet = true;
      if (sample.orientation < 0) UseStylusEraser();
      pressure = sample.pressure;
    } else if (e.savedMode >= 0) {
      pen.mode = kModeEraser;
    }
  }
  if (!reflect) return 0;

  pressure = std::clamp(pressure, 0, 255);
  const int result = pressure != 0;
  if (first) {
    e.tabletSeen = packet ? 1 : 0;
    if (!packet) return result;
  }
  // Pen size alone thins the colour too; that is how the option works.
  if (e.reflectOnThick || e.reflectOnSize) pen.colorThickness = Scaled(pen.colorThickness, pressure);
  if (e.reflectOnDensity) pen.density = Scaled(pen.density, pressure);
  if (!e.reflectOnSize || tipState.dotPenPanel) return result;
  pen.radiusX = pen.radiusX * pressure * kOneIn255;
  pen.radiusY = pen.radiusY * pressure * kOneIn255;
  BuildTip();
  return result;
}

void RestorePen() {
  const StrokeEngineObject& e = StrokeEngine;
  if (tabletLink.state != kTabletUsable || !e.tabletSeen) return;
  Plane* const high = pen.tipHigh;
  Plane* const low = pen.tipLow;
  pen = e.savedPen;
  pen.tipHigh = high;
  pen.tipLow = low;
}
