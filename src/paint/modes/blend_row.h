// The last step of everything that paints: a row of source colour laid on
// the active plane through a tip row, by the kind of blend, in 8 bits or,
// when the active slot has an accuracyPlane, in 16 bits.
#pragma once

#include <cstdint>

#include "document/canvas.h"

// Blends canvas columns x0..x1 of row y. tipLowRow may be null (all 255 in
// 16 bits). With addProtection, protectRow is first made here from the
// layer's protection and, with "Mask Outside Selection", the selection.
// Rows off the plane or the canvas are refused.
void BlendRow(Canvas* canvas, const uint8_t* sourceRow, const uint8_t* tipHighRow,
              const uint8_t* tipLowRow, const uint8_t* sourceOpacityRow, uint8_t* protectRow,
              int kind, int y, int x0, int x1, int addProtection);
