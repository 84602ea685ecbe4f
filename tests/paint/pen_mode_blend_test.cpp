// BlendRow: the 8-bit blend of each kind, with and without a transparency
// plane, dropout by density (replaying rand), and the 16-bit blend of
// Double Accuracy, each against the arithmetic written out in the test.
#include "paint/blend_row.h"
#include "paint/coverage_divide.h"
#include "paint/pen_rows.h"
#include "paint/protection.h"
#include "pen_mode_support.h"

namespace {

using namespace pentest;

class BlendRowTest : public PenModeTest {
 protected:
  // Random rows for columns x0..x1 and the plane as it was.
  struct Rows {
    std::vector<uint8_t> source, tipHigh, tipLow, opacity, protect;
  };
  Rows MakeRows(int n) {
    Rows rows{RandomBytes(3 * n), RandomBytes(n), RandomBytes(n), RandomBytes(n), RandomBytes(n)};
    // Some pixels fully open, some fully protected, some full tip.
    for (int i = 0; i < n; i += 3) rows.protect[i] = i % 2 ? 255 : 0;
    for (int i = 1; i < n; i += 4) rows.tipHigh[i] = 255;
    return rows;
  }
  void Blend(Rows& rows, int kind, int y, int x0, int x1, bool lowRow = true) {
    BlendRow(canvas.get(), rows.source.data(), rows.tipHigh.data(),
             lowRow ? rows.tipLow.data() : nullptr, rows.opacity.data(), rows.protect.data(), kind,
             y, x0, x1, 0);
  }
};

TEST_F(BlendRowTest, EightBitKindsMatchTheArithmetic) {
  const int x0 = -2, x1 = kWidth + 1, n = x1 - x0 + 1;  // past both edges
  for (int kind : {0, 1, 2})
    for (bool transparency : {false, true})
      for (bool guard : {false, true})
        for (auto [thick, density] : {std::pair{200u, 255u}, {200u, 90u}, {0u, 90u}}) {
          SCOPED_TRACE(testing::Message() << "kind " << kind << " transparency " << transparency
                                          << " [T] " << guard << " thickness " << thick
                                          << " density " << density);
          TearDown();
          SetUp();
          Plane* image = Make(0);
          Plane* alpha = transparency ? Make(2) : nullptr;
          protectTransparency = guard;
          pen.colorThickness = thick;
          pen.density = density;
          Rows rows = MakeRows(n);
          Image wantImage = Snap(image), wantAlpha = alpha ? Snap(alpha) : Image{};
          const int y = 5;
          std::srand(77);
          Blend(rows, kind, y, x0, x1);
          const int nextDraw = std::rand();  // one draw per pixel that dropout asks about
          std::srand(77);
          const bool useAlpha = transparency && kind != 2 && !guard;
          for (int i = 0; i < n; ++i) {
            const int x = x0 + i;
            uint8_t outside[3] = {0, 0, 0}, outsideA = 0;
            const bool on = x >= 0 && x < kWidth;
            uint8_t* d = on ? &wantImage.at(x, y) : outside;
            uint8_t* A = useAlpha ? (on ? &wantAlpha.at(x, y) : &outsideA) : nullptr;
            RefBlend8(&rows.source[3 * i], d, rows.tipHigh[i], rows.protect[i], A, rows.opacity[i],
                      kind, thick, density, std::rand);
          }
          EXPECT_EQ(nextDraw, std::rand());
          EXPECT_EQ(wantImage, Snap(image));
          EXPECT_EQ(wantAlpha, alpha ? Snap(alpha) : Image{});
        }
}

// A pixel is dropped only when rand % 255 exceeds the density: a draw
// equal to it still paints.
TEST_F(BlendRowTest, DropoutKeepsADrawEqualToTheDensity) {
  Plane* image = Make(0);
  PlaneStore.WritePixel24(image, 0, 0, 0, 0, 0);
  pen.colorThickness = 255;
  std::srand(5);
  pen.density = unsigned(std::rand()) % 255;
  std::srand(5);
  const uint8_t white[3] = {255, 255, 255}, full = 255;
  uint8_t none = 0, open = 0;
  BlendRow(canvas.get(), white, &full, nullptr, &none, &open, 2, 0, 0, 0, 0);
  EXPECT_EQ(255, Snap(image).at(0, 0)) << "density " << pen.density;
}

TEST_F(BlendRowTest, EightBitPlaneKeepsTheLargestChannelAndNoTransparency) {
  Make(0);
  Plane *alpha = Make(2), *mask = Make(1);
  canvas->activePlane = 1;
  Image before = Snap(alpha), want = Snap(mask);
  pen.colorThickness = 255;
  Rows rows = MakeRows(kWidth);
  Blend(rows, 0, 3, 0, kWidth - 1);
  for (int x = 0; x < kWidth; ++x) {
    uint8_t d[3] = {want.at(x, 3), want.at(x, 3), want.at(x, 3)};
    RefBlend8(&rows.source[3 * x], d, rows.tipHigh[x], rows.protect[x], nullptr, 0, 0, 255, 255,
              std::rand);
    want.at(x, 3) = std::max({d[0], d[1], d[2]});
  }
  EXPECT_EQ(want, Snap(mask));
  EXPECT_EQ(before, Snap(alpha));
}

TEST_F(BlendRowTest, DoubleAccuracyBlendsSixteenBits) {
  for (int kind : {0, 1, 2})
    for (bool lowRow : {true, false})
      for (unsigned density : {255u, 120u}) {
        SCOPED_TRACE(testing::Message()
                     << "kind " << kind << " low row " << lowRow << " density " << density);
        TearDown();
        SetUp();
        Plane *image = Make(0), *alpha = Make(2);
        Plane*& low = canvas->planes[0].accuracyPlane;
        low = PlaneStore.CreatePlane(kWidth, kHeight, 24, 0, 1, Physical);
        Randomise(low);
        pen.colorThickness = 230;
        pen.density = density;
        Rows rows = MakeRows(kWidth);
        Image hi = Snap(image), lo = Snap(low), a = Snap(alpha);
        std::srand(31);
        Blend(rows, kind, 7, 0, kWidth - 1, lowRow);
        std::srand(31);
        for (int x = 0; x < kWidth; ++x)
          RefBlend16(&rows.source[3 * x], &hi.at(x, 7), &lo.at(x, 7), rows.tipHigh[x],
                     lowRow ? rows.tipLow[x] : -1, rows.protect[x],
                     kind == 2 ? nullptr : &a.at(x, 7), rows.opacity[x], kind, 230, density);
        EXPECT_EQ(hi, Snap(image));
        EXPECT_EQ(lo, Snap(low));
        EXPECT_EQ(a, Snap(alpha));
      }
}

TEST_F(BlendRowTest, RowsOffThePlaneOrCanvasAreRefusedAndOffsetPlanesClip) {
  // A packed layer standing at (3, 2): column 0 of the plane is canvas 3.
  Plane* image = Make(0, 3, 2, 8, 6, Packed);
  pen.colorThickness = 255;
  Rows rows = MakeRows(kWidth);
  std::fill(rows.protect.begin(), rows.protect.end(), 0);
  std::fill(rows.tipHigh.begin(), rows.tipHigh.end(), 255);
  Image want = Snap(image);
  for (int y : {1, 8, -1}) Blend(rows, 2, y, 0, kWidth - 1);  // above, below the plane, off canvas
  Blend(rows, 2, 4, 11, 15);                                  // right of the plane
  EXPECT_EQ(want, Snap(image));
  // Canvas columns 0..5 of row 4: plane columns 0..2 take source 3..5.
  Blend(rows, 2, 4, 0, 5);
  for (int x = 0; x <= 2; ++x)
    for (int c = 0; c < 3; ++c) want.at(x, 2, c) = rows.source[3 * (x + 3) + c];
  EXPECT_EQ(want, Snap(image));
}

TEST(CoverageDivideTest, EqualsTheDivisionForEveryBlendOperand) {
  for (unsigned n = 1; n <= kMaxCoverageSum; ++n)
    for (unsigned x = 0; x <= 255 * n; ++x)
      if (DivideByCoverage(x, n) != x / n) FAIL() << x << " / " << n;
}

TEST_F(PenModeTest, PartialRowsOfPackedPlanesTouchOnlyTheirColumns) {
  Plane *image = Make(0, 0, 0, kWidth, kHeight, Packed),
        *alpha = Make(2, 0, 0, kWidth, kHeight, Packed);
  Image im = Snap(image), a = Snap(alpha);
  // Columns 0..2 through buffers of exactly three pixels.
  std::vector<uint8_t> colour(9), coverage(3);
  ASSERT_EQ(1, ReadImageRow(canvas.get(), 4, 0, 2, colour.data()));
  ASSERT_EQ(1, ReadLayerPlaneRow(canvas.get(), 4, 0, 2, coverage.data(), 2));
  EXPECT_EQ(std::vector<uint8_t>(&im.at(0, 4), &im.at(3, 4)), colour);
  EXPECT_EQ(std::vector<uint8_t>(&a.at(0, 4), &a.at(3, 4)), coverage);
  for (uint8_t& byte : colour) byte = uint8_t(~byte);
  for (uint8_t& byte : coverage) byte = uint8_t(~byte);
  WriteImageRow(canvas.get(), 4, 0, 2, colour.data());
  WriteLayerPlaneRow(canvas.get(), 4, 0, 2, coverage.data(), 2);
  std::copy(colour.begin(), colour.end(), &im.at(0, 4));
  std::copy(coverage.begin(), coverage.end(), &a.at(0, 4));
  EXPECT_EQ(im, Snap(image));
  EXPECT_EQ(a, Snap(alpha));
}

}  // namespace
