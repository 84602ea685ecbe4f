// The file plug-in host, driven through the probe plug-in, whose files hold
// exactly the records and rows the host handed over.
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <vector>

#include "document/canvas_content.h"
#include "document/canvas_manager.h"
#include "document/canvas_request.h"
#include "file/file_description.h"
#include "file/file_filters.h"
#include "file/file_windows.h"
#include "file/install.h"
#include "file/native_file.h"
#include "file/plugin_registry.h"
#include "file/read_image.h"
#include "file/save_canvas.h"
#include "file/thumbnail.h"
#include "file/write_canvas.h"
#include "platform/headless/headless.h"
#include "settings/settings.h"
#include "support/fixture.h"
#include "support/temp_folder.h"

namespace {

namespace fs = std::filesystem;

const std::string kProbe = std::string(TESEL_PLUGIN_DIR) + "/probe.so";

// A probe file cut into its parts, as the probe writes them.
struct Dump {
  std::vector<uint8_t> bytes;
  int32_t count() const { return Word(4); }
  int32_t Word(size_t at) const {
    int32_t v;
    std::memcpy(&v, &bytes[at], 4);
    return v;
  }
  FileHeader Header() const {
    FileHeader h{};
    std::memcpy(&h, &bytes[8], offsetof(FileHeader, layers) + sizeof(LayerGeometry) * size_t(count()));
    return h;
  }
  size_t TablesAt() const { return 8 + offsetof(FileHeader, layers) + sizeof(LayerGeometry) * size_t(count()); }
  LayerPlaneTable Table(int i) const {
    LayerPlaneTable t;
    std::memcpy(&t, &bytes[TablesAt() + sizeof t * size_t(i)], sizeof t);
    return t;
  }
  LayerRecord Record(int i) const {
    LayerRecord r;
    std::memcpy(&r, &bytes[TablesAt() + sizeof(LayerPlaneTable) * size_t(count()) + sizeof r * size_t(i)], sizeof r);
    return r;
  }
  // Rows of layer 0 start after the records.
  size_t RowsAt() const { return TablesAt() + (sizeof(LayerPlaneTable) + sizeof(LayerRecord)) * size_t(count()); }
};

Dump ReadDump(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::vector<uint8_t>(std::istreambuf_iterator<char>(in), {})};
}

class FileHost : public TeselTest {
 protected:
  void SetUp() override {
    TeselTest::SetUp();
    for (const char* folder : {"file_r/", "file_w/"}) {
      fs::create_directories(program / folder);
      fs::copy_file(kProbe, program / (std::string(folder) + "probe.so"));
    }
    InstallFile(program.path());
  }
  // A 24-bit pixel of a slot's plane.
  static std::vector<uint8_t> Pixel(Canvas* canvas, int index, int x, int y) {
    uint32_t r = 0, g = 0, b = 0;
    PlaneStore.ReadPixel24(canvas->planes[index].plane, x, y, &r, &g, &b);
    return {uint8_t(r), uint8_t(g), uint8_t(b)};
  }
  static uint32_t Value8(Canvas* canvas, int index, int x, int y) {
    uint32_t v = 0;
    PlaneStore.ReadPixel8(canvas->planes[index].plane, x, y, &v);
    return v;
  }
  // Layer 1 at left, top, width x height, named and in a mix mode; its
  // position 0.
  PlaneSlot* SecondLayer(Canvas* canvas, int left, int top, int width, int height, const char* name,
                         int mixMode, int opacityLoss, int savedMixMode) {
    EXPECT_GT(CanvasManager.AddLayer(canvas, left, top, width, height), 0);
    PlaneSlot* slot = &canvas->planes[SlotIndex(1, 0)];
    std::snprintf(slot->name, kPlaneNameChars, "%s", name);
    slot->mixMode = mixMode, slot->opacityLoss = opacityLoss, slot->savedMixMode = savedMixMode;
    return slot;
  }
  // Opens a file as the program does: the first half, a canvas made from
  // the request, the second half run by its creation.
  Canvas* Open(const std::string& path) {
    if (!OpenCanvasFile(path)) return nullptr;
    Canvas* canvas = NewRecord();
    return CanvasManager.MakeCanvas(canvas, nullptr) ? canvas : nullptr;
  }
  TempFolder program;
};

