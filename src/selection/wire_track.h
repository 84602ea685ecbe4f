// How the wire finds the edge it follows: the edge strength of the active
// plane (Sobel over luma), the best pixel near a walked position, and the
// track of best pixels along a segment. Every read is from the active
// plane, each pixel at its nearest place on the layer.
#pragma once

#include <vector>

#include "display/grid.h"
#include "document/canvas.h"

// The strongest edge within 24 pixels of the cursor, less four for each
// pixel of distance; the first of the best wins, rows from the top. When
// nothing scores above 0 the cursor stays and the strength is 0.
struct EdgeSnap {
  CanvasPoint at;
  int strength;
};
EdgeSnap SnapToEdge(Canvas* canvas, CanvasPoint cursor);

// The pixel within 10 of the walked position that scores best by edge
// strength, nearness and likeness to lastEdgeStrength; the walked
// position when none scores above 0.
CanvasPoint BestPixel(Canvas* canvas, CanvasPoint walked, int lastEdgeStrength);

// The best pixels at every second step along the longer axis from `from`
// towards `to` (the end itself not walked), then thinned.
std::vector<CanvasPoint> Track(Canvas* canvas, CanvasPoint from, CanvasPoint to,
                               int lastEdgeStrength);

// Drops the middle of every three neighbours that lie almost on a line
// (twice their triangle's area below 10), until none is left.
void ThinTrack(std::vector<CanvasPoint>* points);
