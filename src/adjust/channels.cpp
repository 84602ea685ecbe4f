#include "adjust/channels.h"

#include "document/alpha_plane_name.h"
#include "document/canvas_rows.h"
#include "resources/strings.h"

namespace {

// Names of channels 0 to 6, by string number.
constexpr int kChannelStrings[] = {5000, 5001, 5002, 5004, 5005, 5003, 5006};

bool HasPlane(const Canvas* canvas, int position) {
  return canvas->planes[ActiveLayerBase(canvas) + position].plane != nullptr;
}

}  // namespace

int ChannelPosition(int channel) {
  switch (channel) {
    case kChannelMask:
      return kMaskPosition;
    case kChannelTransparency:
      return kTransparencyPosition;
    case kChannelSelection:
      return -1;
    default:
      return channel >= kChannelFirstPlane ? PlanePositionOf(channel) : kImagePosition;
  }
}

std::vector<std::string> ChannelListNames(const Canvas* canvas) {
  std::vector<std::string> names;
  for (int channel : {kChannelRed, kChannelGreen, kChannelBlue, kChannelBrightness})
    names.emplace_back(StringText(kChannelStrings[channel]));
  if (HasPlane(canvas, kMaskPosition))
    names.emplace_back(StringText(kChannelStrings[kChannelMask]));
  for (int position = kFirstFurtherPosition; position < kPlanesPerLayer; ++position)
    if (HasPlane(canvas, position))
      names.push_back(AlphaPlaneName(canvas, ActiveLayerBase(canvas) + position));
  names.emplace_back(StringText(kChannelStrings[kChannelSelection]));
  return names;
}

int ChannelOfName(const Canvas* canvas, const std::string& name) {
  for (int channel = kChannelRed; channel <= kChannelSelection; ++channel)
    if (name == StringText(kChannelStrings[channel])) return channel;
  for (int position = kFirstFurtherPosition; position < kPlanesPerLayer; ++position)
    if (HasPlane(canvas, position) &&
        name == AlphaPlaneName(canvas, ActiveLayerBase(canvas) + position))
      return position + 7;
  return -1;
}
