// The commands on the selection raster: what each leaves in the raster,
// the kind and the box, and that the layer operations read what they made.
#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "base/command_ids.h"
#include "base/command_registry.h"
#include "document/canvas_manager.h"
#include "document/canvas_request.h"
#include "document/selection_rows.h"
#include "layers/convert_selection.h"
#include "layers/flips.h"
#include "platform/platform.h"
#include "selection/draft.h"
#include "selection/draft_engine.h"
#include "selection/radius_dialog.h"
#include "selection/raster_commands.h"
#include "selection/selection_windows.h"
#include "selection/trim_selection.h"
#include "support/fixture.h"

namespace {

class RasterCommandsTest : public TeselTest {
 protected:
  // The raster as rows of '#' (0), '.' (255) and '+' (between).
  std::string Picture(Canvas* canvas) {
    std::string text;
    for (int y = 0; y < canvas->canvasHeight; ++y) {
      for (int x = 0; x < canvas->canvasWidth; ++x) {
        const uint8_t v = ReadSelectionPixel(canvas, x, y);
        text += v == 0 ? '#' : v == 255 ? '.' : '+';
      }
      text += '\n';
    }
    return text;
  }
  void CommitBox(Canvas* canvas, int l, int t, int r, int b) {
    canvas->selectionKind = cmd::kSelectionBox;
    canvas->selLeft = l, canvas->selTop = t, canvas->selRight = r, canvas->selBottom = b;
    CommitShape(canvas, 0, 0);
  }
  std::vector<intptr_t> Percents() {
    std::vector<intptr_t> percents;
    for (const auto& m : headless::MessagesTo(platform::Window::StatusBar, platform::MsgStatus))
      if (m.wParam == platform::kStatusProgress) percents.push_back(m.lParam);
    return percents;
  }
};

TEST_F(RasterCommandsTest, FattenAtTheLeftEdgeGrowsTheBoxPastTheCanvas) {
  Canvas* canvas = MakeBlank(8, 6);
  CommitBox(canvas, 0, 2, 1, 2);
  FattenSelection(canvas, 2);
  EXPECT_EQ(Picture(canvas),
            "####....\n"
            "####....\n"
            "####....\n"
            "####....\n"
            "####....\n"
            "........\n");
  EXPECT_EQ(canvas->selectionKind, kShapelessSelection);
  EXPECT_EQ(canvas->draftPoints[0][0], -1.0f);
  // left and top floored at 0; right and bottom 1 + 3 and 2 + 3.
  EXPECT_EQ(SelectionBox(canvas), (Rect{0, 0, 4, 5}));
  // Again by 1: the box goes past the canvas and is kept so.
  FattenSelection(canvas, 1);
  EXPECT_EQ(SelectionBox(canvas), (Rect{0, 0, 6, 7}));
  // Progress before each pass: 100 * i / max(N - 1, 1).
  headless::Reset();
  FattenSelection(canvas, 3);
  EXPECT_EQ(Percents(), (std::vector<intptr_t>{0, 50, 100}));
}

TEST_F(RasterCommandsTest, SlimShrinksAndFattenOrSlimWithoutRasterDoNothing) {
  Canvas* canvas = MakeBlank(7, 5);
  FattenSelection(canvas, 1);
  SlimSelection(canvas, 1);
  EXPECT_EQ(canvas->selectionKind, kNoDraft);
  EXPECT_EQ(canvas->selectionPlane, nullptr);
  CommitBox(canvas, 1, 0, 5, 3);
  SlimSelection(canvas, 1);
  // The top row repeats beyond the edge, so it stays selected.
  EXPECT_EQ(Picture(canvas),
            "..###..\n"
            "..###..\n"
            "..###..\n"
            ".......\n"
            ".......\n");
  // left + N - 1 and right - N + 1: radius 1 keeps the box.
  EXPECT_EQ(SelectionBox(canvas), (Rect{1, 0, 5, 3}));
  SlimSelection(canvas, 3);
  EXPECT_EQ(SelectionBox(canvas), (Rect{3, 2, 3, 1}));
  EXPECT_EQ(SelectionBounds(canvas).left, INT_MAX);
}

TEST_F(RasterCommandsTest, InvertMakesARasterWhenNoneExists) {
  Canvas* canvas = MakeBlank(5, 3);
  InvertSelection(canvas);
  ASSERT_NE(canvas->selectionPlane, nullptr);
  EXPECT_EQ(Picture(canvas), ".....\n.....\n.....\n");
  EXPECT_EQ(canvas->selectionKind, kShapelessSelection);
  EXPECT_EQ(SelectionBox(canvas), (Rect{INT_MAX, INT_MAX, INT_MIN, INT_MIN}));
  CommitBox(canvas, 1, 1, 2, 1);
  canvas->draftPointCount = 4;
  InvertSelection(canvas);
  EXPECT_EQ(Picture(canvas), "#####\n#..##\n#####\n");
  EXPECT_EQ(SelectionBox(canvas), (Rect{0, 0, 4, 2}));
  EXPECT_EQ(canvas->draftPointCount, 0u);
}

TEST_F(RasterCommandsTest, BlursKeepPartValuesAndMoveTheBox) {
  Canvas* canvas = MakeBlank(6, 5);
  CommitBox(canvas, 2, 2, 2, 2);
  BlurOutside(canvas, 1, kBlurThick);
  // The 2 x 2 square up and left of each pixel: the 0 at (2, 2) reaches
  // (2..3, 2..3) as 255 * 3 / 4.
  EXPECT_EQ(Picture(canvas),
            "......\n"
            "......\n"
            "..++..\n"
            "..++..\n"
            "......\n");
  EXPECT_EQ(ReadSelectionPixel(canvas, 3, 3), 191);
  EXPECT_EQ(SelectionBox(canvas), (Rect{0, 0, 4, 4}));
  EXPECT_EQ(canvas->selectionKind, kShapelessSelection);

  // Blur Inside: the maximum takes the 191s to 255 at their neighbours,
  // then the mean of nine.
  CommitBox(canvas, 1, 1, 4, 3);
  BlurInside(canvas);
  // The maximum leaves 0 only at (2..3, 2); the mean at (2, 2) sees those
  // two among nine.
  EXPECT_EQ(ReadSelectionPixel(canvas, 2, 2), 255 * 7 / 9);
  EXPECT_EQ(ReadSelectionPixel(canvas, 0, 0), 255);
  EXPECT_EQ(SelectionBox(canvas), (Rect{2, 2, 3, 2}));
  CommitBox(canvas, 0, 0, 0, 0);
  BlurInside(canvas);
  EXPECT_EQ(SelectionBox(canvas), (Rect{1, 1, 0, 0}));

  // Dither scatters in place: the count of selected pixels stays.
  CommitBox(canvas, 1, 1, 3, 3);
  BlurOutside(canvas, 2, kBlurDither);
  int selected = 0;
  for (const char c : Picture(canvas)) selected += c == '#';
  EXPECT_EQ(selected, 9);
  EXPECT_EQ(SelectionBox(canvas), (Rect{0, 0, 6, 6}));
}

TEST_F(RasterCommandsTest, SelectAllAndByLayerSizeKeepNoRaster) {
  Canvas* canvas = MakeBlank(9, 4);
  CommitBox(canvas, 1, 1, 2, 2);
  SelectAll(canvas);
  EXPECT_EQ(canvas->selectionPlane, nullptr);
  EXPECT_EQ(canvas->selectionKind, cmd::kSelectionBox);
  EXPECT_EQ(SelectionBox(canvas), (Rect{0, 0, 8, 3}));
  PlaneSlot& base = canvas->planes[0];
  base.left = -2, base.top = 3;
  SelectByLayerSize(canvas);
  EXPECT_EQ(SelectionBox(canvas), (Rect{-2, 3, 6, 6}));
}

TEST_F(RasterCommandsTest, TheDialogsShareOneRadiusAndCancelChangesNothing) {
  InstallSelectionRaster();
  Canvas* canvas = MakeBlank(6, 3);
  CommitBox(canvas, 2, 1, 2, 1);
  std::vector<std::string> asked;
  int answer = 0;
  RadiusChoice given{3, kBlurThick};
  selectionWindows.radiusDialog = [&](const char* name, RadiusChoice* choice) {
    asked.push_back(name);
    EXPECT_EQ(choice->radius, radiusChoice.radius);
    *choice = given;
    return answer;
  };
  RunCanvasHandler(canvas, cmd::kFattenSelection, 0);
  EXPECT_EQ(canvas->selectionKind, cmd::kSelectionBox);
  answer = 1;
  given.radius = 0;
  RunCanvasHandler(canvas, cmd::kSlimSelection, 0);
  EXPECT_EQ(canvas->selectionKind, cmd::kSelectionBox);
  given.radius = 80;
  RunCanvasHandler(canvas, cmd::kFattenSelection, 0);
  EXPECT_EQ(radiusChoice.radius, kMaxRadius);
  EXPECT_EQ(Picture(canvas), "######\n######\n######\n");
  given = {1, kBlurDither};
  RunCanvasHandler(canvas, cmd::kBlurOutside, 0);
  EXPECT_EQ(radiusChoice.blurKind, kBlurDither);
  EXPECT_EQ(asked,
            (std::vector<std::string>{"tsl_selmax", "tsl_selmin", "tsl_selmax", "tsl_sellow"}));
  EXPECT_EQ(RadiusOfText("12"), 12);
  EXPECT_EQ(RadiusOfText("75"), kMaxRadius);
  EXPECT_EQ(RadiusOfText("x"), 0);
}

TEST_F(RasterCommandsTest, FlipsAndConvertReadTheRasterTheseCommandsMade) {
  Canvas* canvas = MakeBlank(8, 1);
  Plane* image = canvas->planes[0].plane;
  for (uint32_t x = 0; x < 8; ++x) PlaneStore.WritePixel24(image, x, 0, x, x, x);
  // The box 2..3 fattened to 1..4 with the box 0..5: 0 and 5 lie outside,
  // so of the pairs (0, 5), (1, 4), (2, 3) only the inner two trade.
  CommitBox(canvas, 2, 0, 3, 0);
  FattenSelection(canvas, 1);
  ASSERT_EQ(FlipLayer(canvas, FlipAxis::Horizontal), 1);
  std::string order;
  for (int x = 0; x < 8; ++x) {
    uint32_t r, g, b;
    PlaneStore.ReadPixel24(image, x, 0, &r, &g, &b);
    order += static_cast<char>('0' + r);
  }
  EXPECT_EQ(order, "04321567");

  // Inverted, all but 1..4 is selected; the new layer's transparency is
  // 255 - outside over the box, the bounds of what is selected.
  InvertSelection(canvas);
  const int layer = ConvertSelectionToLayer(canvas);
  ASSERT_GT(layer, 0);
  Plane* cover = canvas->planes[layer + 2].plane;
  ASSERT_NE(cover, nullptr);
  std::string seen;
  for (int x = 0; x < 8; ++x) {
    uint32_t v = 0;
    PlaneStore.ReadPixel8(cover, x, 0, &v);
    seen += v == 255 ? '#' : v == 0 ? '.' : '+';
  }
  EXPECT_EQ(seen, "#....###");
}

TEST_F(RasterCommandsTest, TrimMakesACanvasOfThePartOfEachLayerInTheBox) {
  InstallSelectionRaster();
  Canvas* canvas = MakeBlank(10, 8);
  // A second layer of 3 x 2 at (6, 5) reaches into the box at its corner.
  ASSERT_EQ(CanvasManager.AddLayer(canvas, 6, 5, 3, 2), SlotIndex(1, 0));
  Plane* second = canvas->planes[SlotIndex(1, 0)].plane;
  ASSERT_NE(second, nullptr);
  PlaneStore.WritePixel24(second, 0, 0, 10, 20, 30);
  PlaneStore.WritePixel24(canvas->planes[0].plane, 2, 1, 40, 50, 60);
  canvas->selectionKind = cmd::kSelectionLine;
  canvas->selLeft = 7, canvas->selTop = 6, canvas->selRight = 2, canvas->selBottom = 1;
  ASSERT_EQ(RequestTrimmedCanvas(canvas), 1);
  EXPECT_EQ(CanvasRequest.mode, kModeTrimSelection);
  ASSERT_EQ(CanvasRequest.layerCount, 2);
  EXPECT_EQ((Rect::OfSize(CanvasRequest.left[1], CanvasRequest.top[1], CanvasRequest.width[1],
                          CanvasRequest.height[1])),
            (Rect{4, 4, 5, 5}));
  Canvas* trimmed = NewRecord();
  ASSERT_EQ(CanvasManager.MakeCanvas(trimmed, nullptr), 1);
  EXPECT_EQ(trimmed->canvasWidth, 6);
  EXPECT_EQ(trimmed->canvasHeight, 6);
  uint32_t r, g, b;
  PlaneStore.ReadPixel24(trimmed->planes[0].plane, 0, 0, &r, &g, &b);
  EXPECT_EQ((std::vector<uint32_t>{r, g, b}), (std::vector<uint32_t>{40, 50, 60}));
  const PlaneSlot& part = trimmed->planes[SlotIndex(1, 0)];
  EXPECT_EQ((Rect::OfSize(part.left, part.top, part.width, part.height)), (Rect{4, 4, 5, 5}));
  PlaneStore.ReadPixel24(part.plane, 0, 0, &r, &g, &b);
  EXPECT_EQ((std::vector<uint32_t>{r, g, b}), (std::vector<uint32_t>{10, 20, 30}));
  // The source keeps its pixels and its Draft.
  EXPECT_EQ(canvas->selectionKind, cmd::kSelectionLine);
  // A box beside every layer asks for nothing.
  canvas->selLeft = 20, canvas->selRight = 30;
  EXPECT_EQ(RequestTrimmedCanvas(canvas), 0);
}

}  // namespace
