// Whole-row helpers for the raster utilities. A Packed plane moves a whole
// row whenever x0 is 0, whatever x1 says, so these utilities always read and
// write whole rows through buffers that hold one.
#pragma once

#include <cstdint>
#include <vector>

#include "store/plane_store.h"

inline bool HasRowDepth(const Plane* plane) { return plane->bits == 8 || plane->bits == 24; }

// A zeroed buffer of one stored row, padding included.
inline std::vector<uint8_t> RowBuffer(const Plane* plane) {
  return std::vector<uint8_t>(plane->stride);
}

inline int ReadWholeRow(Plane* plane, int y, uint8_t* dest) {
  return PlaneStore.ReadRow(plane, y, 0, plane->width - 1, dest);
}

inline int WriteWholeRow(Plane* plane, int y, const uint8_t* src) {
  return PlaneStore.WriteRow(plane, y, 0, plane->width - 1, src);
}
