// What the composition routines share: the global row buffers, clipped row
// reads of a layer's planes, and the rows of the tile being made. Position k
// of every row buffer stands for canvas column x0 + k of the current request.
#pragma once

#include <cstdint>

#include "document/canvas.h"
#include "store/dib.h"

// Colour and coverage rows for this many layers at once: the blended stack
// reads a batch of layers before it mixes them, so that the reads of a
// small tile's rows, scattered over many planes, overlap in memory.
constexpr int kLayerBatch = 8;

struct ComposeRowBuffers {
  uint8_t* sources = nullptr;    // kLayerBatch rows of 3 bytes a pixel: layers' colours
  uint8_t* coverages = nullptr;  // kLayerBatch rows: layers' coverage
  uint8_t* plane = nullptr;      // one 8-bit plane's row
  uint8_t* bounce = nullptr;     // a whole stored row, for reads that move one
  int64_t pixels = 0;
  int64_t bounceBytes = 0;

  uint8_t* Source(int batchIndex) { return sources + batchIndex * 3 * pixels; }
  uint8_t* Coverage(int batchIndex) { return coverages + batchIndex * pixels; }
};

// Shared by all composition; nothing re-enters it.
extern ComposeRowBuffers composeRows;

// Makes the buffers hold rows of `pixels`; false when memory fails.
bool EnsureComposeRows(int64_t pixels);

// The buffer positions first..last of a request (columns x0..x1) that lie
// in a layer's columns.
struct LayerSpan {
  int first;
  int last;
  int Count() const { return last - first + 1; }
};

bool RowInLayer(const PlaneSlot& slot, int y);
// False when no column of x0..x1 lies in the layer.
bool SpanOfLayer(const PlaneSlot& slot, int x0, int x1, LayerSpan* span);

// Reads row `row` of the plane, plane columns first..last, into dest (dest
// holds column `first` at its start). Columns outside the plane are left as
// they were. False for another depth than bytesPerPixel or nothing inside.
bool ReadPlaneColumns(Plane* plane, int row, int first, int last, unsigned bytesPerPixel,
                      uint8_t* dest);

// A plane of the layer of `slot` at canvas row y over the span, into the
// request's row `row` (position 0 = column x0).
bool ReadLayerSpan(Plane* plane, const PlaneSlot& slot, int y, int x0, const LayerSpan& span,
                   unsigned bytesPerPixel, uint8_t* row);

// A hint that the plane's row for canvas row y over the span is wanted
// soon (the store's PrefetchRows).
void PrefetchLayerSpan(const Plane* plane, const PlaneSlot& slot, int y, int x0,
                       const LayerSpan& span);

// The background colour of the settings over n pixels.
void FillBackground(uint8_t* row, int n);

// Row y (0 the top) of a tile, in its bottom-up block.
uint8_t* TileRow(DibTile* tile, int y);
