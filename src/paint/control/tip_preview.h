// Pictures of tips for the brush panel: the preview box of the tip in use
// and the pictures of the sixteen shape buttons, drawn from the tips
// themselves. A picture is BGR rows from the top, 3 bytes a pixel, no
// padding.
#pragma once

#include <cstdint>
#include <vector>

// Where a raster of width x height stands in a box: shrunk by the least
// whole factor that makes it fit, centred.
struct BoxFit {
  int factor;            // 1 when it fits as it is
  int left, top;         // of the shrunk raster in the box
  int width, height;     // of the shrunk raster
};
BoxFit FitInBox(int width, int height, int boxWidth, int boxHeight);

// The tip in use (the dot tip while it is active, else the generated one)
// on the preview's grey, each pixel shaded by TipPreviewShade of its high
// byte. A shrunk pixel shows the strongest of the pixels it covers, so that
// thin rays stay visible.
std::vector<uint8_t> TipPreview(int boxWidth, int boxHeight);

// The picture of shape button `shape`: that shape built at radius r
// (r x r) by BuildTip and drawn as the preview draws it, in a box of
// size x size. The pen and its tip are left as they were.
std::vector<uint8_t> ShapePicture(int shape, double r, int size);
