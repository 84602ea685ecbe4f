// The three storage kinds behind the same row and pixel operations, and the
// clip rules that plane rows and Dib tile rows share.
#include <tuple>

#include "store/dib.h"
#include "store_test_support.h"

namespace {

using namespace storetest;

// Random rows, spans and pixels go to a model and to a plane of each kind;
// every read must agree with the model. Spans start at column 1 or later (a
// packed plane moves a whole row from column 0) and may run past the edge;
// values come from four so that packed blocks compress.
void RunRandomWrites(int bits, int width, int height, bool wide, uint32_t seed) {
  const int n = bits / 8;
  Pixels model{width, height, n, Bytes(size_t(width) * height * n, 9)};
  Plane* planes[3];
  for (int k = 0; k < 3; ++k) {
    planes[k] = NewPlane(width, height, bits, 9, 1, kKinds[k]);
    if (wide) PlaneStore.WidenRowCache(planes[k]);
  }
  Random random{seed};
  Bytes buffer(width * n);
  for (int step = 0; step < 2000; ++step) {
    const int y = random.Below(height), op = random.Below(3);
    const int x0 = op == 0 ? 0 : 1 + random.Below(width - 1);
    const int x1 = op == 0 ? width - 1 : op == 1 ? x0 + random.Below(12) : x0;
    for (int i = 0; i < (std::min(x1, width - 1) - x0 + 1) * n; ++i)
      (&model.at(x0, y, 0))[i] = buffer[i] = uint8_t(random.Below(4) * 60);
    for (Plane* p : planes)
      ASSERT_EQ(1, op < 2   ? PlaneStore.WriteRow(p, y, x0, x1, buffer.data())
                   : n == 3 ? PlaneStore.WritePixel24(p, x0, y, buffer[2], buffer[1], buffer[0])
                            : PlaneStore.WritePixel8(p, x0, y, buffer[0]));
    const int ry = random.Below(height), rx0 = 1 + random.Below(width - 2);
    const int rx1 = std::min<int>(width - 1, rx0 + random.Below(20));
    for (int k = 0; k < 3; ++k) {
      Bytes span((rx1 - rx0 + 1) * n);
      ASSERT_EQ(1, PlaneStore.ReadRow(planes[k], ry, rx0, rx1, span.data()));
      ASSERT_TRUE(std::equal(span.begin(), span.end(), &model.at(rx0, ry, 0))) << k;
      uint32_t r, g, b;
      if (n == 3) {
        ASSERT_EQ(1, PlaneStore.ReadPixel24(planes[k], rx0, ry, &r, &g, &b));
        ASSERT_EQ((Bytes{uint8_t(b), uint8_t(g), uint8_t(r)}), Bytes(span.begin(), span.begin() + 3)) << k;
      } else {  // a packed plane answers with the byte two columns on
        ASSERT_EQ(1, PlaneStore.ReadPixel8(planes[k], rx0 - 1, ry, &r));
        ASSERT_EQ(model.at(kKinds[k] == Packed ? rx0 + 1 : rx0 - 1, ry, 0), r) << k;
      }
    }
  }
  for (int k = 0; k < 3; ++k) {
    if (wide) PlaneStore.NarrowRowCache(planes[k]);
    EXPECT_EQ(model.bytes, PixelsOf(planes[k]).bytes) << k;
  }
}

TEST_F(StoreTest, SameWritesReadTheSameInEveryKind) {
  // Odd widths leave padding in stored rows; 100 and 130 rows end packed
  // storage with a short block and evict rows from the narrow and the wide cache.
  RunRandomWrites(24, 37, 100, false, 1);
  RunRandomWrites(8, 101, 130, true, 2);
}

TEST_F(StoreTest, RowsClipAlikeInPlanesAndTiles) {
  for (int target = 0; target < 4; ++target) {  // the three kinds, then a tile
    for (int n : {1, 3}) {
      SCOPED_TRACE(testing::Message() << "target " << target << ", bytes " << n);
      Pixels p = RandomPixels(10, 4, n, target + 1);
      Plane* plane = target < 3 ? PlaneOf(p, kKinds[target]) : nullptr;
      DibTile* tile = plane ? nullptr : CreateTile(10, 4, 8 * n);
      auto read = [&](int y, int x0, int x1, uint8_t* to) {
        return plane ? PlaneStore.ReadRow(plane, y, x0, x1, to)
                     : n == 1 ? ReadTileRow8(tile, y, x0, x1, to) : ReadTileRow(tile, y, x0, x1, to);
      };
      auto write = [&](int y, int x0, int x1, const uint8_t* from) {
        return plane ? PlaneStore.WriteRow(plane, y, x0, x1, from)
                     : n == 1 ? WriteTileRow8(tile, y, x0, x1, from) : WriteTileRow(tile, y, x0, x1, from);
      };
      for (int y = 0; tile && y < 4; ++y) write(y, 0, 9, p.row(y));
      const int fromZero = target == 2 ? 10 : 3;  // from column 0 a packed plane moves a whole row

      // Buffer position k stands for column x0 + k; a span past the edge is cut.
      const Bytes fill(13 * n, 0xEE);
      Bytes buffer = fill, expected = fill;
      EXPECT_EQ(1, read(1, -3, 2, buffer.data()));
      std::copy_n(p.row(1), fromZero * n, expected.begin() + 3 * n);
      EXPECT_EQ(expected, buffer);
      buffer = expected = fill;
      EXPECT_EQ(1, read(2, 8, 40, buffer.data()));
      std::copy_n(&p.at(8, 2, 0), 2 * n, expected.begin());
      EXPECT_EQ(expected, buffer);
      // Nothing inside: 0, and nothing read or written.
      buffer = fill;
      for (auto [y, x0, x1] : {std::tuple{1, -3, -1}, {1, 10, 12}, {1, 5, 4}, {4, 0, 3}, {-1, 0, 3}})
        EXPECT_EQ(0, read(y, x0, x1, buffer.data()) + write(y, x0, x1, fill.data()));
      EXPECT_EQ(fill, buffer);
      // Writes clip the same way.
      Bytes source(13 * n);
      for (size_t i = 0; i < source.size(); ++i) source[i] = uint8_t(100 + i);
      EXPECT_EQ(1, write(3, -3, 2, source.data()));
      std::copy_n(source.begin() + 3 * n, fromZero * n, &p.at(0, 3, 0));
      EXPECT_EQ(1, write(2, 8, 40, source.data()));
      std::copy_n(source.begin(), 2 * n, &p.at(8, 2, 0));
      Bytes all(p.bytes.size());
      for (int y = 0; y < 4; ++y) read(y, 0, 9, &all[y * 10 * n]);
      EXPECT_EQ(p.bytes, all);
      uint32_t v;  // pixels off the plane
      for (auto [x, y] : {std::pair{-1, 0}, {10, 0}, {0, -1}, {0, 4}})
        EXPECT_TRUE(!plane ||
                    !(PlaneStore.ReadPixel8(plane, x, y, &v) || PlaneStore.WritePixel24(plane, x, y, 1, 2, 3)));
      FreeTile(&tile);
    }
  }
}

TEST_F(StoreTest, NewPlanesSizesAndLimits) {
  for (uint32_t kind : kKinds) {
    const Plane* plane = NewPlane(0, -5, 24, 0, 0, kind);  // at least 1 x 1
    EXPECT_EQ(std::tuple(1, 1, 4u, 4), std::tuple(plane->width, plane->height, plane->stride, plane->byteSize));
    // byteSize is 32-bit: a bigger plane can't be made; nor one of another depth.
    EXPECT_EQ(nullptr, PlaneStore.CreatePlane(100000, 100000, 24, 0, 1, kind));
    EXPECT_EQ(nullptr, PlaneStore.CreatePlane(10, 10, 32, 0, 1, kind));
  }
  EXPECT_EQ(nullptr, PlaneStore.CreatePlane(700000, 2, 24, 0, 0, Packed));  // a row must fit the scratch
  const Plane* plane = NewPlane(33, 2, 4, 0, 0, Physical);  // the 4-bit ramp runs 0..15, unstretched
  EXPECT_EQ(std::tuple(20u, 15, 0), std::tuple(plane->stride, plane->palette[15][1], plane->palette[16][1]));
}

}  // namespace
