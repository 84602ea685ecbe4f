#include "paint/tip/dot_pen.h"

#include <algorithm>
#include <vector>

#include "store/dib.h"

namespace {

struct Box {
  int left, top, right, bottom;  // inclusive; right < left when empty
};

// One row of the picture as red, green, blue triples.
void ReadRgbRow(Plane* picture, int y, std::vector<uint8_t>& raw, std::vector<uint8_t>& rgb) {
  PlaneStore.ReadRow(picture, y, 0, picture->width - 1, raw.data());
  for (int x = 0; x < picture->width; ++x) {
    uint8_t* out = &rgb[size_t(x) * 3];
    if (picture->bits == 8) {
      out[0] = out[1] = out[2] = raw[x];
    } else {
      out[0] = raw[size_t(x) * 3 + 2];
      out[1] = raw[size_t(x) * 3 + 1];
      out[2] = raw[size_t(x) * 3];
    }
  }
}

bool NotWhite(const uint8_t* rgb) { return std::max({rgb[0], rgb[1], rgb[2]}) < 255; }

Plane* BlankTip() { return PlaneStore.CreatePlane(1, 1, 8, 0, 1, Physical); }

}  // namespace

Plane* MakeDotTip(Plane* picture) {
  if (!picture || (picture->bits != 8 && picture->bits != 24)) return nullptr;
  std::vector<uint8_t> raw(size_t(picture->width) * picture->bytesPerPixel);
  std::vector<uint8_t> rgb(size_t(picture->width) * 3);
  Box box{picture->width, picture->height, -1, -1};
  for (int y = 0; y < picture->height; ++y) {
    ReadRgbRow(picture, y, raw, rgb);
    for (int x = 0; x < picture->width; ++x) {
      if (!NotWhite(&rgb[size_t(x) * 3])) continue;
      box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x),
             std::max(box.bottom, y)};
    }
  }
  if (box.right < 0) box = {0, 0, 0, 0};
  int width = std::min(box.right - box.left + 1, kDotTipLimit);
  int height = std::min(box.bottom - box.top + 1, kDotTipLimit);
  Plane* tip = PlaneStore.CreatePlane(width, height, 8, 0, 1, Physical);
  if (!tip) return nullptr;
  std::vector<uint8_t> row(width);
  for (int y = 0; y < height; ++y) {
    ReadRgbRow(picture, box.top + y, raw, rgb);
    for (int x = 0; x < width; ++x) {
      const uint8_t* p = &rgb[size_t(box.left + x) * 3];
      row[x] = uint8_t(255 - (p[0] + p[1] + p[2]) / 3);
    }
    PlaneStore.WriteRow(tip, y, 0, width - 1, row.data());
  }
  return tip;
}

Plane* LoadDotTip(const std::string& path) {
  Plane* picture = LoadBmp(path);
  Plane* tip = MakeDotTip(picture);
  PlaneStore.FreePlane(&picture);
  // A blank (white) picture cuts to one pixel of no strength.
  return tip ? tip : BlankTip();
}
