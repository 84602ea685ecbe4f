#include "file/read_image.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>

#include "base/limits.h"
#include "document/canvas_manager.h"
#include "file/file_records.h"
#include "file/plugin_library.h"
#include "file/plugin_registry.h"
#include "platform/platform.h"
#include "resources/strings.h"
#include "settings/settings.h"

namespace {

constexpr int kPaletteBytes = 1024;

// The callbacks are plain C functions: what they read into is the
// operation's, here.
struct ReadTarget {
  Canvas* canvas = nullptr;  // reading layers
  Plane* image = nullptr;    // reading one picture
  Plane* alpha = nullptr;
  int* delivered = nullptr;
  std::vector<int> planeMap;
  std::vector<int> bits;  // per layer, as the reader declared them
  std::vector<std::array<uint8_t, kPaletteBytes>> palettes;
  std::vector<uint8_t> row;
};
ReadTarget target;

// The depths of the last GetFileSize, for the rows that follow.
std::vector<int> keptBits;

Plane* ImageOf(int layer) {
  if (layer < 0 || layer >= static_cast<int>(target.bits.size())) return nullptr;
  if (!target.canvas) return layer == 0 ? target.image : nullptr;
  return target.canvas->planes[SlotIndex(layer, kImagePosition)].plane;
}

// Pixel i of a row of 1, 4 or 8 bits: 1-bit rows from the most significant
// bit, 4-bit rows with the even column in the high nibble.
int IndexAt(const uint8_t* row, int bits, int i) {
  if (bits == 1) return (row[i / 8] >> (7 - i % 8)) & 1;
  if (bits == 4) return i % 2 ? row[i / 2] & 15 : row[i / 2] >> 4;
  return row[i];
}

// Columns x0..x1 of the row within the plane: the first column inside and
// how many; false when none is.
bool Clip(const Plane* plane, int y, int x0, int x1, int* first, int* count) {
  if (!plane || y < 0 || y >= plane->height || x0 > x1) return false;
  *first = std::max(x0, 0);
  *count = std::min(x1, plane->width - 1) - *first + 1;
  return *count > 0;
}

int PutRow(int y, int x0, int x1, const uint8_t* buffer, int layer) {
  Plane* plane = ImageOf(layer);
  int first = 0, count = 0;
  if (!buffer || !Clip(plane, y, x0, x1, &first, &count)) return 0;
  const int bits = target.bits[size_t(layer)];
  const int skip = first - x0;
  if (plane->bits == 8 && bits == 8) {
    PlaneStore.WriteRow(plane, y, first, first + count - 1, buffer + skip);
    return 0;
  }
  if (plane->bits != 24) return 0;
  target.row.resize(size_t(count) * 3);
  uint8_t* out = target.row.data();
  if (bits == 24 || bits == 32) {
    const int step = bits / 8;
    for (int i = 0; i < count; ++i) std::memcpy(out + i * 3, buffer + (skip + i) * step, 3);
  } else if (bits == 1 || bits == 4 || bits == 8) {
    const uint8_t* palette = target.palettes[size_t(layer)].data();
    for (int i = 0; i < count; ++i)
      std::memcpy(out + i * 3, palette + IndexAt(buffer, bits, skip + i) * 4, 3);
  } else {
    return 0;
  }
  PlaneStore.WriteRow(plane, y, first, first + count - 1, out);
  return 0;
}

// The slot of alpha plane p of a layer: p + 1, or with the older layout's
// map, 0 and 1 swapped into 3 and 2 and the rest one further.
int SlotOfPlane(int layer, int p) {
  const bool swapped = layer < static_cast<int>(target.planeMap.size()) && target.planeMap[size_t(layer)];
  if (!swapped) return p + 1;
  return p == 0 ? 3 : p == 1 ? 2 : p + 2;
}

int PutPlaneRowIntoCanvas(int y, int x0, int x1, const uint8_t* buffer, int layer, int p) {
  if (layer < 0 || layer >= static_cast<int>(target.bits.size()) || p < 0) return -1;
  if (target.delivered) *target.delivered = 1;
  const int slot = SlotOfPlane(layer, p);
  if (slot >= kPlanesPerLayer) return -1;
  Plane* plane = target.canvas->planes[SlotIndex(layer, slot)].plane;
  if (!plane) return -1;
  int first = 0, count = 0;
  if (Clip(plane, y, x0, x1, &first, &count))
    PlaneStore.WriteRow(plane, y, first, first + count - 1, buffer + (first - x0));
  return 0;
}

// One picture takes the mask planes 1 and 2 only, multiplied into what its
// alpha holds; plane 2's values count inverted.
int PutPlaneRowIntoPicture(int y, int x0, int x1, const uint8_t* buffer, int layer, int p) {
  if (layer != 0 || (p != 1 && p != 2)) return -1;
  int first = 0, count = 0;
  if (!target.alpha || !Clip(target.alpha, y, x0, x1, &first, &count)) return 0;
  target.row.resize(size_t(count));
  PlaneStore.ReadRow(target.alpha, y, first, first + count - 1, target.row.data());
  for (int i = 0; i < count; ++i) {
    const int value = buffer[first - x0 + i];
    const int mask = p == 2 ? 255 - value : value;
    target.row[size_t(i)] = static_cast<uint8_t>(target.row[size_t(i)] * mask / 255);
  }
  PlaneStore.WriteRow(target.alpha, y, first, first + count - 1, target.row.data());
  if (target.delivered) *target.delivered = 1;
  return 0;
}

int PutPlaneRow(int y, int x0, int x1, const uint8_t* buffer, int layer, int plane) {
  if (!buffer) return -1;
  return target.canvas ? PutPlaneRowIntoCanvas(y, x0, x1, buffer, layer, plane)
                       : PutPlaneRowIntoPicture(y, x0, x1, buffer, layer, plane);
}

int SetPalette(const uint8_t* table, int layer) {
  if (!ImageOf(layer) || !table) return -1;
  const int bits = target.bits[size_t(layer)];
  const size_t bytes = bits == 1 ? 8 : bits == 4 ? 64 : bits == 8 ? kPaletteBytes : 0;
  std::memcpy(target.palettes[size_t(layer)].data(), table, bytes);
  return bits;
}

int PutChannelRow(int y, int channel, int x0, int x1, const uint8_t* buffer, int layer) {
  Plane* plane = ImageOf(layer);
  if (!plane || channel < 0 || channel > 2 || !buffer) return -1;
  const int bits = target.bits[size_t(layer)];
  int first = 0, count = 0;
  if ((bits != 24 && bits != 32) || plane->bits != 24 || !Clip(plane, y, x0, x1, &first, &count))
    return 0;
  target.row.resize(size_t(count) * 3);
  PlaneStore.ReadRow(plane, y, first, first + count - 1, target.row.data());
  for (int i = 0; i < count; ++i) target.row[size_t(i) * 3 + size_t(channel)] = buffer[first - x0 + i];
  PlaneStore.WriteRow(plane, y, first, first + count - 1, target.row.data());
  return 0;
}

void ShowCriticalError() {
  platform::ShowMessageBox(platform::Window::Frame, "critical error1", kProductName,
                           platform::MbOk);
}

// Runs the reader's ReadFileExec on records the caller filled.
int Exec(const std::string& path, FileRecords& records) {
  const int reader = FileFormatRegistry.FindReader(path);
  if (reader < 0) return 0;
  const std::string& libraryPath = FileFormatRegistry.readers[size_t(reader)];
  PluginLibrary library(libraryPath);
  auto exec = library.Entry<ReadFileExecFn>("ReadFileExec");
  if (!exec) {
    platform::ShowMessageBox(platform::Window::Frame, libraryPath, "error", platform::MbOk);
    return 0;
  }
  ReadCallbacks callbacks{PutRow, PutPlaneRow, SetPalette, PutChannelRow};
  platform::WaitCursor wait;
  return exec(platform::PluginWindow(platform::Window::StatusBar), path.c_str(), records.header(),
              records.planes(), records.layers(), &callbacks);
}

void BeginTarget(int layers) {
  target.bits.assign(size_t(layers), 24);
  for (int i = 0; i < layers && i < static_cast<int>(keptBits.size()); ++i)
    target.bits[size_t(i)] = keptBits[size_t(i)];
  target.palettes.assign(size_t(layers), {});
}

// A layer takes its place, name and modes from the file; its alpha slots
// stand where its image does and show as channels.
void TakeLayerRecord(Canvas* canvas, int layer, const LayerRecord& record, bool native) {
  PlaneSlot* slots = &canvas->planes[SlotIndex(layer, 0)];
  slots[0].left = record.left;
  slots[0].top = record.top;
  slots[0].opacityLoss = record.opacityLoss;
  slots[0].mixMode = record.mixMode;
  slots[0].savedMixMode = record.savedMixMode;
  const size_t length = strnlen(record.name, kPlaneNameChars - 1);
  std::memcpy(slots[0].name, record.name, length);
  slots[0].name[length] = '\0';
  slots[0].displayMode = static_cast<uint8_t>(settings.defaultDisplay);
  for (int position = 1; position < kPlanesPerLayer; ++position) {
    slots[position].displayMode = kDisplayChannel;
    slots[position].left = slots[0].left;
    slots[position].top = slots[0].top;
    slots[position].width = slots[0].width;
    slots[position].height = slots[0].height;
  }
  if (!native) return;
  for (int position = 0; position < kPlanesPerLayer; ++position) {
    slots[position].planeOff = record.planeOff[position];
    slots[position].planeFlags[kFlagLineDraw] = record.lineDrawing[position];
  }
}

}  // namespace