TEST_F(FileHost, ScanSortsWithoutCaseAndSettlesTiesByThatOrder) {
  for (const char* folder : {"file_r/", "file_w/"}) {
    fs::rename(program / (std::string(folder) + "probe.so"), program / (std::string(folder) + "b_probe.so"));
    fs::copy_file(kProbe, program / (std::string(folder) + "A_probe.so"));
    fs::copy_file(kProbe, program / (std::string(folder) + "c_probe.so"));
    program.Write(std::string(folder) + "broken.so", {'n', 'o'});
  }
  headless::Reset();
  FileFormatRegistry.Scan(program.path());
  const std::vector<std::string> sorted = {program / "file_r/A_probe.so", program / "file_r/b_probe.so",
                                           program / "file_r/c_probe.so"};
  EXPECT_EQ(FileFormatRegistry.readers, sorted);
  EXPECT_EQ(FileFormatRegistry.writers.size(), 3u);
  // Only a reader without its export is told of.
  ASSERT_EQ(headless::Recorded().boxes.size(), 1u);
  EXPECT_EQ(headless::Recorded().boxes[0].caption, "DLL ERROR");
  EXPECT_EQ(headless::Recorded().boxes[0].text, program / "file_r/broken.so");

  EXPECT_EQ(FileFormatRegistry.FindReader("picture.BOTH"), 0);
  EXPECT_EQ(FileFormatRegistry.FindWriter("picture.both"), 2);
  EXPECT_EQ(FileFormatRegistry.FindReader("dir.x/picture.png"), -1);
  // One entry per extension of each reader, the comic tool's when it is
  // there, and all the patterns last.
  program.Write("comictool/comicreader.so", {0});
  const std::vector<FileFilter> open = OpenFilters();
  ASSERT_EQ(open.size(), 3u * 3 + 2);
  EXPECT_EQ(std::make_pair(open[0].text, open[0].pattern), std::make_pair(std::string("Probe[*.prb]"), std::string("*.prb")));
  EXPECT_EQ(open[9].pattern, "*.mff");
  EXPECT_EQ(std::make_pair(open[10].text, open[10].pattern.substr(0, 16)),
            std::make_pair(std::string("All Image Files"), std::string("*.prb;*.both;*.t")));
  // Without a dot, the whole path is the extension.
  EXPECT_EQ(FileFormatRegistry.FindReader("prb"), 0);
}

TEST_F(FileHost, LayeredSaveHandsOverEveryFieldAndTheLayersOwnRows) {
  Canvas* canvas = MakeBlank(6, 4);
  PlaneSlot* top = SecondLayer(canvas, 2, 1, 3, 2, "Ink", 5, 40, 2);
  top[2].planeOff = 1;
  top[1].planeFlags[kFlagLineDraw] = 1;
  top[1].planeFlags[kFlagMask] = 1;
  PlaneStore.WritePixel24(top->plane, 1, 1, 10, 20, 30);
  PlaneStore.WritePixel8(top[1].plane, 2, 0, 77);
  canvas->activePlane = SlotIndex(1, 0);
  canvas->dpi = 300;
  settings.backgroundRed = 1, settings.backgroundGreen = 2, settings.backgroundBlue = 3;
  int saved = 0;
  ASSERT_EQ(WriteCanvas(canvas, -1, 0, 0, 0, program / "pic.tsl", 0, &saved), 1);
  EXPECT_EQ(saved, 1);

  const Dump dump = ReadDump(program / "pic.tsl");
  ASSERT_EQ(dump.count(), 2);
  const FileHeader h = dump.Header();
  EXPECT_EQ(std::vector<int>({h.dpiX, h.dpiY, h.activeLayer, h.layers[0].hasBackColour, h.layers[0].backRed,
                              h.layers[0].backBlue, h.layers[1].hasBackColour}),
            std::vector<int>({300, 300, 1, 1, 1, 3, 0}));
  EXPECT_EQ(std::vector<int>({h.layers[1].width, h.layers[1].height, h.layers[1].bits}),
            std::vector<int>({3, 2, 24}));
  const LayerRecord r = dump.Record(1);
  EXPECT_STREQ(r.name, "Ink");
  EXPECT_EQ(std::vector<int>({r.left, r.top, r.index, r.one, r.mixMode, r.opacityLoss, r.savedMixMode,
                              r.planeOff[2], r.lineDrawing[1]}),
            std::vector<int>({2, 1, 1, 1, 5, 40, 2, 1, 1}));
  const LayerPlaneTable t = dump.Table(1);
  EXPECT_EQ(std::vector<int>({t.present[0], t.present[1], t.present[2]}), std::vector<int>({1, 1, 0}));
  EXPECT_STREQ(t.names[0], "0M");
  EXPECT_EQ(t.flags[0], 1u);
  // Layer 1's rows are its own: after layer 0's 6 x 4 and its two planes.
  const size_t layer1 = dump.RowsAt() + 6 * 4 * 3 + 2 * 6 * 4;
  EXPECT_EQ(std::vector<uint8_t>(&dump.bytes[layer1 + (1 * 3 + 1) * 3], &dump.bytes[layer1 + (1 * 3 + 2) * 3]),
            std::vector<uint8_t>({30, 20, 10}));  // blue, green, red
  EXPECT_EQ(dump.bytes[layer1 + 3 * 2 * 3 + 2], 77);  // the mask's row 0, column 2
  EXPECT_TRUE(BoxTexts().empty());
  // Nothing of the write stays beside the file.
  EXPECT_EQ(std::distance(fs::directory_iterator(program.path()), fs::directory_iterator()), 3);
}

