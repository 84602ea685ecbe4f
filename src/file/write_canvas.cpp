#include "file/write_canvas.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <vector>

#include "display/compose.h"
#include "document/canvas_manager.h"
#include "file/file_records.h"
#include "file/file_windows.h"
#include "file/palette_picture.h"
#include "file/plugin_library.h"
#include "file/plugin_registry.h"
#include "file/thumbnail.h"
#include "platform/platform.h"
#include "resources/strings.h"
#include "settings/settings.h"
#include "store/dib.h"

namespace {

constexpr int kStringSavingFailed = 1301;
constexpr int kComposedBand = 64;  // rows composed at once for a flat format

struct Crop {
  int left = 0, top = 0;
};

// The write in progress, for the callbacks.
struct WriteSource {
  Canvas* canvas = nullptr;
  bool layerAware = false;
  bool partial = false;
  std::vector<Crop> crops;
  // The band of composed rows last made: canvas rows bandTop.. and columns
  // bandX0..bandX1.
  DibTile* band = nullptr;
  int bandTop = 0, bandX0 = 0, bandX1 = -1;
  // Palette-only writing: the picture as indices, made before the writer runs.
  bool paletteOnly = false;
  QuantisedImage quantised;
};
WriteSource source;

// The layer whose rows a request reads: the active one for a partial write.
int RowLayer(int layer) {
  return source.partial ? LayerOf(source.canvas->activePlane) : layer;
}

Crop CropOf(int layer) {
  return layer >= 0 && layer < static_cast<int>(source.crops.size()) ? source.crops[size_t(layer)]
                                                                    : Crop{};
}

void FreeBand() {
  if (source.band) FreeTile(&source.band);
  source.band = nullptr;
}

// Composed canvas row y, columns x0..x1, from a band made for them.
int ComposedRow(int y, int x0, int x1, uint8_t* buffer) {
  if (!source.band || x0 != source.bandX0 || x1 != source.bandX1 || y < source.bandTop ||
      y >= source.bandTop + source.band->height) {
    FreeBand();
    source.band = Compose(source.canvas, x0, y, x1, y + kComposedBand - 1, 0, 0);
    if (!source.band) return 0;
    source.bandTop = y, source.bandX0 = x0, source.bandX1 = x1;
  }
  return ReadTileRow(source.band, y - source.bandTop, 0, x1 - x0, buffer);
}

int GetRow(int y, int x0, int x1, uint8_t* buffer, int layer) {
  if (!buffer || x0 > x1) return 0;
  if (source.paletteOnly) {
    const QuantisedImage& q = source.quantised;
    if (q.indices.empty() || y < 0 || y >= q.height || x0 < 0 || x1 >= q.width) return 0;
    std::memcpy(buffer, &q.indices[size_t(y) * q.width + x0], size_t(x1 - x0 + 1));
    return 1;
  }
  const Crop crop = CropOf(layer);
  if (layer >= 0 && source.layerAware) {
    const int from = RowLayer(layer);
    if (from < kMaxLayers) {
      Plane* plane = source.canvas->planes[SlotIndex(from, kImagePosition)].plane;
      if (plane) {
        PlaneStore.ReadRow(plane, y + crop.top, x0 + crop.left, x1 + crop.left, buffer);
        return 1;
      }
    }
  }
  ComposedRow(y + crop.top, x0 + crop.left, x1 + crop.left, buffer);
  return 1;
}

int GetPlaneRow(int y, int x0, int x1, uint8_t* buffer, int layer, int plane) {
  const int from = RowLayer(layer);
  if (!buffer || plane < 0 || plane >= TESEL_ALPHA_PLANES || from < 0 || from >= kMaxLayers)
    return 0;
  Plane* alpha = source.canvas->planes[SlotIndex(from, plane + 1)].plane;
  if (!alpha) return 0;
  const Crop crop = CropOf(layer);
  PlaneStore.ReadRow(alpha, y + crop.top, x0 + crop.left, x1 + crop.left, buffer);
  return 1;
}

int GetPalette(uint8_t* table) {
  if (!source.paletteOnly || !table) return 0;
  std::memcpy(table, source.quantised.palette.data(), source.quantised.palette.size());
  return 1;
}

// The picture a palette-only write sends: composed, with the base layer's
// two transparency planes, over the first record's geometry and crop.
QuantisedImage QuantiseForWrite(const LayerGeometry& g) {
  const Crop crop = CropOf(0);
  const PlaneSlot* base = &source.canvas->planes[0];
  PaletteSource picture{g.width, g.height, [&](int y, uint8_t* rgb, uint8_t* slot2, uint8_t* slot3) {
    const int top = y + crop.top, left = crop.left, right = crop.left + g.width - 1;
    ComposedRow(top, left, right, rgb);
    std::memset(slot2, 255, size_t(g.width));
    std::memset(slot3, 0, size_t(g.width));
    if (base[2].plane) PlaneStore.ReadRow(base[2].plane, top, left, right, slot2);
    if (base[3].plane) PlaneStore.ReadRow(base[3].plane, top, left, right, slot3);
  }};
  return QuantisePicture(picture);
}

// A layer's geometry in the records, with the crop applied.
Crop Describe(const PlaneSlot& image, int left, int top, int right, int bottom, LayerGeometry& g,
              LayerRecord& record) {
  g.width = image.width, g.height = image.height;
  record.left = image.left, record.top = image.top;
  if (left < 0) return {};
  const int leftEdge = std::max(image.left, left), rightEdge = std::min(image.left + image.width - 1, right);
  const int topEdge = std::max(image.top, top), bottomEdge = std::min(image.top + image.height - 1, bottom);
  g.width = std::max(1, rightEdge - leftEdge + 1);
  g.height = std::max(1, bottomEdge - topEdge + 1);
  record.left = std::max(0, image.left - leftEdge);
  record.top = std::max(0, image.top - topEdge);
  return {image.left < left ? leftEdge - image.left : 0, image.top < top ? topEdge - image.top : 0};
}

void DescribeLayer(Canvas* canvas, int from, int to, FileRecords& records, bool paletteOnly,
                   int left, int top, int right, int bottom, bool whole) {
  const PlaneSlot* slots = &canvas->planes[SlotIndex(from, 0)];
  LayerGeometry& g = records.geometry(to);
  LayerRecord& record = records.layers()[to];
  LayerPlaneTable& table = records.planes()[to];
  source.crops.push_back(Describe(slots[0], left, top, right, bottom, g, record));
  g.bits = paletteOnly ? 8 : static_cast<int32_t>(slots[0].plane->bits);
  std::snprintf(record.name, sizeof record.name, "%s", slots[0].name);
  record.index = whole ? from : 0;
  record.one = 1;
  record.mixMode = slots[0].mixMode;
  record.opacityLoss = slots[0].opacityLoss;
  record.savedMixMode = slots[0].savedMixMode;
  for (int k = 0; k < TESEL_ALPHA_PLANES; ++k) {
    const PlaneSlot& slot = slots[k + 1];
    table.present[k] = slot.plane != nullptr;
    std::memcpy(table.names[k], slot.name, TESEL_PLANE_NAME_BYTES);
    table.names[k][TESEL_PLANE_NAME_BYTES - 1] = '\0';
    table.flags[k] = uint32_t(slot.planeFlags[0]) | uint32_t(slot.planeFlags[1]) << 8 |
                     uint32_t(slot.planeFlags[2]) << 16 | uint32_t(slot.planeFlags[3]) << 24;
  }
  if (!whole) return;
  for (int position = 0; position < kPlanesPerLayer; ++position) {
    record.planeOff[position] = slots[position].planeOff;
    record.lineDrawing[position] = slots[position].planeFlags[kFlagLineDraw];
  }
}

// The view options that would show in composed rows are off for a write.
class TrueComposition {
 public:
  TrueComposition() : outside_(settings.outsideDisplay), darken_(settings.darkenOutsideBoundary) {
    settings.outsideDisplay = 0;
    settings.darkenOutsideBoundary = 0;
  }
  ~TrueComposition() {
    settings.outsideDisplay = outside_;
    settings.darkenOutsideBoundary = darken_;
  }

