// What keeps paint off a pixel, and what the kernels read of one: the mask
// and the further planes of a layer, the selection, and the layer's
// opacity. Values run 0 (paints) to 255 (protects).
#pragma once

#include <cstdint>

#include "document/canvas.h"

struct ProtectionOptions {
  // "Disable Mask": the layer's mask and further planes protect nothing.
  int32_t disableMask = 0;
  // "Mask Outside Selection": what lies outside the selection is protected.
  int32_t maskOutsideSelection = 0;
  // Set by Fill while it runs: the selection protects whatever the option.
  int32_t fillInProgress = 0;
  // The layer panel's [T] toggle: painting leaves the transparency plane be.
  int32_t protectTransparency = 0;
};
extern ProtectionOptions protection;

// Protection of the layer whose position 0 is slot layerBase, for canvas
// columns x0..x1 of rows y0 to y0 + n - 1, row i at i * stride into out:
// the mask (unless off), then further planes up to the first empty slot,
// flag 2 adding the row and flag 3 its inverse. Zeros with "Disable Mask".
void ReadProtectionRows(Canvas* canvas, int y0, int n, int x0, int x1, uint8_t* out, int stride,
                        int layerBase);
// The same for one row.
inline void ReadProtectionRow(Canvas* canvas, int y, int x0, int x1, uint8_t* out,
                              int layerBase) {
  ReadProtectionRows(canvas, y, 1, x0, x1, out, 0, layerBase);
}
// The same for one pixel.
uint8_t ReadProtectionPixel(Canvas* canvas, int x, int y, int layerBase);

// Opacity of the layer: its transparency plane (unless off) or 255, times
// each further plane with flag 4, times the inverse of each with flag 5.
void ReadOpacityRow(Canvas* canvas, int y, int x0, int x1, uint8_t* out, int layerBase);


// Ors src into dst, n bytes.
void OrRow(uint8_t* dst, const uint8_t* src, int n);

// How the kernels read the picture: for canvas columns x0..x1 of row y,
// each pixel is refused (ok 0) when any protection lies on it (mask and
// further planes of an image plane, the selection with "Mask Outside
// Selection"); otherwise its colour is read with x and y clamped to the
// active plane, and its opacity from the transparency plane (0 with none,
// and on planes other than the image plane).
void ReadPenRow(Canvas* canvas, int y, int x0, int x1, uint8_t* color24, uint8_t* opacity,
                uint8_t* ok);
// The same for one pixel; 0 when refused.
int ReadPenPixel(Canvas* canvas, int x, int y, uint32_t* outRed, uint32_t* outGreen,
                 uint32_t* outBlue, uint32_t* outOpacity);
