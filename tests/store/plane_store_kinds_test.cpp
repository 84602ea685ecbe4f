// The three storage kinds behave alike through the row and pixel operations.
#include <algorithm>
#include <random>
#include <tuple>

#include "plane_store_test_support.h"

namespace {

constexpr uint32_t kKinds[] = {Virtual, Physical, Packed};
using PlaneKindsTest = PlaneStoreTest;

// Random rows, spans and pixels go to a reference and to a plane of each
// kind, and every read must agree with the reference. Spans start at column
// 1 or later (a packed plane moves a whole row from column 0); values come
// from four so that packed blocks compress.
void RunRandomWrites(int bits, int width, int height, bool wide, unsigned seed) {
  const int bpp = bits / 8;
  std::vector<Bytes> model(height, Bytes(width * bpp, 9));
  Plane* planes[3];
  for (int k = 0; k < 3; ++k) {
    planes[k] = PlaneStore.CreatePlane(width, height, bits, 9, 1, kKinds[k]);
    ASSERT_NE(nullptr, planes[k]);
    if (wide) PlaneStore.WidenRowCache(planes[k]);
  }
  std::mt19937 random(seed);
  auto below = [&](int n) { return static_cast<int>(random() % n); };
  Bytes buffer(width * bpp);
  for (int step = 0; step < 2000; ++step) {
    int y = below(height), op = below(3);
    int x0 = op == 0 ? 0 : 1 + below(width - 1);
    int x1 = op == 0 ? width - 1 : op == 1 ? x0 + below(12) : x0;  // spans may run past the edge
    for (int i = 0; i < (std::min(x1, width - 1) - x0 + 1) * bpp; ++i)
      model[y][x0 * bpp + i] = buffer[i] = static_cast<uint8_t>(below(4) * 60);
    for (Plane* p : planes) {
      if (op < 2)
        ASSERT_EQ(1, PlaneStore.WriteRow(p, y, x0, x1, buffer.data()));
      else if (bits == 24)
        ASSERT_EQ(1, PlaneStore.WritePixel24(p, x0, y, buffer[2], buffer[1], buffer[0]));
      else
        ASSERT_EQ(1, PlaneStore.WritePixel8(p, x0, y, buffer[0]));
    }
    int ry = below(height), rx0 = 1 + below(width - 2), rx1 = std::min(width - 1, rx0 + below(20));
    for (int k = 0; k < 3; ++k) {
      Bytes span((rx1 - rx0 + 1) * bpp);
      ASSERT_EQ(1, PlaneStore.ReadRow(planes[k], ry, rx0, rx1, span.data()));
      ASSERT_TRUE(std::equal(span.begin(), span.end(), model[ry].begin() + rx0 * bpp)) << k;
      uint32_t r, g, b;
      if (bits == 24) {
        ASSERT_EQ(1, PlaneStore.ReadPixel24(planes[k], rx0, ry, &r, &g, &b));
        ASSERT_EQ(Bytes(model[ry].begin() + rx0 * 3, model[ry].begin() + rx0 * 3 + 3),
                  (Bytes{uint8_t(b), uint8_t(g), uint8_t(r)})) << k;
      } else {  // a packed plane answers with the byte two columns on
        ASSERT_EQ(1, PlaneStore.ReadPixel8(planes[k], rx0 - 1, ry, &r));
        ASSERT_EQ(model[ry][kKinds[k] == Packed ? rx0 + 1 : rx0 - 1], r) << k;
      }
    }
  }
  for (int k = 0; k < 3; ++k) {
    if (wide) PlaneStore.NarrowRowCache(planes[k]);
    for (int y = 0; y < height; ++y) ASSERT_EQ(model[y], ReadWholeRow(planes[k], y)) << k;
    PlaneStore.FreePlane(&planes[k]);
    EXPECT_EQ(nullptr, planes[k]);
  }
}

TEST_F(PlaneKindsTest, SameWritesReadTheSameInEveryKind) {
  // Odd widths leave padding in each stored row; 100 rows end packed
  // storage with a short block.
  RunRandomWrites(24, 37, 100, false, 1);
  RunRandomWrites(8, 37, 100, false, 2);
  RunRandomWrites(24, 13, 150, true, 3);
  RunRandomWrites(8, 101, 70, true, 4);
}

TEST_F(PlaneKindsTest, ClippingOfRowsAndPixels) {
  for (uint32_t kind : kKinds) {
    for (int n : {1, 3}) {  // bytes a pixel
      SCOPED_TRACE(testing::Message() << "kind " << kind << ", bytes " << n);
      Plane* plane = PlaneStore.CreatePlane(10, 4, n * 8, 0, 1, kind);
      WritePattern(plane);
      const Bytes sentinel(13 * n, 0xEE);
      Bytes buffer = sentinel, row = PatternRow(plane, 1);
      // x0 = -3: buffer position k is column x0 + k, so columns 0..2 land at 3..5.
      EXPECT_EQ(1, PlaneStore.ReadRow(plane, 1, -3, 2, buffer.data()));
      EXPECT_EQ(Slice(sentinel, 0, 3 * n), Slice(buffer, 0, 3 * n));
      EXPECT_EQ(Slice(row, 0, 3 * n), Slice(buffer, 3 * n, 3 * n));
      if (kind == Packed)  // from column 0 a packed plane reads a whole row, whatever x1
        EXPECT_EQ(Slice(row, 3 * n, 7 * n), Slice(buffer, 6 * n, 7 * n));
      else
        EXPECT_EQ(0xEE, buffer[6 * n]);
      // Nothing inside: fail and touch nothing.
      buffer = sentinel;
      EXPECT_EQ(0, PlaneStore.ReadRow(plane, 1, -3, -1, buffer.data()));
      EXPECT_EQ(0, PlaneStore.ReadRow(plane, 1, 10, 12, buffer.data()));
      EXPECT_EQ(0, PlaneStore.ReadRow(plane, 4, 0, 3, buffer.data()));
      EXPECT_EQ(0, PlaneStore.WriteRow(plane, 1, -5, -1, sentinel.data()));
      EXPECT_EQ(0, PlaneStore.WriteRow(plane, 1, 10, 10, sentinel.data()));
      EXPECT_EQ(0, PlaneStore.WriteRow(plane, -1, 0, 3, sentinel.data()));
      EXPECT_EQ(sentinel, buffer);
      for (int y = 0; y < 4; ++y) EXPECT_EQ(PatternRow(plane, y), ReadWholeRow(plane, y));
      // Past the right edge a span is cut at the last column.
      row = PatternRow(plane, 2);
      EXPECT_EQ(1, PlaneStore.ReadRow(plane, 2, 8, 40, buffer.data()));
      EXPECT_EQ(Slice(row, 8 * n, 2 * n), Slice(buffer, 0, 2 * n));
      EXPECT_EQ(0xEE, buffer[2 * n]);
      EXPECT_EQ(1, PlaneStore.WriteRow(plane, 2, 8, 40, sentinel.data()));
      std::fill(row.begin() + 8 * n, row.end(), 0xEE);
      EXPECT_EQ(row, ReadWholeRow(plane, 2));
      // A write from x0 = -3 takes columns 0..2 (packed: the whole row) from position 3 on.
      Bytes source(13 * n);
      for (size_t i = 0; i < source.size(); ++i) source[i] = static_cast<uint8_t>(100 + i);
      row = PatternRow(plane, 3);
      EXPECT_EQ(1, PlaneStore.WriteRow(plane, 3, -3, 2, source.data()));
      std::copy_n(source.begin() + 3 * n, (kind == Packed ? 10 : 3) * n, row.begin());
      EXPECT_EQ(row, ReadWholeRow(plane, 3));
      uint32_t v;
      for (auto [x, y] : {std::pair{-1, 0}, {10, 0}, {0, -1}, {0, 4}}) {
        EXPECT_EQ(0, PlaneStore.ReadPixel8(plane, x, y, &v));
        EXPECT_EQ(0, PlaneStore.WritePixel24(plane, x, y, 1, 2, 3));
      }
      PlaneStore.FreePlane(&plane);
    }
  }
}

TEST_F(PlaneKindsTest, SizesAndFillOfNewPlanes) {
  for (uint32_t kind : kKinds) {
    uint32_t serial = PlaneStore.serial;
    Plane* plane = PlaneStore.CreatePlane(0, -5, 24, 0, 0, kind);
    ASSERT_NE(nullptr, plane);
    EXPECT_EQ(std::tuple(1, 1, 4u, 4, serial + 1), std::tuple(plane->width, plane->height,
                                                             plane->stride, plane->byteSize,
                                                             plane->serial));
    PlaneStore.FreePlane(&plane);
    for (int bits : {8, 24}) {  // doFill 0 ignores the fill: all zero
      plane = PlaneStore.CreatePlane(45, 70, bits, 255, 0, kind);
      for (int y = 0; y < 70; ++y) ASSERT_EQ(Bytes(45 * bits / 8, 0), ReadWholeRow(plane, y));
      PlaneStore.FreePlane(&plane);
    }
    // byteSize is 32-bit: a bigger plane can't be made.
    EXPECT_EQ(nullptr, PlaneStore.CreatePlane(100000, 100000, 24, 0, 1, kind));
    EXPECT_EQ(nullptr, PlaneStore.CreatePlane(10, 10, 32, 0, 1, kind));
  }
  // A packed row has to fit the scratch.
  EXPECT_EQ(nullptr, PlaneStore.CreatePlane(700000, 2, 24, 0, 0, Packed));
  // The 4-bit grey ramp runs 0..15, unstretched.
  Plane* plane = PlaneStore.CreatePlane(33, 2, 4, 0, 0, Physical);
  EXPECT_EQ(20u, plane->stride);
  EXPECT_EQ(15, plane->palette[15][1]);
  EXPECT_EQ(0, plane->palette[16][1]);
  PlaneStore.FreePlane(&plane);
}

}  // namespace
