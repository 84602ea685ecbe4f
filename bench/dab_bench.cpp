// Dabs per second of a soft round tip on a 4096 x 4096 layer with a mask
// and a transparency plane, pen mode Color, against libmypaint drawing the
// same dabs (same centres, radius and hardness) on its own surface in the
// same run. Our soft tips fall linearly with the squared distance, which is
// libmypaint's falloff at hardness 0.5; tip shape 15 peaks at full
// strength, as libmypaint does at opacity 1. libmypaint runs on one thread,
// as our pen does.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstring>

#include "document/canvas_manager.h"
#include "document/canvas_request.h"
#include "paint/modes/place_dab.h"
#include "paint/tip/pen_record.h"
#include "paint/tip/tip.h"
#include "settings/settings.h"

#ifdef TESEL_BENCH_MYPAINT
#include <mypaint-fixed-tiled-surface.h>
#include <omp.h>
#endif

namespace {

constexpr int kSide = 4096;
constexpr int kDabsPerRound = 256;
constexpr int kSoftFullTip = 15;
constexpr float kHardness = 0.5f;

// Dab i of a sweep over the layer, clear of its edges, at a sub-pixel place
// that differs from dab to dab.
void DabCentre(int64_t i, double* x, double* y) {
  *x = 200.0 + std::fmod(double(i) * 7.31, kSide - 400);
  *y = 200.0 + std::fmod(double(i) * 3.17 + double(i / 487) * 29.0, kSide - 400);
}

// A white layer with its mask and transparency planes, as New makes it.
Canvas* Layer() {
  static Canvas* canvas = [] {
    std::memset(&settings, 0, sizeof settings);
    settings.imageBuffer = Physical;
    RequestBlankCanvas(kSide, kSide, 96);
    static Canvas record;
    return CanvasManager.MakeCanvas(&record, nullptr) ? &record : nullptr;
  }();
  return canvas;
}

void TeselDabs(benchmark::State& state) {
  Canvas* canvas = Layer();
  if (!canvas || !canvas->planes[kMaskPosition].plane ||
      !canvas->planes[kTransparencyPosition].plane) {
    state.SkipWithError("no layer");
    return;
  }
  ResetPen();
  pen.tipShape = kSoftFullTip;
  pen.radiusX = pen.radiusY = double(state.range(0));
  BuildTip();
  pen.red = 51;
  pen.green = 102;
  pen.blue = 153;
  PenBlender.connected = 0;
  int64_t i = 0;
  for (auto _ : state) {
    for (int k = 0; k < kDabsPerRound; ++k, ++i) {
      double x, y;
      DabCentre(i, &x, &y);
      int first = 0;
      PlaceDab(canvas, x, y, 0, 0, nullptr, 1.0, first);
    }
  }
  state.SetItemsProcessed(state.iterations() * kDabsPerRound);
}
BENCHMARK(TeselDabs)->Arg(4)->Arg(16)->Arg(64)->Unit(benchmark::kMicrosecond);

#ifdef TESEL_BENCH_MYPAINT
MyPaintSurface* MyPaintLayer() {
  static MyPaintFixedTiledSurface* surface = mypaint_fixed_tiled_surface_new(kSide, kSide);
  return surface ? mypaint_fixed_tiled_surface_interface(surface) : nullptr;
}

// A round of dabs is one atomic operation: libmypaint queues the dabs and
// renders them into its tiles at the end.
void MyPaintDabs(benchmark::State& state) {
  MyPaintSurface* surface = MyPaintLayer();
  if (!surface) {
    state.SkipWithError("no surface");
    return;
  }
  omp_set_num_threads(1);
  const float radius = float(state.range(0));
  int64_t i = 0;
  for (auto _ : state) {
    mypaint_surface_begin_atomic(surface);
    for (int k = 0; k < kDabsPerRound; ++k, ++i) {
      double x, y;
      DabCentre(i, &x, &y);
      mypaint_surface_draw_dab(surface, float(x), float(y), radius, 0.2f, 0.4f, 0.6f, 1.0f,
                               kHardness, 1.0f, 1.0f, 0.0f, 0.0f, 0.0f);
    }
    MyPaintRectangle touched;
    mypaint_surface_end_atomic(surface, &touched);
  }
  state.SetItemsProcessed(state.iterations() * kDabsPerRound);
}
BENCHMARK(MyPaintDabs)->Arg(4)->Arg(16)->Arg(64)->Unit(benchmark::kMicrosecond);
#endif

}  // namespace
