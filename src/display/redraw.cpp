#include "display/redraw.h"

#include <algorithm>
#include <cstring>

#include "display/compose.h"
#include "display/compose_rows.h"
#include "display/dither.h"
#include "display/grid.h"
#include "display/scale_tile.h"
#include "display/view_paint.h"
#include "display/zoom.h"

namespace {

// Tiles along one axis: the walk covers last - first + 129 pixels, in tiles
// of up to 128 that stop at the end of the zoomed canvas (`size`), at least
// one pixel each. Reaching past the rectangle matters at 2/3 and 3/2, where the
// rectangle's last view pixel may belong to a canvas pixel that the
// conversion back to the view cut off.
struct Span {
  int start, length;
};

std::vector<Span> Walk(int first, int last, int size) {
  std::vector<Span> spans;
  const int end = last + 1 + kRedrawTileSize;
  for (int start = first; start < end; start += kRedrawTileSize)
    spans.push_back({start, std::max(1, std::min({kRedrawTileSize, end - start, size - start}))});
  return spans;
}

// Pixels of the largest picture a repaint hands over at once: a large
// screen with a tile's margin. Beyond it the tiles go in several pictures.
constexpr int64_t kPictureBudget = int64_t{8} << 20;

int64_t Area(const ViewRect& r) { return int64_t{r.width} * r.height; }

ViewRect ViewOfTile(const Canvas* canvas, const RedrawTile& t) {
  return ViewRectOf(canvas, t.cx0, t.cy0, t.cx1, t.cy1);
}

ViewRect Union(const ViewRect& a, const ViewRect& b) {
  if (a.width < 1 || a.height < 1) return b;
  if (b.width < 1 || b.height < 1) return a;
  const int x = std::min(a.x, b.x), y = std::min(a.y, b.y);
  return {x, y, std::max(a.x + a.width, b.x + b.width) - x,
          std::max(a.y + a.height, b.y + b.height) - y};
}

void DrawGrid(Canvas* canvas, const std::vector<RedrawTile>& tiles, const ViewRect& covered) {
  if (!canvas->gridOn || !viewWindows.drawGridLine || covered.width < 1) return;
  int cx0 = tiles.front().cx0, cy0 = tiles.front().cy0, cx1 = cx0, cy1 = cy0;
  for (const RedrawTile& t : tiles) {
    cx0 = std::min(cx0, t.cx0), cy0 = std::min(cy0, t.cy0);
    cx1 = std::max(cx1, t.cx1), cy1 = std::max(cy1, t.cy1);
  }
  for (const GridLine& line : GridLinesOver(canvas, cx0, cy0, cx1, cy1))
    viewWindows.drawGridLine(canvas, line, canvas->gridRed, canvas->gridGreen, canvas->gridBlue,
                             canvas->gridReverse ? 1 : 0, covered);
}

// The view picture of one tile: composed, scaled to the zoom and dithered
// for the screen at its place in the view. Null when it can't be made.
DibTile* MakeViewTile(Canvas* canvas, const RedrawTile& t, const ViewRect& view) {
  DibTile* tile = Compose(canvas, t.cx0, t.cy0, t.cx1, t.cy1, 1, 0);
  if (!tile) return nullptr;
  if (canvas->zoomStep != 0) {
    DibTile* scaled = ScaleToView(canvas, tile, t.cx0, t.cy0, t.cx1, t.cy1);
    FreeTile(&tile);
    if (!scaled) return nullptr;
    tile = scaled;
  }
  if (viewWindows.displayBits && DitherFor(viewWindows.displayBits()))
    DitherTile(tile, view.x, view.y);
  return tile;
}

// Copies a tile into the picture at (x, y) of the picture.
void Paste(DibTile* picture, DibTile* tile, int x, int y) {
  const size_t bytes = static_cast<size_t>(tile->width) * 3;
  for (int r = 0; r < tile->height; ++r)
    std::memcpy(TileRow(picture, y + r) + static_cast<size_t>(x) * 3,
                TileRow(tile, r), bytes);
}

// The tiles [first, end) of a walk, whose view rectangles span `area`, go
// to the window as one picture, in one call; the tiles land in the order of
// the walk, each over what it overlaps. What was drawn is returned: a tile
// that can't be made leaves its part of the window as it was, and when the
// picture itself can't be had, each tile goes alone.
ViewRect DrawPicture(Canvas* canvas, const std::vector<RedrawTile>& tiles, size_t first,
                     size_t end, const ViewRect& area) {
  DibTile* picture = CreateTile(area.width, area.height, 24);
  if (!picture) {
    ViewRect drawn{};
    if (end - first == 1) return drawn;
    for (size_t i = first; i < end; ++i)
      drawn = Union(drawn, DrawPicture(canvas, tiles, i, i + 1, ViewOfTile(canvas, tiles[i])));
    return drawn;
  }
  std::vector<ViewRect> made;  // in picture pixels
  for (size_t i = first; i < end; ++i) {
    const ViewRect view = ViewOfTile(canvas, tiles[i]);
    DibTile* tile = MakeViewTile(canvas, tiles[i], view);
    if (!tile) continue;
    Paste(picture, tile, view.x - area.x, view.y - area.y);
    made.push_back({view.x - area.x, view.y - area.y, tile->width, tile->height});
    FreeTile(&tile);
  }
  ViewRect drawn{};
  if (viewWindows.drawPicture) {
    if (made.size() == end - first)
      made.assign(1, {0, 0, area.width, area.height});
    for (const ViewRect& part : made) viewWindows.drawPicture(canvas, picture, area.x, area.y, part);
  }
  for (const ViewRect& part : made)
    drawn = Union(drawn, {area.x + part.x, area.y + part.y, part.width, part.height});
  FreeTile(&picture);
  return drawn;
}

}  // namespace

