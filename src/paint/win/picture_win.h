// Pictures of the pen's panels on a device context.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

// Draws a picture of blue, green, red triples, rows from the top and no
// padding, with its top left at x, y.
void DrawPicture(HDC dc, int x, int y, int width, int height, const std::vector<uint8_t>& bgr);

// An owner-drawn button of the panels: its face, pressed when `chosen`,
// with the picture centred on it and a highlight frame when chosen.
void DrawPictureButton(const DRAWITEMSTRUCT& item, bool chosen, int pictureWidth,
                       int pictureHeight, const std::vector<uint8_t>& bgr);

// The picture's edge on a button of this size: what is left inside the
// button's face.
int PictureEdge(HWND button);
