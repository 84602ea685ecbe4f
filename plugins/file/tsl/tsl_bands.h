// A band: up to 64 rows of one layer, every channel of its image and alpha
// planes together. A channel that holds one value throughout the band is
// kept in the band's table entry; the others are interleaved pixel by pixel,
// each byte stored as its difference from the same channel of the pixel to
// its left, and deflated as one stream.
#pragma once

#include <zlib.h>

#include <array>
#include <cstdint>
#include <vector>

#include "tsl_layout.h"

namespace tsl {

// One row of a layer in memory: the image (blue, green, red) and one row per
// alpha plane, null where the plane is absent.
struct RowSet {
  uint8_t* image = nullptr;
  std::array<uint8_t*, kAlphaPlanes> alpha{};
};

// Bit c set for each channel a layer with these alpha planes carries.
inline uint16_t LayerChannels(uint32_t presentMask) {
  return uint16_t(0x7u | (presentMask & 0x7Fu) << 3);
}

class BandEncoder {
 public:
  BandEncoder();
  ~BandEncoder();
  BandEncoder(const BandEncoder&) = delete;
  BandEncoder& operator=(const BandEncoder&) = delete;
  bool ok() const { return ok_; }

  // Compresses `rows` rows of `width` pixels; rows[r] is row r of the band.
  // The stream stays valid until the next call; false when zlib fails.
  bool Encode(int width, uint32_t presentMask, const std::vector<RowSet>& rows, BandEntry* entry,
              const uint8_t** stream);

 private:
  size_t Deflate(z_stream* z, std::vector<uint8_t>* out);
  z_stream fast_{}, strong_{}, medium_{}, runs_{};
  bool ok_ = false;
  std::vector<uint8_t> raw_, best_, trial_;
};

class BandDecoder {
 public:
  BandDecoder();
  ~BandDecoder();
  BandDecoder(const BandDecoder&) = delete;
  BandDecoder& operator=(const BandDecoder&) = delete;
  bool ok() const { return ok_; }

  // Checks an entry against the layer's channels and inflates its stream,
  // which must give exactly the band's bytes; false for anything else.
  bool Start(int width, int rows, uint32_t presentMask, const BandEntry& entry,
             const uint8_t* stream);
  // The longest stream an entry may claim for a band of this many bytes.
  static uint64_t MaxStreamBytes(uint64_t rawBytes) { return compressBound(uLong(rawBytes)) + 64; }
  // Fills the constant channels of a row set once per band, then row r.
  void FillConstant(int width, const RowSet& out) const;
  void Row(int width, int r, const RowSet& out) const;

 private:
  z_stream z_{};
  bool ok_ = false;
  BandEntry entry_;
  uint32_t presentMask_ = 0;
  std::array<int, kChannels> varying_{};  // the channels in the stream, in order
  int varyingCount_ = 0;
  std::vector<uint8_t> raw_;
};

}  // namespace tsl
