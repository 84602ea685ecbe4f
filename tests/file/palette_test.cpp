// Palette-only writing against a slow reference written from the rules:
// the histogram of 4-bit cells, the 255 picks, and the dither between the
// nearest colour and the one across from it.
#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <vector>

#include "document/canvas_manager.h"
#include "file/install.h"
#include "file/palette_picture.h"
#include "plugin_abi/file_plugin.h"
#include "file/write_canvas.h"
#include "support/fixture.h"
#include "support/temp_folder.h"

namespace {

struct Picture {
  int w, h;
  std::vector<uint8_t> rgb, slot2, slot3;
};

namespace ref {

const uint8_t kPattern[16][8] = {
    {0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00}, {0x88, 0x00, 0x00, 0x00, 0x88, 0x00, 0x00, 0x00},
    {0x88, 0x00, 0x22, 0x00, 0x88, 0x00, 0x22, 0x00}, {0xAA, 0x00, 0x22, 0x00, 0xAA, 0x00, 0x22, 0x00},
    {0xAA, 0x00, 0xAA, 0x00, 0xAA, 0x00, 0xAA, 0x00}, {0xAA, 0x44, 0xAA, 0x00, 0xAA, 0x44, 0xAA, 0x00},
    {0xAA, 0x44, 0xAA, 0x11, 0xAA, 0x44, 0xAA, 0x11}, {0xAA, 0x55, 0xAA, 0x11, 0xAA, 0x55, 0xAA, 0x11},
    {0xAA, 0x55, 0xAA, 0x55, 0xAA, 0x55, 0xAA, 0x55}, {0xAA, 0x55, 0xAA, 0xDD, 0xAA, 0x55, 0xAA, 0xDD},
    {0xAA, 0x77, 0xAA, 0xDD, 0xAA, 0x77, 0xAA, 0xDD}, {0xAA, 0x77, 0xAA, 0xFF, 0xAA, 0x77, 0xAA, 0xFF},
    {0xAA, 0xFF, 0xAA, 0xFF, 0xAA, 0xFF, 0xAA, 0xFF}, {0xAA, 0xFF, 0xBB, 0xFF, 0xAA, 0xFF, 0xBB, 0xFF},
    {0xEE, 0xFF, 0xFF, 0xFF, 0xEE, 0xFF, 0xFF, 0xFF}, {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF},
};

// Red, green, blue as ints.
using Rgb = std::array<int, 3>;

int L1(const Rgb& a, const Rgb& b) {
  return std::abs(a[0] - b[0]) + std::abs(a[1] - b[1]) + std::abs(a[2] - b[2]);
}

int NearestOf(const std::vector<Rgb>& colours, const Rgb& c) {
  size_t best = 0;
  for (size_t i = 1; i < colours.size(); ++i)
    if (L1(colours[i], c) < L1(colours[best], c)) best = i;
  return int(best);
}

// Returns the 255 colours in pick order and the index of every pixel.
std::pair<std::vector<Rgb>, std::vector<int>> Quantise(const Picture& p) {
  auto opaque = [&](size_t i) { return p.slot3[i] <= 128 && p.slot2[i] >= 128; };
  std::vector<long> counts(4096, 0);
  for (size_t i = 0; i < size_t(p.w) * p.h; ++i)
    if (opaque(i)) {
      const int r = p.rgb[i * 3 + 2], g = p.rgb[i * 3 + 1], b = p.rgb[i * 3];
      counts[size_t((r >> 4) * 256 + (g >> 4) * 16 + (b >> 4))]++;
    }
  std::vector<Rgb> colours;
  for (int pick = 0; pick < 255; ++pick) {
    int best = -1;
    for (int c = 0; c < 4096; ++c)
      if (best < 0 || counts[size_t(c)] > counts[size_t(best)]) best = c;
    counts[size_t(best)] = -1;
    colours.push_back({(best / 256) * 255 / 15, (best / 16 % 16) * 255 / 15, (best % 16) * 255 / 15});
  }
  std::vector<int> out(size_t(p.w) * p.h, 255);
  for (int y = 0; y < p.h; ++y)
    for (int x = 0; x < p.w; ++x) {
      const size_t i = size_t(y) * p.w + x;
      if (!opaque(i)) continue;
      const Rgb c{p.rgb[i * 3 + 2], p.rgb[i * 3 + 1], p.rgb[i * 3]};
      const int near = NearestOf(colours, c);
      const int d1 = L1(c, colours[size_t(near)]);
      if (d1 == 0) {
        out[i] = near;
        continue;
      }
      const Rgb across{2 * c[0] - colours[size_t(near)][0], 2 * c[1] - colours[size_t(near)][1],
                       2 * c[2] - colours[size_t(near)][2]};
      const int other = NearestOf(colours, across);
      const int t = 15 * d1 / (d1 + L1(c, colours[size_t(other)]));
      out[i] = (kPattern[t][y % 8] >> (7 - x % 8)) & 1 ? other : near;
    }
  return {colours, out};
}

}  // namespace ref

QuantisedImage Quantised(const Picture& p) {
  return QuantisePicture({p.w, p.h, [&](int y, uint8_t* rgb, uint8_t* s2, uint8_t* s3) {
                            std::copy_n(&p.rgb[size_t(y) * p.w * 3], p.w * 3, rgb);
                            std::copy_n(&p.slot2[size_t(y) * p.w], p.w, s2);
                            std::copy_n(&p.slot3[size_t(y) * p.w], p.w, s3);
                          }});
}

void ExpectLikeReference(const Picture& p) {
  const QuantisedImage q = Quantised(p);
  const auto [colours, indices] = ref::Quantise(p);
  for (size_t i = 0; i < colours.size(); ++i)
    ASSERT_EQ((ref::Rgb{q.palette[i * 4 + 2], q.palette[i * 4 + 1], q.palette[i * 4]}), colours[i]) << i;
  EXPECT_EQ((std::array<int, 3>{q.palette[1020], q.palette[1021], q.palette[1022]}),
            (std::array<int, 3>{255, 255, 255}));
  ASSERT_EQ(q.indices.size(), indices.size());
  for (size_t i = 0; i < indices.size(); ++i) ASSERT_EQ(q.indices[i], indices[i]) << "pixel " << i;
}

using PaletteWriting = TeselTest;

TEST_F(PaletteWriting, MatchesTheReferenceOnRichAndTransparentPictures) {
  std::mt19937 random(7);
  // More colours than cells, so that picks and dither both matter.
  Picture p{53, 29, {}, {}, {}};
  for (int i = 0; i < p.w * p.h; ++i) {
    for (int c = 0; c < 3; ++c) p.rgb.push_back(uint8_t(random()));
    p.slot2.push_back(uint8_t(random() % 4 ? 255 : random()));
    p.slot3.push_back(uint8_t(random() % 5 ? 0 : random()));
  }
  ExpectLikeReference(p);
  // Few colours: empty cells fill the palette, and exact hits need no dither.
  for (size_t i = 0; i < p.rgb.size(); ++i) p.rgb[i] = uint8_t(i / 3 % 3 * 0x11);
  ExpectLikeReference(p);
  // All transparent: the cells in order, and 255 everywhere.
  std::fill(p.slot2.begin(), p.slot2.end(), 0);
  const QuantisedImage q = Quantised(p);
  EXPECT_EQ(std::vector<uint8_t>(q.indices.size(), 255), q.indices);
  EXPECT_EQ((std::array<int, 3>{q.palette[4 * 17], q.palette[4 * 17 + 1], q.palette[4 * 17 + 2]}),
            (std::array<int, 3>{17, 17, 0}));  // cell 17: red 0, green 1, blue 1
}

TEST_F(PaletteWriting, PicksTheMostFrequentCellsLowestFirstOnATie) {
  std::vector<int64_t> histogram(4096, 0);
  histogram[9] = 7, histogram[5] = 3, histogram[2] = 3;
  const std::vector<int> picks = PickCells(histogram);
  ASSERT_EQ(picks.size(), 255u);
  EXPECT_EQ(std::vector<int>(picks.begin(), picks.begin() + 6), std::vector<int>({9, 2, 5, 0, 1, 3}));
}

TEST_F(PaletteWriting, AWriterOfPalettesOnlyGetsIndicesAndThePalette) {
  TempFolder program;
  for (const char* folder : {"file_r/", "file_w/"}) {
    std::filesystem::create_directories(program / folder);
    std::filesystem::copy_file(std::string(TESEL_PLUGIN_DIR) + "/probe8.so", program / (std::string(folder) + "probe8.so"));
  }
  InstallFile(program.path());
  Canvas* canvas = MakeBlank(4, 2);
  PlaneStore.WritePixel24(canvas->planes[0].plane, 1, 0, 0xFF, 0, 0);
  PlaneStore.WritePixel8(canvas->planes[2].plane, 3, 1, 0);  // transparent
  settings.noWarnNotTsl = 1;
  int saved = 0;
  ASSERT_EQ(WriteCanvas(canvas, -1, 0, 0, 0, program / "p.pal", 0, &saved), 1);
  std::ifstream in(program / "p.pal", std::ios::binary);
  std::vector<uint8_t> file((std::istreambuf_iterator<char>(in)), {});
  const size_t records = 8 + offsetof(FileHeader, layers) + sizeof(LayerGeometry) +
                         sizeof(LayerPlaneTable) + sizeof(LayerRecord);
  ASSERT_EQ(file.size(), records + 1024 + 8 + 2 * 2 * 4);  // palette, indices, two planes
  EXPECT_EQ(file[8 + 16 + 8], 8);  // bits of layer 0
  // White fills most of the picture: cell 4095 is picked first, then red.
  const uint8_t* palette = &file[records];
  EXPECT_EQ(std::vector<uint8_t>(palette, palette + 8), std::vector<uint8_t>({255, 255, 255, 0, 0, 0, 255, 0}));
  EXPECT_EQ(std::vector<uint8_t>(palette + 1020, palette + 1023), std::vector<uint8_t>({255, 255, 255}));
  EXPECT_EQ(std::vector<uint8_t>(&file[records + 1024], &file[records + 1032]),
            std::vector<uint8_t>({0, 1, 0, 0, 0, 0, 0, 255}));
}

}  // namespace
