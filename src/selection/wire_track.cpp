#include "selection/wire_track.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "document/canvas_rows.h"

namespace {

constexpr int kSnapRadius = 24;
constexpr int kSearchRadius = 10;
constexpr int kWalkStep = 2;
constexpr int kFarFromPrevious = 65;
constexpr int kMaxStrength = 255;

int Distance(int dx, int dy) { return static_cast<int>(std::sqrt(double(dx * dx + dy * dy))); }

int Luma(const uint8_t* bgr) { return (151 * bgr[0] + 77 * bgr[1] + 28 * bgr[2]) / 256; }

// The luma of a square of the active plane around a centre, one border
// pixel wider than the search, so that each strength is taken from
// memory: a search reads each pixel once instead of nine times.
template <int kRadius>
class LumaSquare {
 public:
  static constexpr int kSide = 2 * kRadius + 3;

  LumaSquare(Canvas* canvas, CanvasPoint centre)
      : x0_(centre.x - kRadius - 1), y0_(centre.y - kRadius - 1) {
    luma_.fill(0);
    const PlaneSlot& slot = ActiveSlot(canvas);
    if (!slot.plane || slot.width <= 0 || slot.height <= 0) return;
    const int right = slot.left + slot.width - 1, bottom = slot.top + slot.height - 1;
    const int cx0 = std::clamp(x0_, slot.left, right);
    const int cx1 = std::clamp(x0_ + kSide - 1, slot.left, right);
    std::array<int, kSide> column;
    for (int i = 0; i < kSide; ++i) column[i] = std::clamp(x0_ + i, slot.left, right) - cx0;
    std::array<uint8_t, kSide * 3> row;
    int rowRead = -1;
    std::array<int, kSide> lumaRow{};
    for (int j = 0; j < kSide; ++j) {
      // Rows above and below the layer repeat its edge row.
      const int y = std::clamp(y0_ + j, slot.top, bottom);
      if (y != rowRead) {
        ReadImageRow(canvas, y, cx0, cx1, row.data());
        for (int i = 0; i < kSide; ++i) lumaRow[i] = Luma(&row[column[i] * 3]);
        rowRead = y;
      }
      std::copy(lumaRow.begin(), lumaRow.end(), &luma_[j * kSide]);
    }
  }

  int LumaAt(int x, int y) const { return luma_[(y - y0_) * kSide + (x - x0_)]; }

  // Sobel over the 3 x 3 around (x, y), at most 255.
  int StrengthAt(int x, int y) const {
    const int* m = &luma_[(y - y0_) * kSide + (x - x0_)];
    const int* up = m - kSide;
    const int* down = m + kSide;
    const int gx = up[-1] - up[1] + 2 * (m[-1] - m[1]) + down[-1] - down[1];
    const int gy = up[-1] + 2 * up[0] + up[1] - down[-1] - 2 * down[0] - down[1];
    const int squared = gx * gx + gy * gy;
    if (squared >= kMaxStrength * kMaxStrength) return kMaxStrength;
    return static_cast<int>(std::sqrt(double(squared)));
  }

 private:
  int x0_, y0_;
  std::array<int, kSide * kSide> luma_;
};

// Distances within the search square, taken once.
const std::array<int, (2 * kSearchRadius + 1) * (2 * kSearchRadius + 1)>& SearchDistances() {
  static const auto table = [] {
    std::array<int, (2 * kSearchRadius + 1) * (2 * kSearchRadius + 1)> t{};
    for (int dy = -kSearchRadius; dy <= kSearchRadius; ++dy)
      for (int dx = -kSearchRadius; dx <= kSearchRadius; ++dx)
        t[(dy + kSearchRadius) * (2 * kSearchRadius + 1) + dx + kSearchRadius] = Distance(dx, dy);
    return t;
  }();
  return table;
}

}  // namespace

EdgeSnap SnapToEdge(Canvas* canvas, CanvasPoint cursor) {
  const LumaSquare<kSnapRadius> square(canvas, cursor);
  EdgeSnap snap{cursor, 0};
  int best = 0;
  for (int dy = -kSnapRadius; dy <= kSnapRadius; ++dy)
    for (int dx = -kSnapRadius; dx <= kSnapRadius; ++dx) {
      const int strength = square.StrengthAt(cursor.x + dx, cursor.y + dy);
      const int score = strength - Distance(dx, dy) * 4;
      if (score > best) best = score, snap = {{cursor.x + dx, cursor.y + dy}, strength};
    }
  return snap;
}

CanvasPoint BestPixel(Canvas* canvas, CanvasPoint walked, int lastEdgeStrength) {
  const LumaSquare<kSearchRadius> square(canvas, walked);
  // The distance from the previous point takes the previous y from the
  // current x; the tool gives the walked position as the previous point,
  // so it is |x - y| of that position. The wire's feel rests on it.
  const CanvasPoint previous = walked;
  int d2 = Distance(walked.x - previous.x, walked.x - previous.y);
  const bool far = d2 >= kFarFromPrevious;
  if (far) d2 = 0;
  const int walkedLuma = square.LumaAt(walked.x, walked.y);
  const auto& d1 = SearchDistances();
  CanvasPoint at = walked;
  int best = 0;
  for (int dy = -kSearchRadius, k = 0; dy <= kSearchRadius; ++dy)
    for (int dx = -kSearchRadius; dx <= kSearchRadius; ++dx, ++k) {
      const int x = walked.x + dx, y = walked.y + dy;
      const int strength = square.StrengthAt(x, y);
      const int lumaDifference = far ? 0 : square.LumaAt(x, y) - walkedLuma;
      const int score = (strength - (d2 + d1[k] * 2) * 4) * 2 - std::abs(lumaDifference) / 4 -
                        std::abs(strength - lastEdgeStrength);
      if (score > best) best = score, at = {x, y};
    }
  return at;
}

std::vector<CanvasPoint> Track(Canvas* canvas, CanvasPoint from, CanvasPoint to,
                               int lastEdgeStrength) {
  const int dx = to.x - from.x, dy = to.y - from.y;
  const bool alongX = std::abs(dx) >= std::abs(dy);
  const int length = alongX ? std::abs(dx) : std::abs(dy);
  std::vector<CanvasPoint> points;
  points.reserve((length + 1) / 2);
  for (int i = 0; i < length; i += kWalkStep) {
    const CanvasPoint walked =
        alongX ? CanvasPoint{from.x + (dx > 0 ? i : -i), from.y + dy * i / length}
               : CanvasPoint{from.x + dx * i / length, from.y + (dy > 0 ? i : -i)};
    points.push_back(BestPixel(canvas, walked, lastEdgeStrength));
  }
  ThinTrack(&points);
  return points;
}

void ThinTrack(std::vector<CanvasPoint>* points) {
  auto& p = *points;
  // After a deletion the scan would begin again at the first point; the
  // triples before the one that lost its last point are unchanged and
  // were kept, so going on from there gives the same result.
  size_t i = 0;
  while (i + 2 < p.size()) {
    const CanvasPoint a = p[i], b = p[i + 1], c = p[i + 2];
    const int64_t twiceArea = int64_t(a.x - c.x) * (b.y - c.y) - int64_t(b.x - c.x) * (a.y - c.y);
    if (std::llabs(twiceArea) < 10) {
      p.erase(p.begin() + static_cast<ptrdiff_t>(i) + 1);
      i = i > 0 ? i - 1 : 0;
    } else {
      ++i;
    }
  }
}
