// Mode Color's three sources (flat colour, pattern, gradient) through the
// Tone Filter, the tile modes, and the mode without a kernel, as rows of
// FetchModeRow.
#include "paint/modes/pen_modes.h"
#include "pen_mode_support.h"

namespace {

using namespace pentest;

class ColorModeTest : public KernelTest {
 protected:
  void SetUp() override {
    KernelTest::SetUp();
    MakeLayer();
    pen.red = 10, pen.green = 20, pen.blue = 30;
  }
  static std::vector<uint8_t> Pixel(const KernelRows& rows, int i) {
    return {&rows.source[3 * i], &rows.source[3 * i + 3]};
  }
};

// A tone that lets through 16 x column of a row, as a filter would cut it.
uint8_t Stripe(int x) { return uint8_t(std::min(255, 16 * std::max(0, x))); }
void StripeTone(int, int x0, int x1, const Rect&, uint8_t* row, int init) {
  for (int x = x0; x <= x1; ++x) row[x - x0] = init ? Stripe(x) : std::min(row[x - x0], Stripe(x));
}

TEST_F(ColorModeTest, FlatColourAndGradientAreCutByToneAndMask) {
  for (bool tone : {false, true}) {
    penSources.toneRow = tone ? StripeTone : nullptr;
    KernelRows rows = Fetch(4, -2, 13, -2, 0, 13, 11);
    EXPECT_EQ(0, rows.kind);
    for (int i = 0; i < 16; ++i) {
      EXPECT_EQ((std::vector<uint8_t>{30, 20, 10}), Pixel(rows, i));
      EXPECT_EQ(uint8_t(255 - (tone ? Stripe(i - 2) : 255)) | MaskAt(i - 2, 4), rows.protect[i]);
      EXPECT_EQ(kSentinel, rows.opacity[i]);
    }
  }
  // A gradient comes from its source, or paints nothing without one.
  penSources.toneRow = nullptr;
  pen.colorStyle = 1;
  EXPECT_EQ(std::vector<uint8_t>(6, 255), Fetch(2, 1, 6, 1, 1, 6, 5).protect);
  penSources.gradientRow = [](uint8_t* row, int y, int x0, int x1, const Rect& box) {
    for (int x = x0; x <= x1; ++x)
      row[3 * (x - x0)] = uint8_t(x - box.left), row[3 * (x - x0) + 1] = uint8_t(y - box.top),
                   row[3 * (x - x0) + 2] = uint8_t(box.right + box.bottom);
  };
  KernelRows rows = Fetch(2, 1, 6, 1, 1, 6, 5);
  EXPECT_EQ(0, rows.kind);
  for (int i = 0; i < 6; ++i) {
    EXPECT_EQ((std::vector<uint8_t>{uint8_t(i), 1, 11}), Pixel(rows, i));
    EXPECT_EQ(MaskAt(1 + i, 2), rows.protect[i]);
  }
}

TEST_F(ColorModeTest, PatternIsAnchoredToTheCanvasOrMovesAsATip) {
  // A 5 x 3 pattern; pixel (px, py) = (px, py, 7), alpha 40 px + py.
  pen.patternImage = PlaneStore.CreatePlane(5, 3, 24, 0, 1, Physical);
  pen.patternAlpha = PlaneStore.CreatePlane(5, 3, 8, 0, 1, Physical);
  Image picture{5, 3, 3, std::vector<uint8_t>(45)}, alphaBytes{5, 3, 1, std::vector<uint8_t>(15)};
  for (int k = 0; k < 15; ++k) {
    const int px = k % 5, py = k / 5;
    picture.at(px, py, 0) = uint8_t(px), picture.at(px, py, 1) = uint8_t(py);
    picture.at(px, py, 2) = 7, alphaBytes.at(px, py) = uint8_t(40 * px + py);
  }
  Put(pen.patternImage, picture);
  Put(pen.patternAlpha, alphaBytes);
  pen.patternActive = 1;
  penSources.toneRow = StripeTone;
  for (int asTip : {0, 1}) {
    tipState.patternIsTip = asTip;
    const int y = 7, x0 = -3, x1 = 12, boxTop = 5;
    KernelRows rows = Fetch(y, x0, x1, x0, boxTop, x1, 11);
    const int py = asTip ? (y - boxTop) % 3 : y % 3;
    for (int i = 0; i <= x1 - x0; ++i) {
      const int x = x0 + i, px = asTip ? i % 5 : ((x % 5) + 5) % 5;
      EXPECT_EQ((std::vector<uint8_t>{uint8_t(px), uint8_t(py), 7}), Pixel(rows, i)) << asTip;
      EXPECT_EQ(uint8_t(255 - std::min<int>(40 * px + py, Stripe(x))) | MaskAt(x, y),
                rows.protect[i])
          << "tip " << asTip << " x " << x;
    }
  }
}

TEST_F(ColorModeTest, TileModesRepeatTheirTileAndClipboardRunsNoKernel) {
  for (uint32_t mode : {kModeFilter, kModeLayer}) {
    pen.mode = mode;
    SetSourceTile(nullptr);
    EXPECT_EQ(std::vector<uint8_t>(10, 255), Fetch(3, 0, 9, 0, 0, 9, 9).protect);  // no tile
    Plane* tile = PlaneStore.CreatePlane(4, 3, 24, 0, 1, Physical);
    Image tiles{4, 3, 3, std::vector<uint8_t>(36)};
    for (size_t k = 0; k < tiles.bytes.size(); ++k) tiles.bytes[k] = uint8_t(k);
    Put(tile, tiles);
    SetSourceTile(tile);
    KernelRows rows = Fetch(5, -2, 9, -2, 0, 9, 9);
    EXPECT_EQ(0, rows.kind);
    for (int i = 0; i < 12; ++i) {
      const int tx = (i + 2) % 4;  // column x = i - 2 of the canvas
      EXPECT_EQ(std::vector<uint8_t>(&tiles.at(tx, 5 % 3), &tiles.at(tx, 5 % 3) + 3),
                Pixel(rows, i));
      EXPECT_EQ(kSentinel, rows.opacity[i]);
      EXPECT_EQ(MaskAt(i - 2, 5), rows.protect[i]);
    }
  }
  pen.mode = kModeClipboard;
  KernelRows rows = Fetch(3, 0, 7, 0, 0, 7, 7);
  EXPECT_EQ(-1, rows.kind);
  EXPECT_EQ(std::vector<uint8_t>(24, kSentinel), rows.source);
  for (int i = 0; i < 8; ++i) EXPECT_EQ(kSentinel | MaskAt(i, 3), rows.protect[i]);
}

}  // namespace
