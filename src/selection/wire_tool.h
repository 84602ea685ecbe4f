// The wire (20009): a polygon whose edges follow the edges of the picture
// while the pointer moves, point by point in a click loop of its own. It
// leaves the kind 20004; the kind 20009 stays understood, as a polygon,
// for selection files that hold it.
#pragma once

#include "document/canvas.h"

// The edge strength where the run began, kept for the whole run.
extern int lastEdgeStrength;

// The run from the press to the finishing click: the start snapped to an
// edge, Track on each long enough move, Shift for straight rubber lines.
void RunWire(Canvas* canvas);

// Registers the tool's routines under 20009.
void InstallWire();
