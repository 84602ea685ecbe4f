// What the stroke engine needs of the windows and of subsystems that land
// later. The Win32 side and those subsystems fill `strokeWindows`; tests
// fill it with recorders. A member left empty is a step left out.
#pragma once

#include <functional>

#include "document/canvas.h"
#include "paint/stroke/stroke_outline.h"

struct StrokeWindows {
  // The Draft's overlay (the selection's outline and objects) comes off
  // while a stroke paints, and back after.
  std::function<void(Canvas* canvas, int show)> draftOverlay;
  // The cursor of a resource name ("spoit", "cross"); null for the usual.
  std::function<void(const char* name)> cursor;
  // The colour panel shows the pen's colour anew.
  std::function<void()> colourChanged;
  // A line inverted on the whole screen, in screen pixels.
  std::function<void(int x0, int y0, int x1, int y1)> invertScreenLine;
  // The pen outline inverted on a canvas's displayWnd.
  std::function<void(WindowHandle view, const PenOutline& outline)> drawPenOutline;
};

extern StrokeWindows strokeWindows;
