// The "bmp" plug-in through its entry points: pictures written and read back,
// files laid out here byte by byte and read, broken files refused, progress,
// and a written file read by ImageMagick.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "document/canvas_manager.h"
#include "file/install.h"
#include "file/native_file.h"
#include "file/plugin_harness.h"
#include "file/write_canvas.h"
#include "plugin_abi/progress.h"
#include "settings/settings.h"
#include "support/fixture.h"
#include "support/temp_folder.h"

namespace {

using namespace plugintest;
using Bytes = std::vector<uint8_t>;

const PluginModule& Plugin() {
  static const PluginModule plugin("bmp");
  return plugin;
}

void Put(Bytes& out, uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) out.push_back(uint8_t(value >> (8 * i)));
}
uint32_t At(const Bytes& in, size_t offset, int bytes) {
  uint32_t value = 0;
  for (int i = bytes - 1; i >= 0; --i) value = value << 8 | in[offset + size_t(i)];
  return value;
}

// A file laid out field by field. Masks go inside headers of 52 bytes and
// more, after a 40-byte one; pixels are the data as stored.
struct BmpFile {
  uint32_t infoBytes = 40;
  int32_t width = 1, height = 1;
  uint32_t bits = 24, compression = 0, colorsUsed = 0;
  int32_t pixelsPerMetre = 0;
  std::vector<uint32_t> masks;
  Bytes palette, pixels;

  Bytes Build() const {
    const uint32_t after = infoBytes == 40 ? uint32_t(masks.size()) * 4 : 0;
    const uint32_t offset = 14 + infoBytes + after + uint32_t(palette.size());
    Bytes out = {'B', 'M'};
    for (uint32_t v : {offset + uint32_t(pixels.size()), 0u, offset, infoBytes}) Put(out, v, 4);
    if (infoBytes == 12) {
      for (uint32_t v : {uint32_t(width), uint32_t(height), 1u, bits}) Put(out, v, 2);
    } else {
      Put(out, uint32_t(width), 4);
      Put(out, uint32_t(height), 4);
      Put(out, 1, 2);
      Put(out, bits, 2);
      for (uint32_t v : {compression, uint32_t(pixels.size()), uint32_t(pixelsPerMetre),
                         uint32_t(pixelsPerMetre), colorsUsed, 0u})
        Put(out, v, 4);
      for (size_t i = 0; i < masks.size() && (infoBytes == 40 || 40 + 4 * i < infoBytes); ++i)
        Put(out, masks[i], 4);
      out.resize(14 + infoBytes + after, 0);
    }
    out.insert(out.end(), palette.begin(), palette.end());
    out.insert(out.end(), pixels.begin(), pixels.end());
    return out;
  }
};

// Rows in file order, each padded to four bytes.
Bytes Rows(const std::vector<Bytes>& rows) {
  Bytes out;
  for (Bytes row : rows) {
    row.resize((row.size() + 3) / 4 * 4, 0);
    out.insert(out.end(), row.begin(), row.end());
  }
  return out;
}

struct Read {
  bool ok = false;
  MemoryPicture picture;
  const MemoryLayer& layer() const { return picture.layers.at(0); }
};

Read ReadBytes(const Bytes& file) {
  TempFolder folder;
  folder.Write("in.bmp", file);
  Read read;
  read.ok = ReadPicture(Plugin(), folder / "in.bmp", &read.picture);
  return read;
}

// Blue-green-red rows, top first, from colours given as {r, g, b}.
Bytes Image(const std::vector<std::vector<std::array<int, 3>>>& rows) {
  Bytes out;
  for (const auto& row : rows) {
    for (const auto& c : row) out.insert(out.end(), {uint8_t(c[2]), uint8_t(c[1]), uint8_t(c[0])});
  }
  return out;
}

// A 24-bit layer whose every pixel differs from its neighbours.
MemoryLayer ColourLayer(int width, int height) {
  MemoryLayer l;
  l.width = width, l.height = height, l.bits = 24;
  for (int i = 0; i < width * height * 3; ++i) l.image.push_back(uint8_t(i * 37 + i / 3));
  return l;
}

