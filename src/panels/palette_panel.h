// What the colour panel above the palette cells decides: the hue and
// saturation box, the value bar and the three colour bars set the pen's
// colour; the preview's text; the drag tip; which cell a point hits.
#pragma once

#include <string>

#include "panels/mixer_color.h"

// The pen's colour as the mixer holds it, and back into the pen (which
// repaints the control panel's pages).
MixerColor PenColor();
void SetPenColor(const MixerColor& color);

// Box 100: hue 0..359 across, saturation 255 at the top to 0 at the
// bottom. A pen value of 0 becomes 255, so that a pick shows a colour.
void PickHueBox(MixerColor* color, int x, int y, int width, int height);
// Where (hue, saturation) lies in the box, for its mark.
void HueBoxPoint(int hue, int saturation, int width, int height, int* x, int* y);

// settings.colorModel: what the three bars 110..112 show.
enum ColorModel { kModelRgb = 0, kModelHsv = 1 };
constexpr int kColorModels = 2;
int CurrentColorModel();
// The level bar `bar` (0..2) shows, 0..255 (hue scaled to a byte), and
// the colour with that bar set to level.
int BarLevel(const MixerColor& color, int bar);
void SetBarLevel(MixerColor* color, int bar, int level);
// The colour bar `bar` shows at `level`, the others as they are: for
// drawing the bar.
MixerColor BarColorAt(const MixerColor& color, int bar, int level);
// The popup's item of model `model`.
std::string ColorModelLabel(int model);

// The preview's box: hexadecimal, red, green, blue, luminance and
// chrominance.
std::string PreviewText(int red, int green, int blue);
// The tip that follows a drag on the box or the value bar.
std::string DragTipText(const MixerColor& color);

// The cell under (x, y) in an area of width x height that holds a page's
// 28 cells in 7 columns of 4 rows; -1 outside.
constexpr int kCellColumns = 7;
constexpr int kCellRows = 4;
int CellAtPoint(int x, int y, int width, int height);
