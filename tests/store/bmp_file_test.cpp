#include <gtest/gtest.h>

#include <vector>

#include "dib_test_support.h"
#include "store/dib.h"

namespace {

using namespace dibtest;

// The 40-byte info header of a saved file: size, depth, the rest zero.
Bytes InfoHeader(uint8_t width, uint8_t height, uint8_t bits) {
  Bytes info = {40, 0, 0, 0, width, 0, 0, 0, height, 0, 0, 0, 1, 0, bits, 0};
  info.resize(40, 0);
  return info;
}

Bytes Slice(const Bytes& bytes, size_t from, size_t to) { return Bytes(bytes.begin() + from, bytes.begin() + to); }

Plane* LoadBytes(const Bytes& file) {
  const std::string path = TempPath("load.bmp");
  WriteBytes(path, file);
  return LoadBmp(path);
}

// The pixels of a loaded file, with its depth first; empty when refused.
Bytes Loaded(const Bytes& file) {
  Plane* plane = LoadBytes(file);
  if (!plane) return {};
  Bytes result = {uint8_t(plane->bits)};
  const Bytes pixels = PixelsOf(plane).bytes;
  result.insert(result.end(), pixels.begin(), pixels.end());
  PlaneStore.FreePlane(&plane);
  return result;
}

TEST_F(DibTest, SavedFilesHaveTheirHeadersAndBottomUpRows) {
  Plane* plane = PlaneOf(Pixels{3, 2, 3, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18}}, Physical);
  const std::string path = TempPath("saved.bmp");
  ASSERT_EQ(SaveBmp(plane, path), 1);
  Bytes expected = {'B', 'M', 78, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0};
  const Bytes info = InfoHeader(3, 2, 24);
  expected.insert(expected.end(), info.begin(), info.end());
  expected.insert(expected.end(), {10, 11, 12, 13, 14, 15, 16, 17, 18, 0, 0, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 0, 0, 0});
  EXPECT_EQ(ReadBytes(path), expected);
  EXPECT_EQ(headless::Recorded().waitCursorDepth, 0);
  PlaneStore.FreePlane(&plane);

  plane = PlaneOf(Pixels{5, 3, 1, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}}, Virtual);
  plane->palette[7][0] = 70;  // the plane's table goes out as it stands
  ASSERT_EQ(SaveBmp(plane, path), 1);
  const Bytes file = ReadBytes(path);
  ASSERT_EQ(file.size(), 1102u);  // 54 + 1024 + 3 rows of 8
  EXPECT_EQ(Slice(file, 0, 14), (Bytes{'B', 'M', 0x4e, 0x04, 0, 0, 0, 0, 0, 0, 0x36, 0x04, 0, 0}));
  EXPECT_EQ(Slice(file, 14, 54), InfoHeader(5, 3, 8));
  EXPECT_EQ(Slice(file, 54 + 4 * 7, 54 + 4 * 8), (Bytes{70, 7, 7, 0}));
  EXPECT_EQ(Slice(file, 1078, 1102),
            (Bytes{11, 12, 13, 14, 15, 0, 0, 0, 6, 7, 8, 9, 10, 0, 0, 0, 1, 2, 3, 4, 5, 0, 0, 0}));
  PlaneStore.FreePlane(&plane);

  plane = PlaneStore.CreatePlane(4, 4, 1, 0, 0, Physical);  // no row access at 1 bit
  EXPECT_EQ(SaveBmp(plane, path), 0);
  PlaneStore.FreePlane(&plane);
  plane = PlaneStore.CreatePlane(4, 4, 24, 0, 0, Physical);
  EXPECT_EQ(SaveBmp(plane, TempPath("no/such/folder.bmp")), 0);
  PlaneStore.FreePlane(&plane);
}

TEST_P(DibKindTest, PlanesRoundTripThroughFiles) {
  for (int channels : {1, 3}) {
    const Pixels pixels = RandomPixels(13, 7, channels, 99 + channels);
    Plane* plane = PlaneOf(pixels, GetParam());
    const std::string path = TempPath("round.bmp");
    ASSERT_EQ(SaveBmp(plane, path), 1);
    Plane* back = LoadBmp(path);
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->kind, GetParam());
    EXPECT_EQ(back->bits, 8u * channels);
    EXPECT_EQ(PixelsOf(back).bytes, pixels.bytes);
    PlaneStore.FreePlane(&plane);
    PlaneStore.FreePlane(&back);
  }
}

// Runs every DibKindTest of this program in each storage kind.
INSTANTIATE_TEST_SUITE_P(Kinds, DibKindTest, ::testing::Values(Virtual, Physical, Packed));

TEST_F(DibTest, TilesSaveAsTheirBlock) {
  DibTile* tile = CreateTile(2, 2, 8);
  const uint8_t top[2] = {5, 6};
  const uint8_t bottom[2] = {7, 8};
  WriteTileRow8(tile, 0, 0, 1, top);
  WriteTileRow8(tile, 1, 0, 1, bottom);
  const std::string path = TempPath("tile.bmp");
  ASSERT_EQ(SaveTileBmp(tile, path), 1);
  const Bytes file = ReadBytes(path);
  ASSERT_EQ(file.size(), 1086u);  // 14 + 40 + 1024 + 2 rows of 4
  EXPECT_EQ(Slice(file, 0, 14), (Bytes{'B', 'M', 0x3e, 0x04, 0, 0, 0, 0, 0, 0, 0x36, 0x04, 0, 0}));
  EXPECT_EQ(Slice(file, 14, 1086), Bytes(tile->dib, tile->dib + 1072));
  EXPECT_EQ(Loaded(file), (Bytes{8, 5, 6, 7, 8}));
  EXPECT_EQ(SaveTileBmp(tile, TempPath("no/such/tile.bmp")), 0);
  FreeTile(&tile);

  tile = CreateTile(3, 1, 1);  // black and white come back as 0 and 255
  SetTileBit(tile, 1, 0, 1);
  ASSERT_EQ(SaveTileBmp(tile, path), 1);
  EXPECT_EQ(Loaded(ReadBytes(path)), (Bytes{8, 0, 255, 0}));
  FreeTile(&tile);
}

