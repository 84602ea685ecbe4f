#include "panels/thumbnail.h"

#include <algorithm>
#include <vector>

#include "panels/layer_rows.h"
#include "pixel/mul_table.h"
#include "settings/settings.h"

Plane* rowThumbnails[kPlaneSlots];

namespace {

// Nearest-pixel copy of a plane of the same bits.
Plane* ScaledCopy(Plane* source, int width, int height) {
  Plane* copy = PlaneStore.CreatePlane(width, height, int(source->bits), 0, 0, Physical);
  if (!copy) return nullptr;
  const int bytes = int(source->bytesPerPixel);
  std::vector<uint8_t> in(size_t(source->width) * bytes), out(size_t(width) * bytes);
  for (int y = 0; y < height; ++y) {
    PlaneStore.ReadRow(source, int(int64_t(y) * source->height / height), 0, source->width - 1,
                       in.data());
    for (int x = 0; x < width; ++x) {
      const int sx = int(int64_t(x) * source->width / width);
      std::copy_n(&in[size_t(sx) * bytes], bytes, &out[size_t(x) * bytes]);
    }
    PlaneStore.WriteRow(copy, y, 0, width - 1, out.data());
  }
  return copy;
}

// Each colour byte c under opacity t: the picture laid over white.
void OverWhite(Plane* picture, Plane* opacity) {
  const int width = picture->width;
  std::vector<uint8_t> colours(size_t(width) * 3), t(width);
  for (int y = 0; y < picture->height; ++y) {
    PlaneStore.ReadRow(picture, y, 0, width - 1, colours.data());
    PlaneStore.ReadRow(opacity, y, 0, width - 1, t.data());
    for (int x = 0; x < width; ++x)
      for (int k = 0; k < 3; ++k) {
        uint8_t& c = colours[size_t(x) * 3 + k];
        c = uint8_t(std::min(255, Mul255(c, t[x]) + (255 - t[x])));
      }
    PlaneStore.WriteRow(picture, y, 0, width - 1, colours.data());
  }
}

}  // namespace

ThumbnailFit FitThumbnail(int boxWidth, int boxHeight, int planeWidth, int planeHeight) {
  const double scale = std::max(double(planeWidth) / boxWidth, double(planeHeight) / boxHeight);
  const int width = std::max(1, int(planeWidth / scale));
  const int height = std::max(1, int(planeHeight / scale));
  return {(boxWidth - width) / 2, (boxHeight - height) / 2, width, height};
}

void FreeThumbnail(int index) {
  if (index >= 0 && index < kPlaneSlots) PlaneStore.FreePlane(&rowThumbnails[index]);
}

void FreeThumbnails() {
  for (Plane*& thumbnail : rowThumbnails) PlaneStore.FreePlane(&thumbnail);
}

int NextThumbnailPlane(const Canvas* canvas) {
  for (int index : RowPlanes(canvas))
    if (layerPanel.layerRows[index] && !rowThumbnails[index] && !ShowsActiveMark(canvas, index))
      return index;
  return -1;
}

Plane* MakeThumbnail(Canvas* canvas, int index, int width, int height) {
  Plane* plane = canvas->planes[index].plane;
  if (!plane) return nullptr;
  Plane* thumbnail = ScaledCopy(plane, width, height);
  if (!thumbnail || PositionOf(index) != kImagePosition) return thumbnail;
  Plane* transparency = canvas->planes[index + kTransparencyPosition].plane;
  if (!transparency) return thumbnail;
  Plane* opacity = ScaledCopy(transparency, width, height);
  if (!opacity) {
    PlaneStore.FreePlane(&thumbnail);
    return nullptr;
  }
  OverWhite(thumbnail, opacity);
  PlaneStore.FreePlane(&opacity);
  return thumbnail;
}

bool ShowsActiveMark(const Canvas* canvas, int index) {
  return settings.noThumbnailRedraw && index == canvas->activePlane;
}
