// libFuzzer entry for the BMP reader: each input becomes a file, which is
// loaded into a plane of one of the three storage kinds and freed.
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>

#include "settings/settings.h"
#include "store/dib.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const std::string path =
      (std::filesystem::temp_directory_path() / ("tesel_bmp_fuzz_" + std::to_string(getpid()) + ".bmp"))
          .string();
  FILE* file = std::fopen(path.c_str(), "wb");
  if (!file) return 0;
  std::fwrite(data, 1, size, file);
  std::fclose(file);
  settings.workBuffer = static_cast<int32_t>(size % 3);
  Plane* plane = LoadBmp(path);
  PlaneStore.FreePlane(&plane);
  return 0;
}
