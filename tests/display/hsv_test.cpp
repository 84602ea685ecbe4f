#include <gtest/gtest.h>

#include "compose_reference.h"
#include "display/hsv.h"

namespace {

struct Triple {
  int a, b, c;
  bool operator==(const Triple&) const = default;
};

Triple ToHsv(int r, int g, int b, int scaled) {
  Triple t;
  RgbToHsv(r, g, b, &t.a, &t.b, &t.c, scaled);
  return t;
}

Triple ToRgb(int h, int s, int v, int scaled) {
  Triple t;
  HsvToRgb(h, s, v, &t.a, &t.b, &t.c, scaled);
  return t;
}

// Worked by hand; they hold the reference to the arithmetic too.
TEST(Hsv, CornerCases) {
  EXPECT_EQ(ToHsv(77, 77, 77, 0), (Triple{0, 0, 77}));  // greys have neither hue nor saturation
  EXPECT_EQ(ToHsv(0, 255, 0, 0), (Triple{120, 255, 255}));
  EXPECT_EQ(ToHsv(0, 0, 255, 1), (Triple{170, 255, 255}));  // scaled: x 255 / 360
  // Just short of red: -10 x 60 / 255 truncates to -2, and wraps to 358.
  EXPECT_EQ(ToHsv(255, 0, 10, 0), (Triple{358, 255, 255}));
  EXPECT_EQ(ToHsv(255, 0, 10, 1), (Triple{253, 255, 255}));
  // Two channels at the maximum: magenta by the red and the blue rule alike.
  EXPECT_EQ(ToHsv(200, 0, 200, 0), (Triple{300, 255, 200}));
  EXPECT_EQ(ToRgb(123, 0, 90, 0), (Triple{90, 90, 90}));  // grey whatever the hue
  // Scaled 255 is 359 degrees (the factor is 359): sextant 5, f = 250.
  EXPECT_EQ(ToRgb(255, 255, 255, 1), (Triple{255, 0, 5}));
  EXPECT_EQ(ToRgb(360, 255, 255, 0), (Triple{255, 0, 0}));  // 360 degrees is taken back to 0
  EXPECT_EQ(ToRgb(120, 255, 255, 0), (Triple{0, 255, 0}));
  // Inputs out of range stay in range.
  EXPECT_EQ(ToHsv(300, -5, 0, 0), ToHsv(255, 0, 0, 0));
  EXPECT_EQ(ToRgb(900, 300, 255, 0), ToRgb(359, 255, 255, 0));
  EXPECT_EQ(ToRgb(-4, 255, 255, 1), ToRgb(0, 255, 255, 1));
}

// Every colour, which reaches every entry of the division table; the scaled
// hue on every third level of each colour.
TEST(Hsv, EveryColourAsTheArithmeticSays) {
  for (int r = 0; r < 256; ++r)
    for (int g = 0; g < 256; ++g)
      for (int b = 0; b < 256; ++b)
        for (int scaled = 0; scaled < (r % 3 || g % 3 || b % 3 ? 1 : 2); ++scaled) {
          Triple expected;
          ref::RgbToHsv(r, g, b, &expected.a, &expected.b, &expected.c, scaled);
          if (!(ToHsv(r, g, b, scaled) == expected))
            FAIL() << r << "," << g << "," << b << " " << scaled;
        }
}

// Every hue and saturation, at every fifth value from 0 to 255.
TEST(Hsv, EveryHueAndSaturationAsTheArithmeticSays) {
  for (int scaled = 0; scaled < 2; ++scaled)
    for (int h = 0; h < (scaled ? 256 : 360); ++h)
      for (int s = 0; s < 256; ++s)
        for (int v = 0; v < 256; v += 5) {
          Triple expected;
          ref::HsvToRgb(h, s, v, &expected.a, &expected.b, &expected.c, scaled);
          if (!(ToRgb(h, s, v, scaled) == expected))
            FAIL() << h << "," << s << "," << v << " " << scaled;
        }
}

}  // namespace
