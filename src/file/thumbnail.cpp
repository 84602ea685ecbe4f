#include "file/thumbnail.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

#include "display/compose.h"
#include "file/file_records.h"
#include "file/plugin_library.h"
#include "file/plugin_registry.h"
#include "platform/platform.h"
#include "store/dib.h"

namespace {

constexpr double kShortSide = 256.0;

// The thumbnail the callbacks read from.
Plane* thumbnail = nullptr;

int GetRow(int y, int x0, int x1, uint8_t* buffer, int) {
  return thumbnail && PlaneStore.ReadRow(thumbnail, y, x0, x1, buffer) ? 1 : 0;
}

int GetPlaneRow(int, int x0, int x1, uint8_t* buffer, int, int) {
  if (buffer && x1 >= x0) std::memset(buffer, 0, size_t(x1 - x0 + 1));
  return 1;
}

int NoPalette(uint8_t*) { return 0; }

}  // namespace

Plane* RenderThumbnail(Canvas* canvas) {
  const int width = canvas->canvasWidth, height = canvas->canvasHeight;
  const double f = std::max(kShortSide / width, kShortSide / height);
  const int tw = static_cast<int>(std::trunc(width * f)), th = static_cast<int>(std::trunc(height * f));
  Plane* plane = PlaneStore.CreatePlane(tw, th, 24, 0, 0, Physical);
  if (!plane) return nullptr;
  std::vector<uint8_t> out(size_t(tw) * 3);
  for (int y = 0; y < th; ++y) {
    const int sy = th > 1 ? (height - 1) * y / (th - 1) : 0;
    DibTile* row = Compose(canvas, 0, sy, width - 1, sy, 0, 0);
    if (!row) {
      PlaneStore.FreePlane(&plane);
      return nullptr;
    }
    std::vector<uint8_t> source(size_t(width) * 3);
    ReadTileRow(row, 0, 0, width - 1, source.data());
    FreeTile(&row);
    for (int x = 0; x < tw; ++x) {
      const int sx = tw > 1 ? (width - 1) * x / (tw - 1) : 0;
      std::memcpy(&out[size_t(x) * 3], &source[size_t(sx) * 3], 3);
    }
    PlaneStore.WriteRow(plane, y, 0, tw - 1, out.data());
  }
  return plane;
}

std::string WriteThumbnail(Canvas* canvas) {
  const std::string& folder = FileFormatRegistry.programFolder;
  if (folder.empty()) return "";
  PluginLibrary library(folder + "exfile" + platform::LibrarySuffix());
  auto info = library.Entry<WriteFileInfoFn>("WriteFileInfo");
  auto init = library.Entry<WriteFileInitFn>("WriteFileInit");
  auto exec = library.Entry<WriteFileExecFn>("WriteFileExec");
  if (!info || !init || !exec) return "";
  FileRecords records;
  if (!records.ok()) return "";
  thumbnail = RenderThumbnail(canvas);
  if (!thumbnail) return "";
  const std::string path = folder + "file_w" + folder.back() + "tmb.jpg";
  void* window = platform::PluginWindow(platform::Window::StatusBar);
  FormatInfo format{};
  info(window, &format);
  records.header()->layerCount = 1;
  records.geometry(0).width = thumbnail->width;
  records.geometry(0).height = thumbnail->height;
  records.geometry(0).bits = 24;
  records.layers()[0].one = 1;
  WriteCallbacks callbacks{GetRow, GetPlaneRow, NoPalette};
  const bool written = init(window, path.c_str(), 0) &&
                       exec(window, path.c_str(), records.header(), records.planes(), records.layers(), &callbacks);
  PlaneStore.FreePlane(&thumbnail);
  if (written) return path;
  platform::RemoveFile(path);
  return "";
}
