// Packed rows: blocks of compressed rows, committed as they are packed.
#include "store/packed_rows.h"
#include "store_test_support.h"

namespace {

using namespace storetest;

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
  EXPECT_EQ("Please close some other applications and Press OK.", headless::Recorded().boxes[1].text);
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
