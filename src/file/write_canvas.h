// Writing a canvas through the writer of its file name's extension. The
// writer pulls rows: a layer's own rows for a format that keeps layers,
// else the composed picture. The file is written under a temporary name
// beside it and put in its place only when the writer succeeded, so a
// failed save never touches the file that was there.
#pragma once

#include <string>

#include "document/canvas.h"

// Extensions whose files keep the layers.
bool LayerAware(const std::string& path);

// Writes the canvas to path; left -1 writes it whole, else the rectangle
// left..right, top..bottom as one picture (partial 1: layer 0's
// description with the active layer's rows). saved is set only when the
// writer succeeded. 0 when the save failed (1301 was shown where the
// writer failed); 1 also when the user declined the flat format.
int WriteCanvas(Canvas* canvas, int left, int top, int right, int bottom, const std::string& path,
                int partial, int* saved);
