// The pen's outline against the repaints of a stroke, on a model of the
// screen: pictures write their pixels, the outline inverts pixels, as the
// window side does. Whatever the outline did meanwhile, once it is off the
// screen must show the picture, as a full repaint draws it.
#include <cstdint>
#include <vector>

#include "display/redraw.h"
#include "display/pointer_routing.h"
#include "display/view_paint.h"
#include "paint/stroke/stroke_loops.h"
#include "paint/stroke/stroke_routes.h"
#include "stroke_test_support.h"

namespace stroketest {
namespace {

constexpr int kWidth = 48, kHeight = 32;

// The blue byte of each view pixel is enough: the pen paints black on white.
class Screen {
 public:
  Screen() : pixels_(kWidth * kHeight, 0x5A) {}

  void Picture(const DibTile* picture, int x, int y, const Rect& part) {
    std::vector<uint8_t> row(size_t(part.Width()) * 3);
    for (int r = part.top; r <= part.bottom; ++r) {
      ASSERT_EQ(ReadTileRow(picture, r, part.left, part.right, row.data()), 1);
      for (int c = 0; c < part.Width(); ++c)
        if (Inside(x + part.left + c, y + r))
          pixels_[(y + r) * kWidth + x + part.left + c] = row[size_t(c) * 3];
    }
  }
  // The border of the outline's box, and the clone cross, inverted: the
  // ellipse inside the box stands close enough for what is tested here.
  void Outline(const PenOutline& o) {
    const Rect& b = o.box;
    for (int x = b.left; x <= b.right; ++x) Invert(x, b.top), Invert(x, b.bottom);
    for (int y = b.top + 1; y < b.bottom; ++y) Invert(b.left, y), Invert(b.right, y);
    if (!o.cross) return;
    for (int d = -kCloneCrossArm; d <= kCloneCrossArm; ++d) Invert(o.crossX + d, o.crossY);
    for (int d = -kCloneCrossArm; d <= kCloneCrossArm; ++d)
      if (d) Invert(o.crossX, o.crossY + d);
  }
  const std::vector<uint8_t>& pixels() const { return pixels_; }

 private:
  static bool Inside(int x, int y) { return x >= 0 && y >= 0 && x < kWidth && y < kHeight; }
  void Invert(int x, int y) {
    if (Inside(x, y)) pixels_[y * kWidth + x] ^= 0xFF;
  }
  std::vector<uint8_t> pixels_;
};

class OutlineTest : public StrokeTest {
 protected:
  void SetUp() override {
    StrokeTest::SetUp();
    InstallStrokeEngine();
    viewWindows.drawPicture = [this](Canvas*, const DibTile* picture, int x, int y,
                                     const Rect& part) {
      screen.Picture(picture, x, y, part);
      if (StrokeEngine.running && penOutline.shown) ++coveredWhileShown;
    };
    strokeWindows.drawPenOutline = [this](WindowHandle, const PenOutline& o) { screen.Outline(o); };
    StrokeEngine.showOutline = 1;
    pen.radiusX = pen.radiusY = 3;
    BuildTip();
    canvas = MakeBlank(kWidth, kHeight);
    RedrawRect(canvas, Rect{0, 0, kWidth - 1, kHeight - 1});
  }
  void TearDown() override {
    pointerRoutes.overlayToggles[kOverlayPenOutline] = nullptr;
    StrokeTest::TearDown();
  }
  // The pointer as the view's moves bring it.
  void PointerTo(int x, int y) { pointerRoutes.toolPointer(canvas, {x, y}); }
  // What the screen shows against a full repaint of the picture.
  void ExpectScreenIsThePicture() {
    ASSERT_EQ(penOutline.shown, 0);
    const std::vector<uint8_t> shown = screen.pixels();
    RedrawRect(canvas, Rect{0, 0, kWidth - 1, kHeight - 1});
    EXPECT_EQ(shown, screen.pixels());
  }

  Screen screen;
  Canvas* canvas = nullptr;
  int coveredWhileShown = 0;
};

TEST_F(OutlineTest, PaintedStrokesAndSingleDabsLeaveNoRing) {
  // A drag: the outline stood where the stroke begins.
  PointerTo(10, 10);
  ASSERT_EQ(penOutline.shown, 1);
  Press(10, 10, kLeft);
  Then({{10, 10, kLeft}, {16, 12, kLeft}, {24, 12, kLeft}});
  RunConnectedStroke(canvas, 0, 0, 0);
  EXPECT_EQ(coveredWhileShown, 0);  // off the screen while the stroke paints
  PointerTo(30, 20);
  pointerRoutes.pointerLeft(canvas);
  ExpectScreenIsThePicture();

  // A Shift click: one dab under the outline, then the pointer moves on
  // with the button still down.
  PointerTo(36, 8);
  Press(36, 8, {platform::VkLeftButton, platform::VkShift});
  Then({{36, 8, kLeft}});
  RunConnectedStroke(canvas, 0, 0, 0);
  PointerTo(40, 14);
  PointerTo(44, 20);
  pointerRoutes.pointerLeft(canvas);
  ExpectScreenIsThePicture();
  EXPECT_EQ(coveredWhileShown, 0);
}

TEST_F(OutlineTest, CloneOutlineMovesOverItsOwnDabsAndRepaintsIntact) {
  pen.mode = kModeClone;
  PenKernels.cloneOffsetX = 9;
  PenKernels.cloneOffsetY = 4;
  PointerTo(12, 12);
  Press(12, 12, kLeft);
  // The outline follows only where both coordinates change, so it stands
  // now on dabs, now beside them, as each pass repaints.
  Then({{12, 12, kLeft}, {14, 13, kLeft}, {15, 13, kLeft}, {18, 16, kLeft}, {19, 18, kLeft}});
  RunFreehandStroke(canvas, 0, 0, 0);
  EXPECT_GT(coveredWhileShown, 0);
  EXPECT_EQ(std::make_pair(penOutline.x, penOutline.y), std::make_pair(19, 18));
  // A repaint of the view's paint message while it shows.
  ASSERT_EQ(penOutline.shown, 1);
  PaintView(canvas, 0, 0, 25, 25);
  pointerRoutes.pointerLeft(canvas);
  ExpectScreenIsThePicture();
}

}  // namespace
}  // namespace stroketest
