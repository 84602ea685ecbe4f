// The three storage kinds behind the same row and pixel operations, the
// clip rules that plane rows and Dib tile rows share, the row cache in
// front of a Virtual plane's mapping and a mapping that can't be made, and
// the blocks of compressed rows behind a Packed plane.
#include <cerrno>
#include <tuple>

#include "store/dib.h"
#include "store/packed_rows.h"
#include "store/plane_mapping.h"
#include "store/row_cache.h"
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

std::vector<int> CachedRows(const Plane* plane) {
  std::vector<int> rows;
  for (uint32_t i = 0; i < plane->rowCacheSize; ++i) rows.push_back(plane->rowSlots[i]->row);
  return rows;
}

// Row y as the mapping holds it, past the cache.
Bytes MappedRow(Plane* plane, int y) {
  Bytes row(plane->stride);
  EXPECT_EQ(0, plane->mapping->Read(uint64_t{plane->stride} * y, row.size(), row.data()));
  return Bytes(row.begin(), row.begin() + plane->width);
}

TEST_F(StoreTest, NarrowCacheEvictsTheOldestRowAndWritesItBack) {
  const Pixels rows = RandomPixels(13, 10, 1, 3);
  auto row = [&](int y) { return Bytes(rows.row(y), rows.row(y) + 13); };
  Plane* plane = NewPlane(13, 10, 8, 3, 1, Virtual);
  const uint8_t three[3] = {50, 51, 52};
  PlaneStore.WriteRow(plane, 0, 5, 7, three);
  const RowSlot* slot = plane->rowSlots[0];
  EXPECT_EQ(std::pair(0, 7),
            std::pair(slot->dirtyLow, slot->dirtyHigh));  // the dirty range starts at 0
  for (int y = 1; y <= 4; ++y) PlaneStore.WriteRow(plane, y, 0, 12, rows.row(y));
  EXPECT_EQ((std::vector<int>{4, 3, 2, 1}), CachedRows(plane));
  EXPECT_EQ(slot, plane->rowSlots[0]);  // row 0's slot took row 4
  Bytes row0(13, 3);
  std::copy_n(three, 3, row0.begin() + 5);
  EXPECT_EQ(row0, MappedRow(plane, 0));
  EXPECT_EQ(Bytes(13, 3), MappedRow(plane, 1));  // cached, not yet written back

  uint32_t value;  // a hit moves to the front; row 0 comes back from the mapping
  PlaneStore.ReadPixel8(plane, 5, 2, &value);
  EXPECT_EQ((std::vector<int>{2, 4, 3, 1}), CachedRows(plane));
  Bytes read(13);
  PlaneStore.ReadRow(plane, 0, 0, 12, read.data());
  EXPECT_EQ(row0, read);
  EXPECT_EQ((std::vector<int>{0, 2, 4, 3}), CachedRows(plane));
  EXPECT_EQ(row(1), MappedRow(plane, 1));
  // Each transfer ran at time-critical priority and gave the old one back.
  const std::vector<int>& set = headless::Recorded().prioritiesSet;
  ASSERT_FALSE(set.empty());
  for (size_t i = 0; i < set.size(); ++i)
    EXPECT_EQ(i % 2 ? platform::PriorityNormal : platform::PriorityTimeCritical, set[i]) << i;
  EXPECT_EQ(platform::PriorityNormal, platform::ThreadPriority());
}

TEST_F(StoreTest, FailedMappingShowsBothBoxesAndGivesNull) {
  headless::Recorded().failMappings = 1;
  EXPECT_EQ(nullptr, NewPlane(1000, 2000, 24, 7, 1, Virtual));
  const auto& boxes = headless::Recorded().boxes;
  ASSERT_EQ(2u, boxes.size());
  EXPECT_EQ(std::tuple(platform::Window::None, platform::ErrorText(ENOMEM), std::string("Error")),
            std::tuple(boxes[0].owner, boxes[0].text, boxes[0].caption));
  EXPECT_EQ(std::tuple(platform::Window::Frame, std::string("メモリーが不足しました"),
                       std::string("Tesel"), platform::MbOk | platform::MbIconInformation),
            std::tuple(boxes[1].owner, boxes[1].text, boxes[1].caption, boxes[1].style));
  EXPECT_TRUE(headless::Recorded().messages.empty());
}

