// The zoom of a view: a small table of exact ratios, and the only
// conversions between canvas pixels and view pixels. Everything is integer
// arithmetic that truncates, so a conversion is the same wherever it runs.
#pragma once

#include <cstdint>
#include <string>

#include "document/canvas.h"

constexpr int kMinZoomStep = -3;
constexpr int kMaxZoomStep = 10;

struct ZoomRatio {
  int num, den;
};

// The ratio of a zoomStep; a step outside -3..10 counts as the nearer end.
// The step shown as "75%" is 2/3 in truth.
ZoomRatio ZoomRatioOf(int zoomStep);

// The name of a step on the menu and in the status bar: "25%" .. "1000%".
std::string ZoomText(int zoomStep);

// The zoom read-out of the status bar: the step's name on a white field at
// 100 %, on a yellow tint above and a cyan tint below.
struct ZoomReadout {
  std::string text;
  uint8_t red, green, blue;
};
ZoomReadout ZoomReadoutOf(int zoomStep);

// Canvas to view. With centre set, an enlarging integer zoom gives the
// middle of the view pixels that show canvas pixel v, so that overlays sit
// in the pixel's middle.
int ToView(const Canvas* canvas, int v, int centre = 0);
// View to canvas.
int ToCanvas(const Canvas* canvas, int v);

// The whole canvas in view pixels.
int ZoomedWidth(const Canvas* canvas);
int ZoomedHeight(const Canvas* canvas);
