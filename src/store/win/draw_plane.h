// Painting a plane on a device context through a temporary Dib.
#pragma once

#include <windows.h>

#include <cstdint>

#include "store/plane_store.h"

// The whole plane at (x, y); 1, or 0 when the Dib can't be made or nothing
// was drawn.
int DrawPlane(HDC hdc, Plane* plane, int x, int y);
// The plane stretched to w x h, a line at a time with the raster operation
// rop; h must be 2 or more. 1, or 0 when the Dib can't be made.
int DrawPlaneStretched(HDC hdc, Plane* plane, int x, int y, int w, int h, uint32_t rop);
