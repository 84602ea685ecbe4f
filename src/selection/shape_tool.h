// A tool that draws a Draft: four routines the engine dispatches to, by
// the tool in use for a press and by the canvas's selectionKind for the
// outline and the hover cursor.
#pragma once

#include <functional>
#include <string>

#include "document/canvas.h"

struct ShapeTool {
  // The cursor the pointer earns over the shape ("posmove", "move",
  // "posmove2"), empty for none.
  std::function<std::string(Canvas*)> hover;
  // A press of the left button: a peg, else the body, else a new shape.
  std::function<void(Canvas*)> press;
  // The peg menu of the point tools: 1 when a peg was under the pointer.
  std::function<int(Canvas*)> pegMenu;
  // Draws the shape once by inversion; a second call erases it.
  std::function<void(Canvas*)> outline;
};

// id is a tool number (cmd::kSelectionBox...), which is also the kind the
// tool leaves in selectionKind.
void RegisterShapeTool(int id, ShapeTool tool);
// Null when no tool of that number is registered.
const ShapeTool* ShapeToolOf(int id);
void ClearShapeTools();

// The polygon's press without its new shape: a peg, then the body, 1 when
// one took the press. The wire's press tries it first, since the wire
// leaves a polygon; the polygon tool sets it.
extern std::function<int(Canvas*)> polygonPegOrBody;
