// The wire's Track along a 600-pixel segment of a noisy 1024 x 1024
// picture: the best-pixel search over 21 x 21 pixels at every second step,
// against the same search reading the 3 x 3 of each pixel from the plane
// as the rules state it, in the same run.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "document/canvas_manager.h"
#include "document/canvas_request.h"
#include "document/canvas_rows.h"
#include "selection/wire_track.h"
#include "settings/settings.h"

namespace {

constexpr int kSide = 1024;

Canvas* Picture() {
  static Canvas* canvas = [] {
    std::memset(&settings, 0, sizeof settings);
    settings.imageBuffer = Physical;
    RequestBlankCanvas(kSide, kSide, 96);
    static Canvas record;
    if (!CanvasManager.MakeCanvas(&record, nullptr)) return static_cast<Canvas*>(nullptr);
    std::vector<uint8_t> row(kSide * 3);
    uint32_t seed = 1;
    for (int y = 0; y < kSide; ++y) {
      for (int i = 0; i < kSide * 3; ++i) {
        seed = seed * 1103515245u + 12345u;
        row[i] = static_cast<uint8_t>(((i / 3 / 9 + y / 13) % 2 ? 170 : 50) + (seed >> 16) % 60);
      }
      WriteImageRow(&record, y, 0, kSide - 1, row.data());
    }
    return &record;
  }();
  return canvas;
}

int Luma(Canvas* canvas, int x, int y) {
  x = std::min(std::max(x, 0), kSide - 1), y = std::min(std::max(y, 0), kSide - 1);
  uint8_t bgr[3];
  ReadImageRow(canvas, y, x, x, bgr);
  return (151 * bgr[0] + 77 * bgr[1] + 28 * bgr[2]) / 256;
}

// Nine reads for each strength, as the search is stated.
CanvasPoint NaiveBest(Canvas* canvas, CanvasPoint w, int last) {
  const bool far = std::abs(w.x - w.y) >= 65;
  const int d2 = far ? 0 : std::abs(w.x - w.y);
  CanvasPoint at = w;
  int best = 0;
  for (int y = w.y - 10; y <= w.y + 10; ++y)
    for (int x = w.x - 10; x <= w.x + 10; ++x) {
      const int gx = Luma(canvas, x - 1, y - 1) - Luma(canvas, x + 1, y - 1) +
                     2 * (Luma(canvas, x - 1, y) - Luma(canvas, x + 1, y)) +
                     Luma(canvas, x - 1, y + 1) - Luma(canvas, x + 1, y + 1);
      const int gy = Luma(canvas, x - 1, y - 1) + 2 * Luma(canvas, x, y - 1) +
                     Luma(canvas, x + 1, y - 1) - Luma(canvas, x - 1, y + 1) -
                     2 * Luma(canvas, x, y + 1) - Luma(canvas, x + 1, y + 1);
      const int s = std::min(255, static_cast<int>(std::sqrt(gx * gx + gy * gy)));
      const int d1 = static_cast<int>(std::sqrt((x - w.x) * (x - w.x) + (y - w.y) * (y - w.y)));
      const int luma = far ? 0 : Luma(canvas, x, y) - Luma(canvas, w.x, w.y);
      const int score = (s - (d2 + d1 * 2) * 4) * 2 - std::abs(luma) / 4 - std::abs(s - last);
      if (score > best) best = score, at = {x, y};
    }
  return at;
}

void TrackBench(benchmark::State& state) {
  Canvas* canvas = Picture();
  if (!canvas) return state.SkipWithError("no picture");
  for (auto _ : state) benchmark::DoNotOptimize(Track(canvas, {200, 300}, {800, 500}, 128));
  state.SetLabel("600 px, 300 searches");
}
BENCHMARK(TrackBench)->Unit(benchmark::kMicrosecond);

void NaiveSearchBench(benchmark::State& state) {
  Canvas* canvas = Picture();
  if (!canvas) return state.SkipWithError("no picture");
  for (auto _ : state)
    for (int i = 0; i < 600; i += 2)
      benchmark::DoNotOptimize(NaiveBest(canvas, {200 + i, 300 + i / 3}, 128));
  state.SetLabel("the same searches, 9 reads a pixel");
}
BENCHMARK(NaiveSearchBench)->Unit(benchmark::kMicrosecond);

}  // namespace
