// Dot pens: pictures that become tips. Everything not white counts; the
// tip is cut to the box of it and each pixel becomes its darkness.
#pragma once

#include <string>

#include "store/plane_store.h"

// The largest dot tip; a larger box is cut to its top left part, so that
// every tip fits the dab buffers.
constexpr int kDotTipLimit = 256;

// The 8-bit tip of an 8- or 24-bit picture: the bounding box of pixels
// whose largest channel is below 255 (1 x 1 at the top left when there is
// none), each pixel 255 - (red + green + blue) / 3. Null for another depth
// or when memory fails.
Plane* MakeDotTip(Plane* picture);

// The tip of a pen file; a file that can't be read gives the tip of a
// blank picture.
Plane* LoadDotTip(const std::string& path);
