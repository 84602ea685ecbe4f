// What the CONTROL page sets on the pen besides its tip: the pen mode, the
// two strengths, the speed, the colour mask and the paint options. Each
// setter writes the live value at once, brought into its range.
#pragma once

#include <cstdint>
#include <string>

// The mode strip: seven icon buttons for modes 0..6, and a popup offering
// modes 0..10. Modes 11 and 12 come from their own source set-ups only.
constexpr int kModeButtonCount = 7;
constexpr int kModePopupCount = 11;
constexpr int kColorMaskChoices = 5;  // strings 22000..22004
constexpr int kSpeedSliderMax = 100;
constexpr int kVaguenessMax = 100;

// Mode from a button or the popup: 0 for a number the panel doesn't offer.
int ChoosePenMode(int mode);
// The label of a mode (strings 1600 on), "" past the last.
std::string PenModeLabel(int mode);

void SetColorThickness(int value);  // C/Thick, 0..255
void SetDensity(int value);         // 0..255

// The "Speed" slider stores 100 minus its position as the delay before
// each dab; "Fastest" is no delay.
int SpeedSliderPosition();
void SetSpeedSlider(int position);
void SetFastest();

// The "Color Mask" list and its "Vagueness" slider.
std::string ColorMaskLabel(int choice);
void ChooseColorMask(int choice);
void SetVagueness(int value);

// The "Selection" list of the paint options: what a finished selection
// shape does by itself (strings 8002..8004).
enum ShapeFinish {
  kFinishSelection = 0,     // nothing but the Fill and Line buttons' state
  kFinishStraightLine = 1,  // Line, then Deselect
  kFinishFill = 2,          // Fill, then Deselect, for the closed kinds
};
constexpr int kShapeFinishChoices = 3;
extern int32_t shapeFinish;
std::string ShapeFinishLabel(int choice);
void ChooseShapeFinish(int choice);

// The check boxes of the paint options.
enum class PaintFlag {
  AntiAlias,
  ReflectThick,
  ReflectDensity,
  ReflectSize,
  AutoSmooth,
  MaskOutsideSelection,
};
bool PaintFlagOn(PaintFlag flag);
void SetPaintFlag(PaintFlag flag, bool on);
