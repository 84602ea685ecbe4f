#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "dib_test_support.h"
#include "store/plane_ops.h"

namespace {

using namespace dibtest;

// Output (c, r) reads (min(w - 1, w c / W), min(h - 1, h r / H)).
Pixels Nearest(const Pixels& s, int W, int H) {
  Pixels out{W, H, s.channels, {}};
  for (int r = 0; r < H; r++) {
    for (int c = 0; c < W; c++) {
      const int x = int(std::min<int64_t>(s.width - 1, int64_t{s.width} * c / W));
      const int y = int(std::min<int64_t>(s.height - 1, int64_t{s.height} * r / H));
      for (int ch = 0; ch < s.channels; ch++) out.bytes.push_back(s.at(x, y, ch));
    }
  }
  return out;
}

TEST_P(DibKindTest, NearestNeighbourFollowsTheFormula) {
  uint32_t seed = 40;
  for (int channels : {1, 3}) {
    for (auto [W, H] : {std::pair{13, 3}, {4, 9}, {7, 5}, {2, 2}}) {
      const Pixels source = RandomPixels(7, 5, channels, seed++);
      Plane* plane = PlaneOf(source, GetParam());
      plane->palette[10][0] = 1;
      Plane* out = ResizePlane(plane, W, H, Physical, 0, 0);
      EXPECT_EQ(out->kind, uint32_t(Physical));
      EXPECT_EQ(PixelsOf(out).bytes, Nearest(source, W, H).bytes) << channels << " to " << W << "x" << H;
      EXPECT_EQ(out->palette[10][0], channels == 1 ? 1 : 0);  // an 8-bit plane copies its palette
      PlaneStore.FreePlane(&out);
      PlaneStore.FreePlane(&plane);
    }
  }
}

TEST_F(DibTest, OnePixelWideOrHighGivesABlankPlane) {
  Plane* plane = PlaneOf(Pixels{2, 2, 3, Bytes(12, 200)}, Physical);
  for (int smooth : {0, 1}) {
    for (auto [W, H] : {std::pair{1, 5}, {5, 1}, {0, 4}}) {
      Plane* out = ResizePlane(plane, W, H, Virtual, smooth, 0);
      EXPECT_EQ(out->kind, uint32_t(Virtual));
      EXPECT_EQ(std::pair(out->width, out->height), std::pair(std::max(W, 1), H));
      EXPECT_EQ(PixelsOf(out).bytes, Bytes(3 * std::max(W, 1) * H, 0));
      PlaneStore.FreePlane(&out);
    }
  }
  PlaneStore.FreePlane(&plane);
  plane = PlaneStore.CreatePlane(8, 8, 4, 0, 0, Physical);
  EXPECT_EQ(ResizePlane(plane, 4, 4, Physical, 0, 0), nullptr);  // no row access at 4 bits
  PlaneStore.FreePlane(&plane);
}

TEST_F(DibTest, LargePlanesDontOverflowTheNearestArithmetic) {
  const Pixels source = RandomPixels(70000, 2, 1, 12);  // 70,000 x 39,999 passes 2^31
  Plane* plane = PlaneOf(source, Physical);
  Plane* out = ResizePlane(plane, 40000, 3, Physical, 0, 0);
  EXPECT_TRUE(PixelsOf(out).bytes == Nearest(source, 40000, 3).bytes);
  PlaneStore.FreePlane(&out);
  PlaneStore.FreePlane(&plane);
}

}  // namespace
