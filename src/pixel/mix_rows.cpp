#include "pixel/mix_rows.h"

#include "pixel/mix_modes.h"
#include "pixel/mix_rows_avx2.h"
#include "pixel/vector_paths.h"

namespace {

using MixKernel = avx2::MixKernel;

constexpr MixKernel kScalarKernels[10] = {
    nullptr,
    mix::MixPixels<mix::Normal>,
    mix::MixPixels<mix::Hybrid>,
    mix::MixPixels<mix::Lighten>,
    mix::MixPixels<mix::Darken>,
    mix::MixPixels<mix::Luminosity>,
    mix::MixPixels<mix::HueSaturation>,
    mix::MixPixels<mix::HighLight>,
    mix::MixPixels<mix::Difference>,
    mix::MixPixels<mix::Overlay>,
};

}  // namespace

void MixRow(int mixMode, uint8_t* acc, const uint8_t* src, const uint8_t* cov, unsigned keep,
            int n) {
  if (mixMode < 1 || mixMode > 9 || keep > 255) return;
  MixKernel kernel = VectorPaths() ? avx2::MixKernelOf(mixMode) : nullptr;
  if (!kernel) kernel = kScalarKernels[mixMode];
  kernel(acc, src, cov, keep, n);
}

void MultiplyColours(uint8_t* bgr, const uint8_t* p, int n) {
  if (VectorPaths()) return avx2::MultiplyColours(bgr, p, n);
  mix::MultiplyColourPixels(bgr, p, n);
}

void MultiplyCoverage(uint8_t* cov, const uint8_t* p, int n, bool complement) {
  if (VectorPaths()) return avx2::MultiplyCoverage(cov, p, n, complement);
  mix::MultiplyCoveragePixels(cov, p, n, complement);
}
