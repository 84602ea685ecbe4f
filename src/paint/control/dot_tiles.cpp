#include "paint/control/dot_tiles.h"

#include <algorithm>

#include "paint/control/tip_preview.h"
#include "paint/tip/pen_data_list.h"
#include "paint/tip/pen_record.h"
#include "store/dib.h"

namespace {

constexpr uint8_t kUnreadableGrey = 0x80;

int ShowFirstFile() {
  tipState.dotTilePage = 0;
  if (PenDataList.fileCount) PenDataList.PickDotPen(0);
  return 1;
}

}  // namespace

void OpenDotTiles() {
  if (!tipState.dotTip) PenDataList.PickDotPen(PenDataList.fileInUse);
  tipState.dotTilePage = PenDataList.fileInUse / kDotTilesPerPage;
}

int DotPageCount() {
  return std::max(1, (PenDataList.fileCount + kDotTilesPerPage - 1) / kDotTilesPerPage);
}

int NextDotPage() { return tipState.dotTilePage = (tipState.dotTilePage + 1) % DotPageCount(); }

int DotTileFile(int tile) {
  if (tile < 0 || tile >= kDotTilesPerPage) return -1;
  const int file = tipState.dotTilePage * kDotTilesPerPage + tile;
  return file < PenDataList.fileCount ? file : -1;
}

int PickDotTile(int tile) {
  const int file = DotTileFile(tile);
  return file >= 0 && PenDataList.PickDotPen(file);
}

int NextDotFolder() { return PenDataList.NextFolder() && ShowFirstFile(); }

int ChooseDotFolder(int index) { return PenDataList.SelectFolder(index) && ShowFirstFile(); }

int DotThumbnail(const std::string& path, int size, std::vector<uint8_t>& bgr) {
  size = std::max(size, 0);
  Plane* picture = LoadBmp(path);
  const bool readable = picture && (picture->bits == 8 || picture->bits == 24);
  bgr.assign(size_t(size) * size * 3, readable ? 255 : kUnreadableGrey);
  if (!readable || size == 0) {
    PlaneStore.FreePlane(&picture);
    return readable ? 1 : 0;
  }
  const BoxFit fit = FitInBox(picture->width, picture->height, size, size);
  const int channels = picture->bits / 8;
  std::vector<uint8_t> row(size_t(picture->width) * channels);
  for (int y = 0; y < picture->height; ++y) {
    PlaneStore.ReadRow(picture, y, 0, picture->width - 1, row.data());
    uint8_t* out = &bgr[(size_t(fit.top + y / fit.factor) * size + fit.left) * 3];
    for (int x = 0; x < picture->width; ++x)
      for (int c = 0; c < 3; ++c) {
        uint8_t& shown = out[(x / fit.factor) * 3 + c];
        shown = std::min(shown, row[size_t(x) * channels + (channels == 3 ? c : 0)]);
      }
  }
  PlaneStore.FreePlane(&picture);
  return 1;
}
