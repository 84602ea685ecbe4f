// What the view draws on displayWnd: composed pictures copied as they are,
// and the lines and frames of overlays, drawn by inversion so that a
// second drawing takes them off.
#pragma once

#include <cstdint>

#include "display/view_windows.h"
#include "document/canvas.h"
#include "store/dib.h"

void DrawViewPicture(Canvas* canvas, const DibTile* picture, int x, int y, const Rect& part);
void DrawGridLine(Canvas* canvas, const GridLine& line, uint32_t red, uint32_t green,
                  uint32_t blue, int invert, const Rect& clip);
void InvertViewBox(Canvas* canvas, const Rect& box);
