// FetchModeRow's rows: the modes that take their colour from the plane
// (Blur, Blur 2, Stir, Eraser, Clone, Noise, and the grab-and-drop modes)
// checked against the pixels read in the test, and Mode Color's three
// sources (flat colour, pattern, gradient) through the Tone Filter, the
// tile modes, and the mode without a kernel.
#include <cmath>

#include "paint/modes/pen_modes.h"
#include "pen_mode_support.h"

namespace {

using namespace pentest;

class SampleModeTest : public KernelTest {
 protected:
  void SetUp() override {
    KernelTest::SetUp();
    MakeLayer();
  }
  // Pixel i of the rows took `read` (colour, opacity), unprotected but for
  // the mask's own protection of (x, y); or, without `read`, is refused.
  void ExpectTaken(const KernelRows& rows, int i, const uint8_t* read, int x, int y) {
    if (!read) {
      EXPECT_EQ(255, rows.protect[i]) << "x " << x;
      return;
    }
    for (int c = 0; c < 3; ++c) EXPECT_EQ(read[c], rows.source[3 * i + c]) << "x " << x;
    EXPECT_EQ(read[3], rows.opacity[i]) << "x " << x;
    EXPECT_EQ(MaskAt(x, y), rows.protect[i]) << "x " << x;
  }
  // The pen's reading of (x, y), or null where it is refused.
  const uint8_t* Read(int x, int y) { return PenPixel(x, y, read_) ? read_ : nullptr; }
  uint8_t read_[4];
};

TEST_F(SampleModeTest, BlurTakesTheRoundedMeanOfTheCrossThatAnswers) {
  pen.mode = kModeBlur;
  for (int y : {0, 6, 11}) {
    KernelRows rows = Fetch(y, -1, kWidth, -1, 0, kWidth, 11);
    EXPECT_EQ(1, rows.kind);
    for (int x = -1; x <= kWidth; ++x) {
      unsigned n = 0, sum[4] = {0, 0, 0, 0};
      for (auto [dx, dy] : {std::pair{-1, 0}, {1, 0}, {0, 0}, {0, -1}, {0, 1}})
        if (const uint8_t* p = Read(x + dx, y + dy); p && ++n)
          for (int c = 0; c < 4; ++c) sum[c] += p[c];
      uint8_t mean[4];
      for (int c = 0; c < 4; ++c) mean[c] = uint8_t(n ? (sum[c] + n / 2) / n : 0);
      ExpectTaken(rows, x + 1, n ? mean : nullptr, x, y);
    }
  }
}

TEST_F(SampleModeTest, Blur2TakesTheMeanOfTheUnprotectedBox) {
  pen.mode = kModeBlur2;
  Image im = Snap(image), m = Snap(mask), a = Snap(alpha);
  // A box hanging over the left and top edges: only plane pixels count.
  const int left = -2, top = -1, right = 5, bottom = 4;
  uint64_t sum[4] = {0, 0, 0, 0}, count = 0;
  for (int y = 0; y <= bottom; ++y)
    for (int x = 0; x <= right; ++x) {
      if (m.at(x, y)) continue;
      for (int c = 0; c < 3; ++c) sum[c] += im.at(x, y, c);
      sum[3] += a.at(x, y);
      ++count;
    }
  uint8_t mean[4];
  for (int c = 0; c < 3; ++c) mean[c] = uint8_t((sum[c] + count / 2) / count);
  mean[3] = uint8_t(sum[3] / count);  // the opacity truncates
  KernelRows rows = Fetch(2, left, right, left, top, right, bottom);
  EXPECT_EQ(1, rows.kind);
  for (int i = 0; i <= right - left; ++i) ExpectTaken(rows, i, mean, left + i, 2);
  // Everything protected: white, and nothing painted.
  std::fill(m.bytes.begin(), m.bytes.end(), 1);
  Put(mask, m);
  KernelRows none = Fetch(2, 0, 3, 0, 0, 3, 3);
  EXPECT_EQ(std::vector<uint8_t>(12, 255), none.source);
  EXPECT_EQ(std::vector<uint8_t>(4, 255), none.protect);
}

// Stir reads at two random offsets per column; Noise adds three draws per
// pixel, red first.
TEST_F(SampleModeTest, StirAndNoiseReplayTheirRandomDraws) {
  pen.mode = kModeStir;
  canvas->activePlane = 2;
  EXPECT_EQ(0, Fetch(5, 0, kWidth - 1, 0, 0, 15, 11).kind);  // another plane has no opacity
  canvas->activePlane = 0;
  std::srand(99);
  KernelRows rows = Fetch(5, 0, kWidth - 1, 0, 0, 15, 11);
  EXPECT_EQ(1, rows.kind);
  std::srand(99);
  for (int x = 0; x < kWidth; ++x) {
    const int dx = (std::rand() & 63) - 32, dy = (std::rand() & 63) - 32;
    ExpectTaken(rows, x, Read(x + dx, 5 + dy), x, 5);
  }

  pen.mode = kModeNoise;
  Image im = Snap(image);
  std::srand(7);
  rows = Fetch(3, 0, kWidth - 1, 0, 0, 15, 11);
  EXPECT_EQ(0, rows.kind);
  std::srand(7);
  for (int x = 0; x < kWidth; ++x) {
    for (int c : {2, 1, 0})
      EXPECT_EQ(std::clamp(im.at(x, 3, c) + std::rand() % 33 - 16, 0, 255), rows.source[3 * x + c]);
    EXPECT_EQ(MaskAt(x, 3), rows.protect[x]);
  }
}

TEST_F(SampleModeTest, CloneReadsAtTheOffsetAndEraserKeepsTheColour) {
  pen.mode = kModeClone;
  PenKernels.cloneOffsetX = 3;
  PenKernels.cloneOffsetY = -2;
  KernelRows rows = Fetch(4, 0, kWidth - 1, 0, 0, 15, 11);
  EXPECT_EQ(1, rows.kind);
  for (int x = 0; x < kWidth; ++x) ExpectTaken(rows, x, Read(x + 3, 2), x, 4);
  pen.mode = kModeEraser;
  Image im = Snap(image);
  rows = Fetch(4, 0, kWidth - 1, 0, 0, 15, 11);
  EXPECT_EQ(1, rows.kind);
  for (int x = 0; x < kWidth; ++x) {
    const uint8_t own[4] = {im.at(x, 4, 0), im.at(x, 4, 1), im.at(x, 4, 2), 0};
    ExpectTaken(rows, x, own, x, 4);
  }
}

TEST_F(SampleModeTest, GrabbingModesDropWhatTheLastDabGrabbed) {
  const int width = 7, height = 5;  // a box of 7 x 5 at (1, 2), then at (6, 5)
  for (uint32_t mode : {kModeRub, kModeClockwise, kModeCounterclockwise}) {
    SCOPED_TRACE(testing::Message() << "mode " << mode);
    pen.mode = mode;
    tipState.dabCount = 0;
    std::vector<std::array<uint8_t, 4>> grabbed;
    std::vector<bool> refused;
    for (int r = 0; r < height; ++r) {
      KernelRows rows = Fetch(2 + r, 1, width, 1, 2, width, 1 + height);
      EXPECT_EQ(std::vector<uint8_t>(width, 255), rows.protect);  // grab paints nothing
      for (int c = 0; c < width; ++c)
        refused.push_back(!PenPixel(1 + c, 2 + r, grabbed.emplace_back().data()));
    }
    tipState.dabCount = 1;
    // Rounds half away from zero.
    auto round = [](double v) { return int(v > 0 ? v + 0.5 : v - 0.5); };
    const double angle = (mode == kModeClockwise ? 20 : -20) * 0.017453292519943295;
    for (int r = 0; r < height; ++r) {
      KernelRows rows = Fetch(5 + r, 6, 5 + width, 6, 5, 5 + width, 4 + height);
      EXPECT_EQ(1, rows.kind);
      for (int c = 0; c < width; ++c) {
        const int cx = c - width / 2, cy = r - height / 2;
        const int gc =
            mode == kModeRub ? c : round(cy * std::sin(angle) + cx * std::cos(angle)) + 3;
        const int gr =
            mode == kModeRub ? r : round(cy * std::cos(angle) - cx * std::sin(angle)) + 2;
        const bool inside = gc >= 0 && gc < width && gr >= 0 && gr < height;
        const int k = gr * width + gc;
        ExpectTaken(rows, c, inside && !refused[k] ? grabbed[k].data() : nullptr, 6 + c, 5 + r);
      }
    }
  }
  // Nothing is grabbed or dropped past the largest box: 291 wide.
  pen.mode = kModeRub;
  for (int count : {0, 1}) {
    tipState.dabCount = count;
    EXPECT_EQ(std::vector<uint8_t>(6, 255), Fetch(3, 0, 5, 0, 0, 290, 3).protect);
  }
}

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
