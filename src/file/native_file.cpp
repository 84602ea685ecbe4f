#include "file/native_file.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <vector>

#include "document/canvas_manager.h"
#include "document/canvas_request.h"
#include "file/plugin_registry.h"
#include "file/read_image.h"
#include "platform/platform.h"

HookList<const std::string&> fileNamedHooks;

namespace {

// What the first half learnt, for the second.
struct OpenedFile {
  std::string path;
  FileSize size;
};
OpenedFile opened;

constexpr int kVersionOffset = 80;

// A short name of ten bytes with its tenth forced to nul.
void TakeShortName(char* to, const char* from) {
  std::memset(to, 0, kPlaneNameChars);
  std::memcpy(to, from, TESEL_PLANE_NAME_BYTES);
  to[TESEL_PLANE_NAME_BYTES - 1] = '\0';
}

// The names and first four flags of a layer's alpha planes, from the file.
void TakePlaneTable(Canvas* canvas, int layer, int planeCount, const LayerPlaneTable& table) {
  for (int k = 0; k < planeCount && k < TESEL_ALPHA_PLANES; ++k) {
    PlaneSlot& slot = canvas->planes[SlotIndex(layer, k + 1)];
    TakeShortName(slot.name, table.names[k]);
    for (int b = 0; b < 4; ++b) slot.planeFlags[b] = static_cast<uint8_t>(table.flags[k] >> (8 * b));
  }
}

// An older file's layer with two alpha planes whose transparency slot is no
// mask gets a mask of its own; the map then sends its planes one further.
std::vector<int> OlderLayoutMap(Canvas* canvas, int version) {
  const int layers = std::min(opened.size.layers, CanvasManager.LayerCount(canvas));
  std::vector<int> map(size_t(layers), 0);
  if (version != kOlderNativeVersion) return map;
  for (int layer = 0; layer < layers; ++layer) {
    if (opened.size.planeCounts[size_t(layer)] < 2) continue;
    if (canvas->planes[SlotIndex(layer, kTransparencyPosition)].planeFlags[0] != 0) continue;
    if (CanvasManager.AddPlane(canvas, SlotIndex(layer, 0), 0) >= 0) map[size_t(layer)] = 1;
  }
  return map;
}

// After an older file's read, the names and flags of a mapped layer move up
// one slot from slot 2, which keeps its own.
void ShiftMappedNames(Canvas* canvas, const std::vector<int>& map) {
  for (size_t layer = 0; layer < map.size(); ++layer) {
    if (!map[layer]) continue;
    PlaneSlot* slots = &canvas->planes[SlotIndex(int(layer), 0)];
    for (int j = opened.size.planeCounts[layer]; j >= 0; --j) {
      if (j + 3 >= kPlanesPerLayer) continue;
      TakeShortName(slots[j + 3].name, slots[j + 2].name);
      std::memcpy(slots[j + 3].planeFlags, slots[j + 2].planeFlags, kPlaneFlagCount);
    }
  }
}

}  // namespace

int OpenCanvasFile(const std::string& path) {
  FileSize size;
  if (!GetFileSize(path, 1, &size)) return 0;
  const int layers = std::min(size.layers, kMaxLayers);
  CanvasRequest.layerCount = layers;
  for (int i = 0; i < layers; ++i) {
    CanvasRequest.width[i] = size.widths[size_t(i)];
    CanvasRequest.height[i] = size.heights[size_t(i)];
    CanvasRequest.left[i] = CanvasRequest.top[i] = 0;
    CanvasRequest.bits[i] = 24;
    CanvasRequest.planeCount[i] = size.planeCounts[size_t(i)];
  }
  std::snprintf(CanvasRequest.fileName, kFileNameChars, "%s", path.c_str());
  CanvasRequest.mode = kModeOpen;
  opened = {path, size};
  fileNamedHooks.Run(path);
  return 1;
}

int ReadCanvasFile(Canvas* canvas) {
  const std::string path = opened.path;
  std::snprintf(canvas->fileName, kFileNameChars, "%s", path.c_str());
  if (!SameText(ExtensionOf(path), "tsl")) {
    ReadIntoCanvas(canvas, path, {});
    return 1;
  }
  const int version = ReadFileVersion(path);
  const int layers = std::min(opened.size.layers, CanvasManager.LayerCount(canvas));
  for (int layer = 0; layer < layers; ++layer)
    TakePlaneTable(canvas, layer, opened.size.planeCounts[size_t(layer)],
                   opened.size.planeTables[size_t(layer)]);
  const std::vector<int> map = OlderLayoutMap(canvas, version);
  ReadIntoCanvas(canvas, path, map);
  ShiftMappedNames(canvas, map);
  return 1;
}

int ReadFileVersion(const std::string& path) {
  FILE* file = platform::OpenFile(path, "rb");
  if (!file) return -1;
  uint8_t bytes[4];
  const bool read = std::fseek(file, kVersionOffset, SEEK_SET) == 0 && std::fread(bytes, 1, 4, file) == 4;
  std::fclose(file);
  if (!read) return -1;
  return int(uint32_t(bytes[0]) | uint32_t(bytes[1]) << 8 | uint32_t(bytes[2]) << 16 |
             uint32_t(bytes[3]) << 24);
}

void ResetNativeFile() {
  opened = {};
  fileNamedHooks.Clear();
}
