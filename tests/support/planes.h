// Planes read and written whole, as plain bytes row after row without
// padding, and single pixels read back, for the tests' checks.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <vector>

#include "store/plane_store.h"

// Every row must read; a null plane has no bytes.
inline std::vector<uint8_t> PlaneBytes(Plane* plane) {
  std::vector<uint8_t> bytes;
  if (!plane) return bytes;
  const size_t width = size_t(plane->width) * plane->bytesPerPixel;
  std::vector<uint8_t> row(plane->stride);  // room for a whole stored row
  for (int y = 0; y < plane->height; ++y) {
    EXPECT_EQ(1, PlaneStore.ReadRow(plane, y, 0, plane->width - 1, row.data())) << "row " << y;
    bytes.insert(bytes.end(), row.begin(), row.begin() + width);
  }
  return bytes;
}

inline void PutPlaneBytes(Plane* plane, const std::vector<uint8_t>& bytes) {
  const size_t width = size_t(plane->width) * plane->bytesPerPixel;
  for (int y = 0; y < plane->height; ++y)
    PlaneStore.WriteRow(plane, y, 0, plane->width - 1, &bytes[width * y]);
}

inline Plane* PlaneOfBytes(int width, int height, int bits, const std::vector<uint8_t>& bytes,
                           uint32_t kind = Physical) {
  Plane* plane = PlaneStore.CreatePlane(width, height, bits, 0, 0, kind);
  PutPlaneBytes(plane, bytes);
  return plane;
}

// Red, green, blue of a 24-bit pixel; 999 where it can't be read.
inline std::array<uint32_t, 3> PixelRgb(Plane* plane, int x, int y) {
  std::array<uint32_t, 3> rgb{999, 999, 999};
  PlaneStore.ReadPixel24(plane, x, y, &rgb[0], &rgb[1], &rgb[2]);
  return rgb;
}

inline uint32_t PixelValue(Plane* plane, int x, int y) {
  uint32_t value = 999;
  PlaneStore.ReadPixel8(plane, x, y, &value);
  return value;
}
