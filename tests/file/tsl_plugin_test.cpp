// The native file's plug-in, driven through its entry points as the host
// drives it: every field of a layered picture comes back, the thumbnail left
// beside the module travels inside the file, and damaged files fail cleanly.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <tuple>
#include <string>
#include <vector>

#include "file/plugin_harness.h"
#include "plugin_abi/progress.h"
#include "support/temp_folder.h"

namespace {

using plugintest::MemoryLayer;
using plugintest::MemoryPicture;
using plugintest::PluginModule;

uint32_t Noise(uint32_t a, uint32_t b, uint32_t c) {
  uint32_t h = a * 0x9E3779B1u ^ b * 0x85EBCA77u ^ c * 0xC2B2AE3Du;
  h ^= h >> 15;
  h *= 0x2C1B3C6Du;
  return h ^ h >> 12;
}

// A layer whose top band is one flat colour over flat planes (nothing to
// compress), then noise in blue, a ramp in green and flat red, and planes of
// noise: every way a band's channels can fall.
MemoryLayer MakeLayer(int width, int height, uint32_t seed, std::vector<int> planes) {
  MemoryLayer l;
  l.width = width, l.height = height;
  l.image.resize(size_t(width) * height * 3);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) {
      uint8_t* p = &l.image[(size_t(y) * width + x) * 3];
      const bool flat = y < 64;
      p[0] = flat ? 10 : uint8_t(Noise(seed, x, y));
      p[1] = flat ? 20 : uint8_t(x * 3 + y);
      p[2] = 30;
    }
  for (int k : planes) {
    auto& a = l.alpha[size_t(k)];
    a.resize(size_t(width) * height);
    for (int y = 0; y < height; ++y)
      for (int x = 0; x < width; ++x)
        a[size_t(y) * width + x] = y < 64 ? uint8_t(k * 40) : uint8_t(Noise(seed + 7, x, y * k));
    std::snprintf(l.names[size_t(k)], TESEL_PLANE_NAME_BYTES, "%dT", k);
    l.flags[size_t(k)] = 0x01000000u + uint32_t(k);
  }
  return l;
}

MemoryPicture Sample() {
  MemoryPicture p;
  p.dpi = 350, p.activeLayer = 2, p.backRed = 12, p.backGreen = 34, p.backBlue = 56;
  p.layers.push_back(MakeLayer(130, 130, 1, {0, 1}));
  p.layers.push_back(MakeLayer(1, 1, 2, {}));
  p.layers.push_back(MakeLayer(257, 65, 3, {0, 3, 6}));
  const int places[3][2] = {{-5, 7}, {100000, -100000}, {0, 0}};
  for (int i = 0; i < 3; ++i) {
    LayerRecord& r = p.layers[size_t(i)].record;
    std::snprintf(r.name, sizeof r.name, "Layer %d", i);
    r.left = places[i][0], r.top = places[i][1];
    r.mixMode = 1 + i * 3, r.savedMixMode = 2 + i, r.opacityLoss = i * 100;
    for (int s = 0; s < 8; ++s) {
      r.planeOff[s] = uint8_t((s + i) % 3 == 0);
      r.lineDrawing[s] = uint8_t((s * i) % 4 == 1);
    }
  }
  // The longest name the record holds.
  std::memset(p.layers[1].record.name, 'n', 255);
  std::strcpy(p.layers[0].names[5], "@@");  // an absent plane's name travels too
  return p;
}

void ExpectSamePicture(const MemoryPicture& want, const MemoryPicture& got) {
  EXPECT_EQ(got.dpi, want.dpi);
  EXPECT_EQ(got.activeLayer, want.activeLayer);
  EXPECT_EQ(got.backRed, want.backRed);
  EXPECT_EQ(got.backGreen, want.backGreen);
  EXPECT_EQ(got.backBlue, want.backBlue);
  ASSERT_EQ(got.layers.size(), want.layers.size());
  for (size_t i = 0; i < want.layers.size(); ++i) {
    SCOPED_TRACE("layer " + std::to_string(i));
    const MemoryLayer &w = want.layers[i], &g = got.layers[i];
    EXPECT_EQ(g.width, w.width);
    EXPECT_EQ(g.height, w.height);
    EXPECT_EQ(g.bits, 24);
    EXPECT_STREQ(g.record.name, w.record.name);
    EXPECT_EQ(g.record.left, w.record.left);
    EXPECT_EQ(g.record.top, w.record.top);
    EXPECT_EQ(g.record.mixMode, w.record.mixMode);
    EXPECT_EQ(g.record.savedMixMode, w.record.savedMixMode);
    EXPECT_EQ(g.record.opacityLoss, w.record.opacityLoss);
    EXPECT_EQ(0, std::memcmp(g.record.planeOff, w.record.planeOff, 8));
    EXPECT_EQ(0, std::memcmp(g.record.lineDrawing, w.record.lineDrawing, 8));
    EXPECT_EQ(0, std::memcmp(g.names.data(), w.names.data(), sizeof w.names));
    EXPECT_EQ(g.flags, w.flags);
    EXPECT_TRUE(g.image == w.image);
    for (int k = 0; k < TESEL_ALPHA_PLANES; ++k)
      EXPECT_TRUE(g.alpha[size_t(k)] == w.alpha[size_t(k)]) << "plane " << k;
  }
}

