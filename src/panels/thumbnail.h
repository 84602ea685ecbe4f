// The thumbnails of the LAYER page's rows: how a plane's picture fits the
// thumbnail window, the small copy itself, and which plane is next to get
// one. The panel keeps them for the rows it shows and drops them whenever
// its rows are made again, since the plane indices change with the stack.
#pragma once

#include "document/canvas.h"

// The picture in a box of boxWidth x boxHeight: scaled by the larger of
// the two ratios, at least a pixel each way, centred.
struct ThumbnailFit {
  int x, y, width, height;
};
ThumbnailFit FitThumbnail(int boxWidth, int boxHeight, int planeWidth, int planeHeight);

// The thumbnail of plane slot i, or null while it is still to be made.
// Written by the thumbnail worker, freed only while no worker runs.
extern Plane* rowThumbnails[kPlaneSlots];
void FreeThumbnail(int index);
void FreeThumbnails();

// The first plane with a row and no thumbnail, in the list's order,
// passing over the one that shows the active mark; -1 when none is left.
int NextThumbnailPlane(const Canvas* canvas);

// A copy of the plane scaled to width x height by nearest pixels; an
// image whose layer has a transparency plane is shown over white. Null
// when the plane has gone or the copy can't be made.
Plane* MakeThumbnail(Canvas* canvas, int index, int width, int height);

// With "No Redrawing Thumbnail" on, the active plane's row shows the mark
// ly_actv instead of a picture that would be redrawn at every stroke.
bool ShowsActiveMark(const Canvas* canvas, int index);
