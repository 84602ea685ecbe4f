// Cropping, pasting and blurring, against references over plain arrays.
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

}  // namespace