bool GetFileSize(const std::string& path, int mode, FileSize* out) {
  *out = FileSize{};
  if (path.empty()) return false;
  const int reader = FileFormatRegistry.FindReader(path);
  if (reader < 0) return false;
  FileRecords records;
  if (!records.ok()) {
    ShowCriticalError();
    return false;
  }
  {
    PluginLibrary library(FileFormatRegistry.readers[size_t(reader)]);
    auto init = library.Entry<ReadFileInitFn>("ReadFileInit");
    auto size = library.Entry<ReadFileGetSizeFn>("ReadFileGetSize");
    if (!size) return false;
    void* window = platform::PluginWindow(platform::Window::StatusBar);
    platform::WaitCursor wait;
    if (init) init(window, path.c_str(), mode);
    records.header()->layerCount = 1;
    if (!size(window, path.c_str(), records.header(), records.planes())) return false;
  }
  const int layers = records.header()->layerCount;
  if (layers < 1 || layers > TESEL_LAYER_CAPACITY) return false;
  for (int i = 0; i < layers; ++i) {
    const LayerGeometry& g = records.geometry(i);
    // What no canvas can hold is no picture to open.
    if (g.width < 1 || g.height < 1 || g.width > kMaxCanvasSide || g.height > kMaxCanvasSide)
      return false;
    const LayerPlaneTable& table = records.planes()[i];
    out->widths.push_back(g.width);
    out->heights.push_back(g.height);
    out->bits.push_back(g.bits);
    out->planeCounts.push_back(
        static_cast<int>(std::count_if(table.present, table.present + 10, [](int32_t p) { return p != 0; })));
    out->planeTables.push_back(table);
  }
  out->layers = layers;
  keptBits = out->bits;
  return true;
}

