// BMP files and Dib tiles: saved bytes checked by hand, files of every depth
// loaded and saved again, broken and mutated files refused without harm.
#include <string>
#include <tuple>

#include "store/dib.h"
#include "store_test_support.h"
#include "support/temp_folder.h"

namespace {

using namespace storetest;

// The files of this run, in a folder removed when the program ends.
const TempFolder temp;

std::string WriteFile(const Bytes& file) {
  temp.Write("load.bmp", file);
  return temp / "load.bmp";
}

Plane* LoadBytes(const Bytes& file) { return Kept(LoadBmp(WriteFile(file))); }

// The depth and pixels of a loaded file; empty when refused.
Bytes Loaded(const Bytes& file) {
  Plane* plane = LoadBytes(file);
  if (!plane) return {};
  Bytes result = PixelsOf(plane).bytes;
  result.insert(result.begin(), uint8_t(plane->bits));
  return result;
}

Bytes Slice(const Bytes& bytes, size_t from, size_t to) { return Bytes(bytes.begin() + from, bytes.begin() + to); }

void Put(Bytes& out, uint32_t value, int bytes) {
  for (int i = 0; i < bytes; i++) out.push_back(uint8_t(value >> (8 * i)));
}

// The file header and the 40-byte info header, the rest of it zero.
Bytes Headers(uint32_t fileSize, uint32_t offset, uint32_t width, int32_t height, uint32_t bits,
              uint32_t colorsUsed = 0) {
  Bytes out = {'B', 'M'};
  for (uint32_t v : {fileSize, 0u, offset, 40u, width, uint32_t(height)}) Put(out, v, 4);
  Put(out, 1, 2);
  Put(out, bits, 2);
  for (uint32_t v : {0u, 0u, 0u, 0u, colorsUsed, 0u}) Put(out, v, 4);
  return out;
}

// A file laid out field by field; rows top first, packed at their depth.
Bytes BuildBmp(int width, int height, int bits, const std::vector<Bytes>& palette, const std::vector<Bytes>& rows,
               bool topDown = false, uint32_t colorsUsed = 0) {
  const uint32_t stride = (uint32_t(bits) * width + 31) / 32 * 4, offset = 54 + 4 * uint32_t(palette.size());
  Bytes out = Headers(offset + stride * height, offset, width, topDown ? -height : height, bits, colorsUsed);
  for (const Bytes& entry : palette) out.insert(out.end(), {entry[0], entry[1], entry[2], 0});
  for (int i = 0; i < height; i++) {
    Bytes row = rows[topDown ? i : height - 1 - i];
    row.resize(stride, 0);
    out.insert(out.end(), row.begin(), row.end());
  }
  return out;
}

TEST_F(StoreTest, SavedPlanesAndTilesHaveTheirHeadersAndBottomUpRows) {
  Plane* plane = PlaneOf(Pixels{3, 2, 3, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18}}, Physical);
  const std::string path = temp / "saved.bmp";
  ASSERT_EQ(1, SaveBmp(plane, path));
  Bytes expected = Headers(78, 54, 3, 2, 24);
  expected.insert(expected.end(), {10, 11, 12, 13, 14, 15, 16, 17, 18, 0, 0, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 0, 0, 0});
  EXPECT_EQ(expected, temp.Read("saved.bmp"));
  EXPECT_EQ(0, headless::Recorded().waitCursorDepth);
  plane = PlaneOf(Pixels{5, 3, 1, Bytes(15, 1)}, Virtual);
  plane->palette[7][0] = 70;  // the plane's table goes out as it stands
  ASSERT_EQ(1, SaveBmp(plane, path));
  const Bytes file = temp.Read("saved.bmp");
  ASSERT_EQ(1102u, file.size());  // 54 + 1024 + 3 rows of 8
  EXPECT_EQ(Headers(1102, 1078, 5, 3, 8), Slice(file, 0, 54));
  EXPECT_EQ((Bytes{70, 7, 7, 0}), Slice(file, 54 + 4 * 7, 54 + 4 * 8));
  EXPECT_EQ(0, SaveBmp(plane, temp / "no/such/folder.bmp"));
  EXPECT_EQ(0, SaveBmp(NewPlane(4, 4, 1, 0, 0, Physical), path));  // no row access at 1 bit

