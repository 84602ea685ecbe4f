// Coverage and colour rows of one layer, over the span of a request that
// lies in the layer, for the composition routines.
#pragma once

#include <cstdint>

#include "display/compose_rows.h"

// The layer's coverage over the span of row y into cov; row y must lie in
// the layer.
void SpanCoverage(const PlaneSlot* layer, int y, int x0, const LayerSpan& span, uint8_t* cov);

// Multiplies the colours of the source row by every `Line Draw` plane of the
// layer, positions 1..7 up to the first empty one.
void ApplyLineDraw(const PlaneSlot* layer, int y, int x0, const LayerSpan& span, uint8_t* bgr);
