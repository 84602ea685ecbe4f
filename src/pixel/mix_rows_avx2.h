// The 256-bit forms of the row kernels, for processors with AVX2.
#pragma once

#include <cstdint>

namespace avx2 {

using MixKernel = void (*)(uint8_t* acc, const uint8_t* src, const uint8_t* cov, unsigned keep,
                           int n);

// The kernel of a channel-wise mix mode; null for the others.
MixKernel MixKernelOf(int mixMode);
void MultiplyColours(uint8_t* bgr, const uint8_t* p, int n);
void MultiplyCoverage(uint8_t* cov, const uint8_t* p, int n, bool complement);

}  // namespace avx2
