// Cropping, pasting, blurring and resizing, against references over plain
// arrays; the resampling ones written slowly from their formulas.
#include <random>
#include <tuple>

#include "store/plane_ops.h"
#include "store_test_support.h"

namespace {

using namespace storetest;

bool Inside(int x, int y, int width, int height) { return x >= 0 && x < width && y >= 0 && y < height; }

TEST_P(StoreKindTest, CropAndPasteClipAtEveryEdge) {
  const Pixels source = RandomPixels(10, 8, 3, 3);
  Plane* plane = PlaneOf(source, GetParam());
  plane->palette[1][0] = 77;
  // Corners in either order; off the top left, off the bottom right, wholly off.
  for (auto [x0, y0, x1, y1] : {std::tuple{5, 3, 2, 1}, {-2, -1, 3, 2}, {8, 6, 11, 10}, {10, 0, 11, 1}}) {
    Bytes expected;
    for (int y = std::min(y0, y1); y <= std::max(y0, y1); y++)
      for (int x = std::min(x0, x1); x <= std::max(x0, x1); x++)
        for (int ch = 0; ch < 3; ch++) expected.push_back(Inside(x, y, 10, 8) ? source.at(x, y, ch) : 0);
    Plane* out = Kept(CropPlane(plane, x0, y0, x1, y1));
    EXPECT_EQ(std::tuple(GetParam(), 77), std::tuple(out->kind, out->palette[1][0]));
    EXPECT_EQ(expected, PixelsOf(out).bytes) << x0 << "," << y0 << " to " << x1 << "," << y1;
  }

  uint32_t seed = 500;
  for (int channels : {1, 3}) {
    for (auto [px, py, w, h] : {std::tuple{-2, -1, 4, 3}, {8, 6, 4, 3}, {-4, 0, 4, 3}, {-1, -1, 12, 10}}) {
      Pixels expected = RandomPixels(10, 8, channels, seed++);
      const Pixels piece = RandomPixels(w, h, channels, seed++);
      Plane* dest = PlaneOf(expected, GetParam());
      Plane* src = PlaneOf(piece, Physical);
      EXPECT_EQ(1, PastePlane(dest, src, px, py));
      for (int y = 0; y < h; y++)
        for (int x = 0; x < w; x++)
          for (int ch = 0; ch < channels && Inside(px + x, py + y, 10, 8); ch++)
            expected.at(px + x, py + y, ch) = piece.at(x, y, ch);
      EXPECT_EQ(expected.bytes, PixelsOf(dest).bytes) << channels << " channels at " << px << "," << py;
    }
  }
  Plane* dest = PlaneOf(Pixels{2, 2, 3, Bytes(12, 9)}, GetParam());
  Plane* src = NewPlane(2, 2, 8, 0, 0, Physical);
  EXPECT_EQ(0, PastePlane(dest, src, 0, 0));  // mixed depths
  EXPECT_EQ(Bytes(12, 9), PixelsOf(dest).bytes);
}

TEST_P(StoreKindTest, BoxBlurMatchesTheReference) {
  uint32_t seed = 900;
  for (auto [w, h] : {std::pair{9, 7}, {1, 5}, {5, 1}, {2, 2}}) {
    const Pixels source = RandomPixels(w, h, 1, seed++);
    Pixels expected = source;  // the 3 x 3 sum around each pixel / 9, edges clamped
    for (int y = 0; y < h; y++) {
      for (int x = 0; x < w; x++) {
        int sum = 0;
        for (int dy = -1; dy <= 1; dy++)
          for (int dx = -1; dx <= 1; dx++)
            sum += source.at(std::clamp(x + dx, 0, w - 1), std::clamp(y + dy, 0, h - 1), 0);
        expected.at(x, y, 0) = uint8_t(sum / 9);
      }
    }
    Plane* plane = PlaneOf(source, GetParam());
    EXPECT_EQ(1, BoxBlur(plane));
    EXPECT_EQ(expected.bytes, PixelsOf(plane).bytes) << w << "x" << h;
  }
  const Pixels colour = RandomPixels(3, 3, 3, 1);
  Plane* plane = PlaneOf(colour, GetParam());
  EXPECT_EQ(0, BoxBlur(plane));
  EXPECT_EQ(colour.bytes, PixelsOf(plane).bytes);
}

// Every StoreKindTest of this program runs in each storage kind.
INSTANTIATE_TEST_SUITE_P(Kinds, StoreKindTest, testing::Values(Virtual, Physical, Packed));

// Output (c, r) reads (min(w - 1, w c / W), min(h - 1, h r / H)).
Pixels Nearest(const Pixels& s, int W, int H) {
  Pixels out{W, H, s.channels, {}};
  for (int r = 0; r < H; r++)
    for (int c = 0; c < W; c++)
      for (int ch = 0; ch < s.channels; ch++)
        out.bytes.push_back(s.at(int(std::min<int64_t>(s.width - 1, int64_t{s.width} * c / W)),
                                 int(std::min<int64_t>(s.height - 1, int64_t{s.height} * r / H)),
                                 ch));
  return out;
}

// Tap weight in 1/256 units for fraction i / 256, truncated.
int Tap(int kernel, int tap, int i) {
  const double f = i / 256.0, t = tap == 0 ? f + 1 : tap == 1 ? f : tap == 2 ? 1 - f : 2 - f;
  if (tap == 1 || tap == 2)
    return int(256 * (kernel == 1 ? 0.8888888888888888 - 2 * t * t + 1.1666666666666667 * t * t * t
                                  : 1 - 2 * t * t + t * t * t));
  return int(256 * (kernel == 1 ? 1.7777777777777777 - 3.3333333333333335 * t + 2 * t * t -
                                      0.3888888888888889 * t * t * t
                                : 4 - 8 * t + 5 * t * t - t * t * t));
}

Pixels Cubic(const Pixels& s, int W, int H, int kernel) {
  Pixels out{W, H, s.channels, Bytes(size_t(W) * H * s.channels)};
  int block[4][4][3] = {};  // columns off the plane keep what they held
  for (int r = 0; r < H; r++) {
    const int64_t sy = int64_t{r} * s.height / H, fy = (int64_t{r} * s.height - sy * H) * 256 / H;
    for (int c = 0; c < W; c++) {
      const int64_t sx = int64_t{c} * s.width / W, fx = (int64_t{c} * s.width - sx * W) * 256 / W;
      for (int j = 0; j < 4; j++)
        for (int i = 0, x = int(sx) - 1; i < 4; i++, x++)
          for (int ch = 0; ch < s.channels && x >= 0 && x < s.width; ch++)
            block[j][i][ch] = s.at(x, std::clamp(int(sy) - 1 + j, 0, s.height - 1), ch);
      for (int ch = 0; ch < s.channels; ch++) {
        int64_t sum = 0;
        for (int j = 0; j < 4; j++)
          for (int i = 0; i < 4; i++)
            sum += Tap(kernel, j, int(fy)) * Tap(kernel, i, int(fx)) * block[j][i][ch];
        out.at(c, r, ch) = uint8_t(std::clamp<int64_t>(sum >> 16, 0, 255));
      }
    }
  }
  return out;
}

// The overlap-weighted mean of the source under each output pixel, rounded.
Pixels Area(const Pixels& s, int W, int H) {
  Pixels out{W, H, s.channels, Bytes(size_t(W) * H * s.channels)};
  for (int r = 0; r < H; r++)
    for (int c = 0; c < W; c++)
      for (int ch = 0; ch < s.channels; ch++) {
        double sum = 0, weights = 0;
        // Only cells under the output cell overlap it; the rest would add 0.
        const int j0 = r * s.height / H, j1 = std::min(s.height, (r + 1) * s.height / H + 1);
        const int i0 = c * s.width / W, i1 = std::min(s.width, (c + 1) * s.width / W + 1);
        for (int j = j0; j < j1; j++)
          for (int i = i0; i < i1; i++) {
            const double ox = std::min((c + 1.0) * s.width / W, i + 1.0) -
                              std::max(1.0 * c * s.width / W, i + 0.0);
            const double oy = std::min((r + 1.0) * s.height / H, j + 1.0) -
                              std::max(1.0 * r * s.height / H, j + 0.0);
            if (ox <= 0 || oy <= 0) continue;
            sum += ox * oy * s.at(i, j, ch);
            weights += ox * oy;
          }
        out.at(c, r, ch) = uint8_t(sum / weights + 0.5);
      }
  return out;
}

// Cubic up, area down, cubic up then area down when the axes disagree.
Pixels Smooth(const Pixels& s, int W, int H, int kernel) {
  if (W == s.width && H == s.height) return s;
  if (W >= s.width && H >= s.height) return Cubic(s, W, H, kernel);
  if (W <= s.width && H <= s.height) return Area(s, W, H);
  return Area(Cubic(s, std::max(W, s.width), std::max(H, s.height), kernel), W, H);
}

TEST_P(StoreKindTest, ResizeMatchesTheReferences) {
  struct Case {
    int w, h, W, H;
  };
  const Case cases[] = {
      {5, 4, 11, 9}, {6, 6, 7, 13}, {11, 9, 4, 3}, {10, 7, 3, 5},  // enlarge, shrink
      {6, 9, 13, 4}, {9, 4, 5, 10}, {7, 5, 7, 2},  {7, 5, 7, 5}};  // mixed, one axis, none
  uint32_t seed = 1;
  for (int channels : {1, 3}) {
    for (const Case& k : cases) {
      const Pixels source = RandomPixels(k.w, k.h, channels, seed++);
      Plane* plane = PlaneOf(source, GetParam());
      plane->palette[10][0] = 1;
      for (int mode = 0; mode < 3;
           mode++) {  // nearest, then smooth with kernel 2 (asked as 0) and 1
        SCOPED_TRACE(testing::Message() << "mode " << mode << ", " << channels << " channels, "
                                        << k.w << "x" << k.h << " to " << k.W << "x" << k.H);
        Plane* out = Kept(ResizePlane(plane, k.W, k.H, Virtual, mode > 0, mode == 2 ? 1 : 0));
        const Pixels expected =
            mode ? Smooth(source, k.W, k.H, mode == 2 ? 1 : 2) : Nearest(source, k.W, k.H);
        EXPECT_EQ(expected.bytes, PixelsOf(out).bytes);
        EXPECT_EQ(mode ? GetParam() : Virtual, out->kind);       // smoothing makes a work plane
        EXPECT_TRUE(channels == 3 || out->palette[10][0] == 1);  // an 8-bit plane keeps its palette
      }
    }
  }
  // One pixel wide or high (or less): a blank plane of the given kind.
  Plane* plane = PlaneOf(Pixels{2, 2, 3, Bytes(12, 200)}, GetParam());
  for (int smooth : {0, 1}) {
    for (auto [W, H] : {std::pair{1, 5}, {5, 1}, {0, 4}}) {
      Plane* out = Kept(ResizePlane(plane, W, H, Virtual, smooth, 0));
      EXPECT_EQ(Virtual, out->kind);
      EXPECT_EQ(Bytes(3 * std::max(W, 1) * H, 0), PixelsOf(out).bytes);
    }
  }
  EXPECT_EQ(nullptr,
            ResizePlane(NewPlane(8, 8, 4, 0, 0, Physical), 4, 4, Physical, 0, 0));  // no 4-bit rows
}

// The resamplers work by rows and columns kept apart; any size must still
// give the bytes of the block formulas, edges and all.
TEST_F(StoreTest, ResizeMatchesTheReferencesOnManySizes) {
  std::mt19937 random(3);
  auto side = [&](int most) { return 1 + int(random() % unsigned(most)); };
  for (int k = 0; k < 120; k++) {
    const int channels = k % 2 ? 3 : 1, kernel = 1 + k / 2 % 2;
    const int w = side(k < 20 ? 4 : 90), h = side(k < 20 ? 4 : 60);
    // Growing, shrinking and mixed by turns.
    const int W = k % 3 == 1 ? side(w) : w + side(150), H = k % 3 == 0 ? h + side(90) : side(h);
    const Pixels source = RandomPixels(w, h, channels, uint32_t(k + 100));
    SCOPED_TRACE(testing::Message() << channels << " channels, kernel " << kernel << ", " << w
                                    << "x" << h << " to " << W << "x" << H);
    EXPECT_EQ(Smooth(source, W, H, kernel).bytes,
              PixelsOf(Kept(SmoothResize(PlaneOf(source, Physical), W, H, kernel))).bytes);
  }
}

TEST_F(StoreTest, LargePlanesDontOverflowTheArithmetic) {
  const Pixels wide = RandomPixels(70000, 2, 1, 12);  // 70,000 x 39,999 passes 2^31
  EXPECT_TRUE(
      PixelsOf(Kept(ResizePlane(PlaneOf(wide, Physical), 40000, 3, Physical, 0, 0))).bytes ==
      Nearest(wide, 40000, 3).bytes);
  const Pixels narrow = RandomPixels(40000, 2, 1, 11);  // 40,000 x 69,999 likewise
  EXPECT_TRUE(PixelsOf(Kept(SmoothResize(PlaneOf(narrow, Physical), 70000, 3, 2))).bytes ==
              Cubic(narrow, 70000, 3, 2).bytes);
}

}  // namespace
