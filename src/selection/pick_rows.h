// Detect Selection's test of each pixel, a row at a time: whether its
// three channels are all picked in pickTable, turned round by "Other
// than". In RGB the channels' sets answer; in HSV each colour is
// converted once and its answer kept for the run.
#pragma once

#include <cstdint>
#include <memory>

#include "selection/channel_sets.h"

// The channels of a blue-green-red pixel as the bars count them: red,
// green, blue, or with hsv hue (a byte), saturation, value.
void PickChannels(const uint8_t* bgr, bool hsv, int* channels);

class PickRows {
 public:
  // From pickTable, pickIsHsv and pickCondition as they stand; a pixel
  // that passes gives `hit`, others `miss`.
  PickRows(uint8_t hit, uint8_t miss);
  void Row(const uint8_t* bgr, int count, uint8_t* out);

 private:
  bool Passes(const uint8_t* bgr) const;

  uint8_t hit_, miss_, flip_;
  bool hsv_;
  ChannelSets rgb_;  // pickTable's rows in the order of the bytes
  // HSV: two bits a colour, 0 not known yet, 1 miss, 2 hit; null when
  // there was no memory for it, and every pixel is converted.
  std::unique_ptr<uint8_t[]> known_;
};
