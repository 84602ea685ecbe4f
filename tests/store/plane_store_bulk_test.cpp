// Whole-plane work: fills and their progress reports, CopyPlane, raw files.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "plane_store_test_support.h"

namespace {

using BulkTest = PlaneStoreTest;
using Reports = std::vector<std::pair<intptr_t, intptr_t>>;

Reports ReportsTo(platform::Window to) {
  Reports reports;
  for (const headless::SentMessage& m : headless::MessagesTo(to, 1024))
    reports.emplace_back(m.wParam, m.lParam);
  return reports;
}

// Percent reports after chunks of 1,999,900 bytes: `last` says whether the
// chunk that ends the bytes exactly is reported too. Then the clearing one.
Reports Expected(int64_t byteSize, bool last) {
  Reports reports;
  for (int64_t offset = 1999900; offset < byteSize || (last && offset == byteSize);
       offset += 1999900)
    reports.emplace_back(3, (offset / 10) * 100 / (byteSize / 10));
  reports.emplace_back(0, 0);
  return reports;
}

TEST_F(BulkTest, VirtualFillReportsFromJustOverAMillionBytes) {
  ASSERT_EQ((Reports{{3, 50}, {3, 100}, {0, 0}}), Expected(3999800, true));
  ASSERT_EQ((Reports{{3, 49}, {3, 99}, {0, 0}}), Expected(4040204, true));  // tenths first
  struct Case { int height, doFill; Reports expected; };  // 4 bytes a row
  for (const Case& c : {Case{250000, 1, {}}, Case{250001, 1, {{0, 0}}}, Case{250001, 0, {{0, 0}}},
                        Case{999950, 1, Expected(3999800, true)},
                        Case{1010051, 1, Expected(4040204, true)}}) {
    headless::Reset();
    Plane* plane = PlaneStore.CreatePlane(4, c.height, 8, 5, c.doFill, Virtual);
    EXPECT_EQ(c.expected, ReportsTo(platform::Window::StatusBar)) << c.height;
    EXPECT_EQ(Bytes(4, c.doFill ? 5 : 0), ReadWholeRow(plane, c.height - 1));
    PlaneStore.FreePlane(&plane);
  }
  headless::Reset();  // flat planes fill silently, padding included
  Plane* plane = PlaneStore.CreatePlane(1001, 5000, 8, 200, 1, Physical);
  EXPECT_TRUE(headless::Recorded().messages.empty());
  EXPECT_EQ(200, plane->flatBytes[plane->byteSize - 1]);
  PlaneStore.FreePlane(&plane);
}

TEST_F(BulkTest, CopyPlaneMovesRawBytesBetweenEqualSizes) {
  Plane* src = PlaneStore.CreatePlane(8, 6, 8, 0, 0, Physical);  // 48 bytes
  Plane* other = PlaneStore.CreatePlane(8, 7, 8, 4, 1, Virtual);
  Plane* packed = PlaneStore.CreatePlane(8, 7, 8, 4, 1, Packed);
  WritePattern(src);
  EXPECT_EQ(0, PlaneStore.CopyPlane(other, src));
  EXPECT_EQ(0, PlaneStore.CopyPlane(packed, src));
  EXPECT_EQ(Bytes(8, 4), ReadWholeRow(other, 0));
  for (uint32_t kind : {Virtual, Physical}) {  // other shapes: bytes move as they stand
    Plane* wide = PlaneStore.CreatePlane(16, 3, 8, 0, 0, kind);
    Plane* rgb = PlaneStore.CreatePlane(4, 4, 24, 0, 0, kind);
    ASSERT_EQ(1, PlaneStore.CopyPlane(wide, src));
    ASSERT_EQ(1, PlaneStore.CopyPlane(rgb, wide));
    for (int i = 0; i < 48; ++i) {
      EXPECT_EQ(PatternByte(i / 8, i % 8), ReadWholeRow(wide, i / 16)[i % 16]);
      EXPECT_EQ(PatternByte(i / 8, i % 8), ReadWholeRow(rgb, i / 12)[i % 12]);
    }
    PlaneStore.FreePlane(&wide);
    PlaneStore.FreePlane(&rgb);
  }
  // From Physical through Packed to Virtual: row by row, with progress to the frame.
  Plane* flat = PlaneStore.CreatePlane(4, 1010051, 8, 0, 0, Physical);
  Plane* mapped = PlaneStore.CreatePlane(4, 1010051, 8, 0, 0, Virtual);
  Plane* rows = PlaneStore.CreatePlane(37, 70, 24, 0, 1, Packed);
  Plane* rows2 = PlaneStore.CreatePlane(37, 70, 24, 0, 0, Virtual);
  WritePattern(flat);
  WritePattern(rows);
  headless::Reset();
  ASSERT_EQ(1, PlaneStore.CopyPlane(mapped, flat));
  EXPECT_EQ(Expected(4040204, false), ReportsTo(platform::Window::Frame));
  EXPECT_TRUE(ReportsTo(platform::Window::StatusBar).empty());
  for (int y = 0; y < 1010051; y += 997) ASSERT_EQ(PatternRow(flat, y), ReadWholeRow(mapped, y));
  ASSERT_EQ(1, PlaneStore.CopyPlane(rows2, rows));
  for (int y = 0; y < 70; ++y) EXPECT_EQ(PatternRow(rows, y), ReadWholeRow(rows2, y));
  for (Plane* p : {src, other, packed, flat, mapped, rows, rows2}) PlaneStore.FreePlane(&p);
}

TEST_F(BulkTest, SaveAndLoadRoundTrips) {
  struct Case { int width, height, bits; uint32_t kind; long fileSize; };
  // Several chunks of padded rows; packed rows are saved unpadded.
  for (Case c : {Case{1001, 3000, 8, Virtual, 1004 * 3000}, Case{1001, 3000, 8, Physical, 3012000},
                 Case{37, 50, 24, Packed, 37 * 3 * 50}}) {
    Plane* plane = PlaneStore.CreatePlane(c.width, c.height, c.bits, 0, 1, c.kind);
    Plane* copy = PlaneStore.CreatePlane(c.width, c.height, c.bits, 0, 1, c.kind);
    WritePattern(plane);
    headless::Reset();
    FILE* file = std::tmpfile();
    ASSERT_EQ(1, PlaneStore.SavePlane(plane, file));
    EXPECT_EQ(c.fileSize, std::ftell(file));
    std::rewind(file);
    ASSERT_EQ(1, PlaneStore.LoadPlane(copy, file));
    for (int y = 0; y < c.height; ++y) ASSERT_EQ(PatternRow(plane, y), ReadWholeRow(copy, y));
    EXPECT_TRUE(headless::Recorded().messages.empty());

    // A short file: 0, and the rows of whole chunks or rows read stay.
    Plane* fresh = PlaneStore.CreatePlane(c.width, c.height, c.bits, 0, 1, c.kind);
    EXPECT_EQ(0, ftruncate(fileno(file), c.fileSize - 1));
    std::rewind(file);
    EXPECT_EQ(0, PlaneStore.LoadPlane(fresh, file));
    EXPECT_EQ(PatternRow(plane, 0), ReadWholeRow(fresh, 0));
    std::fclose(file);

    char path[] = "/tmp/plane_store_testXXXXXX";  // a file that takes no writes
    close(mkstemp(path));
    FILE* readOnly = std::fopen(path, "rb");
    EXPECT_EQ(0, PlaneStore.SavePlane(plane, readOnly));
    std::fclose(readOnly);
    std::remove(path);
    for (Plane* p : {plane, copy, fresh}) PlaneStore.FreePlane(&p);
  }
}

}  // namespace
