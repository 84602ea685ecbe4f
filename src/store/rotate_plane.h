// Turning a plane by an angle about its centre. Sampling is bilinear, with
// source positions held to 1/256 of a pixel, so quarter turns copy pixels
// exactly. Positive angles turn clockwise on the screen (rows run down).
#pragma once

#include <cstdint>

#include "store/plane_store.h"

// The size of the box that holds a width x height plane turned by degrees:
// the turned extent rounded up, less a hair so that exact quarter turns
// don't grow; at least 1 each way.
void RotatedSize(int width, int height, double degrees, int* outWidth, int* outHeight);

// A new plane of width x height of the given kind, its centre on the
// source's centre, showing the source turned by degrees; what comes from
// outside the source is `fill`. 8 or 24 bits; null when memory fails or
// for another depth.
Plane* RotatePlane(Plane* source, double degrees, int width, int height, uint8_t fill,
                   uint32_t kind);
