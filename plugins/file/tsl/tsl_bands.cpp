#include "tsl_bands.h"

#include <algorithm>
#include <cstring>

namespace tsl {
namespace {

// Channel c of a row: its first byte and the step to the next pixel.
inline uint8_t* ChannelStart(const RowSet& row, int c) {
  return c < 3 ? row.image + c : row.alpha[size_t(c - 3)];
}
inline int ChannelStep(int c) { return c < 3 ? 3 : 1; }

// Whether the stream's first three channels are blue, green and red: then
// blue and red go as differences from green, which takes out what the
// three share (grain, shading) before the differences along the row.
inline bool AllColours(const int* varying, int count) {
  return count >= 3 && varying[0] == 0 && varying[1] == 1 && varying[2] == 2;
}

// A band of this many bytes, with this many channels in its stream.
inline size_t RawBytes(int width, int rows, int channels) {
  return size_t(width) * size_t(rows) * size_t(channels);
}

}  // namespace

BandEncoder::BandEncoder() {
  // Level 1 is fast; a band that repeats itself (tones, hatching) gains much
  // from level 6, a band of shading and grain some from level 5, and a
  // noise-like band from the run-length strategy, which is also faster.
  ok_ = deflateInit2(&fast_, 1, Z_DEFLATED, 15, 8, Z_DEFAULT_STRATEGY) == Z_OK &&
        deflateInit2(&strong_, 6, Z_DEFLATED, 15, 8, Z_DEFAULT_STRATEGY) == Z_OK &&
        deflateInit2(&medium_, 5, Z_DEFLATED, 15, 8, Z_DEFAULT_STRATEGY) == Z_OK &&
        deflateInit2(&runs_, 1, Z_DEFLATED, 15, 8, Z_RLE) == Z_OK;
}

BandEncoder::~BandEncoder() {
  deflateEnd(&fast_);
  deflateEnd(&strong_);
  deflateEnd(&medium_);
  deflateEnd(&runs_);
}

size_t BandEncoder::Deflate(z_stream* z, std::vector<uint8_t>* out) {
  if (deflateReset(z) != Z_OK) return 0;
  out->resize(deflateBound(z, uLong(raw_.size())));
  z->next_in = raw_.data();
  z->avail_in = uInt(raw_.size());
  z->next_out = out->data();
  z->avail_out = uInt(out->size());
  return deflate(z, Z_FINISH) == Z_STREAM_END ? size_t(z->total_out) : 0;
}

bool BandEncoder::Encode(int width, uint32_t presentMask, const std::vector<RowSet>& rows,
                         BandEntry* entry, const uint8_t** stream) {
  *entry = BandEntry{};
  const uint16_t channels = LayerChannels(presentMask);
  std::array<int, kChannels> varying{};
  int count = 0;
  for (int c = 0; c < kChannels; ++c) {
    if (!(channels >> c & 1)) continue;
    const int step = ChannelStep(c);
    const uint8_t first = *ChannelStart(rows[0], c);
    bool constant = true;
    for (size_t r = 0; r < rows.size() && constant; ++r) {
      const uint8_t* p = ChannelStart(rows[r], c);
      for (int x = 0; x < width; ++x)
        if (p[size_t(x) * step] != first) {
          constant = false;
          break;
        }
    }
    if (constant) {
      entry->constantMask = uint16_t(entry->constantMask | 1u << c);
      entry->fill[size_t(c)] = first;
    } else {
      varying[size_t(count++)] = c;
    }
  }
  if (count == 0) return true;  // method 0: the entry says it all

  const bool colours = AllColours(varying.data(), count);
  raw_.resize(RawBytes(width, int(rows.size()), count));
  uint8_t* out = raw_.data();
  for (const RowSet& row : rows) {
    for (int j = 0; j < count; ++j) {
      const int c = varying[size_t(j)];
      const uint8_t* p = ChannelStart(row, c);
      const uint8_t* green = colours && c != 1 && c < 3 ? row.image + 1 : nullptr;
      const int step = ChannelStep(c);
      uint8_t left = 0;
      for (int x = 0; x < width; ++x) {
        const uint8_t v = uint8_t(p[size_t(x) * step] - (green ? green[size_t(x) * 3] : 0));
        out[size_t(x) * count + j] = uint8_t(v - left);
        left = v;
      }
    }
    out += size_t(width) * count;
  }

  size_t best = Deflate(&fast_, &best_);
  if (!best) return false;
  z_stream* second = best * 8 < raw_.size()       ? &strong_
                     : best * 4 > raw_.size() * 3 ? &runs_
                                                  : &medium_;
  if (second) {
    const size_t tried = Deflate(second, &trial_);
    if (tried && tried < best) {
      best = tried;
      best_.swap(trial_);
    }
  }
  entry->method = colours ? 2 : 1;
  entry->streamBytes = uint32_t(best);
  *stream = best_.data();
  return true;
}

BandDecoder::BandDecoder() { ok_ = inflateInit(&z_) == Z_OK; }
BandDecoder::~BandDecoder() { inflateEnd(&z_); }

bool BandDecoder::Start(int width, int rows, uint32_t presentMask, const BandEntry& entry,
                        const uint8_t* stream) {
  const uint16_t channels = LayerChannels(presentMask);
  if (entry.constantMask & ~channels) return false;
  entry_ = entry;
  presentMask_ = presentMask;
  varyingCount_ = 0;
  for (int c = 0; c < kChannels; ++c)
    if ((channels >> c & 1) && !(entry.constantMask >> c & 1))
      varying_[size_t(varyingCount_++)] = c;
  if (entry.method == 0) return varyingCount_ == 0 && entry.streamBytes == 0;
  if ((entry.method != 1 && entry.method != 2) || varyingCount_ == 0) return false;
  if ((entry.method == 2) != AllColours(varying_.data(), varyingCount_)) return false;
  const size_t bytes = RawBytes(width, rows, varyingCount_);
  if (entry.streamBytes == 0 || entry.streamBytes > MaxStreamBytes(bytes)) return false;
  raw_.resize(bytes);
  if (inflateReset(&z_) != Z_OK) return false;
  z_.next_in = const_cast<uint8_t*>(stream);
  z_.avail_in = entry.streamBytes;
  z_.next_out = raw_.data();
  z_.avail_out = uInt(bytes);
  return inflate(&z_, Z_FINISH) == Z_STREAM_END && z_.avail_out == 0 && z_.avail_in == 0;
}

void BandDecoder::FillConstant(int width, const RowSet& out) const {
  const uint16_t channels = LayerChannels(presentMask_);
  for (int c = 0; c < kChannels; ++c) {
    if (!(channels >> c & 1) || !(entry_.constantMask >> c & 1)) continue;
    const uint8_t v = entry_.fill[size_t(c)];
    if (c >= 3) {
      std::memset(out.alpha[size_t(c - 3)], v, size_t(width));
    } else {
      for (int x = 0; x < width; ++x) out.image[size_t(x) * 3 + size_t(c)] = v;
    }
  }
}

void BandDecoder::Row(int width, int r, const RowSet& out) const {
  const int count = varyingCount_;
  if (!count) return;
  const uint8_t* in = raw_.data() + size_t(r) * size_t(width) * size_t(count);
  for (int j = 0; j < count; ++j) {
    const int c = varying_[size_t(j)];
    uint8_t* p = ChannelStart(out, c);
    const int step = ChannelStep(c);
    uint8_t v = 0;
    for (int x = 0; x < width; ++x) {
      v = uint8_t(v + in[size_t(x) * count + j]);
      p[size_t(x) * step] = v;
    }
  }
  if (entry_.method != 2) return;
  for (int x = 0; x < width; ++x) {
    uint8_t* pixel = out.image + size_t(x) * 3;
    pixel[0] = uint8_t(pixel[0] + pixel[1]);
    pixel[2] = uint8_t(pixel[2] + pixel[1]);
  }
}

}  // namespace tsl
