// Smooth Zoom's frame as the tool shows it: the dialog, the frame kept
// through repaints, dragged by the left button (scrolling the view at its
// edges) and confirmed or cancelled by its menu.
#include <set>
#include <tuple>
#include <vector>

#include "base/command_ids.h"
#include "display/pointer_routing.h"
#include "display/smooth_zoom.h"
#include "display/smooth_zoom_frame.h"
#include "display/view_layout.h"
#include "display/view_paint.h"
#include "support/temp_folder.h"
#include "view_fixture.h"

namespace {

// An inverted box: canvas, x, y, width, height.
using Box = std::tuple<Canvas*, int, int, int, int>;

class ZoomFrame : public ViewTest {
 protected:
  void SetUp() override {
    ViewTest::SetUp();
    smoothZoomFolder = folder.path();
    pointerRoutes.overlayToggles[kOverlayZoomFrame] = ToggleZoomFrame;
    viewWindows.invertBox = [this](Canvas* canvas, const Rect& box) {
      inverted.push_back({canvas, box.left, box.top, box.Width(), box.Height()});
    };
    zoomFrameDoneHooks.Add([this] { ++done; });
  }
  void TearDown() override {
    EndZoomFrame();
    ViewTest::TearDown();
  }
  std::vector<Box> inverted;  // every inversion, in order
  int done = 0;
  TempFolder folder;
};

// The boxes on the screen: those inverted an odd number of times.
std::set<Box> Showing(const std::vector<Box>& inverted) {
  std::set<Box> showing;
  for (const Box& box : inverted)
    if (!showing.erase(box)) showing.insert(box);
  return showing;
}

TEST_F(ZoomFrame, DialogFrameDragAndMenu) {
  Canvas* canvas = MakeBlank(160, 96);
  Canvas* other = MakeBlank(40, 40);
  std::vector<std::pair<int, int>> shown;  // what the dialog showed
  SmoothZoomDialogFields answer{3, 0};     // row "x4", whose index gives 16
  int ok = 0;
  viewWindows.smoothZoomDialog = [&](SmoothZoomDialogFields* fields) {
    shown.push_back({fields->row, fields->smooth});
    *fields = answer;
    return ok;
  };
  EXPECT_EQ(BeginZoomFrame(canvas), 0);  // cancelled: nothing shows
  EXPECT_TRUE(inverted.empty());
  ok = 1;
  ASSERT_EQ(BeginZoomFrame(canvas), 1);
  EXPECT_EQ(ZoomFrameCanvas(), canvas);
  // 160 / 16 by 96 / 16, centred: (160 - 10) / 2, (96 - 6) / 2.
  ASSERT_EQ(inverted.size(), 1u);
  EXPECT_EQ(inverted[0], std::make_tuple(canvas, 75, 45, 10, 6));

  // A repaint takes the frame off and puts it back; another view has none.
  PaintView(canvas, 0, 0, 10, 10);
  PaintView(other, 0, 0, 10, 10);
  EXPECT_EQ(inverted.size(), 3u);

  // The left button drags it by the pointer's travel, 10 across and 2 down.
  PointerAt({{80, 48}, {84, 48}, {90, 50}});
  held = 3;
  LeftButtonDown(canvas, {cmd::kSmoothZoom, 0, 0, 0});
  EXPECT_EQ(std::tie(smoothZoomChoice.left, smoothZoomChoice.top), std::make_tuple(85, 47));
  EXPECT_EQ(Showing(inverted), (std::set<Box>{{canvas, 85, 47, 10, 6}}));

  // The right button: the colour picker where no frame shows; the menu
  // where it does, which may choose nothing.
  int picked = 0, invalidated = 0;
  pointerRoutes.colourPicker = [&](Canvas*) { ++picked; };
  viewWindows.invalidate = [&](Canvas* c) { invalidated += c == canvas; };
  int item = kZoomFrameNothing;
  viewWindows.zoomFrameMenu = [&](Canvas*) { return item; };
  RightButtonDown(other, {cmd::kSmoothZoom, 0, 0, 0});
  RightButtonDown(canvas, {cmd::kSmoothZoom, 0, 0, 0});
  EXPECT_EQ(std::tie(picked, done, canvas->smoothZoom), std::make_tuple(1, 0, 0));

  // Enter: the part under the frame, 10 x 6 at (85, 47), fills the canvas.
  item = kZoomFrameEnter;
  RightButtonDown(canvas, {cmd::kSmoothZoom, 0, 0, 0});
  EXPECT_EQ(std::tie(canvas->smoothZoom, canvas->smoothZoomLeft, canvas->smoothZoomTop),
            std::make_tuple(16, 85, 47));
  EXPECT_EQ(std::tie(canvas->planes[0].width, canvas->planes[0].height), std::make_tuple(160, 96));
  EXPECT_EQ(std::tie(done, invalidated), std::make_tuple(1, 1));
  EXPECT_EQ(ZoomFrameCanvas(), nullptr);
  EXPECT_TRUE(Showing(inverted).empty());

  // The dialog offers the last choice again; Cancel on the menu leaves
  // the picture alone.
  inverted.clear();
  answer = {0, 1};
  ASSERT_EQ(BeginZoomFrame(other), 1);
  item = kZoomFrameCancel;
  RightButtonDown(other, {cmd::kSmoothZoom, 0, 0, 0});
  EXPECT_EQ(std::tie(other->smoothZoom, done), std::make_tuple(0, 2));
  EXPECT_EQ(shown, (std::vector<std::pair<int, int>>{{0, 1}, {0, 1}, {3, 0}}));
  EXPECT_TRUE(Showing(inverted).empty());
  EXPECT_EQ(std::tie(smoothZoomChoice.width, smoothZoomChoice.height), std::make_tuple(1, 1));
}

TEST_F(ZoomFrame, DraggedToAnEdgeTheViewScrollsAlong) {
  Canvas* canvas = MakeBlank(1000, 1000);
  LayOutView(canvas, 200, 150);  // displayWnd stands at 8, 8 in frameWnd
  viewWindows.smoothZoomDialog = [](SmoothZoomDialogFields* fields) {
    *fields = {0, 0};  // row "x16" gives 2: 500 x 500
    return 1;
  };
  ASSERT_EQ(BeginZoomFrame(canvas), 1);
  int updates = 0;
  viewWindows.updateNow = [&](Canvas*) { ++updates; };
  // Frame x 8 + 100 is inside; 8 + 186 = 194 lies within 8 of the right
  // edge (200): one page of 10 to the right, none down.
  PointerAt({{100, 70}, {100, 70}, {186, 70}});
  held = 3;
  PressZoomFrame(canvas);
  EXPECT_EQ(std::tie(canvas->scrollX, canvas->scrollY, updates), std::make_tuple(10, 0, 1));
  EXPECT_EQ(smoothZoomChoice.left, 250 + 86);
  // Near the top left corner: a page back left and none up, as scroll 0
  // allows nothing.
  script = {};
  PointerAt({{100, 70}, {100, 70}, {2, -2}});
  held = 3;
  PressZoomFrame(canvas);
  EXPECT_EQ(std::tie(canvas->scrollX, canvas->scrollY, updates), std::make_tuple(0, 0, 2));
  EXPECT_EQ(Showing(inverted), (std::set<Box>{{canvas, 336 - 98, 250 - 72, 500, 500}}));
}

}  // namespace
