// Writes a few small files with the tsl writer, compiled in, as the fuzzer's
// first inputs: one layer without planes, several with planes over more than
// one band, a flat one, and one with a thumbnail.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "module_folder.h"
#include "plugin_abi/file_plugin.h"

extern "C" int WriteFileExec(TeselWindow, const char*, FileHeader*, LayerPlaneTable*, LayerRecord*,
                             WriteCallbacks*);

namespace {

int flat = 0;

int GetRow(int y, int x0, int x1, uint8_t* buffer, int layer) {
  for (int x = x0; x <= x1; ++x)
    for (int c = 0; c < 3; ++c)
      buffer[(x - x0) * 3 + c] = flat ? 40 : uint8_t(x * 7 + y * 3 + c * 50 + layer);
  return 1;
}
int GetPlaneRow(int y, int x0, int x1, uint8_t* buffer, int, int plane) {
  for (int x = x0; x <= x1; ++x) buffer[x - x0] = flat ? 0 : uint8_t((x ^ y) * (plane + 1));
  return 1;
}

bool Write(const std::string& path, std::vector<std::pair<int, int>> sizes, int planesMask) {
  auto header = std::make_unique<FileHeader>();
  std::vector<LayerPlaneTable> planes(TESEL_LAYER_CAPACITY);
  std::vector<LayerRecord> layers(TESEL_LAYER_CAPACITY);
  header->dpiX = header->dpiY = 72;
  header->layerCount = int32_t(sizes.size());
  header->layers[0].hasBackColour = 1;
  for (size_t i = 0; i < sizes.size(); ++i) {
    header->layers[i].width = sizes[i].first;
    header->layers[i].height = sizes[i].second;
    header->layers[i].bits = 24;
    std::snprintf(layers[i].name, sizeof layers[i].name, "L%zu", i);
    layers[i].mixMode = 1;
    for (int k = 0; k < TESEL_ALPHA_PLANES; ++k) {
      planes[i].present[k] = planesMask >> k & 1;
      std::snprintf(planes[i].names[k], TESEL_PLANE_NAME_BYTES, "%dT", k);
    }
  }
  WriteCallbacks callbacks{GetRow, GetPlaneRow, nullptr};
  return WriteFileExec(nullptr, path.c_str(), header.get(), planes.data(), layers.data(),
                       &callbacks) == 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const std::string folder = std::string(argv[1]) + "/";
  std::filesystem::create_directories(folder);
  bool ok = Write(folder + "one.tsl", {{5, 3}}, 0);
  ok = ok && Write(folder + "planes.tsl", {{6, 70}, {2, 2}}, 0x13);
  flat = 1;
  ok = ok && Write(folder + "flat.tsl", {{9, 65}}, 0x3);
  flat = 0;
  // The writer takes the thumbnail from beside its module: here, this program.
  const std::string thumbnail = tsl::ModuleFolder() + "tmb.jpg";
  std::ofstream(thumbnail, std::ios::binary) << "\xFF\xD8\xFF\xE0 a thumbnail";
  ok = ok && Write(folder + "thumbnail.tsl", {{4, 4}}, 0x2);
  std::filesystem::remove(thumbnail);
  return ok ? 0 : 1;
}
