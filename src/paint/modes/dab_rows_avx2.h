// The 256-bit forms of the dab's row kernels, for processors with AVX2
// (pixel/vector_paths.h tells when they run). Each works on whole
// blocks of kRowBlock pixels.
#pragma once

#include <cstdint>

#include "paint/modes/blend_kernels.h"

namespace avx2 {

// ShiftRow (paint/dab_rows.h) over whole blocks.
void ShiftRowBlocks(const uint8_t* padded, const uint8_t* lower, unsigned fx, unsigned fy,
                    uint8_t* upper, uint8_t* out, int blocks);
// out = Mul255(in, k).
void ScaleByteBlocks(const uint8_t* in, unsigned k, uint8_t* out, int blocks);
// out = Mul255(Mul255(in, k), 255 - protect); out may be in.
void StrengthBlocks(const uint8_t* in, const uint8_t* protect, unsigned k, uint8_t* out,
                    int blocks);
// BlendColors8 (paint/dab_rows.h) over the blocks that hold the pixels;
// the colour rows are read and written to the end of the 32-byte part
// that holds the last pixel, the others to the end of the last block.
void BlendColorBlocks(const uint8_t* source, const uint8_t* strength, const uint8_t* sourceOpacity,
                      uint8_t* dest, uint8_t* transparency, int pixels, TransparencyBlend how);
// q = x / n truncated, n of 0 taken as 1, as the Over blend divides; eight
// values a block. For tests of the division over all its operands.
void CoverageQuotientBlocks(const int32_t* x, const int32_t* n, int32_t* q, int blocks);

}  // namespace avx2
