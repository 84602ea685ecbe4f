// Byte-by-byte little-endian fields of file and bitmap headers, so the
// layout never depends on the host's structs or byte order.
#pragma once

#include <cstdint>

inline void PutU16(uint8_t* out, uint32_t value) {
  out[0] = static_cast<uint8_t>(value);
  out[1] = static_cast<uint8_t>(value >> 8);
}

inline void PutU32(uint8_t* out, uint32_t value) {
  PutU16(out, value);
  PutU16(out + 2, value >> 16);
}

inline uint32_t GetU16(const uint8_t* in) { return in[0] | (static_cast<uint32_t>(in[1]) << 8); }

inline uint32_t GetU32(const uint8_t* in) { return GetU16(in) | (GetU16(in + 2) << 16); }

inline int32_t GetI32(const uint8_t* in) { return static_cast<int32_t>(GetU32(in)); }
