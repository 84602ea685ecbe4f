#include "panels/palette_panel.h"

#include <algorithm>

#include "paint/control/control_page.h"
#include "paint/tip/pen_record.h"
#include "panels/number_notation.h"
#include "resources/strings.h"
#include "settings/settings.h"

namespace {

constexpr int kStringDragTip = 26250;
constexpr int kStringPreview = 26251;
constexpr int kStringModels = 26252;  // one a model

}  // namespace

MixerColor PenColor() {
  MixerColor color;
  color.red = int(pen.red);
  color.green = int(pen.green);
  color.blue = int(pen.blue);
  color.hue = std::clamp(int(pen.hue), 0, 359);
  color.saturation = std::clamp(int(pen.saturation), 0, 255);
  color.value = std::clamp(int(pen.value), 0, 255);
  return color;
}

void SetPenColor(const MixerColor& color) {
  pen.red = uint32_t(color.red);
  pen.green = uint32_t(color.green);
  pen.blue = uint32_t(color.blue);
  pen.hue = uint32_t(color.hue);
  pen.saturation = uint32_t(color.saturation);
  pen.value = uint32_t(color.value);
  RepaintControlPanel();
}

void PickHueBox(MixerColor* color, int x, int y, int width, int height) {
  const int hue = width < 2 ? 0 : std::clamp(x, 0, width - 1) * 359 / (width - 1);
  const int saturation = ValueBarAt(std::clamp(y, 0, std::max(0, height - 1)), height);
  SetFromHsv(color, hue, saturation, color->value == 0 ? 255 : color->value);
}

void HueBoxPoint(int hue, int saturation, int width, int height, int* x, int* y) {
  *x = hue * std::max(0, width - 1) / 359;
  *y = height - 1 - saturation * std::max(0, height - 1) / 255;
}

int CurrentColorModel() {
  return settings.colorModel >= 0 && settings.colorModel < kColorModels ? settings.colorModel
                                                                        : kModelRgb;
}

int BarLevel(const MixerColor& color, int bar) {
  if (CurrentColorModel() == kModelHsv)
    return bar == 0 ? color.hue * 255 / 359 : bar == 1 ? color.saturation : color.value;
  return bar == 0 ? color.red : bar == 1 ? color.green : color.blue;
}

void SetBarLevel(MixerColor* color, int bar, int level) {
  level = std::clamp(level, 0, 255);
  if (CurrentColorModel() == kModelRgb) {
    SetChannel(color, bar, level);
  } else if (bar == 0) {
    SetFromHsv(color, level * 359 / 255, color->saturation, color->value);
  } else if (bar == 1) {
    SetFromHsv(color, color->hue, level, color->value);
  } else {
    SetValue(color, level);
  }
}

MixerColor BarColorAt(const MixerColor& color, int bar, int level) {
  MixerColor shown = color;
  SetBarLevel(&shown, bar, level);
  return shown;
}

std::string ColorModelLabel(int model) { return StringText(kStringModels + model); }

std::string PreviewText(int red, int green, int blue) {
  const int y = (299 * red + 587 * green + 114 * blue) / 1000;
  const int u = (-169 * red - 331 * green + 500 * blue) / 1000 + 128;
  const int v = (500 * red - 419 * green - 81 * blue) / 1000 + 128;
  return FormatString(kStringPreview, red, green, blue, red, green, blue, y, u, v);
}

std::string DragTipText(const MixerColor& color) {
  return FormatString(kStringDragTip, color.hue, ToNotation(color.saturation),
                      ToNotation(color.value));
}

int CellAtPoint(int x, int y, int width, int height) {
  if (x < 0 || y < 0 || x >= width || y >= height) return -1;
  return y * kCellRows / height * kCellColumns + x * kCellColumns / width;
}
