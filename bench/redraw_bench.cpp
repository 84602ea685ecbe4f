// The repaint of a whole 1280 x 1024 view at 50 %, 100 %, 150 % and 300 %:
// RedrawRect composes the tiles of a two-layer canvas (the upper one with a
// coverage ramp), scales them to the zoom, gathers them in one picture and
// hands it over; the window side here copies it into a 32-bit screen, as a
// window surface does. Against pixman compositing and scaling the same
// layers onto the same screen, and memcpy of the screen's bytes, in the
// same run. The planes are Physical. Items are view pixels.
#include <benchmark/benchmark.h>
#include <pixman.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

#include "display/redraw.h"
#include "display/view_windows.h"
#include "display/zoom.h"
#include "settings/settings.h"

namespace {

constexpr int kViewWidth = 1280, kViewHeight = 1024;
constexpr int kCanvasSide = 2600;  // larger than the view at 50 %
constexpr int64_t kViewPixels = int64_t{kViewWidth} * kViewHeight;

struct Scene {
  std::unique_ptr<Canvas> canvas = std::make_unique<Canvas>();
  // The same layers as pixman reads them: colours and coverage.
  std::vector<uint32_t> colours[2];
  std::vector<uint8_t> coverage;
  pixman_image_t* layers[2] = {};
  pixman_image_t* mask = nullptr;
  std::vector<uint32_t> screen = std::vector<uint32_t>(size_t{kViewWidth} * kViewHeight);