TEST_F(FileHost, FlatSaveAsksFirstAndGetsTheComposedPicture) {
  Canvas* canvas = MakeBlank(3, 2);
  PlaneStore.WritePixel24(canvas->planes[0].plane, 2, 1, 200, 100, 50);
  int asked = 0;
  bool answer = false;
  fileWindows.confirmFlatFormat = [&] { return ++asked, answer; };
  int saved = 1;
  EXPECT_EQ(WriteCanvas(canvas, -1, 0, 0, 0, program / "flat.prb", 0, &saved), 1);
  EXPECT_EQ(std::make_pair(asked, saved), std::make_pair(1, 0));
  EXPECT_FALSE(fs::exists(program / "flat.prb"));
  answer = true;
  ASSERT_EQ(WriteCanvas(canvas, -1, 0, 0, 0, program / "flat.prb", 0, &saved), 1);
  const Dump dump = ReadDump(program / "flat.prb");
  EXPECT_EQ(dump.Header().activeLayer, 0);
  const size_t at = dump.RowsAt() + (1 * 3 + 2) * 3;
  EXPECT_EQ(std::vector<uint8_t>(&dump.bytes[at], &dump.bytes[at + 3]), std::vector<uint8_t>({50, 100, 200}));
  // The setting ends the question; a partial write never asks.
  settings.noWarnNotTsl = 1;
  ASSERT_EQ(WriteCanvas(canvas, -1, 0, 0, 0, program / "flat.prb", 0, &saved), 1);
  settings.noWarnNotTsl = 0;
  ASSERT_EQ(WriteCanvas(canvas, 0, 0, 1, 1, program / "part.prb", 1, &saved), 1);
  EXPECT_EQ(asked, 2);
  // No writer for the extension, or no extension: nothing is written.
  EXPECT_EQ(WriteCanvas(canvas, -1, 0, 0, 0, program / "x.xyz", 0, &saved), 0);
  EXPECT_EQ(WriteCanvas(canvas, -1, 0, 0, 0, "noextension", 0, &saved), 0);
  EXPECT_EQ(saved, 0);
}

TEST_F(FileHost, CropDescribesLayerZeroAndReadsTheActiveLayer) {
  Canvas* canvas = MakeBlank(8, 6);
  ASSERT_GT(CanvasManager.AddLayer(canvas, 0, 0, 8, 6), 0);
  canvas->activePlane = SlotIndex(1, 0);
  PlaneStore.WritePixel24(canvas->planes[SlotIndex(1, 0)].plane, 3, 2, 9, 8, 7);
  int saved = 0;
  ASSERT_EQ(WriteCanvas(canvas, 2, 1, 5, 9, program / "crop.tsl", 1, &saved), 1);
  const Dump dump = ReadDump(program / "crop.tsl");
  ASSERT_EQ(dump.count(), 1);
  // Columns 2..5 and rows 1..5 (the bottom clipped to the layer).
  EXPECT_EQ(std::make_pair(dump.Header().layers[0].width, dump.Header().layers[0].height), std::make_pair(4, 5));
  EXPECT_EQ(std::make_pair(dump.Record(0).left, dump.Record(0).index), std::make_pair(0, 0));
  // Canvas pixel (3, 2) is crop pixel (1, 1), from the active layer.
  const size_t at = dump.RowsAt() + (1 * 4 + 1) * 3;
  EXPECT_EQ(std::vector<uint8_t>(&dump.bytes[at], &dump.bytes[at + 3]), std::vector<uint8_t>({7, 8, 9}));
}