struct Progress : TeselProgressSink {
  std::vector<std::pair<int, int>> reports;
  Progress() {
    report = [](TeselProgressSink* sink, int code, int percent) {
      static_cast<Progress*>(sink)->reports.emplace_back(code, percent);
    };
  }
};

TEST(TslPlugin, RoundTripsEveryFieldOfSeveralLayers) {
  PluginModule plugin("tsl");
  ASSERT_TRUE(plugin.loaded());
  FormatInfo info{};
  plugin.Entry<ReadFileInfoFn>("ReadFileInfo")(nullptr, &info);
  EXPECT_STREQ(info.extensions, "tsl");
  plugin.Entry<WriteFileInfoFn>("WriteFileInfo")(nullptr, &info);
  EXPECT_EQ(info.accepts8, 0);
  EXPECT_EQ(info.accepts24, 1);

  TempFolder folder;
  MemoryPicture picture = Sample();
  ASSERT_EQ(plugintest::WritePicture(plugin, folder / "a.tsl", picture), 1);
  const std::vector<uint8_t> bytes = folder.Read("a.tsl");
  ASSERT_GE(bytes.size(), 212u);
  EXPECT_EQ(bytes[80] | bytes[81] << 8 | bytes[82] << 16 | bytes[83] << 24, 4);

  MemoryPicture back;
  ASSERT_TRUE(plugintest::ReadPicture(plugin, folder / "a.tsl", &back));
  ExpectSamePicture(picture, back);

  // The sizes and planes the host asks for before it makes the canvas.
  plugintest::Records r;
  ASSERT_EQ(plugin.Entry<ReadFileGetSizeFn>("ReadFileGetSize")(nullptr, (folder / "a.tsl").c_str(),
                                                               r.header.get(), r.planes.data()),
            1);
  EXPECT_EQ(r.header->layerCount, 3);
  EXPECT_EQ(r.header->layers[2].width, 257);
  EXPECT_EQ(r.header->layers[2].bits, 24);
  const int present[7] = {1, 0, 0, 1, 0, 0, 1};
  for (int k = 0; k < 10; ++k) EXPECT_EQ(r.planes[2].present[k], k < 7 ? present[k] : 0);
}

TEST(TslPlugin, ReportsProgressAndRefusesWhatItCannotWrite) {
  PluginModule plugin("tsl");
  auto write = plugin.Entry<WriteFileExecFn>("WriteFileExec");
  auto read = plugin.Entry<ReadFileExecFn>("ReadFileExec");
  TempFolder folder;
  MemoryPicture picture = Sample();
  ASSERT_EQ(plugintest::WritePicture(plugin, folder / "a.tsl", picture), 1);

  // Progress through a whole write and a whole read, cleared at the end.
  plugintest::Records r;
  r.header->layerCount = 1;
  ASSERT_EQ(plugin.Entry<ReadFileGetSizeFn>("ReadFileGetSize")(nullptr, (folder / "a.tsl").c_str(),
                                                               r.header.get(), r.planes.data()),
            1);
  MemoryPicture target = picture;
  plugintest::Current() = &target;
  plugintest::ReadPalettes().assign(3, {});
  ReadCallbacks in{plugintest::PutRow, plugintest::PutPlaneRow, plugintest::SetPalette,
                   plugintest::PutChannelRow};
  Progress reading;
  ASSERT_EQ(read(&reading, (folder / "a.tsl").c_str(), r.header.get(), r.planes.data(),
                 r.layers.data(), &in),
            1);
  ASSERT_GE(reading.reports.size(), 3u);
  EXPECT_EQ(reading.reports.end()[-2], std::make_pair(int(TESEL_PROGRESS_READING), 100));
  EXPECT_EQ(reading.reports.back(), std::make_pair(int(TESEL_PROGRESS_CLEAR), 0));

  // A host that prepared only the first layer (a single picture) gets it.
  r.header->layerCount = 1;
  ASSERT_EQ(read(nullptr, (folder / "a.tsl").c_str(), r.header.get(), r.planes.data(),
                 r.layers.data(), &in),
            1);
  // One whose canvas does not match the file gets nothing.
  r.header->layers[0].width = 131;
  EXPECT_EQ(read(nullptr, (folder / "a.tsl").c_str(), r.header.get(), r.planes.data(),
                 r.layers.data(), &in),
            0);
  plugintest::Current() = nullptr;

  // Writing: layer counts and depths outside the file's reach, and a host
  // that stops giving rows halfway, fail and leave no file behind.
  plugintest::Records w;
  w.header->layerCount = 1;
  w.header->layers[0] = {200, 200, 24, 1, 0, 0, 0, {}};
  static int rowsGiven;
  rowsGiven = 0;
  WriteCallbacks out{[](int, int, int, uint8_t*, int) { return ++rowsGiven < 100 ? 1 : 0; },
                     nullptr, nullptr};
  Progress writing;
  EXPECT_EQ(write(&writing, (folder / "b.tsl").c_str(), w.header.get(), w.planes.data(),
                  w.layers.data(), &out),
            0);
  EXPECT_FALSE(folder.Exists("b.tsl"));
  EXPECT_EQ(writing.reports.back(), std::make_pair(int(TESEL_PROGRESS_CLEAR), 0));
  rowsGiven = -1000;
  EXPECT_EQ(write(&writing, (folder / "b.tsl").c_str(), w.header.get(), w.planes.data(),
                  w.layers.data(), &out),
            1);
  EXPECT_TRUE(std::find(writing.reports.begin(), writing.reports.end(),
                        std::make_pair(int(TESEL_PROGRESS_SAVING), 100)) != writing.reports.end());
  for (auto [count, width, bits] :
       {std::tuple{0, 1, 24}, {65, 1, 24}, {1, 10241, 24}, {1, 0, 24}, {1, 1, 8}}) {
    w.header->layerCount = count;
    w.header->layers[0].width = width;
    w.header->layers[0].bits = bits;
    EXPECT_EQ(write(nullptr, (folder / "c.tsl").c_str(), w.header.get(), w.planes.data(),
                    w.layers.data(), &out),
              0);
  }
  EXPECT_FALSE(folder.Exists("c.tsl"));
}

