// Virtual planes: the row cache in front of the mapping, the moving view,
// and a mapping that can't be made.
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <regex>
#include <string>
#include <tuple>

#include "plane_store_test_support.h"
#include "store/plane_mapping.h"

namespace {

using VirtualPlaneTest = PlaneStoreTest;

std::vector<int> CachedRows(const Plane* plane, int slots) {
  std::vector<int> rows;
  for (int i = 0; i < slots; ++i) rows.push_back(plane->rowSlots[i]->row);
  return rows;
}

// Row y as the mapping holds it, past the cache.
Bytes MappedRow(Plane* plane, int y) {
  Bytes row(plane->stride);
  EXPECT_EQ(0, plane->mapping->Read(uint64_t{plane->stride} * y, row.size(), row.data()));
  row.resize(plane->width * plane->bytesPerPixel);
  return row;
}

TEST_F(VirtualPlaneTest, NarrowCacheEvictsTheOldestRowAndWritesItBack) {
  Plane* plane = PlaneStore.CreatePlane(13, 10, 8, 3, 1, Virtual);
  EXPECT_EQ(CachedRows(plane, 100), std::vector<int>(100, -1));  // all 100 slots exist
  const uint8_t three[3] = {50, 51, 52};
  PlaneStore.WriteRow(plane, 0, 5, 7, three);
  const RowSlot* slot = plane->rowSlots[0];
  // The dirty range starts at 0 and only widens; it stays with the slot.
  EXPECT_EQ(std::tuple(0, 5, 7, 0, 7), std::tuple(slot->row, slot->touchedLow, slot->touchedHigh,
                                                  slot->dirtyLow, slot->dirtyHigh));
  for (int y = 1; y <= 4; ++y) PlaneStore.WriteRow(plane, y, 0, 12, PatternRow(plane, y).data());
  EXPECT_EQ(CachedRows(plane, 5), (std::vector<int>{4, 3, 2, 1, -1}));
  EXPECT_EQ(slot, plane->rowSlots[0]);  // row 0's slot took row 4
  Bytes row0(13, 3);
  std::copy_n(three, 3, row0.begin() + 5);
  EXPECT_EQ(row0, MappedRow(plane, 0));
  EXPECT_EQ(Bytes(13, 3), MappedRow(plane, 1));  // cached, not yet written back

  uint32_t value;  // a hit moves to the front; row 0 comes back from the mapping
  PlaneStore.ReadPixel8(plane, 5, 2, &value);
  EXPECT_EQ(CachedRows(plane, 4), (std::vector<int>{2, 4, 3, 1}));
  EXPECT_EQ(row0, ReadWholeRow(plane, 0));
  EXPECT_EQ(CachedRows(plane, 4), (std::vector<int>{0, 2, 4, 3}));
  EXPECT_EQ(PatternRow(plane, 1), MappedRow(plane, 1));
  PlaneStore.FreePlane(&plane);
}

TEST_F(VirtualPlaneTest, NarrowAfterWideLosesNothing) {
  Plane* plane = PlaneStore.CreatePlane(21, 120, 24, 0, 0, Virtual);
  PlaneStore.WidenRowCache(plane);
  EXPECT_EQ(100u, plane->rowCacheSize);
  for (int y = 0; y <= 100; ++y) PlaneStore.WriteRow(plane, y, 0, 20, PatternRow(plane, y).data());
  EXPECT_EQ(100, plane->rowSlots[0]->row);
  EXPECT_EQ(1, plane->rowSlots[99]->row);  // the 101st row evicted row 0
  EXPECT_EQ(PatternRow(plane, 0), MappedRow(plane, 0));
  EXPECT_EQ(Bytes(63, 0), MappedRow(plane, 1));
  PlaneStore.NarrowRowCache(plane);
  EXPECT_EQ(4u, plane->rowCacheSize);
  EXPECT_EQ(CachedRows(plane, 100), std::vector<int>(100, -1));
  for (int y = 0; y <= 100; ++y) EXPECT_EQ(PatternRow(plane, y), MappedRow(plane, y));
  PlaneStore.FreePlane(&plane);
}

TEST_F(VirtualPlaneTest, ViewIsATenthOfThePlaneAndMovesByUnits) {
  // 1,004,000 bytes: 16 granules of 65,536; a view unit of 2 granules.
  Plane* plane = PlaneStore.CreatePlane(1001, 1000, 8, 0, 0, Virtual);
  PlaneMapping* mapping = plane->mapping;
  ASSERT_EQ(65536u, mapping->granularity);
  EXPECT_EQ(131072u, mapping->viewUnit);
  EXPECT_EQ(1048576u + 131072u, mapping->totalSize);
  char link[256] = {};  // named from the template and the serial
  std::string fd = "/proc/self/fd/" + std::to_string(intptr_t(mapping->mapHandle) - 1);
  ASSERT_GT(readlink(fd.c_str(), link, sizeof link - 1), 0);
  EXPECT_TRUE(std::regex_search(link, std::regex("pmemfile[a-z0-9]{6}_" +
                                                 std::to_string(plane->serial) + "( |$)")));

  auto view = [&] { return std::pair(mapping->viewOffset, mapping->viewSize); };
  Bytes bytes(1004);
  headless::Recorded().prioritiesSet.clear();
  EXPECT_EQ(0, mapping->Read(130520, 1004, bytes.data()));  // across 131,072
  EXPECT_EQ(std::pair(uint64_t{0}, uint64_t{262144}), view());
  EXPECT_EQ((std::vector<int>{15, 0}), headless::Recorded().prioritiesSet);
  EXPECT_EQ(0, mapping->Write(261140, 1004, bytes.data()));  // ends at the view's end
  EXPECT_EQ(std::pair(uint64_t{0}, uint64_t{262144}), view());
  EXPECT_EQ(0, mapping->Read(301200, 1004, bytes.data()));
  EXPECT_EQ(std::pair(uint64_t{262144}, uint64_t{131072}), view());
  EXPECT_EQ(0, mapping->Read(393206, 20, bytes.data()));  // across 393,216
  EXPECT_EQ(std::pair(uint64_t{262144}, uint64_t{262144}), view());

  WritePattern(plane);  // every row survives the moves of the view
  for (int y = 999; y >= 0; y -= 3) ASSERT_EQ(PatternRow(plane, y), ReadWholeRow(plane, y));
  PlaneStore.FreePlane(&plane);
}

TEST_F(VirtualPlaneTest, FailedMappingShowsBothBoxesAndGivesNull) {
  headless::Recorded().failMappings = 1;
  EXPECT_EQ(nullptr, PlaneStore.CreatePlane(1000, 2000, 24, 7, 1, Virtual));
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
