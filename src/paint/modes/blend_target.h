// BlendRow in its steps, for painters that lay many rows of one kind on
// the active plane: what is decided once for the plane and the kind, and
// what is done for each row.
#pragma once

#include <cstdint>

#include "document/canvas.h"
#include "paint/modes/blend_kernels.h"

struct BlendTarget {
  Canvas* canvas;
  PlaneSlot* slot;  // the active slot; no plane: every row is refused
  bool image;       // the active plane is the image plane of its layer
  bool accurate;    // 16 bits, with the slot's accuracyPlane
  TransparencyBlend how;
  unsigned thickness, density;
};

// Where the rows of the plane are read to and blended in place. dest and
// transparency have slack (dab_rows.h); destLow is used when accurate.
struct TargetRows {
  uint8_t* dest;
  uint8_t* destLow;
  uint8_t* transparency;
};

BlendTarget TargetOf(Canvas* canvas, int kind);
// Whether BlendRow takes canvas columns x0..x1 of row y: on the plane and
// on the canvas, and no longer than the pipeline's rows.
bool TakesRow(const BlendTarget& target, int y, int x0, int x1);
// Rows y0 to y0 + n - 1 of the plane (and of its low bytes and its
// transparency where the blend takes them), row i going stride pixels
// after row 0 in each of rows. The rows are read plane by plane, so that
// the processor fetches many of them at once.
void ReadTargetRows(const BlendTarget& target, int y0, int n, int x0, int x1,
                    const TargetRows& rows, int stride);
// The blend of count pixels; the tip and protection as BlendRow takes
// them. With slack, every row given has slack (dab_rows.h).
void BlendTargetRow(const BlendTarget& target, const uint8_t* source, const uint8_t* tipHigh,
                    const uint8_t* tipLow, const uint8_t* sourceOpacity, const uint8_t* protect,
                    const TargetRows& rows, int count, bool slack);
// Back to the planes, rows y0 to y0 + n - 1 laid as ReadTargetRows reads them.
void WriteTargetRows(const BlendTarget& target, int y0, int n, int x0, int x1,
                     const TargetRows& rows, int stride);
