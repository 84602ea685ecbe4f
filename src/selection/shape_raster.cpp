#include "selection/shape_raster.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <vector>

#include "document/selection_rows.h"

namespace {

// Zeros over columns x0..x1 of row y, clipped to the raster. The shapes of
// a file may lie anywhere, so the arithmetic is wider than the canvas's.
void ZeroSpan(Canvas* canvas, int64_t y, int64_t x0, int64_t x1) {
  x0 = std::max<int64_t>(x0, 0);
  x1 = std::min<int64_t>(x1, canvas->canvasWidth - 1);
  if (y < 0 || y >= canvas->canvasHeight || x1 < x0) return;
  static std::vector<uint8_t> zeros;
  if (zeros.size() < static_cast<size_t>(x1 - x0 + 1)) zeros.resize(x1 - x0 + 1, 0);
  WriteSelectionRow(canvas, static_cast<int>(y), static_cast<int>(x0), static_cast<int>(x1),
                    zeros.data());
}

// A point's coordinate as the integer it truncates to; beyond what an int
// holds it stops at the limit.
int Truncated(float value) {
  if (!(value > -2147483648.0f)) return INT_MIN;
  if (value >= 2147483648.0f) return INT_MAX;
  return static_cast<int>(value);
}

// The ellipse's walk takes a step per pixel of its radius. A box far larger
// than any picture, which only a file can hold, is held to this side around
// its centre, so that loading one costs milliseconds rather than minutes.
constexpr int64_t kMaxEllipseSide = int64_t(1) << 16;

// The box's side from first to last, held to kMaxEllipseSide around its centre.
void HoldSide(int* first, int* last) {
  if (int64_t(*last) - *first < kMaxEllipseSide) return;
  const int64_t centre = (int64_t(*first) + *last) / 2;
  *first = static_cast<int>(centre - kMaxEllipseSide / 2);
  *last = static_cast<int>(centre + kMaxEllipseSide / 2 - 1);
}

}  // namespace

void RasterizeBox(Canvas* canvas, const Rect& box) {
  FillPlane(canvas, 1);
  // A box from a file may reach far beyond the canvas: only its rows run.
  const int last = std::min(box.bottom, canvas->canvasHeight - 1);
  for (int y = std::max(box.top, 0); y <= last; ++y) ZeroSpan(canvas, y, box.left, box.right);
}

void RasterizeEllipse(Canvas* canvas, const Rect& shape) {
  Rect box = shape;
  HoldSide(&box.left, &box.right);
  HoldSide(&box.top, &box.bottom);
  const int64_t w = int64_t(box.right) - box.left + 1, h = int64_t(box.bottom) - box.top + 1;
  const int64_t cx = (int64_t(box.left) + box.right) / 2, cy = (int64_t(box.top) + box.bottom) / 2;
  const int64_t R = std::max(w, h) & ~int64_t(1), r = R / 2;
  FillPlane(canvas, 1);
  // The walk keeps within a pixel of the box (the centre rounds toward
  // zero), so a box farther off the canvas writes nothing.
  constexpr int kReach = 2;
  if (box.right < -kReach || box.bottom < -kReach || box.left >= canvas->canvasWidth + kReach ||
      box.top >= canvas->canvasHeight + kReach)
    return;
  int64_t x = 0, y = r, e = 2 - R;
  for (;;) {
    if (w > h) {
      const int64_t dy = y * h / std::max<int64_t>(w, 1);
      ZeroSpan(canvas, cy + dy, cx - x, cx + x);
      ZeroSpan(canvas, cy - dy, cx - x, cx + x);
    } else {
      const int64_t dx = x * w / std::max<int64_t>(h, 1);
      ZeroSpan(canvas, cy + y, cx - dx, cx + dx);
      ZeroSpan(canvas, cy - y, cx - dx, cx + dx);
    }
    if (y <= 0) break;
    if (e < 0 && (e + y) * 2 - 1 < 1) {
      ++x;
      e += 2 * x + 1;
    } else if (e > 0 && (e - x) * 2 - 1 >= 1) {
      e += 3 - 2 * y;
      --y;
    } else {
      ++x;
      --y;
      e += 2 * (x - y) + 2;
    }
  }
}

void RasterizePolygon(Canvas* canvas, int count) {
  FillPlane(canvas, 1);
  count = std::min(count, kMaxDraftPoints);
  if (count < 3) return;
  struct Edge {
    int lowY, highY;
    float slope, intercept;
  };
  std::vector<Edge> edges;
  int minX = INT_MAX, minY = INT_MAX, maxX = INT_MIN, maxY = INT_MIN;
  for (int i = 0; i < count; ++i) {
    const int x = Truncated(canvas->draftPoints[i][0]);
    const int y = Truncated(canvas->draftPoints[i][1]);
    minX = std::min(minX, x), maxX = std::max(maxX, x);
    minY = std::min(minY, y), maxY = std::max(maxY, y);
    if (i == 0) continue;
    const int x0 = Truncated(canvas->draftPoints[i - 1][0]);
    const int y0 = Truncated(canvas->draftPoints[i - 1][1]);
    // A horizontal edge keeps no crossing.
    if (y == y0) continue;
    const float slope = static_cast<float>(int64_t(x) - x0) / static_cast<float>(int64_t(y) - y0);
    const float intercept = static_cast<float>(x0) - static_cast<float>(y0) * slope;
    edges.push_back({std::min(y0, y), std::max(y0, y), slope, intercept});
  }
  std::vector<int> crossings;
  // Rows off the raster would write nothing.
  const int first = std::max(minY, 0), last = std::min(maxY, canvas->canvasHeight - 1);
  for (int y = first; y <= last; ++y) {
    crossings.clear();
    for (const Edge& edge : edges) {
      // The last row also takes the edges that reach it, so the bottom
      // edge belongs to the area.
      if ((edge.lowY <= y && edge.highY > y) || (y == maxY && edge.highY == maxY)) {
        const float x = edge.slope * static_cast<float>(y) + edge.intercept;
        crossings.push_back(Truncated(x));
      }
    }
    // Even-odd: the pairs in ascending order.
    std::sort(crossings.begin(), crossings.end());
    for (size_t k = 0; k + 1 < crossings.size(); k += 2)
      ZeroSpan(canvas, y, crossings[k], crossings[k + 1]);
  }
  SetSelectionBox(canvas, {minX, minY, maxX, maxY});
}