std::vector<RedrawTile> PlanRedraw(const Canvas* canvas, int x0, int y0, int x1, int y1) {
  int cx0 = ToCanvas(canvas, x0), cy0 = ToCanvas(canvas, y0);
  int cx1 = ToCanvas(canvas, x1), cy1 = ToCanvas(canvas, y1);
  const int width = canvas->canvasWidth, height = canvas->canvasHeight;
  std::vector<RedrawTile> tiles;
  if (cx1 < 0 || cy1 < 0 || cx0 > width - 1 || cy0 > height - 1) return tiles;
  cx0 = std::max(cx0, 0), cy0 = std::max(cy0, 0);
  cx1 = std::min(cx1, width - 1), cy1 = std::min(cy1, height - 1);
  const std::vector<Span> columns =
      Walk(ToView(canvas, cx0), ToView(canvas, cx1), ZoomedWidth(canvas));
  for (const Span& row : Walk(ToView(canvas, cy0), ToView(canvas, cy1), ZoomedHeight(canvas)))
    for (const Span& column : columns) {
      RedrawTile tile{column.start,
                      row.start,
                      ToCanvas(canvas, column.start),
                      ToCanvas(canvas, row.start),
                      std::min(ToCanvas(canvas, column.start + column.length), width),
                      std::min(ToCanvas(canvas, row.start + row.length), height)};
      if (tile.cx1 >= tile.cx0 && tile.cy1 >= tile.cy0) tiles.push_back(tile);
    }
  return tiles;
}

ViewRect ViewRectOf(const Canvas* canvas, int cx0, int cy0, int cx1, int cy1) {
  const int x = ToView(canvas, cx0), y = ToView(canvas, cy0);
  return {x, y, std::max(1, ToView(canvas, cx1 + 1) - x), std::max(1, ToView(canvas, cy1 + 1) - y)};
}

DibTile* ScaleToView(const Canvas* canvas, const DibTile* composed, int cx0, int cy0, int cx1,
                     int cy1) {
  const ViewRect view = ViewRectOf(canvas, cx0, cy0, cx1, cy1);
  DibTile* tile = CreateTile(view.width, view.height, 24);
  if (tile) ScaleTile(composed, tile, view.x, view.y, canvas->zoomStep == 1);
  return tile;
}

void RedrawRect(Canvas* canvas, int x0, int y0, int x1, int y1) {
  const std::vector<RedrawTile> tiles = PlanRedraw(canvas, x0, y0, x1, y1);
  if (tiles.empty()) return;
  OverlaysOff(canvas);
  ViewRect covered{};
  for (size_t first = 0; first < tiles.size();) {
    ViewRect area = ViewOfTile(canvas, tiles[first]);
    size_t end = first + 1;
    for (; end < tiles.size(); ++end) {
      const ViewRect wider = Union(area, ViewOfTile(canvas, tiles[end]));
      if (Area(wider) > kPictureBudget) break;
      area = wider;
    }
    covered = Union(covered, DrawPicture(canvas, tiles, first, end, area));
    first = end;
  }
  DrawGrid(canvas, tiles, covered);
  OverlaysOn(canvas);
}
