// The tip a dab stamps: a raster of 16-bit strengths kept as two 8-bit
// rasters, high bytes and low bytes. It comes from one of four sources:
// the pattern image used as a stamp, the dot pen (or text) tip, or one of
// the sixteen generated shapes of the pen's radii.
#pragma once

#include <cstdint>

// Bytes of each tip buffer of the dab blender; no tip is larger.
constexpr int kTipBufferBytes = 90000;
constexpr int kTipShapeCount = 16;

// Makes pen.tipHigh and pen.tipLow anew from tipShape and the radii, and
// sets the squared radii and tipAnimated. 0 when the rasters can't be made
// (both are then null).
int BuildTip();

// The tip of the next dab, row after row, into two buffers of
// kTipBufferBytes each; an animated tip is rebuilt first. lowOut may be
// null where the low bytes are not wanted.
void FetchTipRaster(uint8_t* highOut, uint8_t* lowOut, int* outWidth, int* outHeight);

// The smaller of the width and height of the tip FetchTipRaster would give.
double tipMinimum();
