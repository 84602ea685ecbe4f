#include "panels/mixer_color.h"

#include <algorithm>
#include <cmath>

#include "panels/number_notation.h"
#include "pixel/hsv.h"

namespace {

constexpr double kDegreesPerRadianNegated = -57.29577951308232;
constexpr double kRadiansPerDegree = 0.017453292519943295;

int Byte(int v) { return std::clamp(v, 0, 255); }

int* Channel(MixerColor* color, int channel) {
  return channel == 0 ? &color->red : channel == 1 ? &color->green : &color->blue;
}

}  // namespace

void SetFromRgb(MixerColor* color, int red, int green, int blue) {
  color->red = Byte(red);
  color->green = Byte(green);
  color->blue = Byte(blue);
  RgbToHsv(color->red, color->green, color->blue, &color->hue, &color->saturation, &color->value,
           0);
}

void SetFromHsv(MixerColor* color, int hue, int saturation, int value) {
  color->hue = std::clamp(hue, 0, 359);
  color->saturation = Byte(saturation);
  color->value = Byte(value);
  HsvToRgb(color->hue, color->saturation, color->value, &color->red, &color->green, &color->blue,
           0);
}

void PickWheel(MixerColor* color, int dx, int dy, int width, bool rightButton) {
  int hue = 180 - int(std::atan2(double(dy), double(dx)) * kDegreesPerRadianNegated);
  // Straight left can come out as 360, the same colour as 0.
  if (hue >= 360) hue -= 360;
  const int radius = std::max(1, width / 2);
  const int saturation = Byte(int(std::sqrt(double(dx) * dx + double(dy) * dy)) * 255 / radius);
  int value = color->value;
  if (value == 0 || (rightButton && value < 255)) value = 255;
  SetFromHsv(color, hue, saturation, value);
}

void WheelHueAt(int dx, int dy, int width, int* hue, int* saturation) {
  MixerColor probe;
  probe.value = 255;
  PickWheel(&probe, dx, dy, width, false);
  *hue = probe.hue;
  *saturation = probe.saturation;
}

void WheelPoint(int hue, int saturation, int width, int* dx, int* dy) {
  const double angle = (hue - 180) * kRadiansPerDegree;
  const double distance = saturation * (width / 2) / 255.0;
  *dx = int(std::lround(distance * std::cos(angle)));
  *dy = int(std::lround(distance * std::sin(angle)));
}

int ValueBarAt(int y, int height) {
  if (height < 2) return 255;
  return Byte((height - y - 1) * 255 / (height - 1));
}

int ColorBarAt(int x, int width) {
  if (width < 2) return 255;
  return Byte(x * 255 / (width - 1));
}

int StepToward(int current, int target) {
  return current < target ? current + 1 : current > target ? current - 1 : current;
}

void SetValue(MixerColor* color, int value) {
  SetFromHsv(color, color->hue, color->saturation, value);
}

void SetChannel(MixerColor* color, int channel, int level) {
  *Channel(color, channel) = Byte(level);
  SetFromRgb(color, color->red, color->green, color->blue);
}

int FieldTop(int field) { return field == kFieldHue ? 359 : NotationTop(); }

int FieldShown(const MixerColor& color, int field) {
  switch (field) {
    case kFieldHue:
      return color.hue;
    case kFieldSaturation:
      return ToNotation(color.saturation);
    case kFieldValue:
      return ToNotation(color.value);
    case kFieldRed:
      return ToNotation(color.red);
    case kFieldGreen:
      return ToNotation(color.green);
    case kFieldBlue:
      return ToNotation(color.blue);
  }
  return 0;
}

void FieldTyped(MixerColor* color, int field, int typed) {
  const int number = std::clamp(typed, 0, FieldTop(field));
  const int level = FromNotation(number);
  switch (field) {
    case kFieldHue:
      SetFromHsv(color, number, color->saturation, color->value);
      return;
    case kFieldSaturation:
      SetFromHsv(color, color->hue, level, color->value);
      return;
    case kFieldValue:
      SetValue(color, level);
      return;
    case kFieldRed:
      SetChannel(color, 0, level);
      return;
    case kFieldGreen:
      SetChannel(color, 1, level);
      return;
    case kFieldBlue:
      SetChannel(color, 2, level);
      return;
  }
}
