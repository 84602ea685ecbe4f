// The two resamplers behind SmoothResize. Each makes a new Work Buffer plane
// of the source's bits (and palette) and works on every byte of a pixel as
// its own channel, so 8- and 24-bit planes share the arithmetic.
#pragma once

#include "store/plane_store.h"

// A new Work Buffer plane shaped like source at width x height, palette copied.
Plane* NewResamplePlane(const Plane* source, int width, int height);

// Cubic interpolation through integer tap tables of kernel 1 or 2.
Plane* CubicResample(Plane* source, int width, int height, int kernel);

// Area average in doubles: each output pixel is the overlap-weighted mean of
// the source pixels under it.
Plane* AreaAverage(Plane* source, int width, int height);
