// The icons of the mode strip, drawn here rather than kept as bitmaps:
// "st_normal", "st_low", "st_drag", "st_crcl", "st_ave", "st_filt" and
// "st_ers" for pen modes 0 to 6.
#pragma once

#include <windows.h>

constexpr int kModeIconEdge = 16;

// Draws the icon of mode 0..6 with its top left at x, y.
void DrawModeIcon(HDC dc, int x, int y, int mode);