Bytes Fetch(PackedRows& rows, int y) {
  Bytes row(rows.rowBytes);
  rows.FetchRow(y, row.data());
  return row;
}

TEST_F(StoreTest, BlocksNeverStoredOrIncompressibleReadAsPacked) {
  PackedRows rows;
  EXPECT_EQ(-1, rows.Setup(4, 20, 96, 32));
  EXPECT_EQ(-1, rows.StoreRow(0, Bytes(20, 1).data()));  // not set up: stores nothing
  ASSERT_EQ(0, rows.Setup(8, 20, 96, 32));
  rows.StoreRow(8, Bytes(20, 7).data());
  EXPECT_EQ(Bytes(20, 7), Fetch(rows, 40));  // fetched from a never-stored block: the last unpacked
  rows.StoreRow(64, Bytes(20, 3).data());
  EXPECT_EQ(Bytes(20, 0), Fetch(rows, 72));  // stored into one: it starts from zero
  EXPECT_EQ(Bytes(20, 7), Fetch(rows, 8));
  EXPECT_EQ(Bytes(20, 3), Fetch(rows, 64));

  // Noise doesn't shrink: such a block is kept as it is, the short last
  // block too (40 rows: 32 and 8), and every row reads back whole after
  // its block was put away and brought back, changed or not.
  for (int bits : {8, 24}) {
    ASSERT_EQ(0, rows.Setup(bits, 37, 40, 32));
    const int bytes = bits / 8;
    const Pixels noise = RandomPixels(37, 40, bytes, 7 + bits);
    for (int y = 39; y >= 0; --y) rows.StoreRow(y, noise.row(y));
    Fetch(rows, 39);
    EXPECT_EQ(rows.blockBytes, rows.blocks[0].length) << bits;
    for (int y = 0; y < 40; ++y)
      EXPECT_TRUE(std::equal(noise.row(y), noise.row(y) + 37 * bytes, Fetch(rows, y).begin()))
          << bits << " " << y;
    // A block of noise that later packs small is unpacked again.
    for (int y = 32; y < 40; ++y) rows.StoreRow(y, Bytes(37 * bytes, 9).data());
    Fetch(rows, 0);
    EXPECT_LT(rows.blocks[1].length, rows.blockBytes);
    EXPECT_EQ(Bytes(37 * bytes, 9), Fetch(rows, 39));
  }
}

TEST_F(StoreTest, CommitRefusedThreeTimesLosesTheBlock) {
  PackedRows rows;
  ASSERT_EQ(0, rows.Setup(8, 40, 96, 32));
  for (int y = 0; y < 32; ++y) rows.StoreRow(y, Bytes(40, uint8_t(y + 1)).data());
  headless::Recorded().failCommits = 2;  // two refusals, then the pages come
  EXPECT_EQ(0, rows.StoreRow(32, Bytes(40, 100).data()));
  ASSERT_EQ(2u, headless::Recorded().boxes.size());
  EXPECT_EQ("Please close some other applications and Press OK.",
            headless::Recorded().boxes[1].text);
  EXPECT_EQ("Insufficient Memory Available", headless::Recorded().boxes[1].caption);
  EXPECT_EQ(Bytes(40, 32), Fetch(rows, 31));

  rows.StoreRow(5, Bytes(40, 200).data());
  headless::Reset();
  headless::Recorded().failCommits = 3;  // three: -1, and block 0 unpacks as it was
  EXPECT_EQ(-1, rows.FetchRow(40, Bytes(40).data()));
  EXPECT_EQ(3u, headless::Recorded().boxes.size());
  EXPECT_EQ(0u, rows.blockDirty);
  EXPECT_EQ(Bytes(40, 6), Fetch(rows, 5));
}

}  // namespace
