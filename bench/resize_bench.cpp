// Make Resized Duplicate's resampling of a 4096 x 4096 photograph-like
// layer: up to 6000 x 6000 through both cubic kernels, and down to
// 3000 x 3000 by the area average; against pixman scaling the same picture
// with its separable convolution (cubic up, box down) in the same run.
#include <benchmark/benchmark.h>
#include <pixman.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "settings/settings.h"
#include "store/plane_ops.h"
#include "store/plane_store.h"

namespace {

constexpr int kSide = 4096;
constexpr int kUp = 6000;
constexpr int kDown = 3000;

// Soft shading, a few hard edges and grain, as blue, green, red rows.
const std::vector<uint8_t>& Photo() {
  static const std::vector<uint8_t> photo = [] {
    std::vector<uint8_t> bgr(size_t(kSide) * kSide * 3);
    std::mt19937 random(7);
    for (int y = 0; y < kSide; ++y)
      for (int x = 0; x < kSide; ++x) {
        const int grain = int(random() % 13) - 6;
        const bool edge = ((x / 512) + (y / 384)) % 3 == 0;
        const double wave = 60 * std::sin(x / 300.0) * std::cos(y / 210.0);
        uint8_t* p = &bgr[(size_t(y) * kSide + x) * 3];
        p[0] = uint8_t(std::clamp(int(90 + wave) + grain + (edge ? 80 : 0), 0, 255));
        p[1] = uint8_t(std::clamp(x / 20 + grain, 0, 255));
        p[2] = uint8_t(std::clamp(255 - y / 18 + int(wave / 2) + grain, 0, 255));
      }
    return bgr;
  }();
  return photo;
}

Plane* PhotoPlane() {
  static Plane* plane = [] {
    Plane* made = PlaneStore.CreatePlane(kSide, kSide, 24, 0, 0, Physical);
    for (int y = 0; y < kSide; ++y)
      PlaneStore.WriteRow(made, y, 0, kSide - 1, &Photo()[size_t(y) * kSide * 3]);
    return made;
  }();
  return plane;
}

void TeselResize(benchmark::State& state, int side, int kernel) {
  settings.workBuffer = Physical;
  Plane* source = PhotoPlane();
  for (auto _ : state) {
    Plane* out = SmoothResize(source, side, side, kernel);
    if (!out) {
      state.SkipWithError("no plane");
      break;
    }
    PlaneStore.FreePlane(&out);
  }
}

// The photograph as pixman keeps it best: one 32-bit word a pixel.
std::vector<uint32_t>& PhotoWords() {
  static std::vector<uint32_t> words = [] {
    std::vector<uint32_t> out(size_t(kSide) * kSide);
    const std::vector<uint8_t>& bgr = Photo();
    for (size_t i = 0; i < out.size(); ++i)
      out[i] =
          uint32_t(bgr[i * 3]) | uint32_t(bgr[i * 3 + 1]) << 8 | uint32_t(bgr[i * 3 + 2]) << 16;
    return out;
  }();
  return words;
}

void PixmanResize(benchmark::State& state, int side, pixman_kernel_t reconstruct,
                  pixman_kernel_t sample) {
  pixman_image_t* source =
      pixman_image_create_bits(PIXMAN_x8r8g8b8, kSide, kSide, PhotoWords().data(), kSide * 4);
  const double scale = double(kSide) / side;
  pixman_transform_t transform;
  pixman_transform_init_scale(&transform, pixman_double_to_fixed(scale),
                              pixman_double_to_fixed(scale));
  pixman_image_set_transform(source, &transform);
  pixman_image_set_repeat(source, PIXMAN_REPEAT_PAD);
  int count = 0;
  pixman_fixed_t* params = pixman_filter_create_separable_convolution(
      &count, pixman_double_to_fixed(scale), pixman_double_to_fixed(scale), reconstruct,
      reconstruct, sample, sample, 4, 4);
  pixman_image_set_filter(source, PIXMAN_FILTER_SEPARABLE_CONVOLUTION, params, count);
  free(params);
  std::vector<uint32_t> bits(size_t(side) * side);
  pixman_image_t* dest =
      pixman_image_create_bits(PIXMAN_x8r8g8b8, side, side, bits.data(), side * 4);
  for (auto _ : state) {
    pixman_image_composite32(PIXMAN_OP_SRC, source, nullptr, dest, 0, 0, 0, 0, 0, 0, side, side);
    benchmark::ClobberMemory();
  }
  pixman_image_unref(dest);
  pixman_image_unref(source);
}

}  // namespace

BENCHMARK_CAPTURE(TeselResize, up_kernel1, kUp, 1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(TeselResize, up_kernel2, kUp, 2)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(TeselResize, down_area, kDown, 1)->Unit(benchmark::kMillisecond);
// pixman has one cubic; it stands beside both of ours.
BENCHMARK_CAPTURE(PixmanResize, up_kernel1, kUp, PIXMAN_KERNEL_CUBIC, PIXMAN_KERNEL_IMPULSE)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PixmanResize, up_kernel2, kUp, PIXMAN_KERNEL_CUBIC, PIXMAN_KERNEL_IMPULSE)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PixmanResize, down_area, kDown, PIXMAN_KERNEL_BOX, PIXMAN_KERNEL_BOX)
    ->Unit(benchmark::kMillisecond);
