// libFuzzer entry for the panels' side files: the input's first byte
// chooses "palette\pal.dat" or "coldlg.dat", the rest becomes that file in
// a folder of its own, which is read as at start. Every colour cell is then
// picked into the pen, and every path must end within its field.
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

#include "panels/palette_cells.h"
#include "panels/palette_file.h"
#include "panels/palette_pick.h"
#include "panels/swatches.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const std::filesystem::path folder =
      std::filesystem::temp_directory_path() / ("tesel_panels_fuzz_" + std::to_string(getpid()));
  static const bool made = std::filesystem::create_directories(folder / "palette");
  (void)made;
  if (size < 1) return 0;
  const bool palette = data[0] & 1;
  const std::filesystem::path path = palette ? folder / "palette" / "pal.dat" : folder / "coldlg.dat";
  FILE* file = std::fopen(path.c_str(), "wb");
  if (!file) return 0;
  std::fwrite(data + 1, 1, size - 1, file);
  std::fclose(file);
  const std::string programFolder = folder.string() + "/";
  if (!palette) {
    ReadSwatches(programFolder);
    return 0;
  }
  if (!LoadPaletteFile(programFolder)) std::abort();
  for (int number = 0; number < kPaletteCells; ++number) {
    const PaletteCell cell = GetPaletteCell(number);
    if (!std::memchr(cell.path, 0, sizeof cell.path) || cell.image || cell.imageMask) std::abort();
    if (!cell.isImage) PickCell(number / kCellsPerPage, number % kCellsPerPage);
  }
  return 0;
}
