// BlendRow: the 8-bit blend of each kind, with and without a transparency
// plane, dropout by density (replaying rand), and the 16-bit blend of
// Double Accuracy, each against the arithmetic written out in the test;
// rows that miss the plane, and planes that stand off the canvas origin.
#include "paint/modes/blend_row.h"
#include "paint/modes/pen_rows.h"
#include "paint/modes/protection.h"
#include "pen_mode_support.h"

namespace {

using namespace pentest;

class BlendRowTest : public PenModeTest {
 protected:
  // Random rows for columns x0..x1, with some pixels fully open, some fully
  // protected and some of full tip.
  struct Rows {
    std::vector<uint8_t> source, tipHigh, tipLow, opacity, protect;
  };
  Rows MakeRows(int n) {
    Rows rows{RandomBytes(3 * n), RandomBytes(n), RandomBytes(n), RandomBytes(n), RandomBytes(n)};
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

// Every kind, with and without a transparency plane, the [T] guard,
// dropout (one draw per pixel that it asks about) and Double Accuracy,
// with and without a low tip row, over a row past both edges.
TEST_F(BlendRowTest, EveryKindMatchesTheArithmetic) {
  const int x0 = -2, x1 = kWidth + 1, n = x1 - x0 + 1, y = 5;
  for (int kind : {0, 1, 2})
    for (int accurate : {0, 1})
      for (bool transparency : {false, true})
        for (bool guard : {false, true})
          for (auto [thick, density] : {std::pair{200u, 255u}, {230u, 90u}, {0u, 90u}}) {
            SCOPED_TRACE(testing::Message() << "kind " << kind << " accurate " << accurate
                                            << " transparency " << transparency << " [T] " << guard
                                            << " thickness " << thick << " density " << density);
            TearDown();
            SetUp();
            Plane* image = Make(0);
            Plane* alpha = transparency ? Make(2) : nullptr;
            Plane*& low = canvas->planes[0].accuracyPlane;
            if (accurate)
              Randomise(low = PlaneStore.CreatePlane(kWidth, kHeight, 24, 0, 1, Physical));
            protection.protectTransparency = guard;
            pen.colorThickness = thick;
            pen.density = density;
            Rows rows = MakeRows(n);
            const bool lowRow = density == 255;
            Image hi = Snap(image), lo = accurate ? Snap(low) : Image{};
            Image a = alpha ? Snap(alpha) : Image{};
            std::srand(77);
            Blend(rows, kind, y, x0, x1, lowRow);
            const int nextDraw = std::rand();
            std::srand(77);
            const bool useAlpha = transparency && kind != 2 && !guard;
            for (int i = 0; i < n; ++i) {
              const int x = x0 + i;
              uint8_t outside[6] = {}, outsideA = 0;
              const bool on = x >= 0 && x < kWidth;
              uint8_t* d = on ? &hi.at(x, y) : outside;
              uint8_t* A = useAlpha ? (on ? &a.at(x, y) : &outsideA) : nullptr;
              if (accurate)
                RefBlend16(&rows.source[3 * i], d, on ? &lo.at(x, y) : outside + 3, rows.tipHigh[i],
                           lowRow ? rows.tipLow[i] : -1, rows.protect[i], A, rows.opacity[i], kind,
                           thick, density);
              else
                RefBlend8(&rows.source[3 * i], d, rows.tipHigh[i], rows.protect[i], A,
                          rows.opacity[i], kind, thick, density, std::rand);
            }
            EXPECT_EQ(nextDraw, std::rand());
            EXPECT_EQ(hi, Snap(image));
            EXPECT_EQ(lo, accurate ? Snap(low) : Image{});
            EXPECT_EQ(a, alpha ? Snap(alpha) : Image{});
          }
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
  std::copy_n(&rows.source[9], 9, &want.at(0, 2));
  EXPECT_EQ(want, Snap(image));
}

// Columns 0..2 of packed planes through buffers of exactly three pixels.
TEST_F(PenModeTest, PartialRowsOfPackedPlanesTouchOnlyTheirColumns) {
  Plane *image = Make(0, 0, 0, kWidth, kHeight, Packed),
        *alpha = Make(2, 0, 0, kWidth, kHeight, Packed);
  Image im = Snap(image), a = Snap(alpha);
  std::vector<uint8_t> colour(9), coverage(3);
  ASSERT_EQ(1, ReadImageRow(canvas.get(), 4, 0, 2, colour.data()));
  ASSERT_EQ(1, ReadLayerPlaneRow(canvas.get(), 4, 0, 2, coverage.data(), 2));
  EXPECT_EQ(std::vector<uint8_t>(&im.at(0, 4), &im.at(3, 4)), colour);
  EXPECT_EQ(std::vector<uint8_t>(&a.at(0, 4), &a.at(3, 4)), coverage);
  for (auto* row : {&colour, &coverage})
    for (uint8_t& byte : *row) byte = uint8_t(~byte);
  WriteImageRow(canvas.get(), 4, 0, 2, colour.data());
  WriteLayerPlaneRow(canvas.get(), 4, 0, 2, coverage.data(), 2);
  std::copy(colour.begin(), colour.end(), &im.at(0, 4));
  std::copy(coverage.begin(), coverage.end(), &a.at(0, 4));
  EXPECT_EQ(im, Snap(image));
  EXPECT_EQ(a, Snap(alpha));
}

}  // namespace