TEST_F(FileHost, NativeFileComesBackAsTheCanvasItWas) {
  Canvas* canvas = MakeBlank(5, 4);
  PlaneSlot* top = SecondLayer(canvas, 1, 2, 3, 2, "Second", 3, 12, 3);
  top[1].planeOff = 1;
  top[2].planeFlags[kFlagLineDraw] = 1;
  PlaneStore.WritePixel24(top->plane, 2, 1, 1, 2, 3);
  PlaneStore.WritePixel8(top[2].plane, 0, 1, 99);
  PlaneStore.WritePixel24(canvas->planes[0].plane, 4, 3, 250, 0, 5);
  canvas->dpi = 144;
  int saved = 0;
  ASSERT_EQ(WriteCanvas(canvas, -1, 0, 0, 0, program / "round.tsl", 0, &saved), 1);

  std::vector<std::string> named;
  fileNamedHooks.Add([&](const std::string& path) { named.push_back(path); });
  Canvas* back = Open(program / "round.tsl");
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(named, std::vector<std::string>({program / "round.tsl"}));
  EXPECT_STREQ(back->fileName, (program / "round.tsl").c_str());
  EXPECT_EQ(CanvasManager.LayerCount(back), 2);
  EXPECT_EQ(back->dpi, 144);
  const PlaneSlot* again = &back->planes[SlotIndex(1, 0)];
  EXPECT_STREQ(again->name, "Second");
  EXPECT_EQ(std::vector<int>({again->left, again->top, again->width, again->height, again->mixMode,
                              again->opacityLoss, again->savedMixMode, again[1].planeOff,
                              again[2].planeFlags[kFlagLineDraw], again[3].left}),
            std::vector<int>({1, 2, 3, 2, 3, 12, 3, 1, 1, 1}));
  EXPECT_STREQ(again[1].name, "0M");
  EXPECT_STREQ(again[2].name, "0T");
  EXPECT_EQ(Pixel(back, SlotIndex(1, 0), 2, 1), std::vector<uint8_t>({1, 2, 3}));
  EXPECT_EQ(Value8(back, SlotIndex(1, 2), 0, 1), 99u);
  EXPECT_EQ(Pixel(back, 0, 4, 3), std::vector<uint8_t>({250, 0, 5}));
}

