// Drawing the panels' colour areas: pictures computed pixel by pixel from
// the same mappings that the pointer goes through, and plain colour boxes.
#pragma once

#include <windows.h>

#include <functional>

#include "panels/mixer_color.h"

// Fills the item's rectangle from colourAt(x, y), which gives red, green,
// blue in a MixerColor.
void DrawColorPicture(const DRAWITEMSTRUCT& item,
                      const std::function<MixerColor(int x, int y)>& colourAt);
// A box of one colour with a sunken edge; `marked` adds a focus frame.
void DrawColorBox(const DRAWITEMSTRUCT& item, int red, int green, int blue, bool marked);
// A mark that reads on any colour: a small inverted square around (x, y).
void DrawMark(HDC dc, int x, int y);
// A line across a bar at row y (vertical bar) or column x (horizontal).
void DrawBarMark(const DRAWITEMSTRUCT& item, int at, bool vertical);
