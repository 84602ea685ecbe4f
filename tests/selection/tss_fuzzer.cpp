// libFuzzer entry for the selection file reader, which the history's
// ".hst" files share: the input is the file, loaded onto a small canvas and
// listed as a history entry. Whatever it holds, the Draft's counts stay
// within their tables, and a shape that loaded saves and loads back to the
// same raster.
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "document/canvas_manager.h"
#include "document/canvas_request.h"
#include "document/selection_rows.h"
#include "platform/headless/headless.h"
#include "selection/draft.h"
#include "selection/selection_file.h"
#include "selection/selection_history.h"
#include "settings/settings.h"

namespace {

Canvas* FuzzCanvas() {
  static Canvas* canvas = [] {
    settings.imageBuffer = Physical;
    RequestBlankCanvas(37, 23, 96);
    auto* made = new Canvas{};
    if (CanvasManager.MakeCanvas(made, nullptr) != 1) std::abort();
    return made;
  }();
  return canvas;
}

std::vector<uint8_t> Raster(Canvas* canvas) {
  std::vector<uint8_t> pixels(size_t(canvas->canvasWidth) * canvas->canvasHeight);
  for (int y = 0; y < canvas->canvasHeight; ++y)
    ReadSelectionRow(canvas, y, 0, canvas->canvasWidth - 1,
                     &pixels[size_t(y) * canvas->canvasWidth]);
  return pixels;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const std::string folder =
      (std::filesystem::temp_directory_path() / ("tesel_tss_fuzz_" + std::to_string(getpid())))
          .string() +
      "/";
  static const bool made = std::filesystem::create_directories(folder + "selhist");
  (void)made;
  historyFolder = folder + "selhist/";
  const std::string path = historyFolder + "20260101000000_0001.hst";
  FILE* file = std::fopen(path.c_str(), "wb");
  if (!file) return 0;
  std::fwrite(data, 1, size, file);
  std::fclose(file);

  headless::Reset();
  Canvas* canvas = FuzzCanvas();
  if (HistoryLines().size() != 1) std::abort();
  if (LoadSelection(path, canvas) != 1) std::abort();
  if (Draft.nodeCount < 0 || Draft.nodeCount > kMaxPathNodes || canvas->draftPointCount > 5120u)
    std::abort();

  const std::vector<uint8_t> loaded = Raster(canvas);
  const std::string again = folder + "again.tss";
  if (SaveSelection(again, canvas) == 1 && std::filesystem::exists(again)) {
    if (LoadSelection(again, canvas) != 1 || Raster(canvas) != loaded) std::abort();
    std::remove(again.c_str());
  }
  return 0;
}
