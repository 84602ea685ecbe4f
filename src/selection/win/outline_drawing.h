// The Draft's outlines on the view: every drawing here undoes itself when
// drawn twice, so erasing needs no saved pixels.
#pragma once

#include <cstdint>
#include <string>

#include "base/rect.h"
#include "document/canvas.h"
#include "selection/selection_windows.h"

void InvertLine(Canvas* canvas, OutlinePen pen, int x0, int y0, int x1, int y1);
void InvertBox(Canvas* canvas, const Rect& box);
void InvertArc(Canvas* canvas, const Rect& bounds);
void ColouredLine(Canvas* canvas, int x0, int y0, int x1, int y1, uint32_t colour);
void ColouredBox(Canvas* canvas, const Rect& box, uint32_t colour);
void InvertText(Canvas* canvas, int x, int y, const std::string& text);
