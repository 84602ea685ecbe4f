#include "selection/pick_rows.h"

#include <cstring>
#include <new>

#include "pixel/hsv_pixel.h"
#include "selection/detect_selection.h"

namespace {

constexpr size_t kColours = size_t(1) << 24;
constexpr uint8_t kKnownMiss = 1, kKnownHit = 2;

}  // namespace

PickRows::PickRows(uint8_t hit, uint8_t miss)
    : hit_(hit), miss_(miss), flip_(pickCondition ? 1 : 0), hsv_(pickIsHsv != 0) {
  if (hsv_) {
    known_.reset(new (std::nothrow) uint8_t[kColours / 4]());
    return;
  }
  for (int channel = 0; channel < 3; ++channel)
    std::memcpy(rgb_.member[channel], pickTable[2 - channel], 256);
}

void PickChannels(const uint8_t* bgr, bool hsv, int* channels) {
  if (!hsv) {
    channels[0] = bgr[2], channels[1] = bgr[1], channels[2] = bgr[0];
    return;
  }
  const Hsv converted = hsv_detail::ToHsv(bgr[2], bgr[1], bgr[0], hsv_detail::kHueByteOf359);
  channels[0] = converted.h, channels[1] = converted.s, channels[2] = converted.v;
}

bool PickRows::Passes(const uint8_t* bgr) const {
  int c[3];
  PickChannels(bgr, hsv_, c);
  return ((pickTable[0][c[0]] & pickTable[1][c[1]] & pickTable[2][c[2]]) ^ flip_) != 0;
}

void PickRows::Row(const uint8_t* bgr, int count, uint8_t* out) {
  // Held here: the output bytes could alias the members.
  const uint8_t hit = hit_, miss = miss_, flip = flip_;
  if (!hsv_) return MatchChannelSets(rgb_, bgr, count, flip ? miss : hit, flip ? hit : miss, out);
  if (!known_) {
    for (int x = 0; x < count; ++x, bgr += 3) out[x] = Passes(bgr) ? hit : miss;
    return;
  }
  uint8_t* known = known_.get();
  for (int x = 0; x < count; ++x, bgr += 3) {
    const uint32_t colour = uint32_t(bgr[0]) | uint32_t(bgr[1]) << 8 | uint32_t(bgr[2]) << 16;
    uint8_t& cell = known[colour >> 2];
    const int shift = int(colour & 3) * 2;
    int answer = (cell >> shift) & 3;
    if (answer == 0) {
      answer = Passes(bgr) ? kKnownHit : kKnownMiss;
      cell = uint8_t(cell | answer << shift);
    }
    out[x] = answer == kKnownHit ? hit : miss;
  }
}
