// Composition of a 4096 x 4096 canvas of 8 full-size layers, each with a
// transparency plane of random coverage, in every mix mode; against pixman
// compositing the same layers (OVER through an a8 mask onto x8r8g8b8, the
// nearest to Normal) and memcpy of the bytes the composition must read, all
// in the same run, in 128 x 128 tiles and in whole rows. The planes are
// Physical, so the store's row reads are plain copies: what is measured is
// the composition, not the storage. Items are canvas pixels.
#include <benchmark/benchmark.h>
#include <pixman.h>

#include <cstring>
#include <memory>
#include <vector>

#include "display/compose.h"
#include "settings/settings.h"

namespace {

constexpr int kSide = 4096;
constexpr int kLayers = 8;
constexpr int kTile = 128;
constexpr int64_t kPixels = int64_t{kSide} * kSide;
constexpr uint32_t kBackground = 0x00C87829;  // x8r8g8b8

enum Tiling { Tiles = 0, Rows = 1 };

// Random bytes, fast enough to fill half a gigabyte.
struct Noise {
  uint64_t state = 0x9E3779B97F4A7C15ull;
  uint64_t Next() {
    state ^= state << 13;
    state ^= state >> 7;
    state ^= state << 17;
    return state;
  }
  void Fill(uint8_t* bytes, size_t n) {
    for (size_t i = 0; i < n; i += 8) {
      uint64_t v = Next();
      std::memcpy(bytes + i, &v, std::min<size_t>(8, n - i));
    }
  }
};

// The canvas, and the same layers as pixman images.
struct Scene {
  std::unique_ptr<Canvas> canvas = std::make_unique<Canvas>();
  std::vector<uint32_t> colours[kLayers];
  std::vector<uint8_t> masks[kLayers];
  pixman_image_t* sources[kLayers] = {};
  pixman_image_t* maskImages[kLayers] = {};

  Scene() {
    settings.backgroundRed = (kBackground >> 16) & 255;
    settings.backgroundGreen = (kBackground >> 8) & 255;
    settings.backgroundBlue = kBackground & 255;
    Noise noise;
    std::vector<uint8_t> image(size_t{kSide} * 3), coverage(kSide);
    for (int layer = 0; layer < kLayers; ++layer) {
      PlaneSlot* slots = &canvas->planes[layer * kPlanesPerLayer];
      for (int position = 0; position < kPlanesPerLayer; ++position) {
        slots[position].width = slots[position].height = kSide;
        slots[position].displayMode = kDisplayLayersBlended;
      }
      slots[0].plane = PlaneStore.CreatePlane(kSide, kSide, 24, 0, 0, Physical);
      slots[2].plane = PlaneStore.CreatePlane(kSide, kSide, 8, 0, 0, Physical);
      colours[layer].resize(kPixels);
      masks[layer].resize(kPixels);
      for (int y = 0; y < kSide; ++y) {
        noise.Fill(image.data(), image.size());
        noise.Fill(coverage.data(), coverage.size());
        PlaneStore.WriteRow(slots[0].plane, y, 0, kSide - 1, image.data());
        PlaneStore.WriteRow(slots[2].plane, y, 0, kSide - 1, coverage.data());
        uint32_t* row = &colours[layer][size_t{kSide} * y];
        for (int x = 0; x < kSide; ++x)
          row[x] = image[3 * x] | image[3 * x + 1] << 8 | uint32_t{image[3 * x + 2]} << 16;
        std::memcpy(&masks[layer][size_t{kSide} * y], coverage.data(), kSide);
      }
      sources[layer] = pixman_image_create_bits(PIXMAN_x8r8g8b8, kSide, kSide,
                                                colours[layer].data(), kSide * 4);
      maskImages[layer] =
          pixman_image_create_bits(PIXMAN_a8, kSide, kSide,
                                   reinterpret_cast<uint32_t*>(masks[layer].data()), kSide);
    }
  }

