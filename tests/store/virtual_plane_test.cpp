// Virtual planes: the row cache in front of the mapping, and a mapping
// that can't be made.
#include <cerrno>
#include <tuple>

#include "store/plane_mapping.h"
#include "store/row_cache.h"
#include "store_test_support.h"

namespace {

using namespace storetest;

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
  EXPECT_EQ(std::pair(0, 7), std::pair(slot->dirtyLow, slot->dirtyHigh));  // the dirty range starts at 0
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

}  // namespace
