#include "display/redraw.h"

#include <algorithm>

#include "display/compose.h"
#include "display/dither.h"
#include "display/grid.h"
#include "display/scale_tile.h"
#include "display/view_paint.h"
#include "display/zoom.h"

namespace {

// Tile starts along one axis: the walk covers last - first + 129 pixels,
// and a tile at the far end is at least one pixel long.
struct Span {
  int start, length;
};

std::vector<Span> Walk(int first, int last) {
  std::vector<Span> spans;
  for (int offset = 0; offset < last - first + 1 + kRedrawTileSize; offset += kRedrawTileSize)
    spans.push_back(
        {first + offset, std::max(1, std::min(kRedrawTileSize, last - first + 1 - offset))});
  return spans;
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

}  // namespace

std::vector<RedrawTile> PlanRedraw(const Canvas* canvas, int x0, int y0, int x1, int y1) {
  int cx0 = ToCanvas(canvas, x0), cy0 = ToCanvas(canvas, y0);
  int cx1 = ToCanvas(canvas, x1), cy1 = ToCanvas(canvas, y1);
  const int width = canvas->canvasWidth, height = canvas->canvasHeight;
  std::vector<RedrawTile> tiles;
  if (cx1 < 0 || cy1 < 0 || cx0 > width - 1 || cy0 > height - 1) return tiles;
  cx0 = std::max(cx0, 0), cy0 = std::max(cy0, 0);
  cx1 = std::min(cx1, width - 1), cy1 = std::min(cy1, height - 1);
  const std::vector<Span> columns = Walk(ToView(canvas, cx0), ToView(canvas, cx1));
  for (const Span& row : Walk(ToView(canvas, cy0), ToView(canvas, cy1)))
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

ViewRect DrawTile(Canvas* canvas, const RedrawTile& t) {
  DibTile* tile = Compose(canvas, t.cx0, t.cy0, t.cx1, t.cy1, 1, 0);
  if (!tile) return {};
  if (canvas->zoomStep != 0) {
    DibTile* scaled = ScaleToView(canvas, tile, t.cx0, t.cy0, t.cx1, t.cy1);
    FreeTile(&tile);
    if (!scaled) return {};
    tile = scaled;
  }
  const ViewRect view = ViewRectOf(canvas, t.cx0, t.cy0, t.cx1, t.cy1);
  if (viewWindows.displayBits && DitherFor(viewWindows.displayBits()))
    DitherTile(tile, view.x, view.y);
  if (viewWindows.drawTile) viewWindows.drawTile(canvas, tile, view.x, view.y);
  FreeTile(&tile);
  return view;
}

void RedrawRect(Canvas* canvas, int x0, int y0, int x1, int y1) {
  const std::vector<RedrawTile> tiles = PlanRedraw(canvas, x0, y0, x1, y1);
  if (tiles.empty()) return;
  OverlaysOff(canvas);
  ViewRect covered{};
  for (const RedrawTile& tile : tiles) covered = Union(covered, DrawTile(canvas, tile));
  DrawGrid(canvas, tiles, covered);
  OverlaysOn(canvas);
}