int ReadIntoCanvas(Canvas* canvas, const std::string& path, const std::vector<int>& planeMap) {
  FileRecords records;
  if (!records.ok()) {
    ShowCriticalError();
    return 0;
  }
  const int layers = std::min(CanvasManager.LayerCount(canvas), TESEL_LAYER_CAPACITY);
  FileHeader* header = records.header();
  header->layerCount = layers;
  for (int i = 0; i < layers; ++i) {
    const PlaneSlot& slot = canvas->planes[SlotIndex(i, kImagePosition)];
    LayerGeometry& g = records.geometry(i);
    g.width = slot.width;
    g.height = slot.height;
    g.bits = static_cast<int32_t>(slot.bits);
    LayerRecord& record = records.layers()[i];
    record.mixMode = kMixNormal;
    record.savedMixMode = kMixNormal;
    std::snprintf(record.name, sizeof record.name, "%s", slot.name);
  }
  target = ReadTarget{};
  target.canvas = canvas;
  target.planeMap = planeMap;
  BeginTarget(layers);
  const int result = Exec(path, records);
  const bool native = SameText(ExtensionOf(path), "tsl");
  for (int i = 0; i < layers; ++i) TakeLayerRecord(canvas, i, records.layers()[i], native);
  canvas->dpi = header->dpiX;
  target = ReadTarget{};
  return result;
}

