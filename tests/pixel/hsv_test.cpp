// The integer colour conversions, by hand at their corners and against the
// reference over every colour.
#include "pixel/hsv.h"

#include <gtest/gtest.h>

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

// Every colour, which reaches every entry of the division table, with the
// scaled hue on every third level of each colour; then every hue and
// saturation at every fifth value from 0 to 255.
TEST(Hsv, EveryColourHueAndSaturationAsTheArithmeticSays) {
  Triple want;
  for (int r = 0; r < 256; ++r)
    for (int g = 0; g < 256; ++g)
      for (int b = 0; b < 256; ++b)
        for (int scaled = 0; scaled < (r % 3 || g % 3 || b % 3 ? 1 : 2); ++scaled) {
          ref::RgbToHsv(r, g, b, &want.a, &want.b, &want.c, scaled);
          if (!(ToHsv(r, g, b, scaled) == want))
            FAIL() << r << "," << g << "," << b << " " << scaled;
        }
  for (int scaled = 0; scaled < 2; ++scaled)
    for (int h = 0; h < (scaled ? 256 : 360); ++h)
      for (int s = 0; s < 256; ++s)
        for (int v = 0; v < 256; v += 5) {
          ref::HsvToRgb(h, s, v, &want.a, &want.b, &want.c, scaled);
          if (!(ToRgb(h, s, v, scaled) == want))
            FAIL() << h << "," << s << "," << v << " " << scaled;
        }
}

}  // namespace
