// The BMP layout that the reader and the writer share: header sizes,
// compression codes, little-endian fields, row strides and resolution.
#pragma once

#include <cstdint>

namespace bmp {

constexpr uint32_t kFileHeaderBytes = 14;  // "BM", file size, reserved, pixel offset
constexpr uint32_t kCoreHeaderBytes = 12;  // the oldest info header: 16-bit sizes
constexpr uint32_t kInfoHeaderBytes = 40;
constexpr uint32_t kV5HeaderBytes = 124;

enum Compression : uint32_t {
  kRgb = 0,
  kRle8 = 1,
  kRle4 = 2,
  kBitfields = 3,
  kAlphaBitfields = 6,
};

// The largest picture read or written, each side and in all: large enough for
// any canvas, small enough that a lying header can't ask for absurd memory.
constexpr int kMaxSide = 32768;
constexpr int64_t kMaxPixels = int64_t{1} << 28;

inline uint32_t GetU16(const uint8_t* in) { return in[0] | uint32_t(in[1]) << 8; }
inline uint32_t GetU32(const uint8_t* in) { return GetU16(in) | GetU16(in + 2) << 16; }
inline int32_t GetI32(const uint8_t* in) { return int32_t(GetU32(in)); }

inline void PutU16(uint8_t* out, uint32_t value) {
  out[0] = uint8_t(value);
  out[1] = uint8_t(value >> 8);
}
inline void PutU32(uint8_t* out, uint32_t value) {
  PutU16(out, value);
  PutU16(out + 2, value >> 16);
}

// Bytes of one row in the file: rows are padded to a multiple of four.
inline uint64_t Stride(int64_t width, int bits) { return (uint64_t(width) * bits + 31) / 32 * 4; }

// Files give pixels per metre, the program dots per inch; both round to the
// nearest, so that 96 dpi and 3780 ppm map onto each other.
inline int32_t DpiFromPixelsPerMetre(int32_t ppm) {
  return int32_t((int64_t(ppm) * 254 + 5000) / 10000);
}
inline int32_t PixelsPerMetreFromDpi(int32_t dpi) {
  if (dpi <= 0 || dpi > 1000000) return 0;
  return int32_t((int64_t(dpi) * 10000 + 127) / 254);
}

}  // namespace bmp
