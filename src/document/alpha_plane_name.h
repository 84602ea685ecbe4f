// The name a plane above position 0 goes by wherever the user picks one:
// the title, the layer panel's popup of planes and the channel lists.
#pragma once

#include <string>

#include "document/canvas.h"

// "Mask" and "Transparency" at positions 1 and 2. Further planes count by
// their kind flag: masks from 2 ("Mask2"), transparency and Line Draw planes
// on one shared count from 1; a plane without a kind is "その他" with its
// index.
std::string AlphaPlaneName(const Canvas* canvas, int planeIndex);
