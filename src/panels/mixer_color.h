// The colour the mixer edits, in both forms at once, and how its wheel,
// bars and number fields turn a pointer or a typed number into it. Hue is
// in degrees, 0..359; the rest 0..255.
#pragma once

struct MixerColor {
  int red = 0, green = 0, blue = 0;
  int hue = 0, saturation = 0, value = 0;
};

// The other form brought in line with the one just changed.
void SetFromRgb(MixerColor* color, int red, int green, int blue);
void SetFromHsv(MixerColor* color, int hue, int saturation, int value);

// The wheel of width `width`, the pointer (dx, dy) from its centre: hue
// from the angle, saturation from the distance. A value of 0 becomes 255,
// and with the right button any value below 255 does.
void PickWheel(MixerColor* color, int dx, int dy, int width, bool rightButton);
// What the wheel shows at (dx, dy): PickWheel's own mapping, so that the
// drawing and the pointer agree.
void WheelHueAt(int dx, int dy, int width, int* hue, int* saturation);
// Where (hue, saturation) lies on the wheel, from its centre: for the mark.
void WheelPoint(int hue, int saturation, int width, int* dx, int* dy);

// The value bar of height `height`, top bright: the value for row y.
int ValueBarAt(int y, int height);
// A colour bar of width `width`: the channel for column x.
int ColorBarAt(int x, int width);
// The right button's slow approach: current one step towards target.
int StepToward(int current, int target);

// The value bar and the colour bars (0 red, 1 green, 2 blue) set.
void SetValue(MixerColor* color, int value);
void SetChannel(MixerColor* color, int channel, int level);

// The number fields, by control number: 105 hue, 106 saturation, 107
// value, 108 red, 109 green, 110 blue; the spin of field f is f + 7.
enum MixerField {
  kFieldHue = 105,
  kFieldSaturation,
  kFieldValue,
  kFieldRed,
  kFieldGreen,
  kFieldBlue
};
constexpr int kFirstMixerField = kFieldHue;
constexpr int kMixerFields = 6;
constexpr int kSpinOffset = 7;

// The number a field shows (through the notation, but for hue), and its
// largest.
int FieldShown(const MixerColor& color, int field);
int FieldTop(int field);
// A number typed into a field: limited to the field's range, read through
// the notation, and the other form brought in line.
void FieldTyped(MixerColor* color, int field, int typed);
