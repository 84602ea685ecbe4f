// The modes that take their colour from the plane: Blur, Blur 2, Stir,
// Eraser, Clone, Noise, and the grab-and-drop modes, as rows of
// FetchModeRow checked against the pixels read in the test.
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

}  // namespace
