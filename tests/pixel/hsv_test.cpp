// The integer colour conversions: by hand at their corners, and against a
// slow reference written from the rules over every colour and every hue,
// saturation and value.
#include "pixel/hsv.h"

#include <gtest/gtest.h>

#include "pixel/hsv_pixel.h"
#include "support/pixel_reference.h"

namespace {

struct Triple {
  int a, b, c;
  bool operator==(const Triple&) const = default;
};

template <auto Convert>
Triple Converted(int x, int y, int z, int scaled) {
  Triple t;
  Convert(x, y, z, &t.a, &t.b, &t.c, scaled);
  return t;
}
constexpr auto ToHsv = Converted<RgbToHsv>;
constexpr auto ToRgb = Converted<HsvToRgb>;

// The rules step by step: the later maximum wins the hue's formula, and a
// scaled hue is degrees x 255 / 359.
Triple RuleHsv(int r, int g, int b, bool scaled) {
  const int c = std::max({r, g, b}), m = std::min({r, g, b}), d = c - m;
  if (c == 0) return {0, 0, 0};
  const int s = d * 255 / c;
  int h = 0;
  if (s != 0) {
    const int rc = (c - r) * 255 / d, gc = (c - g) * 255 / d, bc = (c - b) * 255 / d;
    int t = 0;
    if (c == r) t = bc - gc;
    if (c == g) t = rc - bc + 510;
    if (c == b) t = gc - rc + 1020;
    h = t * 60 / 255;
    if (h < 0) h += 360;
  }
  if (scaled) h = h * 255 / 359;
  return {h, s, c};
}

Triple RuleRgb(int h, int s, int v, bool scaled) {
  if (scaled) h = h * 359 / 255;
  if (h >= 360) h -= 360;
  if (s == 0) return {v, v, v};
  if (h == 360) h = 0;
  const int i = h / 60, e = h * 255 / 60 - i * 255;
  const int p = (255 - s) * v / 255;
  const int q = (255 - e * s / 255) * v / 255;
  const int t = (255 - (255 - e) * s / 255) * v / 255;
  switch (i) {
    case 0:
      return {v, t, p};
    case 1:
      return {q, v, p};
    case 2:
      return {p, v, t};
    case 3:
      return {p, q, v};
    case 4:
      return {t, p, v};
    case 5:
      return {v, p, q};
  }
  return {0, 0, 0};
}

// Worked by hand; they hold the reference to the arithmetic too.
TEST(Hsv, CornerCases) {
  EXPECT_EQ(ToHsv(77, 77, 77, 0), (Triple{0, 0, 77}));  // greys have neither hue nor saturation
  EXPECT_EQ(RuleHsv(77, 77, 77, false), (Triple{0, 0, 77}));
  EXPECT_EQ(ToHsv(0, 255, 0, 0), (Triple{120, 255, 255}));
  EXPECT_EQ(ToHsv(0, 0, 255, 1), (Triple{170, 255, 255}));  // 240 x 255 / 359
  // Just short of red: -10 x 60 / 255 truncates to -2, and wraps to 358.
  EXPECT_EQ(ToHsv(255, 0, 10, 0), (Triple{358, 255, 255}));
  EXPECT_EQ(ToHsv(255, 0, 10, 1), (Triple{254, 255, 255}));  // 358 x 255 / 359
  EXPECT_EQ(RuleHsv(255, 0, 10, true), (Triple{254, 255, 255}));
  // Two channels at the maximum: magenta by the red and the blue rule alike.
  EXPECT_EQ(ToHsv(200, 0, 200, 0), (Triple{300, 255, 200}));
  EXPECT_EQ(ToRgb(123, 0, 90, 0), (Triple{90, 90, 90}));  // grey whatever the hue
  EXPECT_EQ(ToRgb(900, 0, 90, 0), (Triple{90, 90, 90}));
  // Scaled 255 is 359 degrees (the factor is 359): sextant 5, e = 250.
  EXPECT_EQ(ToRgb(255, 255, 255, 1), (Triple{255, 0, 5}));
  EXPECT_EQ(RuleRgb(255, 255, 255, true), (Triple{255, 0, 5}));
  EXPECT_EQ(ToRgb(360, 255, 255, 0), (Triple{255, 0, 0}));  // 360 degrees is taken back to 0
  EXPECT_EQ(ToRgb(720, 255, 255, 0), (Triple{255, 0, 0}));  // once round, then 360 is 0
  EXPECT_EQ(ToRgb(721, 255, 255, 0), (Triple{0, 0, 0}));    // no sextant: black
  EXPECT_EQ(ToRgb(120, 255, 255, 0), (Triple{0, 255, 0}));
  // Inputs out of range stay in range.
  EXPECT_EQ(ToHsv(300, -5, 0, 0), ToHsv(255, 0, 0, 0));
  EXPECT_EQ(ToRgb(100, 300, 256, 0), ToRgb(100, 255, 255, 0));
  EXPECT_EQ(ToRgb(-4, 255, 255, 1), ToRgb(0, 255, 255, 1));
  EXPECT_EQ(ToRgb(1 << 30, 255, 255, 1), (Triple{0, 0, 0}));
}

// Every colour in both hue forms; the mix modes' pixel form, whose byte is
// of 360 degrees, against the composition's reference.
TEST(Hsv, EveryColourAsTheRulesSay) {
  for (int r = 0; r < 256; ++r)
    for (int g = 0; g < 256; ++g)
      for (int b = 0; b < 256; ++b) {
        for (int scaled = 0; scaled < 2; ++scaled)
          if (!(ToHsv(r, g, b, scaled) == RuleHsv(r, g, b, scaled)))
            FAIL() << r << "," << g << "," << b << " " << scaled;
        Triple want;
        ref::RgbToHsv(r, g, b, &want.a, &want.b, &want.c, true);
        const uint8_t bgr[3] = {uint8_t(b), uint8_t(g), uint8_t(r)};
        const Hsv pixel = PixelToHsv(bgr);
        if (!(Triple{pixel.h, pixel.s, pixel.v} == want)) FAIL() << r << "," << g << "," << b;
      }
}

// Every hue up to well past two turns (scaled: past the widening's second
// turn), every saturation and value.
TEST(Hsv, EveryHueSaturationAndValueAsTheRulesSay) {
  for (int scaled = 0; scaled < 2; ++scaled)
    for (int h = 0; h < (scaled ? 520 : 800); ++h)
      for (int s = 0; s < 256; ++s)
        for (int v = 0; v < 256; ++v)
          if (!(ToRgb(h, s, v, scaled) == RuleRgb(h, s, v, scaled)))
            FAIL() << h << "," << s << "," << v << " " << scaled;
}

}  // namespace
