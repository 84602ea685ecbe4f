// Resize by sides: a modeless session over one layer. Each side moves out
// (Expand) or in (Shrink) by its amount when checked; a box inverted on
// the view shows where the layer's edges would go, and dragging one of its
// edges sets that side's amount. OK applies, and for the base layer the
// canvas follows.
#pragma once

#include "base/rect.h"
#include "document/canvas.h"
#include "layers/layer_windows.h"

constexpr int kMaxSideAmount = 1000;
// How near an edge of the box, in view pixels, a press takes that edge.
constexpr int kEdgeGrip = 4;

// The sides of the dialog; they survive between uses.
extern SideChoice resizeSides;

// Opens the session and its dialog on the layer of planeIndex; during a
// Smooth Zoom string 1402 and nothing opens. 1 when it opened.
int ResizeLayerBySides(Canvas* canvas, int planeIndex);
bool LayerResizeOpen();

// The layer's rectangle once the sides apply, in canvas pixels.
Rect ResizedBox(const PlaneSlot& image, const SideChoice& sides);

// The dialog's lines changed: the box follows.
void ResizeSidesChanged(const SideChoice& sides);
// A left press on the view: 1 when it took an edge of the box and dragged
// it (the amounts follow, and the dialog hears of them).
int PressResizeBox(Canvas* canvas);
// OK: the layer takes the new box and the session ends. 0 when the size
// would go below 1 (string 6000): nothing changes and the dialog stays.
int ApplyResizeBySides();
// Cancel, or the canvas going away: the box comes off and the session ends.
void CloseResizeBySides();

// A plane of the box's size holding source, which stood at `from`, at its
// place; new space white and opaque, a mask (position 1) clear.
Plane* PlaneOnBox(Plane* source, int position, const Rect& from, const Rect& box);

// The canvas is going away: a session on it ends, and its dialog closes.
void ResizeCanvasGoing(Canvas* canvas);

// The resize itself, outside any session: 1, or 0 with nothing changed.
int ResizeLayer(Canvas* canvas, int planeIndex, const SideChoice& sides);
