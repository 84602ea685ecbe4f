// Smooth Zoom: not a view but a change of the canvas. Each plane is
// parked whole in a file, and the slot gets an enlarged copy of the part
// inside the chosen rectangle; at the end the enlarged planes are reduced
// and pasted back into the parked ones. The canvas keeps its size meanwhile.
#pragma once

#include <string>

#include "document/canvas.h"

constexpr int kSmoothZoomFactors[] = {2, 4, 8, 16, 32, 64};

constexpr int kStringLayersCannotMove = 1401;
constexpr int kStringLayersCannotResize = 1402;
constexpr int kStringNotInSmoothZoom = 1413;

// The folder of the parked planes: the program's temporary folder, ending
// in a separator. The shell sets it at start.
extern std::string smoothZoomFolder;

// "%s%04d%03d%02d.zmt": folder, canvas serial, layer, position. Two
// canvases can thus be in Smooth Zoom at once.
std::string SmoothZoomFile(const Canvas* canvas, int layer, int position);

// Enlarges the rectangle at left, top of canvasWidth / factor by
// canvasHeight / factor, by the resampler, smoothed if smooth is set. 1, or
// 0 when Smooth Zoom is in force already, the rectangle is empty, or a
// plane can't be parked (string 1301; nothing changes then).
int EnterSmoothZoom(Canvas* canvas, int left, int top, int factor, int smooth);

// Reduces every enlarged plane, smoothed, into its parked plane and
// deletes the files. 1, or 0 when Smooth Zoom isn't in force.
int LeaveSmoothZoom(Canvas* canvas);

// While Smooth Zoom is in force, shows the string (1401, 1402 or 1413) and
// answers 1: the caller then refuses.
int RefusedInSmoothZoom(const Canvas* canvas, int stringId);
