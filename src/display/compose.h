// Composition: what a rectangle of a canvas looks like, made row by row from
// its layers into a 24-bit tile. The view, merging, flattening, thumbnails
// and the histogram of the picture as shown all go through Compose.
//
// Globals read: the background colour, the outside-display mode and the
// `Darken outside Boundary` flag of the settings record.
#pragma once

#include <cstdint>

#include "document/canvas.h"
#include "store/dib.h"

// The picture of canvas columns x0..x1 and rows y0..y1 (inclusive; they may
// lie outside the canvas) as a new 24-bit tile, column x0 at its column 0,
// chosen by the displayMode of the active plane. shadeForView adds the shading
// of the outside of the selection and of the active plane's boundary;
// baseOpaque starts the picture from the lowest shown layer's colours instead
// of the background colour. Null for an empty rectangle, an unknown display
// mode, a channel view of an empty or 24-bit slot, or when memory fails. The
// caller frees the tile.
DibTile* Compose(Canvas* canvas, int x0, int y0, int x1, int y1, int shadeForView,
                 int baseOpaque);

// The accumulated coverage of all shown layers but High Light ones, as an
// 8-bit tile of the same shape. Columns outside a layer smaller than the
// rectangle take what the coverage row held: callers ask within full-size
// layers.
DibTile* ComposeCoverage(Canvas* canvas, int x0, int y0, int x1, int y1);

// The coverage of one layer (layerFirstIndex = its position 0) over canvas
// row y, columns x0..x1, into out: the transparency plane, or 255 where it is
// missing or switched off, multiplied by each further plane with the
// direct-coverage flag and by the complement of each with the Transparency
// flag. Positions outside the layer's planes keep what they held. 1, or 0
// when there is no such layer or memory fails.
int LayerCoverageRow(Canvas* canvas, int y, int x0, int x1, uint8_t* out, int layerFirstIndex);
