// Copy between Channels: one channel of the active layer over another, row
// by row, through the selection when asked.
#pragma once

#include "adjust/channels.h"

// Copies channel `origin` over `destination` (numbers of channels.h) on the
// active layer. Each value v of the origin, 255 - v when inverted, is mixed
// into the destination by the selection row (everything when insideOnly is
// off or there is no selection): d = min(255, v (255 - w) + d w), products
// by Mul255. Into the mask only as far as the layer is opaque; into
// brightness through HSV with hue and saturation kept; into the selection
// the raster is made when missing and the selection becomes a bitmap one.
// 1 when it ran, 0 for a channel number outside the table or no raster.
int CopyChannels(Canvas* canvas, int origin, int destination, bool inverted, bool insideOnly);