int ReadIntoPicture(Plane* image, Plane* alpha, const std::string& path, int* delivered) {
  FileRecords records;
  if (!records.ok()) {
    ShowCriticalError();
    return 0;
  }
  FileHeader* header = records.header();
  header->layerCount = 1;
  header->dpiX = header->dpiY = 96;
  records.geometry(0).width = image->width;
  records.geometry(0).height = image->height;
  records.geometry(0).bits = static_cast<int32_t>(image->bits);
  target = ReadTarget{};
  target.image = image;
  target.alpha = alpha;
  target.delivered = delivered;
  BeginTarget(1);
  const int result = Exec(path, records);
  target = ReadTarget{};
  return result;
}

Plane* LoadPreview(const std::string& path) {
  FileSize size;
  if (!GetFileSize(path, 0, &size)) return nullptr;
  Plane* image = PlaneStore.CreatePlane(size.widths[0], size.heights[0], 24, 255, 1, Physical);
  if (image && !ReadIntoPicture(image, nullptr, path, nullptr)) PlaneStore.FreePlane(&image);
  return image;
}

Plane* FastPreview(const std::string& path) {
  const int reader = FileFormatRegistry.FindReader(path);
  if (reader < 0) return nullptr;
  FileRecords records;
  if (!records.ok()) return nullptr;
  char made[TESEL_FAST_IMAGE_PATH_BYTES] = {};
  {
    PluginLibrary library(FileFormatRegistry.readers[size_t(reader)]);
    auto fast = library.Entry<ReadFileFastImageFn>("ReadFileFastImage");
    records.header()->layerCount = 1;
    if (!fast || !fast(platform::PluginWindow(platform::Window::StatusBar), path.c_str(),
                       records.header(), records.planes(), made))
      return nullptr;
  }
  made[sizeof made - 1] = '\0';
  Plane* preview = made[0] ? LoadPreview(made) : nullptr;
  if (made[0]) platform::RemoveFile(made);
  return preview;
}

bool LoadImageWithAlpha(const std::string& path, Plane** image, Plane** alpha, int* delivered) {
  *image = *alpha = nullptr;
  FileSize size;
  if (!GetFileSize(path, 0, &size)) return false;
  *image = PlaneStore.CreatePlane(size.widths[0], size.heights[0], 24, 255, 1, Physical);
  *alpha = PlaneStore.CreatePlane(size.widths[0], size.heights[0], 8, 255, 1, Physical);
  if (!*image || !*alpha) {
    PlaneStore.FreePlane(image);
    PlaneStore.FreePlane(alpha);
    return false;
  }
  for (int i = 0; i < 256; ++i)
    std::memset((*alpha)->palette[i], i, 3);
  if (ReadIntoPicture(*image, *alpha, path, delivered)) return true;
  PlaneStore.FreePlane(image);
  PlaneStore.FreePlane(alpha);
  return false;
}

void ResetReadImage() {
  target = ReadTarget{};
  keptBits.clear();
}
