// Whole-plane work: fills and copies with their progress reports, raw files.
#include <unistd.h>

#include <cstdio>

#include "store_test_support.h"

namespace {

using namespace storetest;
using Reports = std::vector<std::pair<intptr_t, intptr_t>>;

Reports ReportsTo(platform::Window to) {
  Reports reports;
  for (const headless::SentMessage& m : headless::MessagesTo(to, 1024)) reports.emplace_back(m.wParam, m.lParam);
  return reports;
}

TEST_F(StoreTest, FillsAndCopiesReportProgressFromJustOverAMillionBytes) {
  // 4 bytes a row; chunks of 1,999,900 bytes. Percents take tenths first:
  // 3,999,800 of 4,040,204 bytes is 399,980 * 100 / 404,020 = 99, not 98.
  // A fill reports after the chunk that ends the bytes exactly, too.
  struct Case { int height, doFill; Reports expected; };
  for (const Case& c : {Case{250000, 1, {}}, Case{250001, 1, {{0, 0}}}, Case{250001, 0, {{0, 0}}},
                        Case{999950, 1, {{3, 50}, {3, 100}, {0, 0}}},
                        Case{1010051, 1, {{3, 49}, {3, 99}, {0, 0}}}}) {
    headless::Reset();
    Plane* plane = NewPlane(4, c.height, 8, 5, c.doFill, Virtual);
    EXPECT_EQ(c.expected, ReportsTo(platform::Window::StatusBar)) << c.height;
    Bytes last(4);
    PlaneStore.ReadRow(plane, c.height - 1, 0, 3, last.data());
    EXPECT_EQ(Bytes(4, c.doFill ? 5 : 0), last);
  }
  headless::Reset();  // flat planes fill silently, padding included
  Plane* flat = NewPlane(1001, 5000, 8, 200, 1, Physical);
  EXPECT_TRUE(headless::Recorded().messages.empty());
  EXPECT_EQ(200, flat->flatBytes[flat->byteSize - 1]);

  // A copy, between planes of one byte size, reports to the frame between
  // chunks only; the bytes survive the moves of the view.
  const Pixels pixels = RandomPixels(4, 1010051, 1, 1);
  flat = PlaneOf(pixels, Physical);
  Plane* mapped = NewPlane(4, 1010051, 8, 0, 0, Virtual);
  EXPECT_EQ(0, PlaneStore.CopyPlane(NewPlane(4, 1010050, 8, 0, 0, Virtual), flat));
  headless::Reset();
  ASSERT_EQ(1, PlaneStore.CopyPlane(mapped, flat));
  EXPECT_EQ((Reports{{3, 49}, {3, 99}, {0, 0}}), ReportsTo(platform::Window::Frame));
  EXPECT_TRUE(ReportsTo(platform::Window::StatusBar).empty());
  EXPECT_TRUE(PixelsOf(mapped).bytes == pixels.bytes);
}

TEST_F(StoreTest, SaveAndLoadRoundTripAndStopAtAShortFile) {
  struct Case { int width, height, channels; uint32_t kind; long fileSize; };
  // Two chunks of padded rows; packed rows are saved unpadded.
  for (Case c : {Case{1001, 3000, 1, Virtual, 1004 * 3000}, Case{1001, 3000, 1, Physical, 1004 * 3000},
                 Case{37, 50, 3, Packed, 37 * 3 * 50}}) {
    const Pixels pixels = RandomPixels(c.width, c.height, c.channels, 3, 0x03);
    Plane* plane = PlaneOf(pixels, c.kind);
    FILE* file = std::tmpfile();
    ASSERT_EQ(1, PlaneStore.SavePlane(plane, file));
    EXPECT_EQ(c.fileSize, std::ftell(file));
    std::rewind(file);
    Plane* copy = NewPlane(c.width, c.height, 8 * c.channels, 0, 0, c.kind);
    ASSERT_EQ(1, PlaneStore.LoadPlane(copy, file));
    EXPECT_TRUE(PixelsOf(copy).bytes == pixels.bytes) << c.kind;
    // Short by a byte: 0, and the first rows are in.
    EXPECT_EQ(0, ftruncate(fileno(file), c.fileSize - 1));
    std::rewind(file);
    Plane* fresh = NewPlane(c.width, c.height, 8 * c.channels, 0, 1, c.kind);
    EXPECT_EQ(0, PlaneStore.LoadPlane(fresh, file));
    EXPECT_TRUE(std::equal(pixels.row(0), pixels.row(1), PixelsOf(fresh).bytes.begin()));
    std::fclose(file);
  }
}

}  // namespace
