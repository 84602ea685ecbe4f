#include "paint/control/pen_options.h"

#include <algorithm>

#include "paint/modes/color_mask.h"
#include "paint/modes/place_dab.h"
#include "paint/modes/protection.h"
#include "paint/stroke/stroke_engine.h"
#include "paint/tip/pen_record.h"
#include "resources/strings.h"

namespace {

constexpr int kStringModeLabels = 1600;
constexpr int kModeCount = 13;
constexpr int kStringColorMaskLabels = 22000;
constexpr int kStringShapeFinishLabels = 8002;

uint32_t Byte(int value) { return uint32_t(std::clamp(value, 0, 255)); }

int32_t& FlagWord(PaintFlag flag) {
  switch (flag) {
    case PaintFlag::AntiAlias: return PenBlender.antiAlias;
    case PaintFlag::ReflectThick: return StrokeEngine.reflectOnThick;
    case PaintFlag::ReflectDensity: return StrokeEngine.reflectOnDensity;
    case PaintFlag::ReflectSize: return StrokeEngine.reflectOnSize;
    case PaintFlag::MaskOutsideSelection:
      return protection.maskOutsideSelection;
    case PaintFlag::AutoSmooth: break;
  }
  return StrokeEngine.autoSmooth;
}

}  // namespace

int32_t shapeFinish = kFinishSelection;

std::string ShapeFinishLabel(int choice) {
  return choice >= 0 && choice < kShapeFinishChoices ? StringText(kStringShapeFinishLabels + choice)
                                                     : std::string();
}

void ChooseShapeFinish(int choice) {
  if (choice >= 0 && choice < kShapeFinishChoices) shapeFinish = choice;
}

int ChoosePenMode(int mode) {
  if (mode < 0 || mode >= kModePopupCount) return 0;
  pen.mode = uint32_t(mode);
  return 1;
}

std::string PenModeLabel(int mode) {
  return mode >= 0 && mode < kModeCount ? StringText(kStringModeLabels + mode) : "";
}

void SetColorThickness(int value) { pen.colorThickness = Byte(value); }
void SetDensity(int value) { pen.density = Byte(value); }

int SpeedSliderPosition() {
  return kSpeedSliderMax - std::clamp(int(PenBlender.speedDelay), 0, kSpeedSliderMax);
}
void SetSpeedSlider(int position) {
  PenBlender.speedDelay = kSpeedSliderMax - std::clamp(position, 0, kSpeedSliderMax);
}
void SetFastest() { PenBlender.speedDelay = 0; }

std::string ColorMaskLabel(int choice) {
  return choice >= 0 && choice < kColorMaskChoices ? StringText(kStringColorMaskLabels + choice)
                                                   : "";
}
void ChooseColorMask(int choice) {
  colorMask.choice = std::clamp(choice, 0, kColorMaskChoices - 1);
}
void SetVagueness(int value) { colorMask.vagueness = std::clamp(value, 0, kVaguenessMax); }

bool PaintFlagOn(PaintFlag flag) { return FlagWord(flag) != 0; }
void SetPaintFlag(PaintFlag flag, bool on) { FlagWord(flag) = on ? 1 : 0; }
