// The preview of tsl_rotate: a small picture of a layer turned by an
// angle, so that the user sees which way a choice turns it.
#pragma once

#include <cstdint>
#include <vector>

#include "document/canvas.h"

// size x size pixels, rows from the top, three bytes a pixel in blue,
// green, red order, no padding. The turned layer is scaled to fit the
// square and centred; positive degrees turn clockwise on the screen. Each
// pixel takes the layer's pixel under its centre, turned back; where the
// layer isn't, the background (0xRRGGBB) shows.
std::vector<uint8_t> RotatePreview(const Canvas* canvas, int layer, double degrees, int size,
                                   uint32_t background);
