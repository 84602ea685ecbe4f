// Whole layers copied from one canvas to another, as they are or made
// over: the duplicates and the merges that keep layers.
#pragma once

#include <functional>

#include "base/rect.h"
#include "document/canvas.h"

// Makes the new plane of one position from the old one; null when memory
// fails.
using PlaneCopier = std::function<Plane*(Plane* source, int position)>;

// Gives the layer `to` from's eight slots, placed at `place`, with a plane
// made by copy for each of from's planes (up to the first empty position).
// Only when all are made are to's old planes freed: 1; else 0 and `to`
// stands as it was.
int CopyLayerPlanes(PlaneSlot* to, const PlaneSlot* from, const Rect& place,
                    const PlaneCopier& copy);
// The same, plane for plane and in place.
int CopyLayer(PlaneSlot* to, const PlaneSlot* from);

// Describes in CanvasRequest a canvas of mode made from source, with the
// first layerCount layers of source's sizes, places and planes.
void RequestLayersOf(Canvas* source, int mode, int layerCount);
