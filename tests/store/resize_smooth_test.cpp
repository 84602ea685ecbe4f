#include <gtest/gtest.h>

#include <algorithm>

#include "dib_test_support.h"
#include "store/plane_ops.h"

namespace {

using namespace dibtest;

// Slow references written from the resampling formulas.

// Tap weight in 1/256 units for fraction i / 256, truncated.
int Tap(int kernel, int tap, int i) {
  const double f = i / 256.0;
  const double t = tap == 0 ? f + 1 : tap == 1 ? f : tap == 2 ? 1 - f : 2 - f;
  if (tap == 0 || tap == 3) {
    return int(256 * (kernel == 1 ? 1.7777777777777777 - 3.3333333333333335 * t + 2 * t * t -
                                        0.3888888888888889 * t * t * t
                                  : 4 - 8 * t + 5 * t * t - t * t * t));
  }
  return int(256 * (kernel == 1 ? 0.8888888888888888 - 2 * t * t + 1.1666666666666667 * t * t * t
                                : 1 - 2 * t * t + t * t * t));
}

Pixels Cubic(const Pixels& s, int W, int H, int kernel) {
  Pixels out{W, H, s.channels, Bytes(size_t(W) * H * s.channels)};
  int block[4][4][3] = {};  // columns off the plane keep what they held
  for (int r = 0; r < H; r++) {
    const int64_t sy = int64_t{r} * s.height / H, fy = (int64_t{r} * s.height - sy * H) * 256 / H;
    for (int c = 0; c < W; c++) {
      const int64_t sx = int64_t{c} * s.width / W, fx = (int64_t{c} * s.width - sx * W) * 256 / W;
      for (int j = 0; j < 4; j++) {
        for (int i = 0; i < 4; i++) {
          const int x = int(sx) - 1 + i, y = std::clamp(int(sy) - 1 + j, 0, s.height - 1);
          for (int ch = 0; ch < s.channels && x >= 0 && x < s.width; ch++) block[j][i][ch] = s.at(x, y, ch);
        }
      }
      for (int ch = 0; ch < s.channels; ch++) {
        int64_t sum = 0;
        for (int j = 0; j < 4; j++) {
          for (int i = 0; i < 4; i++) sum += Tap(kernel, j, int(fy)) * Tap(kernel, i, int(fx)) * block[j][i][ch];
        }
        out.at(c, r, ch) = uint8_t(std::clamp<int64_t>(sum >> 16, 0, 255));
      }
    }
  }
  return out;
}

Pixels Area(const Pixels& s, int W, int H) {
  Pixels out{W, H, s.channels, Bytes(size_t(W) * H * s.channels)};
  for (int r = 0; r < H; r++) {
    const double y0 = double(r) * s.height / H, y1 = double(r + 1) * s.height / H;
    for (int c = 0; c < W; c++) {
      const double x0 = double(c) * s.width / W, x1 = double(c + 1) * s.width / W;
      for (int ch = 0; ch < s.channels; ch++) {
        double sum = 0, weights = 0;
        for (int j = 0; j < s.height; j++) {
          const double oy = std::min(y1, j + 1.0) - std::max(y0, double(j));
          for (int i = 0; i < s.width && oy > 0; i++) {
            const double ox = std::min(x1, i + 1.0) - std::max(x0, double(i));
            if (ox <= 0) continue;
            sum += ox * oy * s.at(i, j, ch);
            weights += ox * oy;
          }
        }
        out.at(c, r, ch) = uint8_t(sum / weights + 0.5);
      }
    }
  }
  return out;
}

Pixels Smooth(const Pixels& s, int W, int H, int kernel) {
  if (W >= s.width && H >= s.height) return Cubic(s, W, H, kernel);
  if (W <= s.width && H <= s.height) return Area(s, W, H);
  return Area(Cubic(s, std::max(W, s.width), std::max(H, s.height), kernel), W, H);
}

Pixels Resized(Plane* plane, int W, int H, int kernel) {
  Plane* out = SmoothResize(plane, W, H, kernel);
  EXPECT_EQ(out->kind, uint32_t(settings.workBuffer));
  Pixels p = PixelsOf(out);
  PlaneStore.FreePlane(&out);
  return p;
}

TEST_F(DibTest, ResamplersMatchHandWorkedValues) {
  // Kernel 2, 4 x 4 to 8 x 8, every row 50 60 70 80. Half-way taps are
  // -32 160 160 -32; columns off the plane keep the block's old values.
  Pixels ramp{4, 4, 1, {}};
  for (int y = 0; y < 4; y++) ramp.bytes.insert(ramp.bytes.end(), {50, 60, 70, 80});
  Plane* plane = PlaneOf(ramp, Physical);
  const Pixels out = Resized(plane, 8, 8, 2);
  EXPECT_EQ(out.at(2, 2, 0), 60);  // on a source pixel
  EXPECT_EQ(out.at(3, 3, 0), 65);  // (-32*50 + 160*60 + 160*70 - 32*80) >> 8
  EXPECT_EQ(out.at(1, 0, 0), 60);  // column -1 still holds the first block's 0
  EXPECT_EQ(out.at(1, 1, 0), 51);  // column -1 holds 70 from the end of row 0
  EXPECT_EQ(out.at(7, 0, 0), 81);  // columns 4 and 5 hold 80 from earlier blocks
  PlaneStore.FreePlane(&plane);

  // Kernel 1 at fraction 0 taps 14 227 14 0, which sum to 255 on each axis.
  plane = PlaneOf(Pixels{4, 4, 1, Bytes(16, 200)}, Physical);
  EXPECT_EQ(Resized(plane, 8, 8, 1).at(4, 4, 0), 198);  // 255 * 255 * 200 >> 16
  PlaneStore.FreePlane(&plane);

  // Area: [0, 1.5) holds 10 and half of 20; [1.5, 3) half of 20 and 31.
  plane = PlaneOf(Pixels{3, 1, 1, {10, 20, 31}}, Physical);
  EXPECT_EQ(Resized(plane, 2, 1, 0).bytes, (Bytes{13, 27}));
  PlaneStore.FreePlane(&plane);
  // Means of 2 x 2: blue 5.5 and red 6.5 and 26.5 round up.
  plane = PlaneOf(Pixels{4, 2, 3, {5, 0, 0, 5, 0, 10, 5, 0, 20, 5, 0, 30, 6, 0, 3, 6, 0, 13, 6, 0, 23, 6, 0, 33}},
                  Physical);
  EXPECT_EQ(Resized(plane, 2, 1, 0).bytes, (Bytes{6, 0, 7, 6, 0, 27}));
  PlaneStore.FreePlane(&plane);
}

TEST_P(DibKindTest, SmoothResizeMatchesTheReference) {
  struct Case {
    int w, h, W, H;
  };
  const Case cases[] = {{5, 4, 11, 9}, {6, 6, 7, 13},  // enlarge
                        {11, 9, 4, 3}, {10, 7, 3, 5},  // shrink
                        {6, 9, 13, 4}, {9, 4, 5, 10},  // mixed
                        {7, 5, 7, 2}};                 // one axis kept
  uint32_t seed = 1;
  for (int kernel : {1, 2}) {
    for (int channels : {1, 3}) {
      for (const Case& k : cases) {
        const Pixels source = RandomPixels(k.w, k.h, channels, seed++);
        Plane* plane = PlaneOf(source, GetParam());
        EXPECT_EQ(Resized(plane, k.W, k.H, kernel).bytes, Smooth(source, k.W, k.H, kernel).bytes)
            << "kernel " << kernel << ", " << channels << " channels, " << k.w << "x" << k.h << " to " << k.W
            << "x" << k.H;
        PlaneStore.FreePlane(&plane);
      }
    }
  }
  const Pixels source = RandomPixels(9, 6, 3, 77);
  Plane* plane = PlaneOf(source, Physical);
  EXPECT_EQ(Resized(plane, 9, 6, 1).bytes, source.bytes);  // the same size is a copy, not a resample
  PlaneStore.FreePlane(&plane);
}

TEST_F(DibTest, ResizePlaneSmoothsWithTheGivenKernelAndKeepsThePalette) {
  const Pixels source = RandomPixels(6, 5, 1, 5);
  Plane* plane = PlaneOf(source, Physical);
  plane->palette[3][2] = 99;
  for (int kernel : {0, 1}) {
    Plane* out = ResizePlane(plane, 14, 3, Packed, 1, kernel);
    EXPECT_EQ(PixelsOf(out).bytes, Smooth(source, 14, 3, kernel == 0 ? 2 : 1).bytes);
    EXPECT_EQ(out->palette[3][2], 99);
    PlaneStore.FreePlane(&out);
  }
  PlaneStore.FreePlane(&plane);
}

TEST_F(DibTest, LargePlanesDontOverflowTheCubicArithmetic) {
  const Pixels source = RandomPixels(40000, 2, 1, 11);  // 40,000 x 69,999 passes 2^31
  Plane* plane = PlaneOf(source, Physical);
  EXPECT_TRUE(Resized(plane, 70000, 3, 2).bytes == Cubic(source, 70000, 3, 2).bytes);
  PlaneStore.FreePlane(&plane);
}

}  // namespace
