// The text tip: a string rendered by the text tool's renderer and used as
// the dot tip. Rendering belongs to the text tool; this is what the panel
// holds and what becomes of the rendered picture.
#pragma once

#include <string>

#include "store/plane_store.h"

constexpr int kTextTipChars = 80;
constexpr int kTextTipMinSize = 2;
constexpr int kTextTipMaxSize = 100;
constexpr int kTextTipDelayMs = 500;  // from the last change to the rendering

struct TextTipSettings {
  std::string text;  // up to 80 characters
  std::string face;
  int size = 20;
  bool bold = false;
  bool italic = false;
};

// The panel's settings at start: the product name in "ＭＳ ゴシック", 20.
TextTipSettings DefaultTextTip();
// The size as the panel keeps it, within 2..100.
int ClampTextTipSize(int size);

// The rendered 8-bit picture (dark text on white) becomes dotTip: cut to
// its top left 256 x 256 and inverted. 0 for another depth or when memory
// fails, dotTip then unchanged.
int SetTextTip(Plane* rendered);
