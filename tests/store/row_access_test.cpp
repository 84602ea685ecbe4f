// AccessRow, rows reached in place, against the row copies: twin planes of
// each kind and depth, one changed through ReadRow and WriteRow and one in
// place by the same random spans, must answer the same spans, clip them the
// same way, keep the same cache and block state, and store the same bytes.
#include <tuple>

#include "store/packed_rows.h"
#include "store/plane_mapping.h"
#include "store/row_cache.h"
#include "store_test_support.h"

namespace {

using namespace storetest;

constexpr int kWidth = 37, kHeight = 70;  // a Packed plane of three blocks, the last short

class RowAccessTest : public StoreTest,
                      public testing::WithParamInterface<std::tuple<uint32_t, int>> {
 protected:
  uint32_t Kind() const { return std::get<0>(GetParam()); }
  int Bits() const { return std::get<1>(GetParam()); }
  // Every block of a Packed plane stored, so that each unpacks.
  Plane* Twin(const Pixels& start) {
    Plane* plane = NewPlane(kWidth, kHeight, Bits(), 9, 1, Kind());
    for (int y = 0; y < kHeight; ++y) PlaneStore.WriteRow(plane, y, 0, kWidth - 1, start.row(y));
    return plane;
  }
};

// What each kind keeps in front of its storage.
void ExpectSameState(const Plane* a, const Plane* b) {
  if (a->kind == Virtual) {
    for (int i = 0; i < kRowCacheWide; ++i) {
      const RowSlot &sa = *a->rowSlots[i], &sb = *b->rowSlots[i];
      ASSERT_EQ(std::tuple(sa.row, sa.dirtyLow, sa.dirtyHigh),
                std::tuple(sb.row, sb.dirtyLow, sb.dirtyHigh)) << "slot " << i;
    }
  }
  if (a->kind == Packed) {
    ASSERT_EQ(std::pair(a->packedRows->blockFirstRow, a->packedRows->blockDirty),
              std::pair(b->packedRows->blockFirstRow, b->packedRows->blockDirty));
  }
}

// The stored image past every cache: the mapping of a Virtual plane after
// a flush, the packed blocks of a Packed one after its block is packed.
Bytes Stored(Plane* plane) {
  Bytes bytes;
  if (plane->kind == Virtual) {
    PlaneStore.FlushRows(plane);
    bytes.resize(size_t(plane->byteSize));
    EXPECT_EQ(0, plane->mapping->Read(0, bytes.size(), bytes.data()));
  } else if (plane->kind == Packed) {
    const PackedRows& rows = *plane->packedRows;
    Bytes row(plane->stride);  // a row of another block packs the unpacked one
    PlaneStore.ReadRow(plane, rows.blockFirstRow == 0 ? kHeight - 1 : 0, 0, kWidth - 1, row.data());
    for (int i = 0; i < rows.blockCount; ++i) {
      const PackedRows::Block& block = rows.blocks[i];
      bytes.insert(bytes.end(), block.packed, block.packed + block.length);
    }
  } else {
    bytes.assign(plane->flatBytes, plane->flatBytes + plane->byteSize);
  }
  return bytes;
}

TEST_P(RowAccessTest, InPlaceSpansMatchTheRowCopies) {
  const int bpp = Bits() / 8;
  const Pixels start = RandomPixels(kWidth, kHeight, bpp, 11, 0x0f);
  Plane* copied = Twin(start);
  Plane* inPlace = Twin(start);
  Random random{2024};
  // Room for a Packed read from column 0, which fills a whole row.
  Bytes span(size_t(kWidth + 8) * bpp * 2);
  for (int step = 0; step < 600; ++step) {
    const int y = int(random.Below(kHeight + 4)) - 2;
    const int x0 = int(random.Below(kWidth + 10)) - 6;
    const int x1 = x0 + int(random.Below(kWidth + 8)) - 3;
    const bool write = random.Below(2) == 1;
    SCOPED_TRACE(testing::Message() << "step " << step << ": row " << y << ", " << x0 << ".."
                                    << x1);

    const int read = PlaneStore.ReadRow(copied, y, x0, x1, span.data());
    const RowAccess row = PlaneStore.AccessRow(inPlace, y, x0, x1, write);
    ASSERT_EQ(read == 1, row.bytes != nullptr);
    if (row.bytes) {
      ASSERT_EQ(std::pair(std::max(x0, 0), std::min(x1, kWidth - 1)), std::pair(row.x0, row.x1));
      const size_t skip = size_t(row.x0 - x0) * bpp, count = size_t(row.x1 - row.x0 + 1) * bpp;
      ASSERT_EQ(Bytes(span.begin() + skip, span.begin() + skip + count),
                Bytes(row.bytes, row.bytes + count));
      if (write) {
        for (size_t k = 0; k < count; ++k) row.bytes[k] = span[skip + k] = uint8_t(random.Next());
        PlaneStore.WriteRow(copied, y, x0, x1, span.data());
      }
    }
    ExpectSameState(copied, inPlace);
    if (step % 100 == 99) {
      ASSERT_EQ(PixelsOf(copied).bytes, PixelsOf(inPlace).bytes);
    }
  }
  EXPECT_EQ(Stored(copied), Stored(inPlace));
}

INSTANTIATE_TEST_SUITE_P(Store, RowAccessTest,
                         testing::Combine(testing::ValuesIn(kKinds), testing::Values(8, 24)));

// What a caller leaves in place reaches the storage behind the cache: a
// Virtual row when it is evicted, a Packed block when another is unpacked.
// Reading in place leaves both as they were.
TEST_F(StoreTest, WritesInPlaceReachTheStorage) {
  Plane* mapped = NewPlane(10, 8, 8, 4, 1, Virtual);
  auto frontDirty = [&] {
    return std::pair(mapped->rowSlots[0]->dirtyLow, mapped->rowSlots[0]->dirtyHigh);
  };
  PlaneStore.AccessRow(mapped, 0, 2, 3, 1).bytes[1] = 77;
  EXPECT_EQ(std::pair(0, 3), frontDirty());
  PlaneStore.AccessRow(mapped, 1, 5, 9, 0);
  EXPECT_EQ(std::pair(0, 0), frontDirty());
  for (int y = 2; y <= 5; ++y) PlaneStore.AccessRow(mapped, y, 0, 0, 0);  // rows 0 and 1 go
  Bytes row(mapped->stride);
  mapped->mapping->Read(0, row.size(), row.data());
  EXPECT_EQ((Bytes{4, 4, 4, 77, 4, 4, 4, 4, 4, 4}), Bytes(row.begin(), row.begin() + 10));

  Plane* packed = NewPlane(10, 80, 8, 4, 1, Packed);
  const PackedRows& blocks = *packed->packedRows;
  PlaneStore.AccessRow(packed, 40, 0, 9, 0);
  EXPECT_EQ(0u, blocks.blockDirty);
  const size_t before = blocks.blocks[1].length;
  PlaneStore.AccessRow(packed, 33, 4, 6, 1).bytes[2] = 200;
  EXPECT_EQ(1u, blocks.blockDirty);
  PlaneStore.AccessRow(packed, 70, 0, 9, 0);
  EXPECT_EQ(std::pair(0u, 64), std::pair(blocks.blockDirty, blocks.blockFirstRow));
  EXPECT_NE(before, blocks.blocks[1].length);  // packed again, with the change
  EXPECT_EQ(200, PlaneStore.AccessRow(packed, 33, 6, 6, 0).bytes[0]);

  // A block never stored reads, as FetchRow reads it, what was last unpacked.
  Plane* sparse = NewPlane(10, 80, 8, 0, 0, Packed);
  PlaneStore.WriteRow(sparse, 40, 0, 9, Bytes(10, 6).data());
  EXPECT_EQ(6, PlaneStore.AccessRow(sparse, 8, 0, 9, 0).bytes[3]);
}

// The clipping of ReadRow, each rule on its own, in every kind; and a
// Packed plane whose range couldn't be reserved has nothing to reach.
TEST_F(StoreTest, AccessRowClipsAsTheRowCopiesDo) {
  for (uint32_t kind : kKinds) {
    Plane* plane = NewPlane(10, 5, 24, 1, 1, kind);
    EXPECT_EQ(nullptr, PlaneStore.AccessRow(plane, -1, 0, 9, 0).bytes) << kind;
    EXPECT_EQ(nullptr, PlaneStore.AccessRow(plane, 5, 0, 9, 0).bytes) << kind;
    EXPECT_EQ(nullptr, PlaneStore.AccessRow(plane, 0, 10, 12, 0).bytes) << kind;
    EXPECT_EQ(nullptr, PlaneStore.AccessRow(plane, 0, -4, -1, 0).bytes) << kind;
    EXPECT_EQ(nullptr, PlaneStore.AccessRow(plane, 0, 6, 5, 0).bytes) << kind;
    const RowAccess cut = PlaneStore.AccessRow(plane, 4, -3, 20, 1);
    ASSERT_NE(nullptr, cut.bytes) << kind;
    EXPECT_EQ(std::pair(0, 9), std::pair(cut.x0, cut.x1)) << kind;
    cut.bytes[29] = 8;  // the last byte of the row
    Bytes row(30);
    PlaneStore.ReadRow(plane, 4, 0, 9, row.data());
    EXPECT_EQ(8, row[29]) << kind;
  }
  headless::Recorded().failReserves = 1;
  Plane* unreserved = NewPlane(10, 5, 8, 0, 0, Packed);
  ASSERT_NE(nullptr, unreserved);
  EXPECT_EQ(nullptr, PlaneStore.AccessRow(unreserved, 0, 0, 9, 1).bytes);
}

}  // namespace