TEST(TslPlugin, EmbedsTheThumbnailLeftBesideTheModule) {
  // A private copy of the module, so that its folder is this test's alone.
  TempFolder modules, files;
  std::filesystem::copy_file(std::string(TESEL_PLUGIN_DIR) + "/tsl.so", modules / "tsl.so");
  PluginModule plugin(modules.path(), "tsl");
  ASSERT_TRUE(plugin.loaded());
  auto fast = plugin.Entry<ReadFileFastImageFn>("ReadFileFastImage");
  ASSERT_TRUE(fast);

  std::vector<uint8_t> jpeg = {0xFF, 0xD8, 0xFF, 0xE0};
  for (int i = 0; i < 5000; ++i) jpeg.push_back(uint8_t(Noise(9, i, 0)));
  modules.Write("tmb.jpg", jpeg);
  MemoryPicture picture = Sample();
  ASSERT_EQ(plugintest::WritePicture(plugin, files / "with.tsl", picture), 1);
  std::filesystem::remove(modules / "tmb.jpg");
  ASSERT_EQ(plugintest::WritePicture(plugin, files / "without.tsl", picture), 1);

  plugintest::Records r;
  char output[TESEL_FAST_IMAGE_PATH_BYTES] = {};
  ASSERT_EQ(fast(nullptr, (files / "with.tsl").c_str(), r.header.get(), r.planes.data(), output),
            1);
  const std::filesystem::path thumbnail(output);
  EXPECT_EQ(thumbnail.extension(), ".jpg");
  EXPECT_EQ(thumbnail.parent_path(), std::filesystem::temp_directory_path());
  EXPECT_TRUE(TempFolder::ReadFile(output) == jpeg);
  std::filesystem::remove(thumbnail);
  EXPECT_EQ(fast(nullptr, (files / "without.tsl").c_str(), r.header.get(), r.planes.data(), output),
            0);

  // The thumbnail sits between the records and the rows without disturbing them.
  MemoryPicture back;
  ASSERT_TRUE(plugintest::ReadPicture(plugin, files / "with.tsl", &back));
  ExpectSamePicture(picture, back);
  EXPECT_GT(files.Read("with.tsl").size(), files.Read("without.tsl").size() + 5000);
}

