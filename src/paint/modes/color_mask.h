// The colour mask of the freehand tools: pixels whose colour is not near a
// key colour are protected for the length of a stroke.
#pragma once

#include <cstdint>

#include "document/canvas.h"

struct ColorMaskOptions {
  // The "Color Mask" list (strings 22000 on): 0 "None", 1 "StartPosition",
  // 2 "UpperLeft Color", 3 "White", 4 "Black".
  int32_t choice = 0;
  // The "Vagueness" slider, 0..100: how far each channel may be from the key.
  int32_t vagueness = 0;
};
extern ColorMaskOptions colorMask;
// Ors the colour mask into protectRow for canvas columns x0..x1 of row y,
// making the map at the first row of a stroke's first dab. The box centre
// gives the key of choice 1.
void ApplyColorMask(Canvas* canvas, uint8_t* protectRow, int y, int x0, int x1, int centreX,
                    int centreY);
// Whether the colour mask takes part now (a choice made, a freehand tool).
bool ColorMaskActive();
// The map of the stroke goes; each stroke calls this at its end.
void FreeColorMaskMap();
