// Cropping, pasting and blurring, against references over plain arrays.
#include <gtest/gtest.h>

#include <algorithm>

#include "dib_test_support.h"
#include "store/plane_ops.h"

namespace {

using namespace dibtest;

// Pixel (x, y) of s, or zeros off it.
Pixels Crop(const Pixels& s, int x0, int y0, int x1, int y1) {
  Pixels out{x1 - x0 + 1, y1 - y0 + 1, s.channels, {}};
  for (int y = y0; y <= y1; y++) {
    for (int x = x0; x <= x1; x++) {
      const bool inside = x >= 0 && x < s.width && y >= 0 && y < s.height;
      for (int ch = 0; ch < s.channels; ch++) out.bytes.push_back(inside ? s.at(x, y, ch) : 0);
    }
  }
  return out;
}

TEST_P(DibKindTest, CropTakesThePartAndZeroesWhatLiesOff) {
  const Pixels source = RandomPixels(8, 6, 3, 3);
  Plane* plane = PlaneOf(source, GetParam());
  struct Box {
    int x0, y0, x1, y1;
  };
  for (Box box : {Box{2, 1, 5, 3}, Box{-2, -1, 3, 2}, Box{6, 4, 9, 8}, Box{10, 0, 11, 1}, Box{0, 0, 7, 5}}) {
    Plane* out = CropPlane(plane, box.x0, box.y0, box.x1, box.y1);
    ASSERT_NE(out, nullptr);
    EXPECT_EQ(out->kind, GetParam());
    EXPECT_EQ(PixelsOf(out).bytes, Crop(source, box.x0, box.y0, box.x1, box.y1).bytes)
        << box.x0 << "," << box.y0 << " to " << box.x1 << "," << box.y1;
    PlaneStore.FreePlane(&out);
  }
  Plane* turned = CropPlane(plane, 5, 3, 2, 1);  // corners in either order
  ASSERT_NE(turned, nullptr);
  EXPECT_EQ(PixelsOf(turned).bytes, Crop(source, 2, 1, 5, 3).bytes);
  PlaneStore.FreePlane(&turned);
  PlaneStore.FreePlane(&plane);

  plane = PlaneOf(RandomPixels(4, 4, 1, 4), GetParam());
  plane->palette[1][0] = 77;
  Plane* out = CropPlane(plane, 1, 1, 2, 2);
  EXPECT_EQ(out->palette[1][0], 77);
  PlaneStore.FreePlane(&out);
  PlaneStore.FreePlane(&plane);
}

TEST_P(DibKindTest, PasteClipsAtEveryEdge) {
  struct Place {
    int x, y, w, h;
  };
  const Place places[] = {
      {-2, -1, 4, 3},   // off the left and top
      {8, 6, 4, 3},     // off the right and bottom
      {3, 2, 4, 3},     // inside
      {-4, 0, 4, 3},    // wholly left
      {10, 2, 4, 3},    // wholly right
      {2, -3, 4, 3},    // wholly above
      {-1, -1, 12, 10}, // over everything
  };
  uint32_t seed = 500;
  for (int channels : {1, 3}) {
    for (const Place& p : places) {
      Pixels expected = RandomPixels(10, 8, channels, seed++);
      const Pixels piece = RandomPixels(p.w, p.h, channels, seed++);
      Plane* dest = PlaneOf(expected, GetParam());
      Plane* src = PlaneOf(piece, Physical);
      EXPECT_EQ(PastePlane(dest, src, p.x, p.y), 1);
      for (int y = 0; y < p.h; y++) {
        for (int x = 0; x < p.w; x++) {
          if (p.x + x < 0 || p.x + x >= 10 || p.y + y < 0 || p.y + y >= 8) continue;
          for (int ch = 0; ch < channels; ch++) expected.at(p.x + x, p.y + y, ch) = piece.at(x, y, ch);
        }
      }
      EXPECT_EQ(PixelsOf(dest).bytes, expected.bytes) << channels << " channels at " << p.x << "," << p.y;
      PlaneStore.FreePlane(&dest);
      PlaneStore.FreePlane(&src);
    }
  }
}

TEST_F(DibTest, PasteRefusesMixedDepths) {
  Plane* dest = PlaneOf(Pixels{2, 2, 3, Bytes(12, 9)}, Physical);
  Plane* src = PlaneStore.CreatePlane(2, 2, 8, 0, 0, Physical);
  EXPECT_EQ(PastePlane(dest, src, 0, 0), 0);
  EXPECT_EQ(PixelsOf(dest).bytes, Bytes(12, 9));
  PlaneStore.FreePlane(&dest);
  PlaneStore.FreePlane(&src);
}

// Each pixel: the 3 x 3 sum around it / 9, rows and columns clamped.
Pixels Blur(const Pixels& s) {
  Pixels out = s;
  for (int y = 0; y < s.height; y++) {
    for (int x = 0; x < s.width; x++) {
      int sum = 0;
      for (int dy = -1; dy <= 1; dy++) {
        for (int dx = -1; dx <= 1; dx++) {
          sum += s.at(std::clamp(x + dx, 0, s.width - 1), std::clamp(y + dy, 0, s.height - 1), 0);
        }
      }
      out.at(x, y, 0) = static_cast<uint8_t>(sum / 9);
    }
  }
  return out;
}

TEST_P(DibKindTest, BoxBlurMatchesTheReference) {
  uint32_t seed = 900;
  for (auto [w, h] : {std::pair{9, 7}, {1, 5}, {5, 1}, {1, 1}, {2, 2}}) {
    const Pixels source = RandomPixels(w, h, 1, seed++);
    Plane* plane = PlaneOf(source, GetParam());
    EXPECT_EQ(BoxBlur(plane), 1);
    EXPECT_EQ(PixelsOf(plane).bytes, Blur(source).bytes) << w << "x" << h;
    PlaneStore.FreePlane(&plane);
  }
  const Pixels flat{6, 4, 1, Bytes(24, 173)};
  Plane* plane = PlaneOf(flat, GetParam());
  BoxBlur(plane);
  EXPECT_EQ(PixelsOf(plane).bytes, flat.bytes);
  PlaneStore.FreePlane(&plane);

  const Pixels colour = RandomPixels(3, 3, 3, 1);
  plane = PlaneOf(colour, GetParam());
  EXPECT_EQ(BoxBlur(plane), 0);
  EXPECT_EQ(PixelsOf(plane).bytes, colour.bytes);
  PlaneStore.FreePlane(&plane);
}

}  // namespace
