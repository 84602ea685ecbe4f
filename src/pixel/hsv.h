// Integer conversions between red, green, blue and hue, saturation, value:
// the one form the pen, the palette, the mixer and the adjustments share.
// With scaled set, hue runs 0..255 instead of 0..359. Every division
// truncates, in the order written, so the results are exact integers that
// other parts of the program rely on.
#pragma once

// Inputs 0..255 (others are clamped). Hue 0..359, scaled 0..255 as
// degrees x 255 / 359; s and v 0..255.
void RgbToHsv(int r, int g, int b, int* h, int* s, int* v, int scaled);
// Scaled hue is widened by 359 / 255 first. A hue of 360 or above goes
// round once, so 0..719 are colours; a hue still 360 or more after that is
// black, unless s is 0 (grey). Negative hues read as 0, s and v are clamped
// to 0..255. Going there and back can move a channel by a few steps.
void HsvToRgb(int h, int s, int v, int* r, int* g, int* b, int scaled);
