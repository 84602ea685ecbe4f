// The routines that make one row of a composed tile, one per display mode.
// Each writes canvas row y, columns x0..x1, into row (3 bytes a pixel).
#pragma once

#include <cstdint>

#include "document/canvas.h"

// Layers Blended: the whole stack through each layer's mix mode.
void BlendedRow(Canvas* canvas, int y, int x0, int x1, int baseOpaque, uint8_t* row);
// This Layer Only: the active plane's layer over the background.
void ThisLayerRow(Canvas* canvas, int y, int x0, int x1, int baseOpaque, uint8_t* row);
// Channel: the active plane in red or green over the layer in grey.
void ChannelRow(Canvas* canvas, int y, int x0, int x1, int baseOpaque, uint8_t* row);
// Composition: the layer dimmed by the active plane, over black.
void CompositionRow(Canvas* canvas, int y, int x0, int x1, int baseOpaque, uint8_t* row);
// Thickness: the active plane in grey.
void ThicknessRow(Canvas* canvas, int y, int x0, int x1, int baseOpaque, uint8_t* row);

// Selection shading and boundary darkening of a composed row, for the view.
bool ViewShadingApplies(const Canvas* canvas);
void ShadeRow(Canvas* canvas, int y, int x0, int x1, uint8_t* row);
