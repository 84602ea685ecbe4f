// The test that the seed fill's matches and Detect Selection's pick share:
// a pixel passes when its blue, green and red bytes each belong to a set
// of byte values of their own. Vector and scalar forms give the same bytes.
#pragma once

#include <cstdint>

struct ChannelSets {
  uint8_t member[3][256];  // blue, green, red: 1 = in the set
};

// n blue-green-red pixels to `pass` or `fail` each.
void MatchChannelSets(const ChannelSets& sets, const uint8_t* bgr, int n, uint8_t pass,
                      uint8_t fail, uint8_t* out);