TEST(BmpPlugin, DescribesItselfAndRoundTripsColourPaletteAndTransparency) {
  ASSERT_TRUE(Plugin().loaded());
  FormatInfo reader{}, writer{};
  Plugin().Entry<ReadFileInfoFn>("ReadFileInfo")(nullptr, &reader);
  Plugin().Entry<WriteFileInfoFn>("WriteFileInfo")(nullptr, &writer);
  EXPECT_STREQ(reader.extensions, "bmp;dib");
  EXPECT_STREQ(writer.extensions, "bmp");
  EXPECT_STREQ(writer.description, "Windows Bitmap");
  EXPECT_TRUE(writer.accepts8 && writer.accepts24);

  TempFolder folder;
  // 24 bits: odd width for row padding, bottom-up rows, the resolution.
  MemoryPicture colour;
  colour.dpi = 300;
  colour.layers = {ColourLayer(7, 5)};
  ASSERT_TRUE(WritePicture(Plugin(), folder / "colour.bmp", colour));
  Bytes file = folder.Read("colour.bmp");
  ASSERT_EQ(file.size(), 54u + 24 * 5);
  EXPECT_EQ(At(file, 10, 4), 54u);
  EXPECT_EQ(At(file, 22, 4), 5u);  // positive: bottom-up
  EXPECT_EQ(At(file, 28, 2), 24u);
  EXPECT_EQ(At(file, 38, 4), 11811u);                      // 300 dpi in pixels per metre
  EXPECT_EQ(file[54], colour.layers[0].image[4 * 7 * 3]);  // the bottom row first
  Read back = ReadBytes(file);
  ASSERT_TRUE(back.ok);
  EXPECT_EQ(back.layer().bits, 24);
  EXPECT_EQ(back.layer().image, colour.layers[0].image);
  EXPECT_EQ(back.picture.dpi, 300);
  EXPECT_TRUE(back.layer().alpha[1].empty());
  EXPECT_EQ(back.layer().record.mixMode, 1);

  // 8 bits: the host's indices and palette.
  MemoryPicture indexed;
  indexed.layers.resize(1);
  MemoryLayer& l = indexed.layers[0];
  l.width = 5, l.height = 3, l.bits = 8;
  for (int i = 0; i < 15; ++i) l.indices.push_back(uint8_t(i * 17));
  for (int i = 0; i < 1024; ++i) l.palette[size_t(i)] = uint8_t(i % 4 == 3 ? 99 : i * 7 + 1);
  ASSERT_TRUE(WritePicture(Plugin(), folder / "indexed.bmp", indexed));
  file = folder.Read("indexed.bmp");
  EXPECT_EQ(At(file, 10, 4), 54u + 1024);
  EXPECT_EQ(At(file, 28, 2), 8u);
  EXPECT_EQ(file[54 + 3], 0);  // the palette's reserved byte
  back = ReadBytes(file);
  ASSERT_TRUE(back.ok);
  EXPECT_EQ(back.layer().bits, 8);
  for (int i = 0; i < 15; ++i) {
    const uint8_t* entry = &l.palette[size_t(l.indices[size_t(i)]) * 4];
    EXPECT_EQ(Bytes(&back.layer().image[size_t(i) * 3], &back.layer().image[size_t(i) * 3 + 3]),
              Bytes(entry, entry + 3));
  }

  // The transparency plane becomes alpha in a 32-bit file, and comes back.
  MemoryPicture clear;
  clear.layers = {ColourLayer(3, 2)};
  clear.layers[0].alpha[1] = {0, 1, 128, 254, 255, 7};
  ASSERT_TRUE(WritePicture(Plugin(), folder / "clear.bmp", clear));
  file = folder.Read("clear.bmp");
  EXPECT_EQ(At(file, 14, 4), 124u);
  EXPECT_EQ(At(file, 28, 2), 32u);
  EXPECT_EQ(At(file, 30, 4), 3u);  // bitfields
  EXPECT_EQ(At(file, 14 + 52, 4), 0xFF000000u);
  EXPECT_EQ(file[14 + 124 + 3], 254);  // the bottom row's first alpha
  back = ReadBytes(file);
  ASSERT_TRUE(back.ok);
  EXPECT_EQ(back.layer().image, clear.layers[0].image);
  EXPECT_EQ(back.layer().alpha[1], clear.layers[0].alpha[1]);
  EXPECT_STREQ(back.layer().names[1], "0T");
  EXPECT_EQ(back.layer().flags[1], 0x01000000u);

  // An opaque plane, which every canvas has, carries nothing: 24 bits.
  clear.layers[0].alpha[1].assign(6, 255);
  ASSERT_TRUE(WritePicture(Plugin(), folder / "opaque.bmp", clear));
  EXPECT_EQ(At(folder.Read("opaque.bmp"), 28, 2), 24u);
}

