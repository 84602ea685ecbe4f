// Nearest-neighbour scaling of a composed tile to its view size.
#pragma once

#include "store/dib.h"

// Fills dest (24 bits) from source (24 bits). Output row r reads source row
// min(h - 1, h * r / H), and columns likewise, with w, h the source size
// and W, H the output size. With phase150 set (the 150 % zoom), rows and
// columns whose view position (viewX + c, viewY + r) is 1 mod 3 round up
// instead, so that tiles cut anywhere join without seams. 1, or 0 when a
// tile isn't 24 bits.
int ScaleTile(const DibTile* source, DibTile* dest, int viewX, int viewY, int phase150);
