// The raster filters thirty-two bytes at a time; only for processors with
// AVX2 (VectorPaths()).
#pragma once

#include <cstdint>
#include <functional>

namespace raster_avx2 {

void MinMaxSquare(const uint8_t* from, uint8_t* to, int width, int height, int radius, bool takeMax,
                  const std::function<void(int y)>& progress);
void SquareMean(const uint8_t* from, uint8_t* to, int width, int height, int radius,
                const std::function<void(int y)>& progress);
void Mean3x3(const uint8_t* from, uint8_t* to, int width, int height);

}  // namespace raster_avx2
