// libFuzzer entry for the tsl reader, compiled in: each input becomes a file
// that is sized and read as the host would, with rows discarded. A row
// outside the geometry the reader announced stops the run.
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "plugin_abi/file_plugin.h"

extern "C" int ReadFileGetSize(TeselWindow, const char*, FileHeader*, LayerPlaneTable*);
extern "C" int ReadFileExec(TeselWindow, const char*, FileHeader*, LayerPlaneTable*, LayerRecord*,
                            ReadCallbacks*);

namespace {

FileHeader* announced = nullptr;

void Check(int y, int x0, int x1, int layer) {
  if (layer < 0 || layer >= announced->layerCount || y < 0 ||
      y >= announced->layers[layer].height || x0 != 0 || x1 != announced->layers[layer].width - 1)
    std::abort();
}

int PutRow(int y, int x0, int x1, const uint8_t*, int layer) {
  Check(y, x0, x1, layer);
  return 0;
}
int PutPlaneRow(int y, int x0, int x1, const uint8_t*, int layer, int plane) {
  Check(y, x0, x1, layer);
  if (plane < 0 || plane >= TESEL_ALPHA_PLANES) std::abort();
  return 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const std::string path = (std::filesystem::temp_directory_path() /
                                   ("tesel_tsl_fuzz_" + std::to_string(getpid()) + ".tsl"))
                                      .string();
  FILE* file = std::fopen(path.c_str(), "wb");
  if (!file) return 0;
  std::fwrite(data, 1, size, file);
  std::fclose(file);

  auto header = std::make_unique<FileHeader>();
  std::vector<LayerPlaneTable> planes(TESEL_LAYER_CAPACITY);
  std::vector<LayerRecord> layers(TESEL_LAYER_CAPACITY);
  header->layerCount = 1;
  if (!ReadFileGetSize(nullptr, path.c_str(), header.get(), planes.data())) return 0;
  if (header->layerCount < 1 || header->layerCount > TESEL_LAYER_CAPACITY) std::abort();
  FileHeader sizes = *header;
  announced = &sizes;
  ReadCallbacks callbacks{PutRow, PutPlaneRow, nullptr, nullptr};
  ReadFileExec(nullptr, path.c_str(), header.get(), planes.data(), layers.data(), &callbacks);
  return 0;
}
