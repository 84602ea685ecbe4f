// The tiled redraw: which tiles, their scaling (seamless at 150 %),
// dithering for 16-bit screens, the grid over them, and the Grid command.
#include <tuple>
#include <vector>

#include "display/dither.h"
#include "display/grid.h"
#include "display/grid_command.h"
#include "display/redraw.h"
#include "display/zoom.h"
#include "view_fixture.h"

namespace {

using Redraw = ViewTest;

// Every canvas pixel has a colour of its own; outside the canvas, one more.
Rgb SourceColour(int c, int r, int width, int height) {
  if (c >= width || r >= height) return {1, 2, 3};
  return {uint8_t(c & 255), uint8_t(r & 255), uint8_t((c >> 8) | ((r >> 8) << 4))};
}

DibTile* SourceTile(int cx0, int cy0, int cx1, int cy1, int width, int height) {
  DibTile* tile = CreateTile(cx1 - cx0 + 1, cy1 - cy0 + 1, 24);
  for (int r = cy0; r <= cy1; ++r)
    for (int c = cx0; c <= cx1; ++c)
      SetTilePixel(tile, c - cx0, r - cy0, SourceColour(c, r, width, height));
  return tile;
}

// The canvas pixel a view pixel shows, straight from ToView: enlarging, the
// last pixel that starts at or before it; reducing, the first that lands on it.
std::vector<int> ReferenceAxis(const Canvas* canvas, int size, int viewSize) {
  const ZoomRatio ratio = ZoomRatioOf(canvas->zoomStep);
  std::vector<int> map;
  for (int v = 0, c = 0; v < viewSize; ++v, map.push_back(c)) {
    while (ratio.num >= ratio.den && c + 1 < size && ToView(canvas, c + 1) <= v) ++c;
    while (ratio.num < ratio.den && ToView(canvas, c) < v) ++c;
  }
  return map;
}

TEST_F(Redraw, TilesScaleWithoutSeamsAndMatchOnePiece) {
  for (int step = -3; step <= 10; ++step) {
    if (step == -1) continue;  // 2/3 reduces by nearest neighbour and promises no seams
    const int width = step <= 0 ? 601 : step <= 3 ? 301 : 101;
    const int height = step <= 0 ? 401 : step <= 3 ? 203 : 71;
    Canvas* canvas = MakeBlank(1, 1);
    canvas->canvasWidth = width, canvas->canvasHeight = height, canvas->zoomStep = step;
    const int viewW = ZoomedWidth(canvas), viewH = ZoomedHeight(canvas);
    const std::vector<int> columns = ReferenceAxis(canvas, width, viewW);
    const std::vector<int> rows = ReferenceAxis(canvas, height, viewH);

    // Tiles land in the order of the walk, each over what it overlaps.
    std::vector<Rgb> view(size_t(viewW) * viewH);
    for (const RedrawTile& t : PlanRedraw(canvas, Rect{0, 0, viewW - 1, viewH - 1})) {
      const Rect& c = t.canvasPart;
      DibTile* source = SourceTile(c.left, c.top, c.right, c.bottom, width, height);
      DibTile* scaled = ScaleToView(canvas, source, c);
      const Rect at = ViewRectOf(canvas, c);
      ASSERT_EQ(scaled->width, at.Width());
      for (int y = 0; y < at.Height() && at.top + y < viewH; ++y)
        for (int x = 0; x < at.Width() && at.left + x < viewW; ++x)
          view[size_t(at.top + y) * viewW + at.left + x] = TilePixel(scaled, x, y);
      FreeTile(&source);
      FreeTile(&scaled);
    }
    DibTile* whole = SourceTile(0, 0, width - 1, height - 1, width, height);
    DibTile* onePiece = ScaleToView(canvas, whole, Rect{0, 0, width - 1, height - 1});
    int wrongTiled = 0, wrongWhole = 0;
    for (int y = 0; y < viewH; ++y)
      for (int x = 0; x < viewW; ++x) {
        const Rgb expected = SourceColour(columns[x], rows[y], width, height);
        wrongTiled += view[size_t(y) * viewW + x] != expected;
        wrongWhole += TilePixel(onePiece, x, y) != expected;
      }
    EXPECT_EQ(std::make_pair(wrongTiled, wrongWhole), std::make_pair(0, 0)) << "step " << step;
    FreeTile(&whole);
    FreeTile(&onePiece);
  }
}

TEST_F(Redraw, WalkReachesOneTileBeyondAndStopsAtTheCanvas) {
  Canvas* canvas = MakeBlank(300, 200);
  canvas->zoomStep = 1;  // 450 x 300 view pixels
  const std::vector<RedrawTile> tiles = PlanRedraw(canvas, Rect{0, 0, 449, 299});
  // Columns at 0, 128, 256, 384 (512 lies past the canvas); rows at 0, 128,
  // 256 (384 past it). ToCanvas(128): one canvas pixel past the tile; the
  // last tiles end with the zoomed canvas, 450 x 300.
  ASSERT_EQ(tiles.size(), 12u);
  EXPECT_EQ(std::tie(tiles[0].canvasPart.right, tiles[3].canvasPart.left,
                     tiles[3].canvasPart.right, tiles[11].canvasPart.bottom),
            std::make_tuple(85, 256, 300, 200));
  // View pixel 1 shows canvas pixel 1, but converts to 0 and back to view
  // 0: the walk of 129 pixels each way reaches it, in tiles of 128 and 1.
  const std::vector<RedrawTile> dot = PlanRedraw(canvas, Rect{1, 1, 1, 1});
  ASSERT_EQ(dot.size(), 4u);
  EXPECT_EQ(std::tie(dot[0].canvasPart.left, dot[0].canvasPart.right, dot[0].canvasPart.bottom,
                     dot[1].canvasPart.left, dot[1].canvasPart.right, dot[3].canvasPart.bottom),
            std::make_tuple(0, 85, 85, 85, 86, 86));
  EXPECT_TRUE(PlanRedraw(canvas, Rect{500, 0, 600, 10}).empty());
  EXPECT_TRUE(PlanRedraw(canvas, Rect{-60, -60, -3, 10}).empty());  // ToCanvas(-3) is -2

  // A one-pixel canvas at 25 % is 0 view pixels wide, and still draws one.
  canvas->canvasWidth = canvas->canvasHeight = 1;
  canvas->zoomStep = -3;
  const std::vector<RedrawTile> one = PlanRedraw(canvas, Rect{0, 0, 0, 0});
  ASSERT_EQ(one.size(), 1u);
  const Rect r = ViewRectOf(canvas, one[0].canvasPart);
  EXPECT_EQ(std::make_tuple(r.Width(), r.Height()), std::make_tuple(1, 1));
}

TEST_F(Redraw, DitherOfAFlatColour) {
  // Blue 100: q = 12 and pattern 4 (AA 55 AA DD ...); 12 x 255 / 31 = 98,
  // 13 x 255 / 31 = 106. Red 7: q = 0, pattern 7 sets every bit: 8.
  // Green 255 can't go above q = 31: 255. The tile's top left is view (5, 2).
  DibTile* tile = CreateTile(16, 16, 24);
  for (int y = 0; y < 16; ++y)
    for (int x = 0; x < 16; ++x) SetTilePixel(tile, x, y, {100, 255, 7});
  DitherTile(tile, 5, 2);
  EXPECT_EQ(TilePixel(tile, 0, 0), (Rgb{106, 255, 8}));  // row 2 AA, bit 5
  // AA bits 6, 0; DD bits 5, 7; AA bit 6; then the bits of pattern 4 in 8 x 8.
  std::vector<int> blues;
  for (auto [x, y] : {std::pair{1, 0}, {3, 0}, {0, 1}, {2, 1}, {1, 2}})
    blues.push_back(TilePixel(tile, x, y)[0]);
  int up = 0;
  for (int y = 3; y < 11; ++y)
    for (int x = 3; x < 11; ++x) up += TilePixel(tile, x, y)[0] == 106;
  blues.push_back(up);
  EXPECT_EQ(blues, (std::vector<int>{98, 98, 98, 106, 98, 4 + 4 + 4 + 6 + 4 + 4 + 4 + 6}));
  FreeTile(&tile);
  EXPECT_EQ(DitherValue(8, 3, 3), 8);  // pattern 0: 1 x 255 / 31
  EXPECT_EQ(DitherValue(250, 1, 0), 255);
  EXPECT_FALSE(DitherFor(16));  // the setting is off
  settings.ditherOn = 1;
  EXPECT_EQ((std::vector<bool>{DitherFor(15), DitherFor(16), DitherFor(24)}),
            (std::vector<bool>{true, true, false}));
}

TEST_F(Redraw, GridLinesAndSnap) {
  Canvas* canvas = MakeBlank(64, 64);
  canvas->gridX = canvas->gridY = 16;
  canvas->zoomStep = -3;  // a grid of 16 at 25 % falls every 4 view pixels
  std::vector<GridLine> lines = GridLinesOver(canvas, 0, 0, 63, 63);
  ASSERT_EQ(lines.size(), 10u);
  for (int i = 0; i < 5; ++i)
    EXPECT_EQ(std::tie(lines[i].x0, lines[i].y0, lines[i].y1, lines[5 + i].y0),
              std::make_tuple(4 * i, 0, 16, 4 * i));  // rows -1 .. 65, truncated
  canvas->zoomStep = 10;  // in the middle of the pixel, from row -1 to row 12
  lines = GridLinesOver(canvas, 0, 0, 10, 10);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(std::tie(lines[0].x0, lines[0].y0, lines[0].y1), std::make_tuple(5, -5, 125));

  // Snap: ((8 + x) / 16) x 16 plus the offset mod 16, on while grid and snap are.
  auto snapX = [&](int view, int offset) {
    return ViewToCanvasPoint(canvas, view, 0, offset, 0).x;
  };
  canvas->zoomStep = 0;
  canvas->gridSnap = 1;
  EXPECT_EQ(snapX(7, 0), 7);  // off without the grid
  canvas->gridOn = 1;
  EXPECT_EQ((std::vector<int>{snapX(7, 0), snapX(8, 0), snapX(23, 0), snapX(24, 5), snapX(24, 21),
                              snapX(-10, 0)}),
            (std::vector<int>{0, 16, 16, 37, 37, 0}));
  canvas->zoomStep = 2;
  EXPECT_EQ(snapX(30, 0), 16);
}

TEST_F(Redraw, RedrawRectComposesScalesAndInvertsTheGridOnce) {
  Canvas* canvas = MakeBlank(10, 6);
  PlaneStore.WritePixel24(canvas->planes[0].plane, 3, 2, 10, 20, 30);
  canvas->zoomStep = 2;
  canvas->gridOn = 1;
  canvas->gridX = canvas->gridY = 4;
  canvas->gridRed = 1, canvas->gridGreen = 2, canvas->gridBlue = 3;
  std::vector<Rect> drawn;
  std::vector<Rgb> at3x2;
  viewWindows.drawPicture = [&](Canvas*, const DibTile* tile, int x, int y, const Rect& part) {
    drawn.push_back(Rect::OfSize(x + part.left, y + part.top, part.Width(), part.Height()));
    at3x2 = {TilePixel(tile, 6 - x, 4 - y), TilePixel(tile, 7 - x, 5 - y),
             TilePixel(tile, 8 - x, 4 - y)};
  };
  std::vector<GridLine> lines;
  viewWindows.drawGridLine = [&](Canvas*, const GridLine& line, uint32_t r, uint32_t g, uint32_t b,
                                 int invert, const Rect& clip) {
    EXPECT_EQ(std::make_tuple(r, g, b, invert, clip.Width()), std::make_tuple(1u, 2u, 3u, 1, 22));
    lines.push_back(line);
  };
  // One tile of canvas columns 0..10 and rows 0..6: one past the canvas.
  RedrawRect(canvas, Rect{0, 0, 19, 11});
  ASSERT_EQ(drawn.size(), 1u);
  EXPECT_EQ(std::make_tuple(drawn[0].Width(), drawn[0].Height()), std::make_tuple(22, 14));
  // Pixel (3, 2) fills view 6..7 x 4..5; its neighbour is white.
  EXPECT_EQ(at3x2, (std::vector<Rgb>{{30, 20, 10}, {30, 20, 10}, {255, 255, 255}}));
  // Columns 0, 4, 8 and rows 0, 4, each once, at the middle of their pixels.
  ASSERT_EQ(lines.size(), 5u);
  EXPECT_EQ(std::tie(lines[2].x0, lines[3].y0, lines[4].x1), std::make_tuple(17, 1, 25));
}

// What RedrawRect asks for is what the window shows afterwards: every view
// pixel of a rectangle, at every zoom, the canvas pixel the view maps it to,
// however the rectangle cuts the canvas pixels; and all of it in one picture.
TEST_F(Redraw, EveryViewPixelOfARepaintIsDrawnAtEveryZoom) {
  constexpr int kW = 97, kH = 61;
  Canvas* canvas = MakeBlank(kW, kH);
  for (int y = 0; y < kH; ++y)
    for (int x = 0; x < kW; ++x) {
      const Rgb c = SourceColour(x, y, kW, kH);
      PlaneStore.WritePixel24(canvas->planes[0].plane, x, y, c[2], c[1], c[0]);
    }
  const Rgb stale{7, 7, 7};  // no canvas pixel has it
  std::vector<Rgb> screen;
  int viewW = 0, calls = 0;
  viewWindows.drawPicture = [&](Canvas*, const DibTile* picture, int x, int y,
                                const Rect& part) {
    ++calls;
    for (int r = part.top; r <= part.bottom; ++r)
      for (int c = part.left; c <= part.right; ++c)
        if (x + c >= 0 && y + r >= 0 && x + c < viewW && size_t(y + r) * viewW < screen.size())
          screen[size_t(y + r) * viewW + x + c] = TilePixel(picture, c, r);
  };
  uint32_t seed = 12345;
  auto next = [&](int n) { return int((seed = seed * 1103515245 + 12345) >> 16) % n; };
  for (int step = -3; step <= 10; ++step) {
    canvas->zoomStep = step;
    viewW = ZoomedWidth(canvas);
    const int viewH = ZoomedHeight(canvas);
    const std::vector<int> columns = ReferenceAxis(canvas, kW, viewW);
    const std::vector<int> rows = ReferenceAxis(canvas, kH, viewH);
    for (int trial = 0; trial < 40; ++trial) {
      int x0 = next(viewW + 8) - 4, x1 = x0 + next(trial < 20 ? 4 : viewW);
      int y0 = next(viewH + 8) - 4, y1 = y0 + next(trial < 20 ? 4 : viewH);
      screen.assign(size_t(viewW) * viewH, stale);
      calls = 0;
      RedrawRect(canvas, Rect{x0, y0, x1, y1});
      int missed = 0, wrong = 0, inside = 0;
      for (int y = std::max(y0, 0); y <= std::min(y1, viewH - 1); ++y)
        for (int x = std::max(x0, 0); x <= std::min(x1, viewW - 1); ++x) {
          const Rgb shown = screen[size_t(y) * viewW + x];
          ++inside;
          missed += shown == stale;
          // 2/3 reduces tile by tile and promises no seams: only coverage.
          wrong += step != -1 && shown != SourceColour(columns[x], rows[y], kW, kH);
        }
      EXPECT_EQ(std::make_tuple(missed, wrong, calls), std::make_tuple(0, 0, inside ? 1 : calls))
          << "step " << step << " at " << x0 << "," << y0 << ".." << x1 << "," << y1;
    }
  }
}

class GridCommandTest : public TeselTest {
 protected:
  void SetUp() override {
    TeselTest::SetUp();
    canvas.gridX = canvas.gridY = 16;  // as a new canvas has them
    viewWindows.gridDialog = [this](GridChoice* choice) {
      offered.push_back(*choice);
      *choice = answer;
      return ok;
    };
  }
  auto Grid() const {
    return std::make_tuple(canvas.gridOn, canvas.gridX, canvas.gridY, canvas.gridSnap);
  }

