#include "layers/duplicates.h"
#include "layers/layer_resize.h"
#include "layers_fixture.h"
#include "store/plane_ops.h"

namespace {

std::array<uint32_t, 3> White() { return {255, 255, 255}; }

// A 30 x 20 canvas with a layer of 8 x 6 at (4, 5).
class Duplicates : public LayersTest {
 protected:
  Canvas* Source() { return MakeWithSmallLayer(30, 20, 4, 5, 8, 6); }
  static std::array<int, 4> Place(const PlaneSlot& slot) {
    return {slot.left, slot.top, slot.width, slot.height};
  }
};

TEST_F(Duplicates, OnAResizedCanvasTheLayersKeepTheirPlaceOverThePicture) {
  Canvas* source = Source();
  SideChoice sides;
  sides.checked[kSideLeft] = sides.checked[kSideTop] = sides.checked[kSideBottom] = true;
  sides.amount[kSideLeft] = 5, sides.amount[kSideTop] = 2, sides.amount[kSideBottom] = 3;
  sides.shrink[kSideTop] = true;
  ASSERT_EQ(RequestResizedCanvas(source, sides), 1);
  Canvas* made = MakeRequested();
  EXPECT_EQ(Place(made->planes[0]), (std::array{0, 0, 35, 21}));
  EXPECT_EQ((std::array{made->canvasWidth, made->canvasHeight}), (std::array{35, 21}));
  EXPECT_EQ(Place(made->planes[8]), (std::array{9, 3, 8, 6}));
  for (int p = 0; p < 3; ++p)
    EXPECT_EQ(PlaneBytes(made->planes[8 + p].plane), PlaneBytes(source->planes[8 + p].plane));
  for (int y = 0; y < 21; ++y)
    for (int x = 0; x < 35; ++x) {
      const int ox = x - 5, oy = y + 2;
      const bool old = ox >= 0 && ox < 30 && oy < 20;
      EXPECT_EQ(PixelRgb(made->planes[0].plane, x, y),
                old ? PixelRgb(source->planes[0].plane, ox, oy) : White());
      EXPECT_EQ(PixelValue(made->planes[2].plane, x, y),
                old ? PixelValue(source->planes[2].plane, ox, oy) : 255u);
    }

  // Below one pixel: the message, and no request.
  sides = {};
  sides.checked[kSideRight] = sides.shrink[kSideRight] = true;
  sides.amount[kSideRight] = 30;
  CanvasRequest.mode = kModeNew;
  EXPECT_EQ(RequestResizedCanvas(source, sides), 0);
  EXPECT_EQ(CanvasRequest.mode, kModeNew);
  EXPECT_EQ(BoxTexts().back(),
            "Change would make image size go below zero.  Process will be aborted.");
}

TEST_F(Duplicates, ResizedScalesSizesAndPlacesInIntegersPerAxis) {
  Canvas* source = Source();
  RequestResizedDuplicate(source, 45, 10);
  Canvas* made = MakeRequested();
  EXPECT_EQ(Place(made->planes[0]), (std::array{0, 0, 45, 10}));
  // 4 x 45 / 30, 5 x 10 / 20, 8 x 45 / 30, 6 x 10 / 20.
  EXPECT_EQ(Place(made->planes[8]), (std::array{6, 2, 12, 3}));
  EXPECT_EQ(made->planes[8].plane->width, 12);
  // A flat plane stays flat through the resampler.
  // Every plane goes through the store's resampler.
  for (int p = 0; p < 3; ++p) {
    Plane* want = SmoothResize(source->planes[8 + p].plane, 12, 3, 0);
    EXPECT_EQ(PlaneBytes(made->planes[8 + p].plane), PlaneBytes(want)) << p;
    PlaneStore.FreePlane(&want);
  }
}

TEST_F(Duplicates, RotatedTurnsEveryLayerAboutTheCanvasCentre) {
  Canvas* source = Source();
  RequestRotatedDuplicate(source, 90);
  Canvas* made = MakeRequested();
  EXPECT_EQ(Place(made->planes[0]), (std::array{0, 0, 20, 30}));
  // Layer 1's corners turned: x' = -y, y' = x about (15, 10), less layer 0's.
  EXPECT_EQ(Place(made->planes[8]), (std::array{9, 4, 6, 8}));
  // A quarter turn clockwise takes canvas pixel (x, y) to (19 - y, x).
  for (int y = 0; y < 6; ++y)
    for (int x = 0; x < 8; ++x) {
      const int cx = 19 - (y + 5), cy = x + 4;
      EXPECT_EQ(PixelRgb(made->planes[8].plane, cx - 9, cy - 4),
                PixelRgb(source->planes[8].plane, x, y));
      EXPECT_EQ(PixelValue(made->planes[10].plane, cx - 9, cy - 4),
                PixelValue(source->planes[10].plane, x, y));
    }
  for (int y = 0; y < 20; ++y)
    for (int x = 0; x < 30; ++x)
      ASSERT_EQ(PixelRgb(made->planes[0].plane, 19 - y, x),
                PixelRgb(source->planes[0].plane, x, y));
}

}  // namespace
