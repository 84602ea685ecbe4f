// A file plug-in built for the native tests, loaded from its shared object,
// and pictures held in memory that its entry points write out and read back
// through the row callbacks. It stands in for the host's side of the
// boundary, so that a plug-in's tests see only what any host would give it.
#pragma once

#include <dlfcn.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "plugin_abi/file_plugin.h"

namespace plugintest {

// The shared object of a plug-in target, as the native build places it.
class PluginModule {
 public:
  explicit PluginModule(const std::string& name)
      : PluginModule(std::string(TESEL_PLUGIN_DIR) + "/", name) {}
  // A copy of the shared object in another folder, for a test that puts
  // files beside the module.
  PluginModule(const std::string& folder, const std::string& name)
      : handle_(dlopen((folder + name + ".so").c_str(), RTLD_NOW | RTLD_LOCAL)) {}
  ~PluginModule() {
    if (handle_) dlclose(handle_);
  }
  PluginModule(const PluginModule&) = delete;
  PluginModule& operator=(const PluginModule&) = delete;

  bool loaded() const { return handle_ != nullptr; }
  // An entry point by its plain C name; null when it isn't exported.
  template <typename Fn>
  Fn Entry(const char* name) const {
    return handle_ ? reinterpret_cast<Fn>(dlsym(handle_, name)) : nullptr;
  }

