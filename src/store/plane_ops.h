// Raster utilities over PlaneStore: cropping, scaling, pasting, blurring.
// They serve 8- and 24-bit planes and reach pixels only through the store's
// clipped row operations, so every storage kind behaves the same.
#pragma once

#include <cstdint>

#include "store/plane_store.h"

// A new plane of columns x0..x1 and rows y0..y1 (inclusive, in either
// order), same bits, kind and palette; what lies outside the source reads 0.
Plane* CropPlane(Plane* plane, int x0, int y0, int x1, int y1);

// A new plane of width x height. A width or height of 1 (or less) gives a
// blank plane of the source's bits. Without smoothing: nearest neighbour into
// a plane of the given kind. With smoothing: SmoothResize with the given
// cubic kernel (0 for the usual kernel 2).
Plane* ResizePlane(Plane* plane, int width, int height, uint32_t kind, int smooth, int kernel);

// Resamples into a new Work Buffer plane: a copy at equal size, cubic
// interpolation when growing, area average when shrinking, and cubic up then
// area down when one axis grows and the other shrinks. Kernel 1 or 2; 0 is 2.
// 8-bit planes resample their one channel and keep their palette.
Plane* SmoothResize(Plane* source, int width, int height, int kernel);

// Copies src into dest with its top left at (x, y), clipped; both 8 or both
// 24 bits. 1, or 0 for mismatched or unsupported depths.
int PastePlane(Plane* dest, Plane* src, int x, int y);

// 3 x 3 box blur of an 8-bit plane in place, edges clamped, truncating.
// 1, or 0 for another depth.
int BoxBlur(Plane* plane);
