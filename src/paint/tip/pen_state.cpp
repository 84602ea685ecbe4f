#include "paint/tip/pen_state.h"

#include <algorithm>
#include <cmath>

#include "paint/tip/pen_record.h"
#include "pixel/hsv.h"
#include "settings/pen_tool_state.h"

namespace {

constexpr int kLastPenMode = 12;
constexpr int kLastTipShape = 15;
constexpr double kHundredths = 100.0;

uint32_t Byte(int32_t v) { return uint32_t(std::clamp(v, 0, 255)); }

}  // namespace

void LoadPenState() {
  ResetPen();
  PenToolState state = ReadPenToolState(settings);
  if (state == PenToolState{}) state = kDefaultPenToolState;
  pen.red = Byte(state.red);
  pen.green = Byte(state.green);
  pen.blue = Byte(state.blue);
  int h = 0, s = 0, v = 0;
  RgbToHsv(int(pen.red), int(pen.green), int(pen.blue), &h, &s, &v, 0);
  pen.hue = uint32_t(h);
  pen.saturation = uint32_t(s);
  pen.value = uint32_t(v);
  pen.mode = uint32_t(std::clamp(state.mode, 0, kLastPenMode));
  pen.colorThickness = Byte(state.colorThickness);
  pen.density = Byte(state.density);
  pen.radiusX = ClampTipRadius(state.radiusX / kHundredths);
  pen.radiusY = ClampTipRadius(state.radiusY / kHundredths);
  pen.tipShape = std::clamp(state.tipShape, 0, kLastTipShape);
}

void StorePenState() {
  PenToolState state{};
  state.red = int32_t(pen.red);
  state.green = int32_t(pen.green);
  state.blue = int32_t(pen.blue);
  state.mode = int32_t(pen.mode);
  state.colorThickness = int32_t(pen.colorThickness);
  state.density = int32_t(pen.density);
  state.radiusX = int32_t(std::lround(ClampTipRadius(pen.radiusX) * kHundredths));
  state.radiusY = int32_t(std::lround(ClampTipRadius(pen.radiusY) * kHundredths));
  state.tipShape = pen.tipShape;
  WritePenToolState(settings, state);
}