 private:
  void* handle_;
};

// One layer: its records and its pixels. Image rows run from the top, three
// bytes a pixel (blue, green, red); an alpha plane is width x height bytes,
// empty when the plane is absent.
struct MemoryLayer {
  int width = 0, height = 0, bits = 24;
  LayerRecord record{};
  std::array<char[TESEL_PLANE_NAME_BYTES], TESEL_ALPHA_PLANES> names{};
  std::array<uint32_t, TESEL_ALPHA_PLANES> flags{};
  std::vector<uint8_t> image;
  std::array<std::vector<uint8_t>, TESEL_ALPHA_PLANES> alpha;
  // Writing in 8 bits: indices instead of image, and this palette.
  std::vector<uint8_t> indices;
  std::array<uint8_t, 1024> palette{};
};

struct MemoryPicture {
  int dpi = 96;
  int activeLayer = 0;
  int backRed = 255, backGreen = 255, backBlue = 255;
  std::vector<MemoryLayer> layers;
};

// The picture a callback works on: the callbacks are plain C functions.
inline MemoryPicture*& Current() {
  static MemoryPicture* picture = nullptr;
  return picture;
}

inline bool Inside(const MemoryLayer& l, int y, int x0, int x1) {
  return y >= 0 && y < l.height && x0 >= 0 && x0 <= x1 && x1 < l.width;
}

inline int GetRow(int y, int x0, int x1, uint8_t* buffer, int layer) {
  const MemoryLayer& l = Current()->layers[size_t(layer)];
  if (!Inside(l, y, x0, x1)) return 0;
  if (l.bits == 8) {
    std::memcpy(buffer, &l.indices[size_t(y) * l.width + x0], size_t(x1 - x0 + 1));
  } else {
    std::memcpy(buffer, &l.image[(size_t(y) * l.width + x0) * 3], size_t(x1 - x0 + 1) * 3);
  }
  return 1;
}

inline int GetPlaneRow(int y, int x0, int x1, uint8_t* buffer, int layer, int plane) {
  const MemoryLayer& l = Current()->layers[size_t(layer)];
  if (plane < 0 || plane >= TESEL_ALPHA_PLANES || l.alpha[size_t(plane)].empty() ||
      !Inside(l, y, x0, x1))
    return 0;
  std::memcpy(buffer, &l.alpha[size_t(plane)][size_t(y) * l.width + x0], size_t(x1 - x0 + 1));
  return 1;
}

inline int GetPalette(uint8_t* table) {
  std::memcpy(table, Current()->layers[0].palette.data(), 1024);
  return Current()->layers[0].bits == 8;
}

// Reading: the palette last set, per layer, for 1-, 4- and 8-bit rows.
inline std::vector<std::array<uint8_t, 1024>>& ReadPalettes() {
  static std::vector<std::array<uint8_t, 1024>> palettes;
  return palettes;
}

inline int SetPalette(const uint8_t* table, int layer) {
  MemoryLayer& l = Current()->layers[size_t(layer)];
  const size_t bytes = l.bits == 1 ? 8 : l.bits == 4 ? 64 : 1024;
  std::memcpy(ReadPalettes()[size_t(layer)].data(), table, bytes);
  return l.bits;
}

// Rows arrive in the declared depth and land in 24 bits, as the host's do.
inline int PutRow(int y, int x0, int x1, const uint8_t* buffer, int layer) {
  MemoryLayer& l = Current()->layers[size_t(layer)];
  if (!Inside(l, y, x0, x1)) return 0;
  const auto& palette = ReadPalettes()[size_t(layer)];
  for (int x = x0; x <= x1; ++x) {
    const int i = x - x0;
    uint8_t* out = &l.image[(size_t(y) * l.width + x) * 3];
    int index = -1;
    if (l.bits == 1) index = (buffer[i / 8] >> (7 - i % 8)) & 1;
    if (l.bits == 4) index = i % 2 ? buffer[i / 2] & 15 : buffer[i / 2] >> 4;
    if (l.bits == 8) index = buffer[i];
    if (index >= 0) {
      std::memcpy(out, &palette[size_t(index) * 4], 3);
    } else {
      std::memcpy(out, &buffer[size_t(i) * 3], 3);
    }
  }
  return 0;
}

inline int PutPlaneRow(int y, int x0, int x1, const uint8_t* buffer, int layer, int plane) {
  MemoryLayer& l = Current()->layers[size_t(layer)];
  if (plane < 0 || plane >= TESEL_ALPHA_PLANES || !Inside(l, y, x0, x1)) return -1;
  auto& target = l.alpha[size_t(plane)];
  if (target.empty()) target.assign(size_t(l.width) * l.height, 0);
  std::memcpy(&target[size_t(y) * l.width + x0], buffer, size_t(x1 - x0 + 1));
  return 0;
}

inline int PutChannelRow(int y, int channel, int x0, int x1, const uint8_t* buffer, int layer) {
  MemoryLayer& l = Current()->layers[size_t(layer)];
  if (channel < 0 || channel > 2 || !Inside(l, y, x0, x1)) return -1;
  for (int x = x0; x <= x1; ++x) l.image[(size_t(y) * l.width + x) * 3 + channel] = buffer[x - x0];
  return 0;
}

// Zero-filled records of the capacity a host gives for reading.
struct Records {
  std::unique_ptr<FileHeader> header = std::make_unique<FileHeader>();
  std::vector<LayerPlaneTable> planes = std::vector<LayerPlaneTable>(TESEL_LAYER_CAPACITY);
  std::vector<LayerRecord> layers = std::vector<LayerRecord>(TESEL_LAYER_CAPACITY);
  Records() { std::memset(header.get(), 0, sizeof(FileHeader)); }
};

// Writes a picture through the writer's entry points; the writer's result.
inline int WritePicture(const PluginModule& plugin, const std::string& path,
                        MemoryPicture& picture) {
  auto info = plugin.Entry<WriteFileInfoFn>("WriteFileInfo");
  auto init = plugin.Entry<WriteFileInitFn>("WriteFileInit");
  auto exec = plugin.Entry<WriteFileExecFn>("WriteFileExec");
  if (!info || !init || !exec) return 0;
  FormatInfo format{};
  info(nullptr, &format);
  Records r;
  r.header->dpiX = r.header->dpiY = picture.dpi;
  r.header->activeLayer = picture.activeLayer;
  r.header->layerCount = int32_t(picture.layers.size());
  for (size_t i = 0; i < picture.layers.size(); ++i) {
    const MemoryLayer& l = picture.layers[i];
    LayerGeometry& g = r.header->layers[i];
    g.width = l.width, g.height = l.height, g.bits = l.bits;
    r.layers[i] = l.record;
    for (int k = 0; k < TESEL_ALPHA_PLANES; ++k) {
      r.planes[i].present[k] = !l.alpha[size_t(k)].empty();
      std::memcpy(r.planes[i].names[k], l.names[size_t(k)], TESEL_PLANE_NAME_BYTES);
      r.planes[i].flags[k] = l.flags[size_t(k)];
    }
  }
  r.header->layers[0].hasBackColour = 1;
  r.header->layers[0].backRed = picture.backRed;
  r.header->layers[0].backGreen = picture.backGreen;
  r.header->layers[0].backBlue = picture.backBlue;
  if (!init(nullptr, path.c_str(), 0)) return 0;
  WriteCallbacks callbacks{GetRow, GetPlaneRow, GetPalette};
  Current() = &picture;
  const int result = exec(nullptr, path.c_str(), r.header.get(), r.planes.data(), r.layers.data(),
                          &callbacks);
  Current() = nullptr;
  return result;
}

// Reads a file through the reader's entry points into a picture of 24-bit
// layers, as a host reading into a canvas would; false when a step fails.
inline bool ReadPicture(const PluginModule& plugin, const std::string& path,
                        MemoryPicture* picture) {
  auto init = plugin.Entry<ReadFileInitFn>("ReadFileInit");
  auto size = plugin.Entry<ReadFileGetSizeFn>("ReadFileGetSize");
  auto exec = plugin.Entry<ReadFileExecFn>("ReadFileExec");
  if (!size || !exec) return false;
  if (init) init(nullptr, path.c_str(), 1);
  Records r;
  r.header->layerCount = 1;
  if (!size(nullptr, path.c_str(), r.header.get(), r.planes.data())) return false;
  const int count = r.header->layerCount;
  if (count < 1 || count > TESEL_LAYER_CAPACITY) return false;
  *picture = MemoryPicture{};
  picture->layers.resize(size_t(count));
  ReadPalettes().assign(size_t(count), {});
  for (int i = 0; i < count; ++i) {
    const LayerGeometry& g = r.header->layers[i];
    MemoryLayer& l = picture->layers[size_t(i)];
    if (g.width < 1 || g.height < 1 || int64_t(g.width) * g.height > (int64_t{1} << 28))
      return false;
    l.width = g.width, l.height = g.height, l.bits = g.bits;
    l.image.assign(size_t(l.width) * l.height * 3, 0);
    for (int k = 0; k < TESEL_ALPHA_PLANES; ++k) {
      std::memcpy(l.names[size_t(k)], r.planes[size_t(i)].names[k], TESEL_PLANE_NAME_BYTES);
      l.flags[size_t(k)] = r.planes[size_t(i)].flags[k];
    }
  }
  ReadCallbacks callbacks{PutRow, PutPlaneRow, SetPalette, PutChannelRow};
  Current() = picture;
  const int result = exec(nullptr, path.c_str(), r.header.get(), r.planes.data(), r.layers.data(),
                          &callbacks);
  Current() = nullptr;
  if (!result) return false;
  picture->dpi = r.header->dpiX;
  picture->activeLayer = r.header->activeLayer;
  picture->backRed = r.header->layers[0].backRed;
  picture->backGreen = r.header->layers[0].backGreen;
  picture->backBlue = r.header->layers[0].backBlue;
  for (int i = 0; i < count; ++i) picture->layers[size_t(i)].record = r.layers[size_t(i)];
  return true;
}

}  // namespace plugintest
