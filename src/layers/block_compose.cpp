#include "layers/block_compose.h"

#include <cstdint>
#include <vector>

#include "display/compose.h"
#include "platform/platform.h"
#include "store/dib.h"

namespace {


using BlockComposer = DibTile* (*)(Canvas*, int, int, int, int, int);

DibTile* PictureBlock(Canvas* canvas, int x0, int y0, int x1, int y1, int baseOpaque) {
  return Compose(canvas, x0, y0, x1, y1, 0, baseOpaque);
}

DibTile* CoverageBlock(Canvas* canvas, int x0, int y0, int x1, int y1, int) {
  return ComposeCoverage(canvas, x0, y0, x1, y1);
}

// One block's rows into a plane through its clipped row writes.
int WriteBlock(Canvas* source, BlockComposer make, int baseOpaque, Plane* plane, int x, int y,
               int left, int top) {
  DibTile* tile = make(source, x, y, x + kMergeBlock - 1, y + kMergeBlock - 1, baseOpaque);
  if (!tile) return 0;
  std::vector<uint8_t> row(static_cast<size_t>(kMergeBlock) * 3);
  for (int r = 0; r < kMergeBlock; ++r) {
    if (plane->bits == 24)
      ReadTileRow(tile, r, 0, kMergeBlock - 1, row.data());
    else
      ReadTileRow8(tile, r, 0, kMergeBlock - 1, row.data());
    PlaneStore.WriteRow(plane, y + r - top, x - left, x + kMergeBlock - 1 - left, row.data());
  }
  FreeTile(&tile);
  return 1;
}

}  // namespace

int ComposeIntoPlanes(Canvas* source, int baseOpaque, Plane* image, Plane* coverage, int left,
                      int top, bool showProgress) {
  const int width = source->canvasWidth, height = source->canvasHeight;
  for (int y = 0; y < height; y += kMergeBlock) {
    if (showProgress) platform::ShowProgress(y * 100 / height);
    for (int x = 0; x < width; x += kMergeBlock)
      if (!WriteBlock(source, PictureBlock, baseOpaque, image, x, y, left, top)) return 0;
  }
  if (!coverage) return 1;
  for (int y = 0; y < height; y += kMergeBlock)
    for (int x = 0; x < width; x += kMergeBlock)
      if (!WriteBlock(source, CoverageBlock, 0, coverage, x, y, left, top)) return 0;
  return 1;
}
