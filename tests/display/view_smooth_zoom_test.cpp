// Smooth Zoom: the factor list, the rectangle's choice, the round trip of
// the planes through their .zmt files, and the frame as the tool shows it:
// the dialog, the frame kept through repaints, dragged by the left button
// (scrolling the view at its edges) and confirmed or cancelled by its menu.
#include <cstdio>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "base/command_ids.h"
#include "display/pointer_routing.h"
#include "display/smooth_zoom.h"
#include "display/smooth_zoom_choice.h"
#include "display/smooth_zoom_frame.h"
#include "display/view_layout.h"
#include "display/view_paint.h"
#include "resources/strings.h"
#include "support/temp_folder.h"
#include "view_fixture.h"

namespace {

class SmoothZoom : public ViewTest {
 protected:
  void SetUp() override {
    ViewTest::SetUp();
    smoothZoomFolder = folder.path();
  }
  TempFolder folder;
};

// The picture of the test, read back as blue, green, red and the mask.
std::array<uint32_t, 4> Pattern(int x, int y) {
  return {(x + y) & 255u, (y * 5) & 255u, (x * 3) & 255u, (x ^ y) & 255u};
}

std::array<uint32_t, 4> Pixel(const Canvas* canvas, int layer, int x, int y) {
  std::array<uint32_t, 4> p{};
  PlaneStore.ReadPixel24(canvas->planes[SlotIndex(layer, 0)].plane, x, y, &p[2], &p[1], &p[0]);
  PlaneStore.ReadPixel8(canvas->planes[SlotIndex(layer, 1)].plane, x, y, &p[3]);
  return p;
}

void FillPattern(Canvas* canvas, int layer) {
  const PlaneSlot& slot = canvas->planes[SlotIndex(layer, 0)];
  for (int y = 0; y < slot.height; ++y)
    for (int x = 0; x < slot.width; ++x) {
      const auto p = Pattern(x, y);
      PlaneStore.WritePixel24(slot.plane, x, y, p[2], p[1], p[0]);
      PlaneStore.WritePixel8(canvas->planes[SlotIndex(layer, 1)].plane, x, y, p[3]);
    }
}

TEST_F(SmoothZoom, ListRowsTheChoiceAndARefusedEntry) {
  EXPECT_EQ(SmoothZoomListRows(), (std::vector<std::string>{"x16", "x2", "x32", "x4", "x8"}));
  for (int row = 0; row < 5; ++row) EXPECT_EQ(SmoothZoomFactorOfRow(row), 2 << row);

  Canvas* canvas = MakeBlank(100, 100);
  const SmoothZoomChoice& c = smoothZoomChoice;
  BeginSmoothZoomChoice(canvas, {4, 1});  // row "x8" gives 32: 3 x 3, centred
  EXPECT_EQ(std::tie(c.factor, c.width, c.height, c.left), std::make_tuple(32, 3, 3, 48));
  EXPECT_EQ(EndSmoothZoomChoice(canvas, 0), 0);
  EXPECT_EQ(std::tie(c.width, canvas->smoothZoom), std::make_tuple(1, 0));

  CanvasManager.AddLayer(canvas, 10, 20, 30, 40);
  canvas->activePlane = 8;
  BeginSmoothZoomChoice(canvas, {0, 0});  // "x16" gives 2: 50 x 50 centred on the layer
  EXPECT_EQ(std::tie(c.left, c.top), std::make_tuple(10 - 10, 20 - 5));
  PointerAt({{50, 50}, {53, 45}});
  held = 1;
  DragSmoothZoomChoice(canvas);
  EXPECT_EQ(std::tie(c.left, c.top), std::make_tuple(3, 10));
  EXPECT_EQ(EndSmoothZoomChoice(canvas, 1), 1);
  EXPECT_EQ(std::tie(canvas->smoothZoom, canvas->smoothZoomLeft), std::make_tuple(2, 3));
  EXPECT_EQ(RefusedInSmoothZoom(canvas, kStringLayersCannotResize), 1);
  EXPECT_EQ(headless::Recorded().boxes.back().text, StringText(1402));
  EXPECT_EQ(LeaveSmoothZoom(canvas), 1);
  EXPECT_EQ(RefusedInSmoothZoom(canvas, kStringNotInSmoothZoom), 0);

  // A plane that can't be parked leaves the canvas alone.
  Plane* before = canvas->planes[0].plane;
  smoothZoomFolder = folder / "missing/";
  EXPECT_EQ(EnterSmoothZoom(canvas, 0, 0, 2, 1), 0);
  EXPECT_EQ(headless::Recorded().boxes.back().text, StringText(1301));
  EXPECT_EQ(std::tie(canvas->planes[0].plane, canvas->planes[0].width, canvas->smoothZoom),
            std::make_tuple(before, 100, 0));
}

TEST_F(SmoothZoom, PlanesGoThroughTheirFilesAndComeBackWithTheChange) {
  Canvas* canvas = MakeBlank(64, 48);
  CanvasManager.AddLayer(canvas, 40, 30, 20, 10);
  FillPattern(canvas, 0);
  FillPattern(canvas, 1);
  char name[32];
  std::snprintf(name, sizeof name, "%04u00001.zmt", canvas->serial);
  EXPECT_EQ(SmoothZoomFile(canvas, 0, 1), folder / name);

  ASSERT_EQ(EnterSmoothZoom(canvas, 16, 12, 4, 0), 1);
  EXPECT_EQ(EnterSmoothZoom(canvas, 0, 0, 2, 0), 0);
  EXPECT_TRUE(folder.Exists(name));
  EXPECT_EQ(std::tie(canvas->smoothZoom, canvas->modified), std::make_tuple(4, 1u));
  // The 16 x 12 rectangle at (16, 12), four times as large, fills the canvas.
  const PlaneSlot& base = canvas->planes[0];
  EXPECT_EQ(std::tie(base.left, base.width, base.height, base.savedWidth),
            std::make_tuple(0, 64, 48, 64));
  for (auto [x, y] : {std::pair{0, 0}, {5, 9}, {63, 47}, {33, 20}})
    EXPECT_EQ(Pixel(canvas, 0, x, y), Pattern(16 + x / 4, 12 + y / 4));
  // Layer 1 lies wholly outside: one enlarged pixel, off the canvas.
  EXPECT_EQ(std::tie(canvas->planes[8].left, canvas->planes[8].width), std::make_tuple(-4, 4));

  // One enlarged pixel is painted: original (16 + 2, 12 + 1).
  for (int y = 4; y < 8; ++y)
    for (int x = 8; x < 12; ++x) PlaneStore.WritePixel24(base.plane, x, y, 3, 2, 1);
  ASSERT_EQ(LeaveSmoothZoom(canvas), 1);
  EXPECT_EQ(LeaveSmoothZoom(canvas), 0);
  EXPECT_FALSE(folder.Exists(name));
  EXPECT_EQ(std::tie(base.width, base.savedWidth, canvas->planes[8].left, canvas->planes[8].width),
            std::make_tuple(64, 0, 40, 20));
  int wrong = 0;
  for (int y = 0; y < 48; ++y)
    for (int x = 0; x < 64; ++x) {
      auto expected = Pattern(x, y);
      if (x == 18 && y == 13) expected = {1, 2, 3, expected[3]};
      wrong += Pixel(canvas, 0, x, y) != expected;
      wrong += x < 20 && y < 10 && Pixel(canvas, 1, x, y) != Pattern(x, y);
    }
  EXPECT_EQ(wrong, 0);
  EXPECT_EQ(headless::MessagesTo(platform::Window::StatusBar, 1024).back().wParam, 0);
}

// An inverted box: canvas, x, y, width, height.
using Box = std::tuple<Canvas*, int, int, int, int>;

class ZoomFrame : public SmoothZoom {
 protected:
  void SetUp() override {
    SmoothZoom::SetUp();
    pointerRoutes.overlayToggles[kOverlayZoomFrame] = ToggleZoomFrame;
    viewWindows.invertBox = [this](Canvas* canvas, const Rect& box) {
      inverted.push_back({canvas, box.left, box.top, box.Width(), box.Height()});
    };
    zoomFrameDoneHooks.Add([this] { ++done; });
  }
  void TearDown() override {
    EndZoomFrame();
    SmoothZoom::TearDown();
  }
  std::vector<Box> inverted;  // every inversion, in order
  int done = 0;
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
