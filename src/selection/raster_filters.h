// The filters of the selection raster, over whole rasters held in memory
// (width x height bytes, rows packed). Each reads one raster and writes
// another, so a pass always works from a copy; rows and columns beyond
// the edges repeat the edge unless said otherwise.
#pragma once

#include <cstdint>
#include <functional>

// N passes of the 3 x 3 minimum (takeMax false) or maximum, each from the
// result of the one before, in one sweep. progress(y) runs before each
// row is written.
void MinMaxSquare(const uint8_t* from, uint8_t* to, int width, int height, int radius, bool takeMax,
                  const std::function<void(int y)>& progress);

// The mean of the 2N x 2N square at offsets -N..N-1 both ways, one pixel
// off centre. Columns outside the raster don't count; a row outside
// counts as the nearest row inside. progress(y) runs before each row.
void SquareMean(const uint8_t* from, uint8_t* to, int width, int height, int radius,
                const std::function<void(int y)>& progress);

// The 3 x 3 mean, sum / 9 truncated.
void Mean3x3(const uint8_t* from, uint8_t* to, int width, int height);

// The dither's random source: any small integers will do, so a xorshift.
struct DitherRandom {
  uint32_t state = 0x2545F491u;
  uint32_t Next() {
    state ^= state << 13;
    state ^= state >> 17;
    state ^= state << 5;
    return state;
  }
};

// One pass of scattering in place: each pixel in raster order swaps with
// the one at a random offset of -4..4 each way, clamped to the raster.
void DitherPass(uint8_t* bytes, int width, int height, DitherRandom& random);
