// The thumbnail a layer-aware save embeds: the composed canvas scaled,
// nearest pixel, until its shorter side is 256 pixels, written by
// "exfile" of the program folder to file_w/tmb.jpg, where the writer of the
// layered format finds it. The host deletes it after the write.
#pragma once

#include <string>

#include "document/canvas.h"

// A 24-bit plane of the thumbnail; null when memory fails.
Plane* RenderThumbnail(Canvas* canvas);

// Renders and writes the thumbnail; the path written, or empty when there
// is no "exfile" or it failed.
std::string WriteThumbnail(Canvas* canvas);