TEST_F(FileHost, PaletteRowsExpandAndTheOlderLayoutSwapsItsPlanes) {
  // A probe file of one 10 x 1 layer of 4 bits with two alpha planes, made
  // by hand: records, palette, the packed row, then the planes' rows.
  FileHeader h{};
  h.dpiX = 72, h.layerCount = 1;
  h.layers[0] = LayerGeometry{10, 1, 4, 0, 0, 0, 0, {}};
  LayerPlaneTable t{};
  t.present[0] = t.present[1] = 1;
  std::memcpy(t.names[0], "0T", 3);
  std::memcpy(t.names[1], "0M", 3);
  t.flags[0] = 0x01000000;  // a transparency first, the older order
  LayerRecord r{};
  std::vector<uint8_t> file(8);
  const uint32_t magic = 0x424f5250, count = 1;
  std::memcpy(&file[0], &magic, 4);
  std::memcpy(&file[4], &count, 4);
  auto append = [&](const void* p, size_t n) {
    file.insert(file.end(), static_cast<const uint8_t*>(p), static_cast<const uint8_t*>(p) + n);
  };
  append(&h, offsetof(FileHeader, layers) + sizeof(LayerGeometry));
  append(&t, sizeof t);
  append(&r, sizeof r);
  std::vector<uint8_t> palette(1024, 0);
  for (int i = 0; i < 16; ++i) palette[size_t(i) * 4] = uint8_t(i * 16), palette[size_t(i) * 4 + 2] = uint8_t(i);
  append(palette.data(), palette.size());
  const uint8_t row[5] = {0x12, 0x34, 0x56, 0x78, 0x9A};  // high nibble first
  append(row, sizeof row);
  const std::vector<uint8_t> plane0(10, 11), plane1(10, 22);
  append(plane0.data(), 10);
  append(plane1.data(), 10);
  program.Write("old.tsl", file);

  Canvas* canvas = Open(program / "old.tsl");
  ASSERT_NE(canvas, nullptr);
  for (int x = 0; x < 10; ++x) {
    const int index = x + 1;  // the nibbles run 1, 2, ..., 10
    EXPECT_EQ(Pixel(canvas, 0, x, 0), std::vector<uint8_t>({uint8_t(index), 0, uint8_t(index * 16)})) << x;
  }
  EXPECT_EQ(std::make_pair(Value8(canvas, 1, 3, 0), Value8(canvas, 2, 3, 0)), std::make_pair(11u, 22u));

  // Version 3 at offset 80, and slot 2's first flag byte is 0: a mask is
  // added, plane 0 lands in slot 3, plane 1 in slot 2, and the names move up.
  file[80] = 3;
  program.Write("old.tsl", file);
  canvas = Open(program / "old.tsl");
  ASSERT_NE(canvas, nullptr);
  EXPECT_EQ(std::make_pair(Value8(canvas, 3, 3, 0), Value8(canvas, 2, 3, 0)), std::make_pair(11u, 22u));
  EXPECT_STREQ(canvas->planes[3].name, "0M");
  EXPECT_STREQ(canvas->planes[2].name, "0M");
  EXPECT_EQ(ReadFileVersion(program / "old.tsl"), 3);
  EXPECT_EQ(ReadFileVersion(program / "missing.tsl"), -1);
}

TEST_F(FileHost, SaveAsAsksWhereAndNeverOverwritesUnasked) {
  Canvas* canvas = MakeBlank(2, 2);
  canvas->modified = 1;
  std::string seed;
  fileWindows.saveDialog = [&](const std::string& name, std::string* chosen, std::string* extension) {
    seed = SaveDialogSeed(name);
    *chosen = program / "drawing.old";
    *extension = "tsl";
    return true;
  };
  std::vector<std::string> named;
  fileNamedHooks.Add([&](const std::string& path) { named.push_back(path); });
  // Untitled asks where, even for Save.
  ASSERT_EQ(SaveCanvas(canvas, 0), 1);
  EXPECT_EQ(seed, "");
  EXPECT_STREQ(canvas->fileName, (program / "drawing.tsl").c_str());
  EXPECT_EQ(named, std::vector<std::string>({program / "drawing.tsl"}));
  EXPECT_EQ(canvas->modified, 0u);

  // The file is there now: No keeps it as it was.
  const auto before = fs::last_write_time(program / "drawing.tsl");
  canvas->modified = 1;
  headless::Recorded().boxAnswers = {platform::IdNo};
  EXPECT_EQ(SaveCanvas(canvas, 1), 0);
  EXPECT_EQ(BoxTexts(), std::vector<std::string>({"Overwrite the file?"}));
  EXPECT_EQ(canvas->modified, 1u);
  EXPECT_EQ(fs::last_write_time(program / "drawing.tsl"), before);
  EXPECT_EQ(seed, program / "drawing");

  // A failing writer (the probe can't create its file in a folder that
  // vanished) shows 1301, and the canvas stays modified.
  std::snprintf(canvas->fileName, kFileNameChars, "%s", (program / "gone/drawing.tsl").c_str());
  EXPECT_EQ(SaveCanvas(canvas, 0), 0);
  EXPECT_EQ(BoxTexts().back(), "Saving file failed!");
  EXPECT_EQ(canvas->modified, 1u);
}