  Scene() {
    canvas->canvasWidth = canvas->canvasHeight = kCanvasSide;
    uint64_t state = 0x9E3779B97F4A7C15ull;
    std::vector<uint8_t> row(size_t{kCanvasSide} * 3), alpha(kCanvasSide);
    coverage.resize(size_t{kCanvasSide} * kCanvasSide);
    for (int layer = 0; layer < 2; ++layer) {
      PlaneSlot* slots = &canvas->planes[layer * kPlanesPerLayer];
      for (int position = 0; position < kPlanesPerLayer; ++position) {
        slots[position].width = slots[position].height = kCanvasSide;
        slots[position].displayMode = kDisplayLayersBlended;
      }
      slots[0].mixMode = 1;  // Normal
      slots[0].plane = PlaneStore.CreatePlane(kCanvasSide, kCanvasSide, 24, 0, 0, Physical);
      slots[2].plane = PlaneStore.CreatePlane(kCanvasSide, kCanvasSide, 8, 0, 0, Physical);
      colours[layer].resize(size_t{kCanvasSide} * kCanvasSide);
      for (int y = 0; y < kCanvasSide; ++y) {
        for (auto& byte : row)
          byte = static_cast<uint8_t>((state = state * 6364136223846793005ull + 1) >> 56);
        for (int x = 0; x < kCanvasSide; ++x) alpha[x] = layer ? uint8_t(x + y) : 255;
        PlaneStore.WriteRow(slots[0].plane, y, 0, kCanvasSide - 1, row.data());
        PlaneStore.WriteRow(slots[2].plane, y, 0, kCanvasSide - 1, alpha.data());
        uint32_t* out = &colours[layer][size_t{kCanvasSide} * y];
        for (int x = 0; x < kCanvasSide; ++x)
          out[x] = row[3 * x] | row[3 * x + 1] << 8 | uint32_t{row[3 * x + 2]} << 16;
        if (layer) std::memcpy(&coverage[size_t{kCanvasSide} * y], alpha.data(), kCanvasSide);
      }
      layers[layer] = pixman_image_create_bits(PIXMAN_x8r8g8b8, kCanvasSide, kCanvasSide,
                                               colours[layer].data(), kCanvasSide * 4);
    }
    mask = pixman_image_create_bits(PIXMAN_a8, kCanvasSide, kCanvasSide,
                                    reinterpret_cast<uint32_t*>(coverage.data()), kCanvasSide);
    // The window side copies what it is given into the screen, clipped.
    viewWindows.drawPicture = [this](Canvas*, const DibTile* picture, int x, int y,
                                     const Rect& part) {
      const int left = std::max(0, x + part.left);
      const int right = std::min(kViewWidth, x + part.right + 1);
      const int bottom = std::min(kViewHeight, y + part.bottom + 1);
      for (int r = std::max(0, y + part.top); r < bottom; ++r) {
        const uint8_t* in = picture->dib + picture->pixelOffset +
                            size_t(picture->height - 1 - (r - y)) * picture->stride;
        uint32_t* out = &screen[size_t(r) * kViewWidth];
        for (int c = left; c < right; ++c) {
          const uint8_t* p = in + size_t(c - x) * 3;
          out[c] = p[0] | p[1] << 8 | uint32_t{p[2]} << 16;
        }
      }
    };
  }
};

Scene& TheScene() {
  static Scene scene;
  return scene;
}

const char* ZoomLabel(int step) {
  switch (step) {
    case -2: return "50%";
    case 0: return "100%";
    case 1: return "150%";
    default: return "300%";
  }
}

void RedrawView(benchmark::State& state) {
  Scene& scene = TheScene();
  scene.canvas->zoomStep = static_cast<int32_t>(state.range(0));
  for (auto _ : state) {
    RedrawRect(scene.canvas.get(), Rect{0, 0, kViewWidth - 1, kViewHeight - 1});
    benchmark::DoNotOptimize(scene.screen.data());
  }
  state.SetItemsProcessed(state.iterations() * kViewPixels);
  state.SetLabel(ZoomLabel(static_cast<int>(state.range(0))));
}

// The same two layers composed by pixman straight onto the screen at the
// zoom: the base layer copied, the upper one OVER through its coverage,
// both scaled by nearest neighbour.
void PixmanView(benchmark::State& state) {
  Scene& scene = TheScene();
  const ZoomRatio ratio = ZoomRatioOf(static_cast<int>(state.range(0)));
  pixman_image_t* dest = pixman_image_create_bits(PIXMAN_x8r8g8b8, kViewWidth, kViewHeight,
                                                  scene.screen.data(), kViewWidth * 4);
  pixman_transform_t scale;
  const pixman_fixed_t step = pixman_int_to_fixed(ratio.den) / ratio.num;
  pixman_transform_init_scale(&scale, step, step);
  for (pixman_image_t* image : {scene.layers[0], scene.layers[1], scene.mask}) {
    pixman_image_set_transform(image, &scale);
    pixman_image_set_filter(image, PIXMAN_FILTER_NEAREST, nullptr, 0);
  }
  for (auto _ : state) {
    pixman_image_composite32(PIXMAN_OP_SRC, scene.layers[0], nullptr, dest, 0, 0, 0, 0, 0, 0,
                             kViewWidth, kViewHeight);
    pixman_image_composite32(PIXMAN_OP_OVER, scene.layers[1], scene.mask, dest, 0, 0, 0, 0, 0, 0,
                             kViewWidth, kViewHeight);
    benchmark::DoNotOptimize(scene.screen.data());
  }
  for (pixman_image_t* image : {scene.layers[0], scene.layers[1], scene.mask})
    pixman_image_set_transform(image, nullptr);
  pixman_image_unref(dest);
  state.SetItemsProcessed(state.iterations() * kViewPixels);
  state.SetLabel(std::string("pixman OVER a8, nearest, ") +
                 ZoomLabel(static_cast<int>(state.range(0))));
}

// The screen's bytes copied once: the floor of any repaint.
void MemcpyView(benchmark::State& state) {
  Scene& scene = TheScene();
  std::vector<uint32_t> copy(scene.screen.size());
  for (auto _ : state) {
    std::memcpy(copy.data(), scene.screen.data(), copy.size() * 4);
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * kViewPixels);
  state.SetLabel(std::string("memcpy of the screen, ") +
                 ZoomLabel(static_cast<int>(state.range(0))));
}

void Zooms(benchmark::internal::Benchmark* b) {
  for (int step : {-2, 0, 1, 3}) b->Arg(step);
}

BENCHMARK(RedrawView)->Apply(Zooms)->Unit(benchmark::kMillisecond);
BENCHMARK(PixmanView)->Apply(Zooms)->Unit(benchmark::kMillisecond);
BENCHMARK(MemcpyView)->Apply(Zooms)->Unit(benchmark::kMillisecond);

}  // namespace