TEST(BmpPlugin, ReadsPaletteFilesBuiltByHand) {
  // 1 bit, bottom-up, ten columns: two bytes of bits and padding a row.
  BmpFile one;
  one.width = 10, one.height = 2, one.bits = 1, one.pixelsPerMetre = 2835;
  one.palette = {30, 20, 10, 0, 50, 100, 200, 0};
  one.pixels = Rows({{0b01000000, 0b01000000}, {0b10000000, 0b11000000}});
  Read read = ReadBytes(one.Build());
  ASSERT_TRUE(read.ok);
  EXPECT_EQ(read.layer().bits, 1);
  EXPECT_EQ(read.picture.dpi, 72);
  const std::array<int, 3> a{10, 20, 30}, b{200, 100, 50};
  EXPECT_EQ(read.layer().image,
            Image({{b, a, a, a, a, a, a, a, b, b}, {a, b, a, a, a, a, a, a, a, b}}));

  // 4 bits, top-down, a three-entry palette: index 15 lies beyond it.
  BmpFile four;
  four.width = 5, four.height = -2, four.bits = 4, four.colorsUsed = 3;
  four.palette = {1, 2, 3, 0, 4, 5, 6, 0, 7, 8, 9, 0};
  four.pixels = Rows({{0x01, 0x22, 0x1F}, {0x20, 0x00, 0xF0}});
  read = ReadBytes(four.Build());
  ASSERT_TRUE(read.ok);
  EXPECT_EQ(read.layer().bits, 4);
  const std::array<int, 3> p0{3, 2, 1}, p1{6, 5, 4}, p2{9, 8, 7}, none{0, 0, 0};
  EXPECT_EQ(read.layer().image, Image({{p0, p1, p2, p2, p1}, {p2, p0, p0, p0, none}}));
  EXPECT_EQ(read.picture.dpi, 96);

  // 8 bits under the old 12-byte header, whose palette has 3-byte entries.
  BmpFile core;
  core.infoBytes = 12, core.width = 3, core.height = 2, core.bits = 8;
  for (int i = 0; i < 256; ++i)
    core.palette.insert(core.palette.end(), {uint8_t(i), 0, uint8_t(255 - i)});
  core.pixels = Rows({{0, 1, 2}, {255, 254, 128}});
  read = ReadBytes(core.Build());
  ASSERT_TRUE(read.ok);
  EXPECT_EQ(read.layer().image, Image({{{0, 0, 255}, {1, 0, 254}, {127, 0, 128}},
                                       {{255, 0, 0}, {254, 0, 1}, {253, 0, 2}}}));
}