TEST_F(FileHost, ThumbnailKeepsTheShortSideAt256AndGoesAfterTheSave) {
  Canvas* canvas = MakeBlank(1000, 250);
  std::vector<uint8_t> row(1000 * 3);
  for (int y = 0; y < 250; ++y) {
    for (int x = 0; x < 1000; ++x)
      row[size_t(x) * 3] = uint8_t(x * 7 + y), row[size_t(x) * 3 + 1] = uint8_t(y * 3), row[size_t(x) * 3 + 2] = 9;
    PlaneStore.WriteRow(canvas->planes[0].plane, y, 0, 999, row.data());
  }
  Plane* thumb = RenderThumbnail(canvas);
  ASSERT_NE(thumb, nullptr);
  EXPECT_EQ(std::make_pair(thumb->width, thumb->height), std::make_pair(1024, 256));
  int wrong = 0;
  for (int y = 0; y < 256; ++y)
    for (int x = 0; x < 1024; x += 7) {
      const int sx = 999 * x / 1023, sy = 249 * y / 255;  // nearest, no filter
      uint32_t r = 0, g = 0, b = 0;
      PlaneStore.ReadPixel24(thumb, x, y, &r, &g, &b);
      wrong += b != uint8_t(sx * 7 + sy) || g != uint8_t(sy * 3) || r != 9;
    }
  EXPECT_EQ(wrong, 0);
  PlaneStore.FreePlane(&thumb);
  Canvas* square = MakeBlank(256, 256);
  thumb = RenderThumbnail(square);
  EXPECT_EQ(std::make_pair(thumb->width, thumb->height), std::make_pair(256, 256));
  PlaneStore.FreePlane(&thumb);

  // Without "exfile" there is no thumbnail; with it, one layer of its size
  // in file_w/tmb.jpg, which a layered save deletes again.
  EXPECT_EQ(WriteThumbnail(canvas), "");
  fs::copy_file(kProbe, program / "exfile.so");
  ASSERT_EQ(WriteThumbnail(canvas), program / "file_w/tmb.jpg");
  const Dump dump = ReadDump(program / "file_w/tmb.jpg");
  EXPECT_EQ(std::vector<int>({dump.count(), dump.Header().layers[0].width, dump.Header().layers[0].height,
                              dump.Record(0).one}),
            std::vector<int>({1, 1024, 256, 1}));
  int saved = 0;
  ASSERT_EQ(WriteCanvas(canvas, -1, 0, 0, 0, program / "with.tsl", 0, &saved), 1);
  EXPECT_FALSE(fs::exists(program / "file_w/tmb.jpg"));
}

TEST_F(FileHost, PreviewsComeFromTheFileOrTheReadersQuickPicture) {
  Canvas* canvas = MakeBlank(3, 2);
  PlaneStore.WritePixel24(canvas->planes[0].plane, 2, 1, 5, 6, 7);
  settings.noWarnNotTsl = 1;
  int saved = 0;
  ASSERT_EQ(WriteCanvas(canvas, -1, 0, 0, 0, program / "look.prb", 0, &saved), 1);
  for (Plane* preview : {LoadPreview(program / "look.prb"), FastPreview(program / "look.prb")}) {
    ASSERT_NE(preview, nullptr);
    uint32_t r = 0, g = 0, b = 0;
    PlaneStore.ReadPixel24(preview, 2, 1, &r, &g, &b);
    EXPECT_EQ(std::vector<uint32_t>({uint32_t(preview->width), r, g, b}), std::vector<uint32_t>({3, 5, 6, 7}));
    PlaneStore.FreePlane(&preview);
  }
  const FileDescription described = DescribeFile(program / "look.prb");
  EXPECT_EQ(std::vector<std::string>({described.size, described.layers}),
            std::vector<std::string>({"3 x 2pixels FullColor", "LayerCount 1"}));
  EXPECT_TRUE(described.canPreview);
  program.Write("comic.mff", {1});
  EXPECT_EQ(DescribeFile(program / "comic.mff").size, "[コミックツール]");
  EXPECT_EQ(DescribeFile(program / "missing.prb").layers, "File is not selected.");
  EXPECT_FALSE(DescribeFile(program / "missing.prb").canPreview);
  // The quick picture's file is gone again; no reader, no preview.
  EXPECT_FALSE(fs::exists(program / "look.prb.fast.prb"));
  EXPECT_EQ(LoadPreview(program / "look.xyz"), nullptr);
  EXPECT_EQ(FastPreview(program / "look.xyz"), nullptr);
}

}  // namespace
