#include "panels/palette_pick.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "file/read_image.h"
#include "paint/control/control_page.h"
#include "paint/tip/pen_pattern.h"
#include "paint/tip/pen_record.h"
#include "panels/palette_cells.h"
#include "pixel/hsv.h"
#include "platform/platform.h"
#include "settings/side_path.h"
#include "store/dib.h"

namespace {

uint32_t Byte(uint32_t v) { return std::min(v, 255u); }

}  // namespace

int LoadPenPattern(const std::string& path) {
  Plane *image = nullptr, *alpha = nullptr;
  int delivered = 0;
  if (!LoadImageWithAlpha(path, &image, &alpha, &delivered)) return 0;
  if (!delivered) PlaneStore.FreePlane(&alpha);
  return SetPenPattern(path, image, alpha);
}

std::string CellImagePath(const std::string& folder, int number, const char* extension) {
  char name[32];
  std::snprintf(name, sizeof name, "palette\\pal%05d%s", number, extension);
  return SidePath(folder, name);
}

int PickCell(int page, int cell) {
  const int number = PaletteCellNumber(page, cell);
  if (number < 0) return 0;
  const PaletteCell picked = GetPaletteCell(number);
  if (pen.patternActive) FreePenPattern();
  pen.red = Byte(picked.red);
  pen.green = Byte(picked.green);
  pen.blue = Byte(picked.blue);
  if (picked.isImage) {
    LoadPenPattern(picked.path);
  } else {
    int h, s, v;
    RgbToHsv(int(pen.red), int(pen.green), int(pen.blue), &h, &s, &v, 0);
    pen.hue = uint32_t(h);
    pen.saturation = uint32_t(s);
    pen.value = uint32_t(v);
  }
  pen.mode = 0;
  RepaintControlPanel();
  return 1;
}

int StoreCell(const std::string& folder, int page, int cell) {
  const int number = PaletteCellNumber(page, cell);
  if (number < 0) return 0;
  const std::string image = CellImagePath(folder, number, ".bmp");
  const std::string mask = CellImagePath(folder, number, ".bmm");
  platform::RemoveFile(image);
  platform::RemoveFile(mask);
  PaletteCell stored = GetPaletteCell(number);
  stored.red = pen.red;
  stored.green = pen.green;
  stored.blue = pen.blue;
  stored.isImage = 0;
  std::memset(stored.path, 0, sizeof stored.path);
  if (pen.patternActive && image.size() < sizeof stored.path && SaveBmp(pen.patternImage, image)) {
    stored.isImage = 1;
    std::memcpy(stored.path, image.c_str(), image.size());
    if (pen.patternAlpha) SaveBmp(pen.patternAlpha, mask);
  }
  PutPaletteCell(number, stored);
  return 1;
}