  Canvas canvas{};
  GridChoice answer{8, 32, 1};
  std::vector<GridChoice> offered;
  int ok = 1;
};

auto Fields(const GridChoice& c) { return std::make_tuple(c.pitchX, c.pitchY, c.snap); }

TEST_F(GridCommandTest, OkShowsTheGridWithTheEnteredPitchAndSnap) {
  EXPECT_EQ(ToggleGrid(&canvas), 1);
  EXPECT_EQ(Grid(), std::make_tuple(1u, 8, 32, 1u));
  // On: the command takes it off without asking, keeping pitch and snap
  // for the next time, which the dialog then offers.
  EXPECT_EQ(ToggleGrid(&canvas), 1);
  EXPECT_EQ(Grid(), std::make_tuple(0u, 8, 32, 1u));
  answer.snap = 0;
  ToggleGrid(&canvas);
  ASSERT_EQ(offered.size(), 2u);
  EXPECT_EQ(Fields(offered[0]), std::make_tuple(16, 16, 0));
  EXPECT_EQ(Fields(offered[1]), std::make_tuple(8, 32, 1));
  EXPECT_EQ(Grid(), std::make_tuple(1u, 8, 32, 0u));
}

TEST_F(GridCommandTest, CancelOrNoDialogChangesNothingAndPitchIsKeptBetweenTwoAndAThousand) {
  ok = 0;
  EXPECT_EQ(ToggleGrid(&canvas), 0);
  viewWindows.gridDialog = nullptr;
  EXPECT_EQ(ToggleGrid(&canvas), 0);
  EXPECT_EQ(Grid(), std::make_tuple(0u, 16, 16, 0u));

  ok = 1;
  SetUp();
  for (auto [x, y, keptX, keptY] :
       {std::array{0, 1, 2, 2}, {-5, 1001, 2, 1000}, {2, 1000, 2, 1000}, {1 << 30, 3, 1000, 3}}) {
    canvas.gridOn = 0;
    answer = {x, y, 0};
    ToggleGrid(&canvas);
    EXPECT_EQ(std::make_pair(canvas.gridX, canvas.gridY), std::make_pair(keptX, keptY)) << x;
  }
}

}  // namespace
