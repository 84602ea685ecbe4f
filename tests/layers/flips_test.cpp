#include <functional>

#include "base/command_ids.h"
#include "document/undo_history.h"
#include "layers/convert_selection.h"
#include "layers/flips.h"
#include "layers_fixture.h"
#include "base/command_registry.h"

namespace {

class Flips : public LayersTest {
 protected:
  // A 12 x 9 canvas whose layer 1 (10 x 7 at 2, 1) is active, with a
  // selection raster: outside-coverage random, with a run of zeros.
  Canvas* Prepare() {
    Canvas* canvas = MakeWithSmallLayer(12, 9, 2, 1, 10, 7);
    canvas->activePlane = 8 + 1;
    canvas->selectionPlane = PlaneStore.CreatePlane(12, 9, 8, 0, 1, Physical);
    std::vector<uint8_t> outside(12 * 9);
    for (uint8_t& v : outside) v = rng() % 3 ? 0 : static_cast<uint8_t>(rng());
    PutPlaneBytes(canvas->selectionPlane, outside);
    canvas->selLeft = 3, canvas->selTop = 0, canvas->selRight = 10, canvas->selBottom = 6;
    return canvas;
  }
  uint32_t Outside(Canvas* canvas, int x, int y) {
    return PixelValue(canvas->selectionPlane, x, y);
  }
};

// Expected bytes of a plane of the layer at (2, 1) after a flip of the
// canvas box 3..10 x 1..6 (the selection box clipped to the layer).
std::vector<uint8_t> Flipped(const std::vector<uint8_t>& before, int bpp, FlipAxis axis,
                             const std::function<uint32_t(int, int)>& outside) {
  std::vector<uint8_t> after = before;
  const int w = 10, x0 = 1, x1 = 8, y0 = 0, y1 = 5;
  for (int y = y0; y <= y1; ++y)
    for (int x = x0; x <= x1; ++x) {
      if (outside(x + 2, y + 1) != 0) continue;  // stays
      const int sx = axis == FlipAxis::Horizontal ? x0 + x1 - x : x;
      const int sy = axis == FlipAxis::Vertical ? y0 + y1 - y : y;
      for (int c = 0; c < bpp; ++c) after[(y * w + x) * bpp + c] = before[(sy * w + sx) * bpp + c];
    }
  return after;
}

TEST_F(Flips, TurnEveryPlaneOfTheBoxExceptWhereOutsideTheSelection) {
  for (FlipAxis axis : {FlipAxis::Vertical, FlipAxis::Horizontal}) {
    Canvas* canvas = Prepare();
    std::vector<uint8_t> before[3];
    for (int p = 0; p < 3; ++p) before[p] = PlaneBytes(canvas->planes[8 + p].plane);
    const int id = axis == FlipAxis::Vertical ? cmd::kFlipVertically : cmd::kFlipHorizontally;
    ASSERT_EQ(RunCanvasHandler(canvas, id, 0), 1);
    auto outside = [&](int x, int y) { return Outside(canvas, x, y); };
    for (int p = 0; p < 3; ++p)
      EXPECT_EQ(PlaneBytes(canvas->planes[8 + p].plane),
                Flipped(before[p], p == 0 ? 3 : 1, axis, outside))
          << p;
    EXPECT_EQ(canvas->activePlane, 9);
    // The record is the box on the layer's image, with its transparency.
    const UndoEntry& entry = UndoHistory.entries[0];
    EXPECT_EQ(entry.kind, kUndoRect);
    EXPECT_EQ(entry.planeIndex, 8);
    EXPECT_EQ((std::array{entry.left, entry.top, entry.right, entry.bottom}),
              (std::array{3, 1, 10, 6}));
    EXPECT_TRUE(entry.transparency);
  }
}

TEST_F(Flips, RotateTurnsTheBoxOfTheImageInPlace) {
  Canvas* canvas = Prepare();
  layerWindows.rotateDialog = [](Canvas*, RotateChoice* choice) {
    choice->degrees = 180;
    return true;
  };
  const std::vector<uint8_t> image = PlaneBytes(canvas->planes[8].plane);
  const std::vector<uint8_t> mask = PlaneBytes(canvas->planes[9].plane);
  ASSERT_EQ(RunCanvasHandler(canvas, cmd::kRotate, 0), 1);
  // A half turn is both flips, the selection's shape aside.
  auto inside = [](int, int) { return 0u; };
  EXPECT_EQ(
      PlaneBytes(canvas->planes[8].plane),
      Flipped(Flipped(image, 3, FlipAxis::Vertical, inside), 3, FlipAxis::Horizontal, inside));
  EXPECT_EQ(PlaneBytes(canvas->planes[9].plane), mask);
  EXPECT_EQ(UndoHistory.entries[0].kind, kUndoRect);
}

TEST_F(Flips, UndoBringsTheBoxBack) {
  Canvas* canvas = Prepare();
  canvas->activePlane = 8;
  UndoHistory.RecordUndo(canvas, -1, 0, -1, -1, -1, -1, 0);
  const std::vector<uint8_t> image = PlaneBytes(canvas->planes[8].plane);
  const std::vector<uint8_t> cover = PlaneBytes(canvas->planes[10].plane);
  ASSERT_EQ(FlipLayer(canvas, FlipAxis::Horizontal), 1);
  ASSERT_NE(PlaneBytes(canvas->planes[8].plane), image);
  ASSERT_EQ(UndoHistory.Undo(canvas, 0), 1);
  EXPECT_EQ(PlaneBytes(canvas->planes[8].plane), image);
  EXPECT_EQ(PlaneBytes(canvas->planes[10].plane), cover);
}

TEST_F(Flips, ConvertToLayerCutsTheBoxOutAsANewLayer) {
  Canvas* canvas = Prepare();
  // The box reaches one column left of the layer: white and clear there.
  canvas->selLeft = 1;
  std::vector<uint8_t> before[3];
  for (int p = 0; p < 3; ++p) before[p] = PlaneBytes(canvas->planes[8 + p].plane);
  ASSERT_EQ(ConvertSelectionToLayer(canvas), 16);
  const PlaneSlot* made = &canvas->planes[16];
  EXPECT_EQ((std::array{made->left, made->top, made->width, made->height}),
            (std::array{1, 0, 10, 7}));
  EXPECT_EQ(made->mixMode, 1);
  EXPECT_EQ(made->savedMixMode, 0);
  EXPECT_EQ(made->displayMode, 1);
  EXPECT_STREQ(made->name, "LAYER2");
  for (int y = 0; y < 7; ++y)
    for (int x = 0; x < 10; ++x) {
      const int lx = x + 1 - 2, ly = y - 1;  // in the old layer
      const bool in = lx >= 0 && ly >= 0;
      std::array<uint32_t, 3> want{255, 255, 255};
      unsigned cover = 0;
      if (in) {
        const uint8_t* bgr = &before[0][(ly * 10 + lx) * 3];
        want = {bgr[2], bgr[1], bgr[0]};
        cover = before[2][ly * 10 + lx];
      }
      EXPECT_EQ(PixelRgb(made[0].plane, x, y), want) << x << ", " << y;
      EXPECT_EQ(PixelValue(made[2].plane, x, y), ref::Mul(255 - Outside(canvas, x + 1, y), cover))
          << x << ", " << y;
      EXPECT_EQ(PixelValue(made[1].plane, x, y), 0u);
    }
  for (int p = 0; p < 3; ++p) EXPECT_EQ(PlaneBytes(canvas->planes[8 + p].plane), before[p]);
}

}  // namespace
