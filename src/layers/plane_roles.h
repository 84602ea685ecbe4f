// The further planes of a layer as tsl_alpopt ("Add and Delete") manages
// them: which kind a plane is by its flags, adding one of a kind,
// converting one to another kind, and deleting one after a question. The
// layer panel's Add Transparency and Add Mask come here too.
#pragma once

#include "document/canvas.h"

enum class PlaneRole { Mask, Transparency, LineDrawing };
constexpr int kPlaneRoleCount = 3;

constexpr int kAskDeletePlane = 1410;  // "Plane [%s] will be deleted."

// The kind a further plane's flags give it; -1 for none of the three.
int RoleOfPlane(const PlaneSlot& slot);

// A plane in the first free position of the layer of index, its kind flag
// set after the kind flags are cleared; a line drawing starts white. The
// new index, or -1 when the layer is full or memory fails.
int MakePlaneOfRole(Canvas* canvas, int index, PlaneRole role);
// The same, and the panel and the picture learn of it.
int AddPlaneOfRole(Canvas* canvas, int index, PlaneRole role);

// Gives the plane at index (above position 0) another kind by its flags
// alone; the pixels stay. 1, or 0 when there is no such plane.
int ConvertPlane(Canvas* canvas, int index, PlaneRole role);

// Asks string 1410 with the plane's label and deletes it on OK; the active
// plane follows if it was this one or slid down. 1 when it went.
int DeletePlaneAsked(Canvas* canvas, int index);

// Which buttons of the dialog can act with the plane at index selected.
struct PlaneButtons {
  bool add = false;                      // the layer has a free position
  bool convertTo[kPlaneRoleCount] = {};  // a further plane not yet of that kind
  bool remove = false;                   // a further plane
};
PlaneButtons PlaneButtonsFor(const Canvas* canvas, int index);