 private:
  int32_t outside_, darken_;
};

// A name beside the target, with its extension, for the write to land on.
std::string TemporaryBeside(const std::string& path) {
  const size_t slash = path.find_last_of("/\\");
  const std::string folder = slash == std::string::npos ? "" : path.substr(0, slash + 1);
  return platform::TempName(folder + "~tesel-XXXXXX." + ExtensionOf(path));
}

void ShowSavingFailed() {
  platform::ShowMessageBox(platform::Window::Frame, StringText(kStringSavingFailed), kProductName,
                           platform::MbOk | platform::MbIconError);
}

}  // namespace

bool LayerAware(const std::string& path) {
  const std::string extension = ExtensionOf(path);
  return SameText(extension, "tsl") || SameText(extension, "pcr") || SameText(extension, "psd");
}

int WriteCanvas(Canvas* canvas, int left, int top, int right, int bottom, const std::string& path,
                int partial, int* saved) {
  *saved = 0;
  if (path.empty() || path.find('.') == std::string::npos) return 0;
  const bool layerAware = LayerAware(path);
  if (!layerAware && !partial && !settings.noWarnNotTsl && fileWindows.confirmFlatFormat &&
      !fileWindows.confirmFlatFormat())
    return 1;
  // The thumbnail goes in all cases once the write is over.
  struct Thumbnail {
    std::string path;
    ~Thumbnail() {
      if (!path.empty()) platform::RemoveFile(path);
    }
  } thumbnail;
  if (layerAware) thumbnail.path = WriteThumbnail(canvas);
  const int writer = FileFormatRegistry.FindWriter(path);
  if (writer < 0) return 0;
  PluginLibrary library(FileFormatRegistry.writers[size_t(writer)]);
  auto info = library.Entry<WriteFileInfoFn>("WriteFileInfo");
  auto init = library.Entry<WriteFileInitFn>("WriteFileInit");
  auto exec = library.Entry<WriteFileExecFn>("WriteFileExec");
  if (!info || !init || !exec) return 0;
  void* window = platform::PluginWindow(platform::Window::StatusBar);
  FormatInfo format{};
  info(window, &format);
  const bool paletteOnly = format.accepts24 == 0 && format.accepts8 != 0;

  FileRecords records(WriteCapacityFor(path));
  if (!records.ok()) return 0;
  FileHeader* header = records.header();
  header->dpiX = header->dpiY = canvas->dpi;
  header->activeLayer = layerAware ? LayerOf(canvas->activePlane) : 0;
  LayerGeometry& first = records.geometry(0);
  first.hasBackColour = 1;
  first.backRed = settings.backgroundRed;
  first.backGreen = settings.backgroundGreen;
  first.backBlue = settings.backgroundBlue;

  source = WriteSource{};
  source.canvas = canvas;
  source.layerAware = layerAware;
  source.partial = partial != 0;
  source.paletteOnly = paletteOnly;
  if (partial) {
    header->layerCount = 1;
    DescribeLayer(canvas, 0, 0, records, paletteOnly, left, top, right, bottom, false);
  } else {
    const int layers = std::min(CanvasManager.LayerCount(canvas), records.capacity());
    header->layerCount = layers;
    for (int i = 0; i < layers; ++i)
      DescribeLayer(canvas, i, i, records, paletteOnly, -1, 0, 0, 0, true);
  }

  int result = 0;
  {
    TrueComposition neutral;
    platform::WaitCursor wait;
    if (!init(window, path.c_str(), 1)) {
      FreeBand();
      return 0;
    }
    if (paletteOnly) source.quantised = QuantiseForWrite(records.geometry(0));
    const std::string temporary = TemporaryBeside(path);
    WriteCallbacks callbacks{GetRow, GetPlaneRow, GetPalette};
    result = exec(window, temporary.c_str(), header, records.planes(), records.layers(), &callbacks);
    if (result && !platform::MoveFileOver(temporary, path)) result = 0;
    if (!result) platform::RemoveFile(temporary);
  }
  FreeBand();
  source = WriteSource{};
  if (!result) {
    ShowSavingFailed();
    return 0;
  }
  *saved = 1;
  return 1;
}
