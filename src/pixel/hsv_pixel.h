// The integer colour conversions, inline for the per-pixel mix modes; hsv.h
// has the forms that the rest of the program calls.
#pragma once

#include <algorithm>
#include <cstdint>

#include "pixel/hsv.h"

// Scaled or not, as the conversions say.
struct Hsv {
  int h, s, v;
};

namespace hsv_detail {

// Every step below is the truncating integer arithmetic of the conversions;
// the tables and the unsigned forms only make it cheaper, and give the same
// numbers for every input in range.

// DivTable[y][x] = x * 255 / y for 0 <= x <= y: the divisions by a variable
// in RgbToHsv, looked up instead of computed. Row 0 is all zeros.
struct DivTableData {
  uint8_t v[256][256];
};

constexpr DivTableData BuildDivTable() {
  DivTableData table{};
  for (unsigned y = 1; y < 256; ++y)
    for (unsigned x = 0; x <= y; ++x) table.v[y][x] = static_cast<uint8_t>(x * 255 / y);
  return table;
}

alignas(64) inline constexpr DivTableData DivTable = BuildDivTable();

// The units a hue comes out in: degrees, or a byte. The mix modes of the
// composition take a byte as degrees x 255 / 360; everything else (the pen,
// the palette, the mixer, the adjustments) as degrees x 255 / 359, the
// inverse of HsvToRgb's widening, so that the byte reaches 255.
enum HueUnit { kHueDegrees = 0, kHueByteOf360 = 1, kHueByteOf359 = 2 };

// The raw hue of RgbToHsv runs -255..1275. HueTable[unit][raw + 255] is
// raw * 60 / 255 (truncating toward zero), plus 360 if negative, then
// taken to the unit.
constexpr int kRawHueMin = -255;
constexpr int kRawHues = 1275 - kRawHueMin + 1;

struct HueTableData {
  uint16_t v[3][kRawHues];
};

constexpr HueTableData BuildHueTable() {
  HueTableData table{};
  for (int raw = kRawHueMin; raw < kRawHueMin + kRawHues; ++raw) {
    int degrees = raw * 60 / 255;
    if (degrees < 0) degrees += 360;
    table.v[kHueDegrees][raw - kRawHueMin] = static_cast<uint16_t>(degrees);
    table.v[kHueByteOf360][raw - kRawHueMin] = static_cast<uint16_t>(degrees * 255 / 360);
    table.v[kHueByteOf359][raw - kRawHueMin] = static_cast<uint16_t>(degrees * 255 / 359);
  }
  return table;
}

inline constexpr HueTableData HueTable = BuildHueTable();

// x / 255 for 0 <= x < 65535: with x = 255q + r, (x + 1) * 257 is
// 65536q + 257(r + 1) - q, and 0 <= 257(r + 1) - q < 65536.
constexpr unsigned Div255(unsigned x) { return ((x + 1) * 257) >> 16; }

// Which of v, p, q, t each of red, green, blue takes, by sextant.
inline constexpr uint8_t kSextantPicks[6][3] = {{0, 3, 1}, {2, 0, 1}, {1, 0, 3},
                                         {1, 2, 0}, {3, 1, 0}, {0, 1, 2}};

// No branches on which colour is largest or which sextant a hue is in:
// random pictures would mispredict them at every pixel.
inline Hsv ToHsv(unsigned r, unsigned g, unsigned b, HueUnit unit) {
  const unsigned v = std::max({r, g, b});
  const unsigned n = std::min({r, g, b});
  const int s = DivTable.v[v][v - n];
  int h = 0;
  if (s != 0) {
    const uint8_t* over = DivTable.v[v - n];
    const int rp = over[v - r], gp = over[v - g], bp = over[v - b];
    // The later test wins when two colours share the maximum.
    const int raw = v == b ? gp - rp + 1020 : v == g ? rp - bp + 510 : bp - gp;
    h = HueTable.v[unit][raw - kRawHueMin];
  }
  return {h, s, static_cast<int>(v)};
}

// h 0..359 (scaled 0..255), s and v 0..255: within these every hue falls
// in one of the six sextants.
inline void ToRgb(unsigned h, unsigned s, unsigned v, unsigned out[3], bool scaled) {
  if (scaled) h = h * 359 / 255;
  if (h >= 360) h -= 360;
  if (s == 0) {
    out[0] = out[1] = out[2] = v;
    return;
  }
  const unsigned i = h / 60;
  const unsigned f = (h * 255) / 60 - i * 255;
  const unsigned p = Div255((255 - s) * v);
  const unsigned q = Div255((255 - Div255(f * s)) * v);
  const unsigned t = Div255((255 - Div255((255 - f) * s)) * v);
  const unsigned values[4] = {v, p, q, t};
  for (int c = 0; c < 3; ++c) out[c] = values[kSextantPicks[i][c]];
}

}  // namespace hsv_detail

// Hue (a byte of 360 degrees), saturation and value of one blue-green-red
// pixel, as the mix modes take them.
inline Hsv PixelToHsv(const uint8_t* bgr) {
  return hsv_detail::ToHsv(bgr[2], bgr[1], bgr[0], hsv_detail::kHueByteOf360);
}

// v alone: the largest colour.
inline int ValueOf(const uint8_t* bgr) { return std::max({bgr[0], bgr[1], bgr[2]}); }

inline void HsvToPixel(Hsv hsv, uint8_t* bgr) {
  unsigned rgb[3];
  hsv_detail::ToRgb(hsv.h, hsv.s, hsv.v, rgb, true);
  bgr[0] = static_cast<uint8_t>(rgb[2]);
  bgr[1] = static_cast<uint8_t>(rgb[1]);
  bgr[2] = static_cast<uint8_t>(rgb[0]);
}
