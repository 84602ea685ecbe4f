// The seed fill and Detect Selection's Execute on a 4096 x 4096 picture,
// against OpenCV on the same pixels in the same run: floodFill, 4-connected
// with a fixed range of the same tolerance per channel around the seed,
// writing a mask; and inRange on the picture (after cvtColor to HSV for the
// HSV pick) for the pick of a colour range.
//
// What differs: the seed fill reads the layer and its transparency and
// writes the selection raster of the canvas; floodFill reads a plain
// three-channel image. The pick's table allows any set of values per
// channel, inRange one interval each; the picks below are intervals, the
// same ones in RGB. OpenCV's HSV hue runs 0..179, the table's 0..255, so
// the HSV intervals are the nearest hues.
#include <benchmark/benchmark.h>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include <cstring>
#include <random>
#include <vector>

#include "document/canvas_manager.h"
#include "document/canvas_request.h"
#include "document/selection_rows.h"
#include "selection/detect_selection.h"
#include "selection/seed_fill.h"
#include "selection/seed_source.h"
#include "selection/selection_windows.h"
#include "settings/settings.h"
#include "store/plane_store.h"

namespace {

constexpr int kSide = 4096;
constexpr int kTolerance = 20;

// A soft gradient with grain, crossed by discs of another colour that the
// fill must go round: blue, green, red rows as the plane holds them.
const std::vector<uint8_t>& Picture() {
  static std::vector<uint8_t> bgr = [] {
    std::vector<uint8_t> pixels(size_t(kSide) * kSide * 3);
    std::mt19937 random(5);
    for (int y = 0; y < kSide; ++y)
      for (int x = 0; x < kSide; ++x) {
        uint8_t* p = &pixels[(size_t(y) * kSide + x) * 3];
        const int grain = int(random() % 7) - 3;
        const int dx = x % 512 - 256, dy = y % 512 - 256;
        const bool disc = dx * dx + dy * dy < 150 * 150;
        p[0] = uint8_t(disc ? 20 : 120 + grain);
        p[1] = uint8_t(disc ? 200 : 100 + x / 1024 + grain);
        p[2] = uint8_t(disc ? 30 : 90 + y / 1024 + grain);
      }
    return pixels;
  }();
  return bgr;
}

Canvas* PictureCanvas() {
  static Canvas* canvas = [] {
    settings.imageBuffer = Physical;
    RequestBlankCanvas(kSide, kSide, 96);
    auto* made = new Canvas{};
    CanvasManager.MakeCanvas(made, nullptr);
    const std::vector<uint8_t>& bgr = Picture();
    Plane* image = made->planes[0].plane;
    for (int y = 0; y < kSide; ++y)
      PlaneStore.WriteRow(image, y, 0, kSide - 1, &bgr[size_t(y) * kSide * 3]);
    return made;
  }();
  return canvas;
}

cv::Mat PictureMat() {
  return cv::Mat(kSide, kSide, CV_8UC3, const_cast<uint8_t*>(Picture().data()));
}

void TeselSeedFill(benchmark::State& state) {
  Canvas* canvas = PictureCanvas();
  seedTolerance = kTolerance;
  seedLayer = kSeedCurrent;
  for (auto _ : state) {
    SeedFill(canvas, 5, 5, false);
    benchmark::DoNotOptimize(canvas->selectionPlane);
  }
  state.SetLabel("4096x4096");
}
BENCHMARK(TeselSeedFill)->Arg(kSide)->Unit(benchmark::kMillisecond);

void OpenCvFloodFill(benchmark::State& state) {
  cv::Mat image = PictureMat().clone();
  cv::Mat mask(kSide + 2, kSide + 2, CV_8UC1);
  const cv::Scalar range(kTolerance, kTolerance, kTolerance);
  for (auto _ : state) {
    mask.setTo(0);
    cv::floodFill(image, mask, cv::Point(5, 5), cv::Scalar(), nullptr, range, range,
                  4 | cv::FLOODFILL_FIXED_RANGE | cv::FLOODFILL_MASK_ONLY | (255 << 8));
    benchmark::DoNotOptimize(mask.data);
  }
  state.SetLabel("4096x4096");
}
BENCHMARK(OpenCvFloodFill)->Arg(kSide)->Unit(benchmark::kMillisecond);

// The picked range: the discs' colours, green 180..220 and the rest.
void PickRange(int hsv) {
  std::memset(pickTable, 0, sizeof pickTable);
  const int low[2][3] = {{0, 180, 0}, {64, 128, 160}};
  const int high[2][3] = {{60, 220, 60}, {110, 255, 230}};
  for (int c = 0; c < 3; ++c)
    for (int i = low[hsv][c]; i <= high[hsv][c]; ++i) pickTable[c][i] = 1;
  pickIsHsv = hsv;
  pickCondition = 0;
  pickTarget = 0;
  pickDisplayed = 0;
}

void TeselPick(benchmark::State& state) {
  Canvas* canvas = PictureCanvas();
  selectionWindows.openDetectDialog = [](Canvas*) { return WindowHandle(1); };
  OpenDetectSelection(canvas);
  PickRange(int(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(ExecutePick());
  CloseDetectSelection();
  state.SetLabel(state.range(0) ? "HSV" : "RGB");
}
BENCHMARK(TeselPick)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void OpenCvInRange(benchmark::State& state) {
  const cv::Mat image = PictureMat();
  cv::Mat hsv, mask;
  const bool useHsv = state.range(0) != 0;
  // OpenCV's order is blue, green, red, and its hue 0..179.
  const cv::Scalar low = useHsv ? cv::Scalar(45, 128, 160) : cv::Scalar(0, 180, 0);
  const cv::Scalar high = useHsv ? cv::Scalar(77, 255, 230) : cv::Scalar(60, 220, 60);
  for (auto _ : state) {
    if (useHsv) {
      cv::cvtColor(image, hsv, cv::COLOR_BGR2HSV);
      cv::inRange(hsv, low, high, mask);
    } else {
      cv::inRange(image, low, high, mask);
    }
    benchmark::DoNotOptimize(mask.data);
  }
  state.SetLabel(useHsv ? "HSV" : "RGB");
}
BENCHMARK(OpenCvInRange)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
