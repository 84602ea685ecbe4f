// The pen pattern: a picture that replaces the flat colour, and that can
// also serve as the tip itself (a stamp).
#pragma once

#include <string>

#include "store/plane_store.h"

// Below this many pixels a pattern fits the dab buffers and may be a tip.
constexpr int kStampPixelLimit = 90000;

// Takes the planes a picture reader made of the file at path: a 24-bit
// image and its 8-bit alpha, null when the file brought no transparency.
// The old pattern goes. A ".bmp" file takes its mask from the ".bmm" file
// beside it; "tsl", "png", and a bmp with a mask, small enough, ask
// whether the picture is to be the tip. With no image nothing changes and
// 0 is returned.
int SetPenPattern(const std::string& path, Plane* image, Plane* alpha);
// The pattern planes freed and the flat colour back.
void FreePenPattern();
