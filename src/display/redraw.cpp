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

int64_t Area(const Rect& r) { return int64_t{r.Width()} * r.Height(); }

Rect ViewOfTile(const Canvas* canvas, const RedrawTile& t) {
  return ViewRectOf(canvas, t.canvasPart);
}

// What two drawings cover together; either may be empty.
Rect Joined(const Rect& a, const Rect& b) {
  if (a.Empty()) return b;
  if (b.Empty()) return a;
  return Union(a, b);
}

void DrawGrid(Canvas* canvas, const std::vector<RedrawTile>& tiles, const Rect& covered) {
  if (!canvas->gridOn || !viewWindows.drawGridLine || covered.Empty()) return;
  Rect over = tiles.front().canvasPart;
  for (const RedrawTile& t : tiles) over = Union(over, t.canvasPart);
  for (const GridLine& line : GridLinesOver(canvas, over.left, over.top, over.right, over.bottom))
    viewWindows.drawGridLine(canvas, line, canvas->gridRed, canvas->gridGreen, canvas->gridBlue,
                             canvas->gridReverse ? 1 : 0, covered);
}

// The view picture of one tile: composed, scaled to the zoom and dithered
// for the screen at its place in the view. Null when it can't be made.
DibTile* MakeViewTile(Canvas* canvas, const RedrawTile& t, const Rect& view) {
  const Rect& part = t.canvasPart;
  DibTile* tile = Compose(canvas, part.left, part.top, part.right, part.bottom, 1, 0);
  if (!tile) return nullptr;
  if (canvas->zoomStep != 0) {
    DibTile* scaled = ScaleToView(canvas, tile, part);
    FreeTile(&tile);
    if (!scaled) return nullptr;
    tile = scaled;
  }
  if (viewWindows.displayBits && DitherFor(viewWindows.displayBits()))
    DitherTile(tile, view.left, view.top);
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
Rect DrawPicture(Canvas* canvas, const std::vector<RedrawTile>& tiles, size_t first,
                     size_t end, const Rect& area) {
  DibTile* picture = CreateTile(area.Width(), area.Height(), 24);
  if (!picture) {
    Rect drawn{};
    if (end - first == 1) return drawn;
    for (size_t i = first; i < end; ++i)
      drawn = Joined(drawn, DrawPicture(canvas, tiles, i, i + 1, ViewOfTile(canvas, tiles[i])));
    return drawn;
  }
  std::vector<Rect> made;  // in picture pixels
  for (size_t i = first; i < end; ++i) {
    const Rect view = ViewOfTile(canvas, tiles[i]);
    DibTile* tile = MakeViewTile(canvas, tiles[i], view);
    if (!tile) continue;
    const int x = view.left - area.left, y = view.top - area.top;
    Paste(picture, tile, x, y);
    made.push_back(Rect::OfSize(x, y, tile->width, tile->height));
    FreeTile(&tile);
  }
  Rect drawn{};
  if (viewWindows.drawPicture) {
    if (made.size() == end - first)
      made.assign(1, Rect::OfSize(0, 0, area.Width(), area.Height()));
    for (const Rect& part : made)
      viewWindows.drawPicture(canvas, picture, area.left, area.top, part);
  }
  for (const Rect& part : made)
    drawn = Joined(drawn, Rect::OfSize(area.left + part.left, area.top + part.top, part.Width(),
                                       part.Height()));
  FreeTile(&picture);
  return drawn;
}

}  // namespace

std::vector<RedrawTile> PlanRedraw(const Canvas* canvas, const Rect& view) {
  int cx0 = ToCanvas(canvas, view.left), cy0 = ToCanvas(canvas, view.top);
  int cx1 = ToCanvas(canvas, view.right), cy1 = ToCanvas(canvas, view.bottom);
  const int width = canvas->canvasWidth, height = canvas->canvasHeight;
  std::vector<RedrawTile> tiles;
  if (cx1 < 0 || cy1 < 0 || cx0 > width - 1 || cy0 > height - 1) return tiles;
  cx0 = std::max(cx0, 0), cy0 = std::max(cy0, 0);
  cx1 = std::min(cx1, width - 1), cy1 = std::min(cy1, height - 1);
  const std::vector<Span> columns =
      Walk(ToView(canvas, cx0), ToView(canvas, cx1), ZoomedWidth(canvas));
  for (const Span& row : Walk(ToView(canvas, cy0), ToView(canvas, cy1), ZoomedHeight(canvas)))
    for (const Span& column : columns) {
      const RedrawTile tile{column.start, row.start,
                            Rect{ToCanvas(canvas, column.start), ToCanvas(canvas, row.start),
                                 std::min(ToCanvas(canvas, column.start + column.length), width),
                                 std::min(ToCanvas(canvas, row.start + row.length), height)}};
      if (!tile.canvasPart.Empty()) tiles.push_back(tile);
    }
  return tiles;
}

Rect ViewRectOf(const Canvas* canvas, const Rect& canvasPart) {
  const int x = ToView(canvas, canvasPart.left), y = ToView(canvas, canvasPart.top);
  return Rect::OfSize(x, y, std::max(1, ToView(canvas, canvasPart.right + 1) - x),
                      std::max(1, ToView(canvas, canvasPart.bottom + 1) - y));
}

DibTile* ScaleToView(const Canvas* canvas, const DibTile* composed, const Rect& canvasPart) {
  const Rect view = ViewRectOf(canvas, canvasPart);
  DibTile* tile = CreateTile(view.Width(), view.Height(), 24);
  if (tile) ScaleTile(composed, tile, view.left, view.top, canvas->zoomStep == 1);
  return tile;
}

void RedrawRect(Canvas* canvas, const Rect& view) {
  const std::vector<RedrawTile> tiles = PlanRedraw(canvas, view);
  if (tiles.empty()) return;
  OverlaysOff(canvas);
  Rect covered{};
  for (size_t first = 0; first < tiles.size();) {
    Rect area = ViewOfTile(canvas, tiles[first]);
    size_t end = first + 1;
    for (; end < tiles.size(); ++end) {
      const Rect wider = Joined(area, ViewOfTile(canvas, tiles[end]));
      if (Area(wider) > kPictureBudget) break;
      area = wider;
    }
    covered = Joined(covered, DrawPicture(canvas, tiles, first, end, area));
    first = end;
  }
  DrawGrid(canvas, tiles, covered);
  OverlaysOn(canvas);
}

void RedrawCanvasBox(Canvas* canvas, const Rect& box) {
  if (box.Empty()) return;
  RedrawRect(canvas, Rect{ToView(canvas, box.left), ToView(canvas, box.top),
                          ToView(canvas, box.right), ToView(canvas, box.bottom)});
}
