// Row kernels of composition over n pixels: 24-bit rows run blue, green,
// red. Each picks, once per row, its vector form while those are in use
// (pixel/vector_paths.h); they give the same bytes as the table arithmetic.
#pragma once

#include <cstdint>

// acc = BLEND(acc, mode(src, acc), MUL(cov, keep)) with keep = 255 -
// opacityLoss; mixMode 1..9 (others change nothing).
void MixRow(int mixMode, uint8_t* acc, const uint8_t* src, const uint8_t* cov, unsigned keep,
            int n);
// Each colour c = MUL(c, p).
void MultiplyColours(uint8_t* bgr, const uint8_t* p, int n);
// cov = MUL(cov, p), or MUL(cov, 255 - p) with complement set.
void MultiplyCoverage(uint8_t* cov, const uint8_t* p, int n, bool complement);
