// The seed fill: the area of like colours around a pixel becomes the
// selection, found by a span fill over the source of seed_source.h.
#pragma once

#include "base/rect.h"
#include "document/canvas.h"

// Pending runs of the span fill; a fill that would need more stops there
// and keeps what it marked.
constexpr int kSeedStackLimit = 7500;
constexpr int kStringPushEscToCancel = 15008;

// The box a press starts from: nothing marked yet.
constexpr Rect kNoSeedExtent{999999, 999999, -1, -1};

// Fills from (x, y), clamped to the canvas: the pixels whose values all
// lie within seedTolerance of the start's get 0 in the raster (made when
// missing). Not adding, the rest of the raster is 255 and the box becomes
// the marked extent; adding (only with a raster already there) the rest
// keeps its values and the box becomes the canvas. Esc stops the fill and
// keeps what it marked. 0, with nothing changed, when its memory can't be
// had.
int SeedFill(Canvas* canvas, int x, int y, bool adding);

// The fill at the pointer, adding while Shift is held: CommitShape's step
// for the seed fill's kind.
void SeedFillAtPointer(Canvas* canvas);

// The tool's press: no Deselect, the kind and an empty box, then the commit.
void PressSeedFill(Canvas* canvas);