  // A tile saves its block: header, grey ramp, rows bottom up, bits most significant first.
  EXPECT_TRUE(!CreateTile(0, 5, 24) && !CreateTile(5, -1, 8) && !CreateTile(3, 2, 16));
  DibTile* tile = CreateTile(10, 2, 1);
  EXPECT_EQ(3, SetTileBit(tile, 0, 0, 1) + SetTileBit(tile, 9, 0, 1) + SetTileBit(tile, 3, 0, 1));
  EXPECT_EQ(1, SetTileBit(tile, 3, 0, 0));
  EXPECT_EQ(0, SetTileBit(tile, 10, 0, 1) + SetTileBit(tile, 0, 2, 1) + SetTileBit(tile, -1, 0, 1));
  ASSERT_EQ(1, SaveTileBmp(tile, path));
  expected = Headers(70, 62, 10, 2, 1);
  expected.insert(expected.end(), {0, 0, 0, 0, 255, 255, 255, 0, 0, 0, 0, 0, 0x80, 0x40, 0, 0});
  EXPECT_EQ(expected, temp.Read("saved.bmp"));
  EXPECT_EQ(0, SaveTileBmp(tile, temp / "no/such/tile.bmp"));
  FreeTile(&tile);
  EXPECT_EQ(nullptr, tile);
  tile = CreateTile(5, 1, 4);  // unlike a plane's, the 4-bit ramp is stretched to white
  EXPECT_EQ((Bytes{17, 17, 17, 0}), Bytes(tile->dib + 44, tile->dib + 48));
  tile->dib[tile->pixelOffset + 2] = 0xa0;  // five 4-bit pixels: three data bytes and padding
  tile->dib[tile->pixelOffset + 3] = 0x77;
  uint8_t raw[4] = {1, 1, 1, 1};
  EXPECT_EQ(1, ReadTileRowRaw(tile, 0, 0, 9, raw));
  EXPECT_EQ((Bytes{0, 0, 0xa0, 1}), Bytes(raw, raw + 4));
  EXPECT_EQ(0, ReadTileRowRaw(tile, 0, 3, 3, raw));
  FreeTile(&tile);
}

// Every depth, both row orders, grey and colour palettes: a file loads as
// its palette says, and the plane saves and loads back unchanged.
TEST_P(StoreKindTest, FilesOfEveryDepthLoadAndRoundTrip) {
  Random random{1234};
  for (int bits : {1, 4, 8, 24}) {
    for (bool grey : {true, false}) {
      SCOPED_TRACE(testing::Message() << bits << " bits, grey " << grey);
      const int w = 13, h = 5, entries = bits == 24 ? 0 : 1 << bits, channels = grey && bits < 24 ? 1 : 3;
      std::vector<Bytes> palette, rows;
      for (int i = 0; i < entries; i++) {
        const auto v = uint8_t(random.Next());
        palette.push_back(grey ? Bytes(3, v) : Bytes{v, uint8_t(v ^ 0x5a), uint8_t(~v)});
      }
      Bytes expected;
      for (int y = 0; y < h; y++) {
        Bytes row((w * bits + 7) / 8);
        for (int x = 0; x < w; x++) {
          if (bits == 24) {
            for (int ch = 0; ch < 3; ch++) expected.push_back(row[3 * x + ch] = uint8_t(random.Next()));
            continue;
          }
          const uint32_t index = random.Below(entries);  // most significant bits first
          row[x * bits / 8] |= uint8_t(index << (8 - bits - x * bits % 8));
          expected.insert(expected.end(), palette[index].begin(), palette[index].begin() + channels);
        }
        rows.push_back(row);
      }
      Plane* plane = LoadBytes(BuildBmp(w, h, bits, palette, rows, grey));  // top-down when grey
      ASSERT_NE(nullptr, plane);
      EXPECT_EQ(std::tuple(GetParam(), uint32_t(8 * channels)), std::tuple(plane->kind, plane->bits));
      EXPECT_EQ(expected, PixelsOf(plane).bytes);
      ASSERT_EQ(1, SaveBmp(plane, temp / "round.bmp"));
      plane = Kept(LoadBmp(temp / "round.bmp"));
      EXPECT_EQ(expected, PixelsOf(plane).bytes);
    }
  }
}

