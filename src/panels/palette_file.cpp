#include "panels/palette_file.h"

#include <cstdio>

#include "panels/palette_cells.h"
#include "platform/platform.h"
#include "settings/side_path.h"

namespace {

std::string PalettePath(const std::string& folder) { return SidePath(folder, "palette\\pal.dat"); }

}  // namespace

// The block and the cells follow each other in the area as in the file, so
// one transfer of the whole area reads or writes them in their order.
int LoadPaletteFile(const std::string& folder) {
  FILE* file = platform::OpenFile(PalettePath(folder), "rb");
  if (!file) return 0;
  std::fread(settings.paletteArea, 1, kPaletteAreaBytes, file);
  std::fclose(file);
  SettlePaletteArea();
  return 1;
}

int SavePaletteFile(const std::string& folder) {
  FILE* file = platform::OpenFile(PalettePath(folder), "wb");
  if (!file) return 0;
  std::fwrite(settings.paletteArea, 1, kPaletteAreaBytes, file);
  std::fclose(file);
  return 1;
}
