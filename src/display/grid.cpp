#include "display/grid.h"

#include "display/zoom.h"

namespace {

int Snap(int v, int grid, int offset) {
  if (grid < 1) return v;
  return ((grid / 2 + v) / grid) * grid + offset % grid;
}

// The first multiple of grid at or above v.
int FirstMultiple(int v, int grid) {
  if (v <= 0) return -((-v) / grid) * grid;
  return (v + grid - 1) / grid * grid;
}

}  // namespace

CanvasPoint ViewToCanvasPoint(const Canvas* canvas, int viewX, int viewY, int offsetX,
                              int offsetY) {
  CanvasPoint point{ToCanvas(canvas, viewX), ToCanvas(canvas, viewY)};
  if (canvas->gridSnap && canvas->gridOn) {
    point.x = Snap(point.x, canvas->gridX, offsetX);
    point.y = Snap(point.y, canvas->gridY, offsetY);
  }
  return point;
}

int PointerOnCanvas(Canvas* canvas, CanvasPoint* point, int offsetX, int offsetY) {
  if (!viewWindows.pointer) return 0;
  const PointerState pointer = viewWindows.pointer(canvas);
  *point = ViewToCanvasPoint(canvas, pointer.viewX, pointer.viewY, offsetX, offsetY);
  return 1;
}

std::vector<GridLine> GridLinesOver(const Canvas* canvas, int cx0, int cy0, int cx1, int cy1) {
  std::vector<GridLine> lines;
  if (canvas->gridX < 1 || canvas->gridY < 1) return lines;
  const int top = ToView(canvas, cy0 - 1, 1);
  const int bottom = ToView(canvas, cy1 + 2, 1);
  for (int x = FirstMultiple(cx0 - 1, canvas->gridX); x <= cx1 + 1; x += canvas->gridX) {
    const int at = ToView(canvas, x, 1);
    lines.push_back({at, top, at, bottom});
  }
  const int left = ToView(canvas, cx0 - 1, 1);
  const int right = ToView(canvas, cx1 + 2, 1);
  for (int y = FirstMultiple(cy0 - 1, canvas->gridY); y <= cy1 + 1; y += canvas->gridY) {
    const int at = ToView(canvas, y, 1);
    lines.push_back({left, at, right, at});
  }
  return lines;
}