// Reads a file through the entry points with callbacks that check every row
// against the geometry the reader announced; the reader's result.
struct Checked {
  static inline std::vector<std::pair<int, int>> sizes;
  static inline int rows;
  static bool Inside(int y, int x0, int x1, int layer) {
    const bool ok = layer >= 0 && layer < int(sizes.size()) && y >= 0 &&
                    y < sizes[size_t(layer)].second && x0 == 0 &&
                    x1 == sizes[size_t(layer)].first - 1;
    if (!ok) ADD_FAILURE() << "row " << y << " [" << x0 << ", " << x1 << "] of layer " << layer;
    ++rows;
    return ok;
  }
  static int Read(const PluginModule& plugin, const std::string& path) {
    plugintest::Records r;
    r.header->layerCount = 1;
    if (!plugin.Entry<ReadFileGetSizeFn>("ReadFileGetSize")(nullptr, path.c_str(), r.header.get(),
                                                            r.planes.data()))
      return 0;
    sizes.clear();
    for (int i = 0; i < r.header->layerCount; ++i)
      sizes.emplace_back(r.header->layers[i].width, r.header->layers[i].height);
    ReadCallbacks in{[](int y, int x0, int x1, const uint8_t*, int layer) {
                       return Inside(y, x0, x1, layer) - 1;
                     },
                     [](int y, int x0, int x1, const uint8_t*, int layer, int plane) {
                       return Inside(y, x0, x1, layer) && plane >= 0 && plane < 7 ? 0 : -1;
                     },
                     nullptr, nullptr};
    return plugin.Entry<ReadFileExecFn>("ReadFileExec")(nullptr, path.c_str(), r.header.get(),
                                                        r.planes.data(), r.layers.data(), &in);
  }
};

void Patch32(std::vector<uint8_t>& bytes, size_t at, uint32_t value) {
  for (int i = 0; i < 4; ++i) bytes[at + size_t(i)] = uint8_t(value >> (8 * i));
}
uint32_t Get32(const std::vector<uint8_t>& bytes, size_t at) {
  return bytes[at] | bytes[at + 1] << 8 | bytes[at + 2] << 16 | uint32_t(bytes[at + 3]) << 24;
}

TEST(TslPlugin, DamagedFilesFailWithoutHarm) {
  PluginModule plugin("tsl");
  TempFolder folder;
  MemoryPicture picture;
  picture.layers.push_back(MakeLayer(12, 70, 4, {1}));
  picture.layers.push_back(MakeLayer(3, 2, 5, {0, 6}));
  ASSERT_EQ(plugintest::WritePicture(plugin, folder / "good.tsl", picture), 1);
  const std::vector<uint8_t> good = folder.Read("good.tsl");
  const std::string path = folder / "bad.tsl";
  ASSERT_EQ(Checked::Read(plugin, folder / "good.tsl"), 1);
  EXPECT_EQ(Checked::rows, 2 * 70 + 3 * 2);
  Checked::rows = 0;

  // Cut anywhere, with or without the length in the header agreeing.
  for (size_t length = 0; length < good.size(); length += length < 1400 ? 1 : 3) {
    std::vector<uint8_t> cut(good.begin(), good.begin() + std::ptrdiff_t(length));
    folder.Write("bad.tsl", cut);
    EXPECT_EQ(Checked::Read(plugin, path), 0) << length;
    if (length >= 72) {
      Patch32(cut, 64, uint32_t(length));
      folder.Write("bad.tsl", cut);
      EXPECT_EQ(Checked::Read(plugin, path), 0) << length;
    }
  }

  // Any byte changed: rows stay inside their layers, and a change inside
  // the compressed rows is always caught.
  const size_t layer0 = 256, rowsFrom = Get32(good, layer0 + 160) + 2 * 20;
  const size_t rowsTo = Get32(good, layer0 + 160) + Get32(good, layer0 + 168);
  for (size_t at = 0; at < good.size(); ++at) {
    std::vector<uint8_t> bad = good;
    bad[at] ^= 0x5A;
    folder.Write("bad.tsl", bad);
    const int result = Checked::Read(plugin, path);
    if (at >= rowsFrom && at < rowsTo) {
      EXPECT_EQ(result, 0) << at;
    }
  }

  // Counts, sizes and offsets far out of bounds.
  const struct {
    size_t at;
    uint32_t value;
  } hostile[] = {
      {80, 3},  // the older layout's version
      {12, 0},
      {12, 65},  // layer count
      {40, 0},
      {40, 100000},      // rows per band
      {20, 2},           // active layer
      {56, 0xFFFFFFFF},  // thumbnail
      {layer0 + 0, 10241},
      {layer0 + 4, 0},
      {layer0 + 4, 0x7FFFFFFF},  // size
      {layer0 + 8, 8},           // depth
      {layer0 + 48, 0x80},       // an eighth alpha plane
      {layer0 + 160, 0},
      {layer0 + 164, 1},                        // rows before the records, past 4 GB
      {layer0 + 168, 0xFFFFFFF0},               // more rows than file
      {Get32(good, layer0 + 160), 0xFFFFFFFF},  // a band's stream
  };
  for (const auto& h : hostile) {
    std::vector<uint8_t> bad = good;
    Patch32(bad, h.at, h.value);
    folder.Write("bad.tsl", bad);
    EXPECT_EQ(Checked::Read(plugin, path), 0) << h.at << " = " << h.value;
  }
}

}  // namespace
