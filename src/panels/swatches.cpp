#include "panels/swatches.h"

#include <cstdio>

#include "platform/platform.h"
#include "settings/side_path.h"
#include "store/little_endian.h"

uint32_t swatches[kSwatchWords];

namespace {

constexpr size_t kSwatchBytes = kSwatchWords * 4;

std::string SwatchPath(const std::string& folder) { return SidePath(folder, "coldlg.dat"); }

}  // namespace

void ReadSwatches(const std::string& folder) {
  FILE* file = platform::OpenFile(SwatchPath(folder), "rb");
  if (!file) return;
  uint8_t bytes[kSwatchBytes];
  const size_t read = std::fread(bytes, 1, kSwatchBytes, file);
  std::fclose(file);
  for (size_t word = 0; word < read / 4; ++word) swatches[word] = GetU32(bytes + word * 4);
}

bool WriteSwatches(const std::string& folder) {
  uint8_t bytes[kSwatchBytes];
  for (int word = 0; word < kSwatchWords; ++word) PutU32(bytes + word * 4, swatches[word]);
  FILE* file = platform::OpenFile(SwatchPath(folder), "wb");
  if (!file) return false;
  const bool written = std::fwrite(bytes, 1, kSwatchBytes, file) == kSwatchBytes;
  return std::fclose(file) == 0 && written;
}
