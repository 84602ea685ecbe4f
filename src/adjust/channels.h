// The channels that Copy between Channels reads and writes, by number, and
// the names the dialog shows for them.
#pragma once

#include <string>
#include <vector>

#include "document/canvas.h"

enum Channel : int {
  kChannelRed = 0,
  kChannelGreen = 1,
  kChannelBlue = 2,
  kChannelMask = 3,
  kChannelTransparency = 4,
  kChannelBrightness = 5,
  kChannelSelection = 6,
  // 10 to 14: positions 3 to 7 of the layer (number - 7).
  kChannelFirstPlane = 10,
  kChannelLastPlane = 14,
};

// The position a channel of kChannelFirstPlane and above stands for.
inline int PlanePositionOf(int channel) { return channel - 7; }

// The layer position whose plane holds a channel: 0 for the colours and
// brightness, -1 for the selection, which is no plane of the layer.
int ChannelPosition(int channel);

// One list of the dialog for the active layer: the colours and brightness,
// "Mask" when the layer has one, each further plane that exists, and
// "Selection". Transparency is left out: it is no choice of the dialog.
std::vector<std::string> ChannelListNames(const Canvas* canvas);

// The channel a name stands for on the active layer, -1 when none.
int ChannelOfName(const Canvas* canvas, const std::string& name);
