// Integer conversions between red, green, blue and hue, saturation, value.
// With scaled set, hue runs 0..255 instead of 0..359. Every division
// truncates, in the order written, so the results are exact integers that
// other parts of the program rely on.
#pragma once

// Inputs 0..255. Hue 0..359 (scaled 0..254), s and v 0..255.
void RgbToHsv(int r, int g, int b, int* h, int* s, int* v, int scaled);
// Hue 0..719 (360 and above go round once), scaled 0..255; s and v 0..255.
// Scaled hue is widened by 359 / 255, not 360 / 255: the top of the scaled
// range stays just short of a full turn. Inputs out of range are clamped.
void HsvToRgb(int h, int s, int v, int* r, int* g, int* b, int scaled);
