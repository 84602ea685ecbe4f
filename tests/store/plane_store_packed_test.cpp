// Packed planes: blocks of compressed rows, committed as they are packed.
#include <algorithm>
#include <random>

#include "plane_store_test_support.h"
#include "store/packed_rows.h"

namespace {

using PackedTest = PlaneStoreTest;

Bytes Fetch(PackedRows& rows, int y) {
  Bytes row(rows.rowBytes);
  rows.FetchRow(y, row.data());
  return row;
}

TEST_F(PackedTest, NeverStoredBlocksReadAsTheFetchAndStoreSidesSay) {
  PackedRows rows;
  EXPECT_EQ(-1, rows.Setup(4, 20, 96, 32));
  EXPECT_EQ(-1, rows.StoreRow(0, Bytes(20, 1).data()));  // not set up: stores nothing
  ASSERT_EQ(0, rows.Setup(8, 20, 96, 32));
  ASSERT_EQ(0, rows.StoreRow(8, Bytes(20, 7).data()));
  // Block 1 was never stored: fetching from it packs block 0 and keeps its rows.
  EXPECT_EQ(Bytes(20, 7), Fetch(rows, 40));
  // Block 2 was never stored: storing into it starts from zero.
  ASSERT_EQ(0, rows.StoreRow(64, Bytes(20, 3).data()));
  EXPECT_EQ(Bytes(20, 0), Fetch(rows, 72));
  EXPECT_EQ(Bytes(20, 7), Fetch(rows, 8));
  EXPECT_EQ(Bytes(20, 3), Fetch(rows, 64));
}

TEST_F(PackedTest, CommitRefusedThreeTimesLosesTheBlock) {
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

TEST_F(PackedTest, IncompressibleBlockKeepsAllButItsTail) {
  // Random bytes don't shrink: packing fills the block's room and stops, and
  // the cut stream gives back all but the last bytes of the block.
  PackedRows rows;
  ASSERT_EQ(0, rows.Setup(24, 37, 40, 32));  // the last block has room for 8 rows
  std::mt19937 random(7);
  std::vector<Bytes> data(40, Bytes(111));
  for (int y = 0; y < 40; ++y) {
    for (uint8_t& b : data[y]) b = static_cast<uint8_t>(random());
    rows.StoreRow(y, data[y].data());
  }
  EXPECT_EQ(0, rows.FetchRow(0, Bytes(111).data()));
  EXPECT_EQ(rows.blockBytes, rows.blocks[0].length);
  EXPECT_EQ(8u * 112u, rows.blocks[1].length);
  for (int y = 0; y < 31; ++y) EXPECT_EQ(data[y], Fetch(rows, y));
  EXPECT_TRUE(std::equal(data[31].begin(), data[31].begin() + 64, Fetch(rows, 31).begin()));
}

}  // namespace
