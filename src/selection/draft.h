// The Draft: the current selection of a canvas in its editable form. The
// shape's geometry lives in the canvas (selectionKind, the box, the point
// list and the raster); what only one canvas at a time can own, the Bezier
// path and the state of a live interaction, lives in the one global Draft.
#pragma once

#include <cstdint>

#include "base/command_ids.h"
#include "document/canvas.h"

// A node of the Bezier path in canvas pixels: c1 leaves this node, c2
// enters the next one.
struct PathNode {
  int32_t x, y, c1x, c1y, c2x, c2y;
};
static_assert(sizeof(PathNode) == 24);

constexpr int kMaxPathNodes = 5120;
// The node table is one zeroed block of this many nodes, a few more than
// a path may use.
constexpr int kPathNodeBlock = 5130;

struct DraftState {
  int32_t active;  // above 0 while an object interaction (Edit Bezier, a float) is live
  PathNode nodes[kPathNodeBlock];
  int32_t nodeCount;
  int32_t closed;        // 1 when the path is closed
  int32_t openIndex;     // the node being placed while a Bezier is drawn by hand
  int32_t selectedNode;  // the node whose handles show, -1 for none
  int32_t angle;         // Edit Bezier's turn in degrees
};

extern DraftState Draft;

// The kinds a Draft can be, beside the tool numbers of the shapes.
constexpr int kNoDraft = 0;

// The Bezier path emptied: no node selected, nothing closed or open.
void ClearPath();
