// Ordered dither for screens of 15 and 16 bits a pixel: each colour is cut
// to 5 bits and the lost 3 bits decide, by an 8 x 8 pattern fixed to view
// coordinates, whether it rounds up. So flat colours keep their mean and
// the pattern stays put while the view scrolls.
#pragma once

#include <cstdint>

#include "store/dib.h"

// One colour value c of the pixel at view (x, y), dithered.
uint8_t DitherValue(uint8_t c, int x, int y);

// Dithers a 24-bit tile whose top left stands at view (viewX, viewY).
void DitherTile(DibTile* tile, int viewX, int viewY);

// Whether tiles for a screen of this depth are dithered: 15 and 16 bits,
// while the setting asks for it.
bool DitherFor(int displayBits);
