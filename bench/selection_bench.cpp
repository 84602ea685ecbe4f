// The selection raster's filters on a 4096 x 4096 raster: Fatten and Slim
// of radius 1 and 5, Blur Outside of radius 3 and Blur Inside, each beside
// OpenCV doing the same work on the same bytes in the same run: dilate or
// erode with a 3 x 3 square repeated N times (the raster's 0 is selected,
// so Fatten's minimum is OpenCV's erode), blur with a 6 x 6 box, and a
// dilate followed by a 3 x 3 blur. Items are raster pixels.
#include <benchmark/benchmark.h>
#include <opencv2/imgproc.hpp>

#include <cstdint>
#include <vector>

#include "selection/raster_filters.h"

namespace {

constexpr int kSide = 4096;

// A selection as the tools leave it: broad areas of 0 and 255 with soft
// edges, from a fixed xorshift.
const std::vector<uint8_t>& Raster() {
  static const std::vector<uint8_t> raster = [] {
    std::vector<uint8_t> bytes(size_t{kSide} * kSide);
    uint32_t state = 0x9E3779B9u;
    for (size_t i = 0; i < bytes.size(); ++i) {
      state ^= state << 13, state ^= state >> 17, state ^= state << 5;
      const size_t x = i % kSide, y = i / kSide;
      const bool inside = ((x / 300) + (y / 200)) % 2 == 0;
      bytes[i] = static_cast<uint8_t>(inside ? (state & 7) : 255 - (state & 7));
    }
    return bytes;
  }();
  return raster;
}

struct Buffers {
  std::vector<uint8_t> a = Raster(), b = std::vector<uint8_t>(Raster().size());
};

void Done(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * int64_t{kSide} * kSide);
}

void SelectionMinMax(benchmark::State& state, int radius, bool takeMax) {
  Buffers buffers;
  for (auto _ : state) {
    MinMaxSquare(buffers.a.data(), buffers.b.data(), kSide, kSide, radius, takeMax, [](int) {});
    benchmark::DoNotOptimize(buffers.b.data());
  }
  Done(state);
}

void OpenCvMinMax(benchmark::State& state, int radius, bool takeMax) {
  Buffers buffers;
  cv::Mat from(kSide, kSide, CV_8UC1, buffers.a.data()),
      to(kSide, kSide, CV_8UC1, buffers.b.data());
  const cv::Mat square = cv::getStructuringElement(cv::MORPH_RECT, cv::Size(3, 3));
  for (auto _ : state) {
    if (takeMax)
      cv::dilate(from, to, square, cv::Point(-1, -1), radius, cv::BORDER_REPLICATE);
    else
      cv::erode(from, to, square, cv::Point(-1, -1), radius, cv::BORDER_REPLICATE);
    benchmark::DoNotOptimize(to.data);
  }
  Done(state);
}

void SelectionBlurOutside(benchmark::State& state, int radius) {
  Buffers buffers;
  for (auto _ : state) {
    SquareMean(buffers.a.data(), buffers.b.data(), kSide, kSide, radius, [](int) {});
    benchmark::DoNotOptimize(buffers.b.data());
  }
  Done(state);
}

void OpenCvBlurOutside(benchmark::State& state, int radius) {
  Buffers buffers;
  cv::Mat from(kSide, kSide, CV_8UC1, buffers.a.data()),
      to(kSide, kSide, CV_8UC1, buffers.b.data());
  for (auto _ : state) {
    cv::blur(from, to, cv::Size(2 * radius, 2 * radius), cv::Point(-1, -1), cv::BORDER_REPLICATE);
    benchmark::DoNotOptimize(to.data);
  }
  Done(state);
}

void SelectionBlurInside(benchmark::State& state, bool) {
  Buffers buffers;
  for (auto _ : state) {
    MinMaxSquare(buffers.a.data(), buffers.b.data(), kSide, kSide, 1, true, [](int) {});
    Mean3x3(buffers.b.data(), buffers.a.data(), kSide, kSide);
    benchmark::DoNotOptimize(buffers.a.data());
  }
  Done(state);
}

void OpenCvBlurInside(benchmark::State& state, bool) {
  Buffers buffers;
  cv::Mat from(kSide, kSide, CV_8UC1, buffers.a.data()),
      to(kSide, kSide, CV_8UC1, buffers.b.data());
  const cv::Mat square = cv::getStructuringElement(cv::MORPH_RECT, cv::Size(3, 3));
  for (auto _ : state) {
    cv::dilate(from, to, square, cv::Point(-1, -1), 1, cv::BORDER_REPLICATE);
    cv::blur(to, from, cv::Size(3, 3), cv::Point(-1, -1), cv::BORDER_REPLICATE);
    benchmark::DoNotOptimize(from.data);
  }
  Done(state);
}

}  // namespace

// Each case by the same last name on both sides, so that the table pairs them.
#define BOTH(name, ...)                                                           \
  BENCHMARK_CAPTURE(Selection##name, __VA_ARGS__)->Unit(benchmark::kMillisecond); \
  BENCHMARK_CAPTURE(OpenCv##name, __VA_ARGS__)->Unit(benchmark::kMillisecond)

BOTH(MinMax, fatten_r1, 1, false);
BOTH(MinMax, fatten_r5, 5, false);
BOTH(MinMax, slim_r1, 1, true);
BOTH(MinMax, slim_r5, 5, true);
BOTH(BlurOutside, thick_r3, 3);
BOTH(BlurInside, once, true);