  void SetMode(int mixMode) {
    for (int layer = 0; layer < kLayers; ++layer)
      canvas->planes[layer * kPlanesPerLayer].mixMode = mixMode;
  }
};

Scene& TheScene() {
  static Scene scene;
  return scene;
}

// Calls f(x0, y0, x1, y1) over the canvas in the tiling.
template <class F>
void ForEachPiece(Tiling tiling, F f) {
  if (tiling == Rows) {
    for (int y = 0; y < kSide; ++y) f(0, y, kSide - 1, y);
    return;
  }
  for (int y = 0; y < kSide; y += kTile)
    for (int x = 0; x < kSide; x += kTile) f(x, y, x + kTile - 1, y + kTile - 1);
}

const char* TilingLabel(Tiling tiling) { return tiling == Tiles ? "128x128 tiles" : "whole rows"; }

const char* const kModeNames[10] = {"",          "Normal",     "Hybrid",    "Lighten",
                                    "Darken",    "Luminosity", "HueSaturation",
                                    "HighLight", "Difference", "Overlay"};

void ComposeCanvas(benchmark::State& state) {
  const int mixMode = static_cast<int>(state.range(0));
  const Tiling tiling = static_cast<Tiling>(state.range(1));
  Scene& scene = TheScene();
  scene.SetMode(mixMode);
  for (auto _ : state)
    ForEachPiece(tiling, [&](int x0, int y0, int x1, int y1) {
      DibTile* tile = Compose(scene.canvas.get(), x0, y0, x1, y1, 0, 0);
      benchmark::DoNotOptimize(tile->dib);
      FreeTile(&tile);
    });
  state.SetItemsProcessed(state.iterations() * kPixels);
  state.SetLabel(std::string(kModeNames[mixMode]) + ", " + TilingLabel(tiling));
}

void PixmanCanvas(benchmark::State& state) {
  const Tiling tiling = static_cast<Tiling>(state.range(0));
  Scene& scene = TheScene();
  const int width = tiling == Tiles ? kTile : kSide, height = tiling == Tiles ? kTile : 1;
  std::vector<uint32_t> bits(size_t{kTile} * kSide);
  pixman_image_t* dest =
      pixman_image_create_bits(PIXMAN_x8r8g8b8, width, height, bits.data(), width * 4);
  pixman_color_t background = {0xC8C8, 0x7878, 0x2929, 0xFFFF};  // red, green, blue, alpha
  pixman_image_t* fill = pixman_image_create_solid_fill(&background);
  for (auto _ : state)
    ForEachPiece(tiling, [&](int x0, int y0, int, int) {
      pixman_image_composite32(PIXMAN_OP_SRC, fill, nullptr, dest, 0, 0, 0, 0, 0, 0, width, height);
      for (int layer = 0; layer < kLayers; ++layer)
        pixman_image_composite32(PIXMAN_OP_OVER, scene.sources[layer], scene.maskImages[layer],
                                 dest, x0, y0, x0, y0, 0, 0, width, height);
      benchmark::DoNotOptimize(bits.data());
    });
  pixman_image_unref(fill);
  pixman_image_unref(dest);
  state.SetItemsProcessed(state.iterations() * kPixels);
  state.SetLabel(std::string("pixman OVER a8, ") + TilingLabel(tiling));
}

// The colour and coverage bytes of every layer, copied row by row into
// buffers as the composition reads them.
void MemcpyCanvas(benchmark::State& state) {
  const Tiling tiling = static_cast<Tiling>(state.range(0));
  Scene& scene = TheScene();
  std::vector<uint8_t> colourRow(size_t{kSide} * 3), coverageRow(kSide);
  std::vector<std::vector<uint8_t>> images(kLayers);
  for (int layer = 0; layer < kLayers; ++layer) {
    images[layer].resize(size_t{kSide} * 3 * kSide);
    for (size_t i = 0; i < size_t{kPixels}; ++i)
      std::memcpy(&images[layer][3 * i], &scene.colours[layer][i], 3);
  }
  for (auto _ : state)
    ForEachPiece(tiling, [&](int x0, int y0, int x1, int y1) {
      for (int y = y0; y <= y1; ++y)
        for (int layer = 0; layer < kLayers; ++layer) {
          const size_t at = size_t{kSide} * y + x0;
          std::memcpy(colourRow.data(), &images[layer][3 * at], size_t(x1 - x0 + 1) * 3);
          std::memcpy(coverageRow.data(), &scene.masks[layer][at], size_t(x1 - x0 + 1));
          benchmark::ClobberMemory();
        }
    });
  state.SetItemsProcessed(state.iterations() * kPixels);
  state.SetLabel(std::string("memcpy of the bytes read, ") + TilingLabel(tiling));
}

void AllModes(benchmark::internal::Benchmark* b) {
  for (int mode = 1; mode <= 9; ++mode)
    for (int tiling : {Tiles, Rows}) b->Args({mode, tiling});
}

BENCHMARK(ComposeCanvas)->Apply(AllModes)->Unit(benchmark::kMillisecond);
BENCHMARK(PixmanCanvas)->Arg(Tiles)->Arg(Rows)->Unit(benchmark::kMillisecond);
BENCHMARK(MemcpyCanvas)->Arg(Tiles)->Arg(Rows)->Unit(benchmark::kMillisecond);

}  // namespace