TEST_F(StoreTest, ShortOrBrokenFilesGiveNull) {
  EXPECT_EQ(nullptr, LoadBmp(temp / "missing.bmp"));
  const Bytes good = BuildBmp(4, 3, 24, {}, {Bytes(12, 1), Bytes(12, 2), Bytes(12, 3)});
  ASSERT_EQ(37u, Loaded(good).size());  // the file every case below breaks
  Bytes longer = good;
  longer.resize(good.size() + 10, 0);
  EXPECT_EQ(37u, Loaded(longer).size());  // bytes after the pixels don't matter
  auto with = [&](size_t at, std::initializer_list<uint8_t> bytes) {
    Bytes file = good;
    std::copy(bytes.begin(), bytes.end(), file.begin() + at);
    return file;
  };
  const std::pair<const char*, Bytes> broken[] = {
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
  for (const auto& [what, file] : broken) EXPECT_EQ(nullptr, LoadBytes(file)) << what;

  const std::vector<Bytes> greys(256, Bytes{1, 1, 1});
  EXPECT_EQ(nullptr, LoadBytes(Slice(BuildBmp(2, 1, 8, greys, {{0, 1}}), 0, 300)));  // palette cut
  EXPECT_EQ(nullptr, LoadBytes(BuildBmp(2, 1, 8, greys, {{0, 1}}, false, 300)));  // more colours than bits
  // A short palette: indices past it read black.
  EXPECT_EQ((Bytes{8, 255, 128, 0}), Loaded(BuildBmp(3, 1, 4, {{0, 0, 0}, {128, 128, 128}, {255, 255, 255}},
                                                     {{0x21, 0x50}}, false, 3)));
  EXPECT_TRUE(headless::Recorded().boxes.empty());
}

// A few changes of the kinds a damaged file shows, at random but the same on every run.
void Mutate(Bytes& file, Random& random) {
  // Values on the edges of the header checks.
  static constexpr uint32_t kEdges[] = {0, 1, 2, 4, 8, 24, 40, 54, 0x7f, 0x80, 0xff, 0x100, 0xffff,
                                        0x10000, 0x7fffffff, 0x80000000, 0xffffffff};
  for (int k = 1 + random.Below(4); k > 0 && !file.empty(); k--) {
    const auto size = uint32_t(file.size());
    const uint32_t what = random.Below(4), at = 2 + 4 * random.Below(13);
    const uint32_t edge = kEdges[random.Below(std::size(kEdges))];
    if (what == 0) file[random.Below(size)] = uint8_t(random.Next());  // any byte
    if (what == 1)  // a header field to an edge value
      for (uint32_t b = 0; b < 4 && at + b < size; b++) file[at + b] = uint8_t(edge >> (8 * b));
    if (what == 2) file.resize(random.Below(size + 1));  // cut short
    if (what == 3) file.resize(size + random.Below(64), uint8_t(random.Next()));  // bytes after the end
  }
}

// The reader must refuse or read each file without touching memory it
// doesn't own; the sanitizer build is what sees that.
TEST_F(StoreTest, MutatedFilesNeverBreakTheReader) {
  std::vector<Bytes> sixteen;
  for (int i = 0; i < 16; i++) sixteen.push_back({uint8_t(i * 16), uint8_t(i), 7});
  const Bytes seeds[] = {BuildBmp(13, 4, 1, {{0, 0, 0}, {255, 255, 255}}, std::vector<Bytes>(4, {0xaa, 0x55})),
                         BuildBmp(7, 5, 4, sixteen, std::vector<Bytes>(5, {0x12, 0x34, 0x56, 0x70})),
                         BuildBmp(6, 3, 8, std::vector<Bytes>(256, {9, 9, 9}), std::vector<Bytes>(3, {0, 50, 250})),
                         BuildBmp(5, 4, 24, {}, std::vector<Bytes>(4, Bytes(15, 0x3c)), true)};
  Random random{20240611};
  int loaded = 0;
  for (int run = 0; run < 2000; run++) {
    Bytes file = seeds[run % 4];
    Mutate(file, random);
    settings.workBuffer = run % 3;
    Plane* plane = LoadBmp(WriteFile(file));
    if (!plane) continue;
    loaded++;
    EXPECT_TRUE(plane->bits == 8 || plane->bits == 24);
    PixelsOf(plane);  // every row readable
    PlaneStore.FreePlane(&plane);
  }
  // Both outcomes must be common, or the mutations test nothing.
  EXPECT_GT(loaded, 200);
  EXPECT_LT(loaded, 1800);
  EXPECT_TRUE(headless::Recorded().boxes.empty());
}

}  // namespace
