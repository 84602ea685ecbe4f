// PlaceDab: where a dab lands with and without Anti-Alias, the sub-pixel
// shift of the tip, spacing, the speed wait, and the Undo Pen.
#include "paint/modes/pen_modes.h"
#include "pen_mode_support.h"

namespace {

using namespace pentest;

constexpr uint8_t kColour[3] = {50, 100, 200};  // blue, green, red of the pen

class PlaceDabTest : public KernelTest {
 protected:
  void SetUp() override {
    KernelTest::SetUp();
    MakeLayer();
    pen.red = 200, pen.green = 100, pen.blue = 50;
    pen.colorThickness = 180;
  }
  std::array<int, 4> Dab(double x, double y, int expected = 1, int rightButton = 0,
                         double spacing = 1.0) {
    Rect box{};
    int first = 1;
    EXPECT_EQ(expected, PlaceDab(canvas.get(), x, y, 0, rightButton, &box, spacing, first));
    EXPECT_EQ(!PenBlender.antiAlias, first);  // without Anti-Alias there is no spacing test
    return {box.left, box.top, box.right, box.bottom};
  }
};

// The tip shifted right by fx and down by fy 255ths of a pixel: (w + 1) x
// (h + 1) values.
std::vector<unsigned> Shifted(const std::vector<uint8_t>& tip, int w, int h, unsigned fx,
                              unsigned fy) {
  auto t = [&](int c, int r) -> unsigned {
    return c < 0 || c >= w || r < 0 || r >= h ? 0 : tip[r * w + c];
  };
  auto across = [&](int c, int r) {
    return std::min(255u, ref::Mul(t(c - 1, r), fx) + ref::Mul(t(c, r), 255 - fx));
  };
  std::vector<unsigned> out;
  for (int r = 0; r <= h; ++r)
    for (int c = 0; c <= w; ++c)
      out.push_back(std::min(255u, ref::Mul(across(c, r), 255 - fy) + ref::Mul(across(c, r - 1), fy)));
  return out;
}

TEST_F(PlaceDabTest, TipIsShiftedByTheFractionOrLandsOnTheRoundedPixel) {
  const int w = 4, h = 3;
  const std::vector<uint8_t> tip = RandomBytes(w * h);
  SetTip(w, h, tip, std::vector<uint8_t>(w * h, 0));
  // With Anti-Alias, a position of exactly 0 counts as -1 with a full
  // fraction; without, (5.5, 6.6) rounds to (6, 7) and so on.
  struct Case {
    int antiAlias;
    double x, y;
    int ix, iy;
  };
  for (Case k : {Case{1, 7.3, 4.8, 7, 4}, Case{1, 0.0, 2.5, -1, 2}, Case{1, -1.25, 9.0, -2, 9},
                 Case{0, 5.5, 6.6, 6, 7}, Case{0, -1.6, 10.5, -1, 11}}) {
    SCOPED_TRACE(testing::Message() << k.x << "," << k.y);
    PenBlender.antiAlias = k.antiAlias;
    const unsigned fx = unsigned((k.x - k.ix) * 255.0), fy = unsigned((k.y - k.iy) * 255.0);
    const int size = k.antiAlias;  // a shifted tip is one wider and taller
    const int left = k.ix + 1 - (w + size) / 2, top = k.iy + 1 - (h + size) / 2;
    const std::vector<unsigned> values =
        k.antiAlias ? Shifted(tip, w, h, fx, fy) : std::vector<unsigned>(tip.begin(), tip.end());
    Image im = Snap(image), a = Snap(alpha);
    const Image m = Snap(mask);
    for (int r = 0; r < h + size; ++r)
      for (int c = 0; c < w + size; ++c) {
        const int x = left + c, y = top + r;
        if (x < 0 || x >= kWidth || y < 0 || y >= kHeight) continue;
        RefBlend8(kColour, &im.at(x, y), values[r * (w + size) + c], m.at(x, y), &a.at(x, y), 0, 0,
                  180, 255, std::rand);
      }
    EXPECT_EQ((std::array<int, 4>{left, top, left + w + size, top + h + size}), Dab(k.x, k.y));
    EXPECT_EQ(im, Snap(image));
    EXPECT_EQ(a, Snap(alpha));
  }
}

TEST_F(PlaceDabTest, DoubleAccuracyShiftsTheLowBytesAsValuesOfTheirOwn) {
  const int w = 3, h = 3;
  const std::vector<uint8_t> high = RandomBytes(w * h), low = RandomBytes(w * h);
  SetTip(w, h, high, low);
  canvas->doubleAccuracy = 1;
  Plane*& accuracy = canvas->planes[0].accuracyPlane;
  accuracy = PlaneStore.CreatePlane(kWidth, kHeight, 24, 0, 1, Physical);
  Randomise(accuracy);
  Image hi = Snap(image), lo = Snap(accuracy), a = Snap(alpha);
  const Image m = Snap(mask);
  // At (5.7, 6.2) the shifted tip covers 4 x 4 from (4, 5).
  const unsigned fx = unsigned((5.7 - 5) * 255.0), fy = unsigned((6.2 - 6) * 255.0);
  const std::vector<unsigned> sh = Shifted(high, w, h, fx, fy), sl = Shifted(low, w, h, fx, fy);
  for (int k = 0; k < 16; ++k) {
    const int x = 4 + k % 4, y = 5 + k / 4;
    RefBlend16(kColour, &hi.at(x, y), &lo.at(x, y), sh[k], int(sl[k]), m.at(x, y), &a.at(x, y), 0,
               0, 180, 255);
  }
  Dab(5.7, 6.2);
  EXPECT_EQ(hi, Snap(image));
  EXPECT_EQ(lo, Snap(accuracy));
  EXPECT_EQ(a, Snap(alpha));
}

TEST_F(PlaceDabTest, SpacingRefusesNearDabsOnlyWhenConnectedAndSpeedWaits) {
  SetTip(2, 2, {255, 255, 255, 255}, {0, 0, 0, 0});
  for (int isConnected : {1, 0}) {
    PenBlender.connected = isConnected;
    int first = 1;
    Rect box{};
    auto dab = [&](double x) { return PlaceDab(canvas.get(), x, 4.5, 0, 0, &box, 2.0, first); };
    EXPECT_EQ(1, dab(4.5));
    const Image after = Snap(image);
    EXPECT_EQ(isConnected ? 0 : 1, dab(5.9));
    if (isConnected) {
      EXPECT_EQ((Rect{5, 4, 5, 4}), box);  // the point
    }
    EXPECT_EQ(isConnected, after == Snap(image));
    EXPECT_EQ(1, dab(6.5));  // the distance is from the last dab placed
  }
  // The speed setting waits before each dab, with Anti-Alias or without.
  for (int aa : {1, 0}) {
    PenBlender.antiAlias = aa;
    PenBlender.speedDelay = 0;
    Dab(3, 3);
    PenBlender.speedDelay = 35;
    Dab(3, 3);
  }
  EXPECT_EQ((std::vector<uint32_t>{35, 35}), headless::Recorded().busyWaits);
}

TEST_F(PlaceDabTest, UndoPenPaintsTheSnapshotBackThroughTheMask) {
  SetTip(3, 3, std::vector<uint8_t>(9, 255), std::vector<uint8_t>(9, 255));
  pen.colorThickness = 255;
  const Image im = Snap(image), a = Snap(alpha), m = Snap(mask);
  Image full = m;  // every mask pixel either clear or fully protecting
  for (uint8_t& byte : full.bytes) byte = byte ? 255 : 0;
  // A protecting mask pixel in the tip, so it is not all in the clear.
  ASSERT_NE(0, m.at(5, 3) | m.at(6, 3) | m.at(7, 3) | m.at(5, 4) | m.at(6, 4) | m.at(7, 4) |
                   m.at(5, 5) | m.at(6, 5) | m.at(7, 5));
  for (bool snapshot : {true, false}) {
    if (snapshot) {
      undoPenImage = PlaneStore.CreatePlane(kWidth, kHeight, 24, 0, 1, Physical);
      undoPenTransparency = PlaneStore.CreatePlane(kWidth, kHeight, 8, 0, 1, Physical);
      Put(undoPenImage, im);
      Put(undoPenTransparency, a);
    }
    Randomise(image);  // the strokes since
    Randomise(alpha);
    Image want = Snap(image), wantAlpha = Snap(alpha);
    // Right button at (6.2, 4.9) restores a 3 x 3 tip centred on (6, 4);
    // without a snapshot, white and no coverage.
    for (int y = 3; y <= 5; ++y)
      for (int x = 5; x <= 7; ++x) {
        if (m.at(x, y)) continue;
        for (int c = 0; c < 3; ++c) want.at(x, y, c) = snapshot ? im.at(x, y, c) : 255;
        wantAlpha.at(x, y) = snapshot ? a.at(x, y) : 0;
      }
    Put(mask, full);
    EXPECT_EQ((std::array<int, 4>{5, 3, 8, 6}), Dab(6.2, 4.9, 1, 1));
    EXPECT_EQ(want, Snap(image));
    EXPECT_EQ(wantAlpha, Snap(alpha));
    Put(mask, m);
    PlaneStore.FreePlane(&undoPenImage);
    PlaneStore.FreePlane(&undoPenTransparency);
  }
}

}  // namespace
