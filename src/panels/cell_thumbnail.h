// The small picture of an image cell, cached beside the image as ".thm",
// with the image's write time in ".stt": the time decides whether the
// cached picture still stands for the image.
#pragma once

#include <string>

#include "store/plane_store.h"

// A 24-bit plane of the image at path (with its ".bmm" mask laid over
// white) fitted into a cell of cellWidth x cellHeight, keeping its
// proportions; out* give where it stands in the cell, centred. The caller
// frees it. Null when the image can't be read: the cell is drawn black.
// A cache that can't be written is made anew next time.
Plane* CellThumbnail(const std::string& path, int cellWidth, int cellHeight, int* outX, int* outY,
                     int* outWidth, int* outHeight);
