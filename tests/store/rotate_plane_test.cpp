#include <cmath>
#include <numbers>
#include <random>

#include "store/rotate_plane.h"
#include "support/fixture.h"
#include "support/planes.h"

namespace {

using Rotate = TeselTest;

// Pixels A..F of a 3 x 2 picture, one grey byte each in all three colours.
std::vector<uint8_t> Greys(std::initializer_list<uint8_t> values) {
  std::vector<uint8_t> bytes;
  for (uint8_t v : values) bytes.insert(bytes.end(), {v, v, v});
  return bytes;
}

TEST_F(Rotate, QuarterAndHalfTurnsMovePixelsExactly) {
  const std::vector<uint8_t> picture = Greys({10, 20, 30, 40, 50, 60});  // A B C / D E F
  Plane* source = PlaneOfBytes(3, 2, 24, picture);
  struct Case {
    double degrees;
    int width, height;
    std::vector<uint8_t> want;
  };
  for (const Case& c : {Case{90, 2, 3, Greys({40, 10, 50, 20, 60, 30})},
                        Case{-90, 2, 3, Greys({30, 60, 20, 50, 10, 40})},
                        Case{180, 3, 2, Greys({60, 50, 40, 30, 20, 10})}, Case{0, 3, 2, picture}}) {
    int width = 0, height = 0;
    RotatedSize(3, 2, c.degrees, &width, &height);
    EXPECT_EQ(width, c.width) << c.degrees;
    EXPECT_EQ(height, c.height) << c.degrees;
    Plane* turned = RotatePlane(source, c.degrees, width, height, 255, Physical);
    ASSERT_TRUE(turned);
    EXPECT_EQ(PlaneBytes(turned), c.want) << c.degrees;
    PlaneStore.FreePlane(&turned);
  }
  PlaneStore.FreePlane(&source);
}

// The turned picture worked out in doubles: each output pixel's centre taken
// back to the source, held to 1/256 of a pixel, and the four neighbours
// weighted by their overlap, with `fill` for neighbours off the plane.
uint8_t Expected(const std::vector<uint8_t>& src, int w, int h, double degrees, int W, int H, int x,
                 int y, uint8_t fill) {
  const double a = degrees * std::numbers::pi / 180;
  const double dx = x + 0.5 - W / 2.0, dy = y + 0.5 - H / 2.0;
  const double sx = std::round((std::cos(a) * dx + std::sin(a) * dy + w / 2.0 - 0.5) * 256) / 256;
  const double sy = std::round((-std::sin(a) * dx + std::cos(a) * dy + h / 2.0 - 0.5) * 256) / 256;
  const double fx = sx - std::floor(sx), fy = sy - std::floor(sy);
  auto at = [&](double px, double py) -> double {
    const int ix = int(px), iy = int(py);
    return px < 0 || py < 0 || ix >= w || iy >= h ? fill : src[size_t(iy) * w + ix];
  };
  const double x0 = std::floor(sx), y0 = std::floor(sy);
  if (x0 < -1 || y0 < -1 || x0 >= w || y0 >= h) return fill;
  const double v = (at(x0, y0) * (1 - fx) + at(x0 + 1, y0) * fx) * (1 - fy) +
                   (at(x0, y0 + 1) * (1 - fx) + at(x0 + 1, y0 + 1) * fx) * fy;
  return static_cast<uint8_t>(std::floor(v + 0.5));
}

TEST_F(Rotate, ArbitraryAnglesSampleBilinearlyAboutTheCentre) {
  std::mt19937 rng(7);
  std::vector<uint8_t> src(40 * 20);
  for (uint8_t& v : src) v = static_cast<uint8_t>(rng());
  Plane* source = PlaneOfBytes(40, 20, 8, src);
  for (double degrees : {30.0, -47.5, 135.0}) {
    int W = 0, H = 0;
    RotatedSize(40, 20, degrees, &W, &H);
    const double a = degrees * std::numbers::pi / 180;
    EXPECT_EQ(W, int(std::ceil(std::abs(40 * std::cos(a)) + std::abs(20 * std::sin(a)) - 1e-9)));
    Plane* turned = RotatePlane(source, degrees, W, H, 7, Physical);
    ASSERT_TRUE(turned);
    for (int y = 0; y < H; ++y)
      for (int x = 0; x < W; ++x)
        ASSERT_EQ(PixelValue(turned, x, y), Expected(src, 40, 20, degrees, W, H, x, y, 7))
            << degrees << ": " << x << ", " << y;
    // The corners lie outside the turned picture.
    EXPECT_EQ(PixelValue(turned, 0, 0), 7u);
    PlaneStore.FreePlane(&turned);
  }
  PlaneStore.FreePlane(&source);
}

}  // namespace
