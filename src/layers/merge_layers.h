// Merging the picture: into a new canvas (Merge Visible, Merge All
// Layers) or into a new hidden layer of the same canvas.
#pragma once

#include "document/canvas.h"
#include "layers/layer_windows.h"

// Describes in CanvasRequest the merged canvas of source: one layer of the
// source's size, and for Merge All Layers every hidden layer above it.
void RequestMergedCanvas(Canvas* source, MergeKind kind, int mergeOption);

// The content of a merged canvas (modes 2 and 8): the composed picture of
// CanvasRequest.source in layer 0, with its coverage in the transparency
// plane when mergeOption is set; then the hidden layers, whole.
int FillMergedCanvas(Canvas* canvas);

// New Layer with Flattened Image: the composed picture in the first free
// layer, left hidden. Its index; 0 when no layer is free, -1 when a plane
// can't be made.
int NewFlattenedLayer(Canvas* canvas, int option);