TEST(BmpPlugin, ReadsColourFilesBuiltByHandWithTheirMasksAndAlpha) {
  auto five = [](int v) { return int(std::lround(v * 255.0 / 31)); };
  auto six = [](int v) { return int(std::lround(v * 255.0 / 63)); };
  // 16 bits without masks: 5-5-5, the top bit ignored.
  BmpFile plain16;
  plain16.width = 3, plain16.bits = 16;
  plain16.pixels =
      Rows({{0x1F, 0x80, 0xE0, 0x03, 0x21, 0x44}});  // blue 31; green 31 + top bit; 0x4421
  Read read = ReadBytes(plain16.Build());
  ASSERT_TRUE(read.ok);
  EXPECT_EQ(read.layer().image, Image({{{0, 0, 255}, {0, 255, 0}, {five(17), five(1), five(1)}}}));

  // 16 bits, 5-6-5 masks after a 40-byte header.
  BmpFile masked16 = plain16;
  masked16.compression = 3, masked16.masks = {0xF800, 0x07E0, 0x001F};
  masked16.pixels = Rows({{0x00, 0xF8, 0x20, 0x00, 0x2A, 0x8A}});  // red 31; green 1; 0x8A2A
  read = ReadBytes(masked16.Build());
  ASSERT_TRUE(read.ok);
  EXPECT_EQ(read.layer().image,
            Image({{{255, 0, 0}, {0, six(1), 0}, {five(17), six(17), five(10)}}}));
  EXPECT_TRUE(read.layer().alpha[1].empty());

  // 24 bits, top-down.
  BmpFile topDown;
  topDown.width = 2, topDown.height = -2, topDown.pixelsPerMetre = 3780;
  topDown.pixels = Rows({{1, 2, 3, 4, 5, 6}, {7, 8, 9, 10, 11, 12}});
  read = ReadBytes(topDown.Build());
  ASSERT_TRUE(read.ok);
  EXPECT_EQ(read.layer().image, Bytes({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
  EXPECT_EQ(read.picture.dpi, 96);

  // 32 bits without masks: an alpha byte of zero everywhere means none.
  BmpFile plain32;
  plain32.width = 2, plain32.height = 2, plain32.bits = 32;
  plain32.pixels = {1, 2, 3, 0, 4, 5, 6, 0, 7, 8, 9, 0, 10, 11, 12, 0};
  read = ReadBytes(plain32.Build());
  ASSERT_TRUE(read.ok);
  EXPECT_EQ(read.layer().bits, 24);
  EXPECT_EQ(read.layer().image, Bytes({7, 8, 9, 10, 11, 12, 1, 2, 3, 4, 5, 6}));
  EXPECT_TRUE(read.layer().alpha[1].empty());
  // ... and any alpha byte set brings them all in, bottom row last.
  plain32.pixels[7] = 200;
  read = ReadBytes(plain32.Build());
  ASSERT_TRUE(read.ok);
  EXPECT_EQ(read.layer().alpha[1], Bytes({0, 0, 0, 200}));
  EXPECT_STREQ(read.layer().names[1], "0T");

  // A version 4 header whose masks put red lowest, alpha in the second byte.
  BmpFile v4 = plain32;
  v4.infoBytes = 108, v4.compression = 3, v4.height = 1, v4.width = 2;
  v4.masks = {0x000000FF, 0x00FF0000, 0xFF000000, 0x0000FF00};
  v4.pixels = {10, 20, 30, 40, 50, 60, 70, 80};
  read = ReadBytes(v4.Build());
  ASSERT_TRUE(read.ok);
  EXPECT_EQ(read.layer().image, Bytes({40, 30, 10, 80, 70, 50}));
  EXPECT_EQ(read.layer().alpha[1], Bytes({20, 60}));
}

// Runs of 8 and 4 bits through every escape; what the escapes skip takes
// index 0.
TEST(BmpPlugin, ReadsRunsWithEveryEscape) {
  BmpFile rle8;
  rle8.width = 6, rle8.height = 4, rle8.bits = 8, rle8.compression = 1, rle8.colorsUsed = 8;
  for (int i = 0; i < 8; ++i)
    rle8.palette.insert(rle8.palette.end(), {uint8_t(i), uint8_t(10 * i), 9, 0});
  // clang-format off
  rle8.pixels = {
      3, 1, 0, 3, 2, 3, 4, 0, 0, 0,  // bottom row: a run, three literals and their pad, end of line
      0, 2, 2, 1,                    // delta: two right, one up
      2, 5, 2, 6, 0, 0,              // a run from column 2, another, end of line
      1, 7, 0, 1,                    // one pixel, end of bitmap
  };
  // clang-format on
  Read read = ReadBytes(rle8.Build());
  ASSERT_TRUE(read.ok);
  EXPECT_EQ(read.layer().bits, 8);
  auto colours = [](const std::vector<std::vector<int>>& indices) {
    Bytes out;
    for (const auto& row : indices) {
      for (int i : row) out.insert(out.end(), {uint8_t(i), uint8_t(10 * i), 9});
    }
    return out;
  };
  EXPECT_EQ(
      read.layer().image,
      colours({{7, 0, 0, 0, 0, 0}, {0, 0, 5, 5, 6, 6}, {0, 0, 0, 0, 0, 0}, {1, 1, 1, 2, 3, 4}}));

  BmpFile rle4 = rle8;
  rle4.width = 8, rle4.height = 3, rle4.bits = 4, rle4.compression = 2, rle4.colorsUsed = 16;
  for (int i = 8; i < 16; ++i)
    rle4.palette.insert(rle4.palette.end(), {uint8_t(i), uint8_t(10 * i), 9, 0});
  // clang-format off
  rle4.pixels = {
      5, 0x12, 0, 3, 0x34, 0x50, 0, 0,  // nibbles alternating, 3 literals in 2 bytes, end of line
      0, 5, 0x67, 0x89, 0xA0, 0,        // five literals in three bytes and a pad
      0, 2, 1, 1,                       // delta: one right, one up
      2, 0xBC, 0, 0,                    // two pixels from column 6; the last end of line ends it
  };
  // clang-format on
  read = ReadBytes(rle4.Build());
  ASSERT_TRUE(read.ok);
  EXPECT_EQ(read.layer().bits, 4);
  EXPECT_EQ(
      read.layer().image,
      colours({{0, 0, 0, 0, 0, 0, 11, 12}, {6, 7, 8, 9, 10, 0, 0, 0}, {1, 2, 1, 2, 1, 3, 4, 5}}));
}

// The files of the tests above, cut short and spoilt: each fails cleanly.
TEST(BmpPlugin, RefusesTruncatedAndCorruptFiles) {
  BmpFile palette8;
  palette8.width = 3, palette8.height = 2, palette8.bits = 8, palette8.colorsUsed = 2;
  palette8.palette = {1, 2, 3, 0, 4, 5, 6, 0};
  palette8.pixels = Rows({{0, 1, 0}, {1, 1, 0}});
  BmpFile rle8 = palette8;
  rle8.compression = 1;
  rle8.pixels = {3, 1, 0, 0, 0, 3, 1, 0, 1, 0, 0, 1};
  BmpFile v5;
  v5.infoBytes = 124, v5.width = 2, v5.bits = 32, v5.compression = 3;
  v5.masks = {0xFF0000, 0xFF00, 0xFF, 0xFF000000};
  v5.pixels = {1, 2, 3, 4, 5, 6, 7, 8};
  BmpFile core;
  core.infoBytes = 12, core.width = 2, core.pixels = Rows({{1, 2, 3, 4, 5, 6}});

  const Bytes p8 = palette8.Build(), r8 = rle8.Build(), v32 = v5.Build();
  for (const Bytes& file : {p8, r8, v32, core.Build()}) {
    ASSERT_TRUE(ReadBytes(file).ok);
    for (size_t size = 0; size < file.size(); ++size)
      EXPECT_FALSE(ReadBytes(Bytes(file.begin(), file.begin() + long(size))).ok) << size;
  }

  // One field spoilt each: a run's bytes are count, value and the delta's
  // two when the value is 2.
  const size_t runs = 14 + 40 + 8;
  struct Spoilt {
    const Bytes& file;
    size_t offset;
    int bytes;
    uint32_t value;
  };
  // clang-format off
  const Spoilt spoilt[] = {
      {p8, 0, 1, 'X'}, {p8, 14, 4, 41}, {p8, 14, 4, 64},  // not "BM"; unknown header sizes
      {p8, 26, 2, 2}, {p8, 28, 2, 7}, {p8, 28, 2, 24},    // 2 planes; 7 bits; 24 bits, too short
      {p8, 30, 4, 2}, {p8, 30, 4, 4},                     // runs of 4 bits at 8; compression 4
      {p8, 18, 4, 0}, {p8, 18, 4, 0xFFFFFFFF},            // no columns; a negative width
      {p8, 22, 4, 0}, {p8, 22, 4, 0x80000000},            // no rows; a height without a twin
      {p8, 18, 4, 32769}, {p8, 22, 4, 40000},             // too wide; too tall
      {p8, 46, 4, 300}, {p8, 10, 4, 14 + 40 + 4},         // 300 entries; pixels in the palette
      {r8, 22, 4, uint32_t(-2)},                          // runs top-down
      {r8, runs, 1, 4}, {r8, runs + 5, 1, 4},             // a run, literals past the row
      {r8, runs + 5, 3, 0x010002}, {r8, runs + 5, 3, 0x000402},  // deltas: above, past the row
      {v32, 14 + 40, 4, 0xFF00}, {v32, 14 + 44, 4, 0xF0F00},     // overlapping; with a gap
      {v32, 28, 2, 16}, {v32, 28, 2, 24},                 // masks beyond 16 bits; at 24 bits
  };
  // clang-format on
  for (const Spoilt& s : spoilt) {
    Bytes file = s.file;
    for (int i = 0; i < s.bytes; ++i) file[s.offset + size_t(i)] = uint8_t(s.value >> (8 * i));
    EXPECT_FALSE(ReadBytes(file).ok) << s.offset << " " << s.value;
  }

  // The bound on all pixels, where no pixel data has to be there: runs
  // that end at once.
  auto getSize = Plugin().Entry<ReadFileGetSizeFn>("ReadFileGetSize");
  TempFolder folder;
  auto sizeOf = [&](int width, int height) {
    BmpFile empty = rle8;
    empty.width = width, empty.height = height, empty.pixels = {0, 1};
    folder.Write("empty.bmp", empty.Build());
    Records r;
    return getSize(nullptr, (folder / "empty.bmp").c_str(), r.header.get(), r.planes.data());
  };
  EXPECT_EQ(sizeOf(32768, 8192), 1);
  EXPECT_EQ(sizeOf(32768, 8193), 0);
  EXPECT_EQ(sizeOf(8193, 32768), 0);
}

// Progress goes to the window the host passes: 4 while reading, 5 while
// saving, up to 100, and 0 to clear it.
struct Recorder : TeselProgressSink {
  std::vector<std::pair<int, int>> reports;
  Recorder() {
    report = [](TeselProgressSink* sink, int code, int percent) {
      static_cast<Recorder*>(sink)->reports.push_back({code, percent});
    };
  }
  // Each percent once, rising to 100, then the clearing.
  bool Shows(int code) const {
    if (reports.size() < 2 || reports.back() != std::pair(0, 0)) return false;
    for (size_t i = 0; i + 1 < reports.size(); ++i) {
      if (reports[i].first != code || (i && reports[i].second <= reports[i - 1].second))
        return false;
    }
    return reports[reports.size() - 2].second == 100;
  }
};

TEST(BmpPlugin, ReportsProgressAndClearsIt) {
  TempFolder folder;
  const std::string path = folder / "progress.bmp";
  MemoryPicture picture;
  picture.layers = {ColourLayer(4, 300)};
  Records w;
  w.header->layerCount = 1;
  w.header->layers[0].width = 4, w.header->layers[0].height = 300, w.header->layers[0].bits = 24;
  WriteCallbacks writing{GetRow, GetPlaneRow, GetPalette};
  Recorder saving;
  Current() = &picture;
  ASSERT_EQ(Plugin().Entry<WriteFileExecFn>("WriteFileExec")(
                static_cast<TeselProgressSink*>(&saving), path.c_str(), w.header.get(),
                w.planes.data(), w.layers.data(), &writing),
            1);
  EXPECT_TRUE(saving.Shows(TESEL_PROGRESS_SAVING));

  MemoryPicture target;
  target.layers = {ColourLayer(4, 300)};
  ReadPalettes().assign(1, {});
  ReadCallbacks reading{PutRow, PutPlaneRow, SetPalette, PutChannelRow};
  Recorder loading;
  Current() = &target;
  ASSERT_EQ(Plugin().Entry<ReadFileExecFn>("ReadFileExec")(
                static_cast<TeselProgressSink*>(&loading), path.c_str(), w.header.get(),
                w.planes.data(), w.layers.data(), &reading),
            1);
  Current() = nullptr;
  EXPECT_TRUE(loading.Shows(TESEL_PROGRESS_READING));
}

// Through the program's own host: a canvas whose transparency slot is
// partly clear saves with that slot as alpha and opens with it in place.
class BmpInProgram : public TeselTest {
 protected:
  void SetUp() override {
    TeselTest::SetUp();
    for (const char* folder : {"file_r/", "file_w/"}) {
      std::filesystem::create_directories(program / folder);
      std::filesystem::copy_file(std::string(TESEL_PLUGIN_DIR) + "/bmp.so",
                                 program / (std::string(folder) + "bmp.so"));
    }
    InstallFile(program.path());
    settings.noWarnNotTsl = 1;
  }
  TempFolder program;
};

TEST_F(BmpInProgram, TheTransparencySlotTravelsAsAlpha) {
  Canvas* canvas = MakeBlank(3, 2);
  Plane* clear = canvas->planes[SlotIndex(0, 2)].plane;
  ASSERT_NE(clear, nullptr);
  PlaneStore.WritePixel24(canvas->planes[0].plane, 0, 0, 200, 100, 50);
  PlaneStore.WritePixel8(clear, 1, 0, 0);
  PlaneStore.WritePixel8(clear, 2, 1, 128);
  int saved = 0;
  ASSERT_EQ(WriteCanvas(canvas, -1, 0, 0, 0, program / "pic.bmp", 0, &saved), 1);
  const Bytes file = program.Read("pic.bmp");
  ASSERT_EQ(At(file, 28, 2), 32u);
  EXPECT_EQ(file[14 + 124 + 4 * 3 + 4 + 3], 0);  // top row, second pixel
  EXPECT_EQ(file[14 + 124 + 2 * 4 + 3], 128);    // bottom row, third pixel

  ASSERT_TRUE(OpenCanvasFile(program / "pic.bmp"));
  Canvas* back = NewRecord();
  ASSERT_EQ(CanvasManager.MakeCanvas(back, nullptr), 1);
  for (int y = 0; y < 2; ++y) {
    for (int x = 0; x < 3; ++x) {
      uint32_t was = 0, is = 0;
      PlaneStore.ReadPixel8(clear, x, y, &was);
      PlaneStore.ReadPixel8(back->planes[SlotIndex(0, 2)].plane, x, y, &is);
      EXPECT_EQ(is, was) << x << "," << y;
    }
  }
  uint32_t r = 0, g = 0, b = 0;
  PlaneStore.ReadPixel24(back->planes[0].plane, 0, 0, &r, &g, &b);
  EXPECT_EQ(std::vector<uint32_t>({r, g, b}), std::vector<uint32_t>({200, 100, 50}));
}

// Another program reads what the plug-in writes: ImageMagick gives back the
// test's own pixels, with alpha 255 where the file has none.
TEST(BmpPlugin, ImageMagickReadsWrittenFiles) {
  if (std::system("command -v convert >/dev/null 2>&1") != 0) GTEST_SKIP() << "no convert";
  TempFolder folder;
  MemoryPicture colour, clear;
  colour.layers = {ColourLayer(7, 3)};
  clear.layers = {ColourLayer(3, 2)};
  clear.layers[0].alpha[1] = {0, 64, 128, 255, 200, 1};
  for (auto [picture, name] : {std::pair(&colour, "colour"), std::pair(&clear, "clear")}) {
    const std::string bmp = folder / (std::string(name) + ".bmp");
    const std::string raw = folder / (std::string(name) + ".rgba");
    ASSERT_TRUE(WritePicture(Plugin(), bmp, *picture));
    ASSERT_EQ(std::system(("convert '" + bmp + "' -depth 8 'rgba:" + raw + "'").c_str()), 0);
    const MemoryLayer& l = picture->layers[0];
    Bytes expected;
    for (int i = 0; i < l.width * l.height; ++i) {
      const uint8_t* bgr = &l.image[size_t(i) * 3];
      expected.insert(expected.end(), {bgr[2], bgr[1], bgr[0],
                                       l.alpha[1].empty() ? uint8_t(255) : l.alpha[1][size_t(i)]});
    }
    EXPECT_EQ(TempFolder::ReadFile(raw), expected) << name;
  }
}

}  // namespace
