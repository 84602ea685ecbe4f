// The scattered tips: spray, soft spray and life. Each draws new random
// numbers at every build, so each dab differs.
#include <algorithm>
#include <cstdlib>

#include "paint/tip/tip_shapes.h"

namespace {

constexpr int kLifeGrid = 256;
constexpr int kSprayPercent = 10;

// Life's cells, kept from one dab to the next.
uint8_t lifeGrid[kLifeGrid][kLifeGrid];

bool Hit() { return std::rand() % 100 < kSprayPercent; }

int LiveNeighbours(const TipRaster& tip, int x, int y) {
  int count = 0;
  for (int ny = y - 1; ny <= y + 1; ++ny)
    for (int nx = x - 1; nx <= x + 1; ++nx) {
      if (nx == x && ny == y) continue;
      if (nx < 0 || ny < 0 || nx >= tip.width || ny >= tip.height) continue;
      if (lifeGrid[ny][nx]) ++count;
    }
  return count;
}

}  // namespace

void SprayTip(TipRaster& tip, const TipGeometry& g) {
  for (int y = 0; y < tip.height; ++y)
    for (int x = 0; x < tip.width; ++x)
      if (g.Inside(x, y) && Hit()) tip.Put(x, y, 255, 255);
}

void SoftSprayTip(TipRaster& tip, const TipGeometry& g) {
  // A zero radius leaves nothing to fall off over: full strength.
  double product = std::max(g.product, 1);
  for (int y = 0; y < tip.height; ++y)
    for (int x = 0; x < tip.width; ++x) {
      int32_t d = g.Distance(x, y);
      if (d > g.product || !Hit()) continue;
      int32_t v = int32_t(65535.0 - d * 65535.0 / product);
      tip.Put(x, y, uint8_t(v >> 9), uint8_t(v >> 1));
    }
}

// Not the usual rule: a dead cell with two or three neighbours is born, in
// the high raster alone; a live one survives only with exactly three.
void LifeTip(TipRaster& tip, const TipGeometry& g, int32_t dabCount) {
  if (dabCount == 0)
    for (int y = 0; y < tip.height; ++y)
      for (int x = 0; x < tip.width; ++x) lifeGrid[y][x] = (std::rand() & 255) < 101 ? 0 : 100;
  for (int y = 0; y < tip.height; ++y)
    for (int x = 0; x < tip.width; ++x) {
      if (!g.Inside(x, y)) continue;
      int n = LiveNeighbours(tip, x, y);
      if (!lifeGrid[y][x] && (n == 2 || n == 3)) tip.Put(x, y, 255, 0);
      else if (lifeGrid[y][x] && n == 3) tip.Put(x, y, 255, 255);
    }
  for (int y = 0; y < tip.height; ++y)
    for (int x = 0; x < tip.width; ++x) lifeGrid[y][x] = tip.high[size_t(y) * tip.width + x];
}
