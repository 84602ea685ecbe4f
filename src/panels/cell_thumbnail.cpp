#include "panels/cell_thumbnail.h"

#include <algorithm>
#include <cstdio>
#include <vector>

#include "platform/platform.h"
#include "store/dib.h"
#include "store/little_endian.h"
#include "store/plane_ops.h"

namespace {

constexpr size_t kStampBytes = 16;  // the write time in the first 8, then zeros

std::string Beside(const std::string& path, const char* extension) {
  const size_t dot = path.find_last_of('.');
  const size_t slash = path.find_last_of("/\\");
  const bool hasExtension = dot != std::string::npos && (slash == std::string::npos || dot > slash);
  return (hasExtension ? path.substr(0, dot) : path) + extension;
}

bool StampMatches(const std::string& stampPath, uint64_t time) {
  FILE* file = platform::OpenFile(stampPath, "rb");
  if (!file) return false;
  uint8_t stamp[kStampBytes];
  const bool read = std::fread(stamp, 1, kStampBytes, file) == kStampBytes;
  std::fclose(file);
  return read && (uint64_t(GetU32(stamp + 4)) << 32 | GetU32(stamp)) == time;
}

void WriteStamp(const std::string& stampPath, uint64_t time) {
  uint8_t stamp[kStampBytes] = {};
  PutU32(stamp, uint32_t(time));
  PutU32(stamp + 4, uint32_t(time >> 32));
  if (FILE* file = platform::OpenFile(stampPath, "wb")) {
    std::fwrite(stamp, 1, kStampBytes, file);
    std::fclose(file);
  }
}

// Each channel c under mask m over white: ((c - 255) x m + 65025) / 255.
void OverWhite(Plane* image, Plane* mask) {
  std::vector<uint8_t> row(size_t(image->width) * 3), m(size_t(image->width));
  for (int y = 0; y < image->height; ++y) {
    PlaneStore.ReadRow(image, y, 0, image->width - 1, row.data());
    PlaneStore.ReadRow(mask, y, 0, image->width - 1, m.data());
    for (size_t i = 0; i < row.size(); ++i)
      row[i] = uint8_t(((int(row[i]) - 255) * m[i / 3] + 65025) / 255);
    PlaneStore.WriteRow(image, y, 0, image->width - 1, row.data());
  }
}

// The image fitted to the cell, on white where its mask says.
Plane* MakeThumbnail(const std::string& path, int cellWidth, int cellHeight) {
  Plane* image = LoadBmp(path);
  if (!image || image->bits != 24) {
    PlaneStore.FreePlane(&image);
    return nullptr;
  }
  if (Plane* mask = LoadBmp(Beside(path, ".bmm"))) {
    if (mask->bits == 8 && mask->width == image->width && mask->height == image->height)
      OverWhite(image, mask);
    PlaneStore.FreePlane(&mask);
  }
  const double scale =
      std::max(double(image->width) / cellWidth, double(image->height) / cellHeight);
  const int width = std::max(1, int(image->width / scale));
  const int height = std::max(1, int(image->height / scale));
  Plane* thumbnail = SmoothResize(image, width, height, 0);
  PlaneStore.FreePlane(&image);
  return thumbnail;
}

}  // namespace

Plane* CellThumbnail(const std::string& path, int cellWidth, int cellHeight, int* outX, int* outY,
                     int* outWidth, int* outHeight) {
  if (cellWidth < 1 || cellHeight < 1) return nullptr;
  const uint64_t time = platform::FileWriteTime(path);
  const std::string cached = Beside(path, ".thm"), stamp = Beside(path, ".stt");
  Plane* thumbnail = nullptr;
  if (time && StampMatches(stamp, time)) {
    thumbnail = LoadBmp(cached);
    if (thumbnail && thumbnail->bits != 24) PlaneStore.FreePlane(&thumbnail);
  }
  if (!thumbnail) {
    thumbnail = MakeThumbnail(path, cellWidth, cellHeight);
    if (!thumbnail) return nullptr;
    if (SaveBmp(thumbnail, cached)) WriteStamp(stamp, time);
  }
  *outWidth = thumbnail->width;
  *outHeight = thumbnail->height;
  *outX = (cellWidth - thumbnail->width) / 2;
  *outY = (cellHeight - thumbnail->height) / 2;
  return thumbnail;
}
