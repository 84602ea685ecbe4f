// The palette: "pal.dat" byte for byte and spoilt, the first run's seed,
// picking and storing cells with the pen, the cells' thumbnails and their
// cache, and the colour panel's numbers.
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <random>

#include "file/install.h"
#include "paint/modes/pen_modes.h"
#include "paint/tip/pen_pattern.h"
#include "paint/tip/pen_record.h"
#include "panels/cell_thumbnail.h"
#include "panels/palette_cells.h"
#include "panels/palette_file.h"
#include "panels/palette_panel.h"
#include "panels/palette_pick.h"
#include "platform/headless/headless.h"
#include "settings/settings.h"
#include "store/dib.h"
#include "support/fixture.h"
#include "support/palette_bytes.h"
#include "support/planes.h"
#include "support/temp_folder.h"

namespace {

using PaletteTest = TeselTest;

constexpr size_t kFileBytes = 363488;
constexpr size_t kCellBytes = 312;

std::vector<uint8_t> Settled(std::vector<uint8_t> bytes) {
  SettlePaletteBytes(bytes);
  return bytes;
}

std::vector<uint8_t> RandomBytes(size_t count) {
  std::mt19937 random(7);
  std::vector<uint8_t> bytes(count);
  for (uint8_t& b : bytes) b = uint8_t(random());
  return bytes;
}

std::vector<uint8_t> Area() {
  return std::vector<uint8_t>(settings.paletteArea, settings.paletteArea + kFileBytes);
}

TEST_F(PaletteTest, PaletteFileRoundTripsByteForByteAndSurvivesSpoiltFiles) {
  TempFolder folder;
  const std::vector<uint8_t> bytes = RandomBytes(kFileBytes);
  folder.Write("palette/pal.dat", bytes);
  ASSERT_EQ(LoadPaletteFile(folder.path()), 1);
  EXPECT_EQ(Area(), Settled(bytes));
  ASSERT_EQ(SavePaletteFile(folder.path()), 1);
  EXPECT_EQ(folder.Read("palette/pal.dat"), Settled(bytes));
  // A whole cell's fields as they lie: colour, image flag, path.
  const PaletteCell cell = GetPaletteCell(111);
  uint32_t red = 0;
  std::memcpy(&red, &bytes[328544 + 111 * kCellBytes], 4);
  EXPECT_EQ(cell.red, red);
  EXPECT_EQ(cell.image, 0u);

  // Short: what it holds replaces the start, the rest stays.
  std::memset(settings.paletteArea, 0xAB, kFileBytes);
  folder.Write("palette/pal.dat", std::vector<uint8_t>(1000, 0x11));
  ASSERT_EQ(LoadPaletteFile(folder.path()), 1);
  std::vector<uint8_t> want(kFileBytes, 0xAB);
  std::fill(want.begin(), want.begin() + 1000, 0x11);
  EXPECT_EQ(Area(), Settled(want));

  // Long: the bytes past the area are not read.
  std::vector<uint8_t> longer = RandomBytes(kFileBytes + 5000);
  folder.Write("palette/pal.dat", longer);
  ASSERT_EQ(LoadPaletteFile(folder.path()), 1);
  longer.resize(kFileBytes);
  EXPECT_EQ(Area(), Settled(longer));

  // Missing: 0 and nothing changed.
  std::filesystem::remove(folder / "palette/pal.dat");
  EXPECT_EQ(LoadPaletteFile(folder.path()), 0);
  EXPECT_EQ(Area(), Settled(longer));
}

TEST_F(PaletteTest, SeedGivesBrightColoursAndThreeStopsALine) {
  std::memset(settings.paletteArea, 0xAB, kFileBytes);
  SeedPalette();
  const std::vector<uint8_t> area = Area();
  PaletteCell first;
  std::memcpy(&first, &area[0], sizeof first);
  int distinct = 0;
  for (size_t start : PaletteCellStarts()) {
    PaletteCell cell;
    std::memcpy(&cell, &area[start], sizeof cell);
    EXPECT_EQ(std::max({cell.red, cell.green, cell.blue}), 255u) << start;  // value 255
    EXPECT_EQ(cell.isImage, 0u);
    distinct += cell.red != first.red || cell.green != first.green || cell.blue != first.blue;
  }
  EXPECT_GT(distinct, 1000);  // random, not one colour
  for (int line = 0; line < 10; ++line) {
    int32_t count, p0, p1, p2;
    std::memcpy(&count, &area[12504 + line * 4], 4);
    std::memcpy(&p0, &area[324544 + line * 400], 4);
    std::memcpy(&p1, &area[324544 + line * 400 + 4], 4);
    std::memcpy(&p2, &area[324544 + line * 400 + 8], 4);
    EXPECT_EQ(count, 3);
    EXPECT_EQ(p0, 0);
    EXPECT_TRUE(p1 >= 0 && p1 <= 90 && p1 % 10 == 0) << p1;
    EXPECT_EQ(p2, 100);
  }
}

PaletteCell ColourCell(uint32_t r, uint32_t g, uint32_t b) {
  PaletteCell cell{};
  cell.red = r, cell.green = g, cell.blue = b;
  return cell;
}

TEST_F(PaletteTest, PickTakesTheCellIntoThePenAndTheColourMode) {
  PutPaletteCell(33, ColourCell(200, 10, 20));  // page 1, cell 5
  pen.mode = kModeBlur;
  ASSERT_EQ(PickCell(1, 5), 1);
  EXPECT_EQ((std::array{pen.red, pen.green, pen.blue}), (std::array{200u, 10u, 20u}));
  // By hand: s = 190 x 255 / 200; bc - gc = 241 - 255 = -14, x 60 / 255
  // = -3, so 357 degrees.
  EXPECT_EQ((std::array{pen.hue, pen.saturation, pen.value}), (std::array{357u, 242u, 200u}));
  EXPECT_EQ(pen.mode, uint32_t(kModeColor));
  ASSERT_FALSE(headless::Recorded().messages.empty());
  EXPECT_EQ(headless::Recorded().messages.back().message, platform::MsgPanelsRepaint);

  // There is no cell 112 and beyond, nor a page before the first.
  EXPECT_EQ(PickCell(3, 28), 0);
  EXPECT_EQ(PickCell(4, 0), 0);
  EXPECT_EQ(PickCell(-1, 3), 0);
  EXPECT_EQ(StoreCell("/nowhere/", 0, 28), 0);

  // An image that can't be read: the colour is taken, no pattern.
  PaletteCell broken = ColourCell(1, 2, 3);
  broken.isImage = 1;
  std::strcpy(broken.path, "/nowhere/pal00007.bmp");
  PutPaletteCell(7, broken);
  pen.patternActive = 1;
  pen.patternImage = PlaneStore.CreatePlane(2, 2, 24, 0, 0, Physical);
  ASSERT_EQ(PickCell(0, 7), 1);
  EXPECT_EQ((std::array{pen.red, pen.green, pen.blue}), (std::array{1u, 2u, 3u}));
  EXPECT_EQ(pen.patternActive, 0u);
  EXPECT_EQ(pen.patternImage, nullptr);
}

TEST_F(PaletteTest, StoreWritesThePatternBesideTheProgramAndAColourClearsIt) {
  TempFolder folder;
  std::filesystem::create_directories(folder / "palette");
  pen.red = 9, pen.green = 8, pen.blue = 7;
  const std::vector<uint8_t> pixels = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
  pen.patternImage = PlaneOfBytes(2, 2, 24, pixels);
  pen.patternAlpha = PlaneOfBytes(2, 2, 8, {0, 100, 200, 255});
  pen.patternActive = 1;
  ASSERT_EQ(StoreCell(folder.path(), 2, 3), 1);  // number 59
  PaletteCell cell = GetPaletteCell(59);
  EXPECT_EQ(cell.isImage, 1u);
  EXPECT_EQ(std::string(cell.path), folder / "palette/pal00059.bmp");
  EXPECT_EQ((std::array{cell.red, cell.green, cell.blue}), (std::array{9u, 8u, 7u}));
  Plane* image = LoadBmp(cell.path);
  Plane* mask = LoadBmp(folder / "palette/pal00059.bmm");
  EXPECT_EQ(PlaneBytes(image), pixels);
  EXPECT_EQ(PlaneBytes(mask), (std::vector<uint8_t>{0, 100, 200, 255}));
  PlaneStore.FreePlane(&image);
  PlaneStore.FreePlane(&mask);

  // Without a mask the old one goes; without a pattern the files go.
  PlaneStore.FreePlane(&pen.patternAlpha);
  ASSERT_EQ(StoreCell(folder.path(), 2, 3), 1);
  EXPECT_TRUE(folder.Exists("palette/pal00059.bmp"));
  EXPECT_FALSE(folder.Exists("palette/pal00059.bmm"));
  PlaneStore.FreePlane(&pen.patternImage);
  pen.patternActive = 0;
  ASSERT_EQ(StoreCell(folder.path(), 2, 3), 1);
  EXPECT_FALSE(folder.Exists("palette/pal00059.bmp"));
  cell = GetPaletteCell(59);
  EXPECT_EQ(cell.isImage, 0u);
  EXPECT_EQ(cell.path[0], '\0');

  // A pattern that can't be written (no palette folder) leaves a colour cell.
  TempFolder bare;
  pen.patternImage = PlaneOfBytes(2, 2, 24, pixels);
  pen.patternActive = 1;
  ASSERT_EQ(StoreCell(bare.path(), 0, 0), 1);
  EXPECT_EQ(GetPaletteCell(0).isImage, 0u);
}

// Stored and picked back through the bmp plug-in: the pattern comes back
// with its mask, and the pen takes the cell's colour.
TEST_F(PaletteTest, AStoredPatternPicksBackAsThePenPattern) {
  TempFolder program;
  std::filesystem::create_directories(program / "file_r");
  std::filesystem::create_directories(program / "palette");
  std::filesystem::copy_file(std::string(TESEL_PLUGIN_DIR) + "/bmp.so", program / "file_r/bmp.so");
  InstallFile(program.path());
  const std::vector<uint8_t> pixels = {10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 110, 120};
  pen.red = 4, pen.green = 5, pen.blue = 6;
  pen.patternImage = PlaneOfBytes(2, 2, 24, pixels);
  pen.patternAlpha = PlaneOfBytes(2, 2, 8, {0, 100, 200, 255});
  pen.patternActive = 1;
  ASSERT_EQ(StoreCell(program.path(), 0, 3), 1);
  FreePenPattern();
  pen.red = pen.green = pen.blue = 0;

  headless::Recorded().boxAnswers.push_back(platform::IdNo);  // not as the tip
  ASSERT_EQ(PickCell(0, 3), 1);
  EXPECT_EQ(pen.patternActive, 1u);
  EXPECT_EQ((std::array{pen.red, pen.green, pen.blue}), (std::array{4u, 5u, 6u}));
  EXPECT_EQ(PlaneBytes(pen.patternImage), pixels);
  EXPECT_EQ(PlaneBytes(pen.patternAlpha), (std::vector<uint8_t>{0, 100, 200, 255}));
  EXPECT_EQ(tipState.patternIsTip, 0);
}

void SaveUniform(const std::string& path, int width, int height, int bits, uint8_t value) {
  Plane* plane = PlaneOfBytes(width, height, bits,
                              std::vector<uint8_t>(size_t(width * height * bits / 8), value));
  ASSERT_EQ(SaveBmp(plane, path), 1);
  PlaneStore.FreePlane(&plane);
}

TEST_F(PaletteTest, ThumbnailFitsTheCellOverWhiteAndIsCachedByTheImagesTime) {
  TempFolder folder;
  const std::string path = folder / "pal00001.bmp";
  // 8 x 4 in an 8 x 8 cell: the scale is 1, so the pixels stay, centred.
  std::vector<uint8_t> pixels(8 * 4 * 3);
  std::vector<uint8_t> mask(8 * 4);
  for (size_t i = 0; i < pixels.size(); ++i) pixels[i] = uint8_t(i * 7);
  for (size_t i = 0; i < mask.size(); ++i) mask[i] = uint8_t(i * 8);
  Plane* image = PlaneOfBytes(8, 4, 24, pixels);
  Plane* alpha = PlaneOfBytes(8, 4, 8, mask);
  ASSERT_EQ(SaveBmp(image, path), 1);
  ASSERT_EQ(SaveBmp(alpha, folder / "pal00001.bmm"), 1);
  PlaneStore.FreePlane(&image);
  PlaneStore.FreePlane(&alpha);
  std::vector<uint8_t> want(pixels.size());
  for (size_t i = 0; i < want.size(); ++i)
    want[i] = uint8_t(((int(pixels[i]) - 255) * mask[i / 3] + 65025) / 255);

  int x, y, w, h;
  Plane* thumbnail = CellThumbnail(path, 8, 8, &x, &y, &w, &h);
  EXPECT_EQ((std::array{x, y, w, h}), (std::array{0, 2, 8, 4}));
  EXPECT_EQ(PlaneBytes(thumbnail), want);
  PlaneStore.FreePlane(&thumbnail);
  EXPECT_EQ(folder.Read("pal00001.stt").size(), 16u);

  // The cache stands while the time matches: a changed ".thm" is what shows.
  SaveUniform(folder / "pal00001.thm", 8, 4, 24, 33);
  thumbnail = CellThumbnail(path, 8, 8, &x, &y, &w, &h);
  EXPECT_EQ(PlaneBytes(thumbnail), std::vector<uint8_t>(8 * 4 * 3, 33));
  PlaneStore.FreePlane(&thumbnail);
  // A new time for the image: the thumbnail is made anew.
  std::filesystem::last_write_time(
      path, std::filesystem::last_write_time(path) + std::chrono::seconds(10));
  thumbnail = CellThumbnail(path, 8, 8, &x, &y, &w, &h);
  EXPECT_EQ(PlaneBytes(thumbnail), want);
  PlaneStore.FreePlane(&thumbnail);

  // Proportions: 16 x 8 into 10 x 10 is 10 x 5; 7 x 20 is 3 x 10.
  SaveUniform(folder / "wide.bmp", 16, 8, 24, 90);
  thumbnail = CellThumbnail(folder / "wide.bmp", 10, 10, &x, &y, &w, &h);
  EXPECT_EQ((std::array{x, y, w, h}), (std::array{0, 2, 10, 5}));
  PlaneStore.FreePlane(&thumbnail);
  SaveUniform(folder / "tall.bmp", 7, 20, 24, 90);
  thumbnail = CellThumbnail(folder / "tall.bmp", 10, 10, &x, &y, &w, &h);
  EXPECT_EQ((std::array{x, y, w, h}), (std::array{3, 0, 3, 10}));
  PlaneStore.FreePlane(&thumbnail);

  // Unreadable or missing: nothing, the cell draws black.
  folder.WriteText("junk.bmp", "BM not a picture");
  EXPECT_EQ(CellThumbnail(folder / "junk.bmp", 10, 10, &x, &y, &w, &h), nullptr);
  EXPECT_EQ(CellThumbnail(folder / "none.bmp", 10, 10, &x, &y, &w, &h), nullptr);
  EXPECT_EQ(CellThumbnail(folder / "wide.bmp", 0, 10, &x, &y, &w, &h), nullptr);
}

TEST_F(PaletteTest, ColourPanelNumbers) {
  // Red by hand: Y = 76245 / 1000; U = -43095 / 1000 + 128; V = 127500 / 1000 + 128.
  EXPECT_EQ(PreviewText(255, 0, 0), "FF0000\nR:255 G:000 B:000\n Y:76 U:85 V:255");
  EXPECT_EQ(PreviewText(0, 0, 0), "000000\nR:000 G:000 B:000\n Y:0 U:128 V:128");
  MixerColor color;
  SetFromHsv(&color, 10, 255, 128);
  settings.numberNotation = 1;
  EXPECT_EQ(DragTipText(color), "H:10  S:100  V:50");
  settings.numberNotation = 0;
  EXPECT_EQ(DragTipText(color), "H:10  S:255  V:128");

  MixerColor picked;  // value 0: the box still gives a colour
  PickHueBox(&picked, 0, 0, 360, 256);
  EXPECT_EQ((std::array{picked.red, picked.green, picked.blue}), (std::array{255, 0, 0}));
  PickHueBox(&picked, 359, 255, 360, 256);
  EXPECT_EQ(picked.hue, 359);
  EXPECT_EQ(picked.saturation, 0);
  int x, y;
  HueBoxPoint(120, 255, 360, 256, &x, &y);
  EXPECT_EQ((std::array{x, y}), (std::array{120, 0}));

  settings.colorModel = kModelHsv;
  SetBarLevel(&picked, 0, 255);
  EXPECT_EQ(picked.hue, 359);
  EXPECT_EQ(BarLevel(picked, 0), 255);
  settings.colorModel = 7;  // unknown: red, green, blue
  SetBarLevel(&picked, 1, 40);
  EXPECT_EQ(picked.green, 40);
  EXPECT_EQ(BarColorAt(picked, 2, 99).blue, 99);
  EXPECT_EQ(picked.blue, 255);  // the bar's drawing leaves the colour

  EXPECT_EQ(CellAtPoint(0, 0, 70, 40), 0);
  EXPECT_EQ(CellAtPoint(69, 39, 70, 40), 27);
  EXPECT_EQ(CellAtPoint(10, 10, 70, 40), 8);
  EXPECT_EQ(CellAtPoint(70, 0, 70, 40), -1);
}

}  // namespace