TEST_F(DibTest, IndexedFilesExpandThroughTheirPalette) {
  // 1 bit, ten columns: in black and white a grey plane, in blue and red a colour one.
  BmpSpec one{10, 2, 1, {{0, 0, 0}, {255, 255, 255}}, {{0xa0, 0x40}, {0xff, 0xc0}}};
  EXPECT_EQ(Loaded(BuildBmp(one)), (Bytes{8, 255, 0, 255, 0, 0, 0, 0, 0, 0, 255, /**/ 255, 255, 255, 255, 255,
                                          255, 255, 255, 255, 255}));
  one.palette = {{255, 0, 0}, {0, 0, 255}};
  const Bytes colour = Loaded(BuildBmp(one));
  ASSERT_EQ(colour.size(), 61u);
  EXPECT_EQ(Slice(colour, 0, 7), (Bytes{24, 0, 0, 255, 255, 0, 0}));

  // 4 bits, high nibble first; entry i is (i, 2i, 3i).
  BmpSpec four{5, 2, 4, {}, {{0x01, 0x2f, 0x70}, {0x33, 0x33, 0x30}}};
  for (int i = 0; i < 16; i++) four.palette.push_back({uint8_t(i), uint8_t(2 * i), uint8_t(3 * i)});
  EXPECT_EQ(Loaded(BuildBmp(four)), (Bytes{24, 0, 0, 0, 1, 2, 3, 2, 4, 6, 15, 30, 45, 7, 14, 21,  //
                                           3, 6, 9, 3, 6, 9, 3, 6, 9, 3, 6, 9, 3, 6, 9}));

  // A short grey palette: indices past it read black.
  BmpSpec few{3, 1, 4, {{0, 0, 0}, {128, 128, 128}, {255, 255, 255}}, {{0x21, 0x50}}};
  few.colorsUsed = 3;
  EXPECT_EQ(Loaded(BuildBmp(few)), (Bytes{8, 255, 128, 0}));
}

TEST_F(DibTest, TopDownFilesReadTheRightWayUp) {
  BmpSpec grey{3, 2, 8, {}, {{0, 1, 2}, {10, 20, 255}}, true};
  for (int i = 0; i < 256; i++) grey.palette.push_back(Bytes(3, uint8_t(255 - i)));
  EXPECT_EQ(Loaded(BuildBmp(grey)), (Bytes{8, 255, 254, 253, 245, 235, 0}));
  EXPECT_EQ(Loaded(BuildBmp({1, 3, 24, {}, {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}, true})),
            (Bytes{24, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST_F(DibTest, BrokenFilesGiveNull) {
  EXPECT_EQ(LoadBmp(TempPath("missing.bmp")), nullptr);
  const Bytes good = BuildBmp({4, 3, 24, {}, {Bytes(12, 1), Bytes(12, 2), Bytes(12, 3)}});
  ASSERT_EQ(Loaded(good).size(), 37u);  // the file every case below breaks
  Bytes longer = good;
  longer.resize(good.size() + 10, 0);
  EXPECT_EQ(Loaded(longer).size(), 37u);  // bytes after the pixels don't matter

  auto with = [&](size_t at, std::initializer_list<uint8_t> bytes) {
    Bytes file = good;
    std::copy(bytes.begin(), bytes.end(), file.begin() + at);
    return file;
  };
  const std::vector<std::pair<const char*, Bytes>> broken = {
      {"empty", {}},
      {"headers cut", Slice(good, 0, 53)},
      {"pixels cut", Slice(good, 0, good.size() - 1)},
      {"magic", with(1, {'X'})},
      {"info size", with(14, {12})},
      {"zero width", with(18, {0, 0, 0, 0})},
      {"negative width", with(18, {0xff, 0xff, 0xff, 0xff})},
      {"zero height", with(22, {0, 0, 0, 0})},
      {"most negative height", with(22, {0, 0, 0, 0x80})},
      {"planes", with(26, {2})},
      {"16 bits", with(28, {16})},
      {"compression", with(30, {1})},
      {"pixels inside the header", with(10, {40})},
      {"absurd size", with(18, {0xff, 0xff, 0xff, 0x7f, 0xff, 0xff, 0xff, 0x7f})},
      {"taller than the file", with(22, {0, 0, 1, 0})},
  };
  for (const auto& [what, file] : broken) EXPECT_EQ(LoadBytes(file), nullptr) << what;

  BmpSpec indexed{2, 1, 8, std::vector<Bytes>(256, Bytes{1, 1, 1}), {{0, 1}}};
  const Bytes whole = BuildBmp(indexed);
  EXPECT_EQ(LoadBytes(Slice(whole, 0, 300)), nullptr);  // palette cut
  indexed.colorsUsed = 300;
  EXPECT_EQ(LoadBytes(BuildBmp(indexed)), nullptr);
  EXPECT_TRUE(headless::Recorded().boxes.empty());
}

}  // namespace
