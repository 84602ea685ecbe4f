#include "selection/pick_rows.h"

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
  blueGreen_.reset(new (std::nothrow) uint8_t[65536]);
  if (!blueGreen_) return;
  for (int g = 0; g < 256; ++g)
    for (int b = 0; b < 256; ++b)
      blueGreen_[size_t(b | g << 8)] = pickTable[2][b] & pickTable[1][g];
}

bool PickRows::Passes(const uint8_t* bgr) const {
  int c0 = bgr[2], c1 = bgr[1], c2 = bgr[0];
  if (hsv_) {
    const Hsv hsv = hsv_detail::ToHsv(bgr[2], bgr[1], bgr[0], hsv_detail::kHueByteOf359);
    c0 = hsv.h, c1 = hsv.s, c2 = hsv.v;
  }
  return ((pickTable[0][c0] & pickTable[1][c1] & pickTable[2][c2]) ^ flip_) != 0;
}

void PickRows::Row(const uint8_t* bgr, int count, uint8_t* out) {
  // Held here: the output bytes could alias the members.
  const uint8_t hit = hit_, miss = miss_, flip = flip_;
  if (!hsv_ && blueGreen_) {
    const uint8_t* red = pickTable[0];
    const uint8_t* blueGreen = blueGreen_.get();
    for (int x = 0; x < count; ++x, bgr += 3)
      out[x] = ((blueGreen[bgr[0] | bgr[1] << 8] & red[bgr[2]]) ^ flip) ? hit : miss;
    return;
  }
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
