#include "bmp_decode.h"

#include <algorithm>
#include <bit>
#include <climits>
#include <cstring>
#include <vector>

#include "bmp_format.h"

namespace bmp {

size_t MemorySource::Fetch(uint64_t offset, uint8_t* out, size_t size) {
  if (offset >= bytes_.size()) return 0;
  const size_t count = std::min<uint64_t>(size, bytes_.size() - offset);
  std::memcpy(out, bytes_.data() + offset, count);
  return count;
}

FileSource::FileSource(const char* path) : file_(path ? std::fopen(path, "rb") : nullptr) {}

FileSource::~FileSource() {
  if (file_) std::fclose(file_);
}

size_t FileSource::Fetch(uint64_t offset, uint8_t* out, size_t size) {
  if (!file_ || offset > uint64_t(LONG_MAX)) return 0;
  if (offset != position_) {
    if (std::fseek(file_, long(offset), SEEK_SET) != 0) return 0;
    position_ = offset;
  }
  const size_t count = std::fread(out, 1, size, file_);
  position_ += count;
  return count;
}

namespace {

bool KnownInfoSize(uint32_t bytes) {
  // 52 and 56 are the 40-byte header with its masks inside; 108 and 124
  // add colour space fields that a paint program leaves alone.
  return bytes == kCoreHeaderBytes || bytes == kInfoHeaderBytes || bytes == 52 || bytes == 56 ||
         bytes == 108 || bytes == kV5HeaderBytes;
}

// Each mask one run of bits inside the pixel, none overlapping another.
bool MasksFit(const uint32_t* masks, int bits) {
  const uint64_t limit = uint64_t{1} << bits;
  uint32_t taken = 0;
  for (int i = 0; i < 4; ++i) {
    const uint32_t mask = masks[i];
    if (mask == 0) continue;
    if (mask >= limit || (mask & taken)) return false;
    if (!std::has_single_bit((uint64_t{mask} >> std::countr_zero(mask)) + 1)) return false;
    taken |= mask;
  }
  return true;
}

// The compression, and for 16 and 32 bits the masks wherever the header's
// version keeps them; paletteStart moves past masks that follow the header.
bool ReadCoding(ByteSource& source, uint32_t infoBytes, const uint8_t* info, Layout* l,
                uint64_t* paletteStart) {
  const uint32_t compression = GetU32(info + 16);
  const int bits = l->fileBits;
  if (compression == kRle8 || compression == kRle4) {
    // Runs are stored bottom-up only.
    l->compression = compression;
    return bits == (compression == kRle8 ? 8 : 4) && !l->topDown;
  }
  if (compression == kRgb) {
    l->compression = kRgb;
    if (bits == 16) {
      const uint32_t masks[4] = {0x7C00, 0x03E0, 0x001F, 0};
      std::copy(masks, masks + 4, l->masks);
    } else if (bits == 32) {
      const uint32_t masks[4] = {0xFF0000, 0xFF00, 0xFF, 0xFF000000};
      std::copy(masks, masks + 4, l->masks);
      const bool stated = infoBytes >= 56 && GetU32(info + 52) == 0xFF000000;
      l->alpha = stated ? Layout::Alpha::kDeclared : Layout::Alpha::kIfAnyNonZero;
    }
    return bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
  }
  if ((compression != kBitfields && compression != kAlphaBitfields) || (bits != 16 && bits != 32))
    return false;
  l->compression = kBitfields;
  int count = compression == kAlphaBitfields ? 4 : 3;
  uint8_t following[16];
  const uint8_t* fields = info + kInfoHeaderBytes;
  if (infoBytes == kInfoHeaderBytes) {
    if (!source.Read(*paletteStart, following, size_t(4 * count))) return false;
    fields = following;
    *paletteStart += uint64_t(4 * count);
  } else {
    count = infoBytes >= 56 ? 4 : 3;
  }
  for (int i = 0; i < count; ++i) l->masks[i] = GetU32(fields + 4 * i);
  l->alpha = l->masks[3] ? Layout::Alpha::kDeclared : Layout::Alpha::kNone;
  return MasksFit(l->masks, bits);
}

bool ReadPalette(ByteSource& source, uint64_t start, uint32_t entries, int entryBytes, Layout* l) {
  uint8_t raw[1024];
  if (!source.Read(start, raw, size_t(entries) * entryBytes)) return false;
  for (uint32_t i = 0; i < entries; ++i) std::memcpy(l->palette + 4 * i, raw + i * entryBytes, 3);
  return true;
}

}  // namespace

bool ReadLayout(ByteSource& source, Layout* layout) {
  uint8_t head[kFileHeaderBytes + kV5HeaderBytes];
  if (!source.Read(0, head, kFileHeaderBytes + 4)) return false;
  if (head[0] != 'B' || head[1] != 'M') return false;
  const uint32_t infoBytes = GetU32(head + kFileHeaderBytes);
  if (!KnownInfoSize(infoBytes) ||
      !source.Read(kFileHeaderBytes, head + kFileHeaderBytes, infoBytes))
    return false;
  const uint8_t* info = head + kFileHeaderBytes;
  Layout l;
  l.pixelOffset = GetU32(head + 10);
  uint64_t paletteStart = kFileHeaderBytes + infoBytes;
  int64_t width, height;
  uint32_t planes, colorsUsed = 0;
  int entryBytes = 4;
  if (infoBytes == kCoreHeaderBytes) {
    width = GetU16(info + 4);
    height = GetU16(info + 6);
    planes = GetU16(info + 8);
    l.fileBits = int(GetU16(info + 10));
    entryBytes = 3;
    if (l.fileBits != 1 && l.fileBits != 4 && l.fileBits != 8 && l.fileBits != 24) return false;
  } else {
    width = GetI32(info + 4);
    height = GetI32(info + 8);
    planes = GetU16(info + 12);
    l.fileBits = int(GetU16(info + 14));
    l.pixelsPerMetre = GetI32(info + 24);
    colorsUsed = GetU32(info + 32);
    l.topDown = height < 0;
    height = l.topDown ? -height : height;
    if (!ReadCoding(source, infoBytes, info, &l, &paletteStart)) return false;
  }
  if (planes != 1 || width < 1 || height < 1 || width > kMaxSide || height > kMaxSide ||
      width * height > kMaxPixels)
    return false;
  l.width = int(width);
  l.height = int(height);

  if (l.fileBits <= 8) {
    const uint32_t most = 1u << l.fileBits;
    const uint32_t entries = colorsUsed ? colorsUsed : most;
    if (entries > most || l.pixelOffset < paletteStart + uint64_t(entries) * entryBytes)
      return false;
    if (!ReadPalette(source, paletteStart, entries, entryBytes, &l)) return false;
  } else if (l.pixelOffset < paletteStart) {
    return false;
  }

  // Uncompressed pixels must all be there; runs are checked as they come.
  if (l.compression == kRgb || l.compression == kBitfields) {
    uint8_t last;
    if (!source.Read(l.pixelOffset + Stride(l.width, l.fileBits) * l.height - 1, &last, 1))
      return false;
  }
  *layout = l;
  return true;
}

bool HasAlpha(ByteSource& source, const Layout& layout) {
  if (layout.alpha != Layout::Alpha::kIfAnyNonZero) return layout.alpha == Layout::Alpha::kDeclared;
  const uint64_t stride = Stride(layout.width, 32);
  std::vector<uint8_t> row(stride);
  for (int i = 0; i < layout.height; ++i) {
    if (!source.Read(layout.pixelOffset + stride * i, row.data(), row.size())) return false;
    for (size_t x = 3; x < row.size(); x += 4) {
      if (row[x]) return true;
    }
  }
  return false;
}

namespace {

// One component of a 16- or 32-bit pixel, scaled to 0..255 with rounding.
class Channel {
 public:
  explicit Channel(uint32_t mask)
      : mask_(mask), shift_(mask ? std::countr_zero(mask) : 0), most_(mask >> shift_) {}
  uint8_t Of(uint32_t pixel) const {
    const uint32_t value = (pixel & mask_) >> shift_;
    if (most_ == 255 || most_ == 0) return uint8_t(value);
    return uint8_t((uint64_t{value} * 255 + most_ / 2) / most_);
  }

 private:
  uint32_t mask_;
  int shift_;
  uint32_t most_;
};

// Rows of 16- and 32-bit pixels to blue-green-red and, when asked, alpha.
class Unpacker {
 public:
  explicit Unpacker(const Layout& l)
      : bits_(l.fileBits),
        red_(l.masks[0]),
        green_(l.masks[1]),
        blue_(l.masks[2]),
        alpha_(l.masks[3]) {}
  void Row(const uint8_t* in, int width, uint8_t* colour, uint8_t* alpha) const {
    for (int x = 0; x < width; ++x) {
      const uint32_t pixel = bits_ == 16 ? GetU16(in + 2 * x) : GetU32(in + 4 * x);
      colour[3 * x] = blue_.Of(pixel);
      colour[3 * x + 1] = green_.Of(pixel);
      colour[3 * x + 2] = red_.Of(pixel);
      if (alpha) alpha[x] = alpha_.Of(pixel);
    }
  }

 private:
  int bits_;
  Channel red_, green_, blue_, alpha_;
};

bool DecodePlain(ByteSource& source, const Layout& l, bool withAlpha, RowSink& sink) {
  const uint64_t stride = Stride(l.width, l.fileBits);
  const bool unpacked = l.fileBits == 16 || l.fileBits == 32;
  std::vector<uint8_t> fileRow(stride), colour(unpacked ? size_t(l.width) * 3 : 0);
  std::vector<uint8_t> alpha(unpacked && withAlpha ? size_t(l.width) : 0);
  const Unpacker unpacker(l);
  for (int i = 0; i < l.height; ++i) {
    if (!source.Read(l.pixelOffset + stride * i, fileRow.data(), fileRow.size())) return false;
    const uint8_t* pixels = fileRow.data();
    if (unpacked) {
      unpacker.Row(pixels, l.width, colour.data(), alpha.empty() ? nullptr : alpha.data());
      pixels = colour.data();
    }
    if (!sink.Row(l.topDown ? i : l.height - 1 - i, pixels, alpha.empty() ? nullptr : alpha.data()))
      return false;
  }
  return true;
}

// The run data read in order, a block at a time.
class Cursor {
 public:
  Cursor(ByteSource& source, uint64_t offset) : source_(source), offset_(offset) {}
  bool Next(uint8_t* byte) {
    if (at_ == count_) {
      count_ = source_.Fetch(offset_, block_, sizeof block_);
      offset_ += count_;
      at_ = 0;
      if (count_ == 0) return false;
    }
    *byte = block_[at_++];
    return true;
  }

 private:
  ByteSource& source_;
  uint64_t offset_;
  uint8_t block_[4096];
  size_t at_ = 0, count_ = 0;
};

// Runs of 8- or 4-bit indices, bottom-up. Pixels that the escapes skip
// (end of line, delta, end of bitmap) take index 0.
bool DecodeRuns(ByteSource& source, const Layout& l, RowSink& sink) {
  const bool nibbles = l.compression == kRle4;
  std::vector<uint8_t> indices(size_t(l.width), 0), packed(nibbles ? Stride(l.width, 4) : 0);
  int x = 0, row = 0;  // row counts from the bottom, as the file does
  bool drawn = false;  // blank rows, most of a sparse picture, need no packing
  auto finishRow = [&]() {
    if (drawn && nibbles) {
      for (int i = 0; i < l.width; ++i)
        packed[size_t(i / 2)] |= uint8_t(indices[size_t(i)] << (i % 2 ? 0 : 4));
    }
    const bool taken =
        sink.Row(l.height - 1 - row, nibbles ? packed.data() : indices.data(), nullptr);
    if (drawn) {
      std::fill(indices.begin(), indices.end(), 0);
      std::fill(packed.begin(), packed.end(), 0);
      drawn = false;
    }
    ++row;
    return taken;
  };
  Cursor in(source, l.pixelOffset);
  uint8_t count, value;
  while (row < l.height) {
    if (!in.Next(&count) || !in.Next(&value)) return false;
    if (count > 0) {
      // A run: one index, or two nibbles that alternate.
      if (count > l.width - x) return false;
      drawn = true;
      for (int i = 0; i < count; ++i)
        indices[size_t(x++)] = nibbles ? (i % 2 ? value & 15 : value >> 4) : value;
    } else if (value == 0) {  // end of line
      if (!finishRow()) return false;
      x = 0;
    } else if (value == 1) {  // end of bitmap
      while (row < l.height) {
        if (!finishRow()) return false;
      }
    } else if (value == 2) {  // delta: right and up
      uint8_t dx, dy;
      if (!in.Next(&dx) || !in.Next(&dy) || dx > l.width - x || dy >= l.height - row) return false;
      for (int i = 0; i < dy; ++i) {
        if (!finishRow()) return false;
      }
      x += dx;
    } else {
      // Literal indices, padded to a 16-bit boundary.
      if (value > l.width - x) return false;
      drawn = true;
      const int bytes = nibbles ? (value + 1) / 2 : value;
      uint8_t literal[256];
      for (int i = 0; i < bytes + bytes % 2; ++i) {
        if (!in.Next(&literal[i])) return false;
      }
      for (int i = 0; i < value; ++i) {
        indices[size_t(x++)] =
            nibbles ? (i % 2 ? literal[i / 2] & 15 : literal[i / 2] >> 4) : literal[i];
      }
    }
  }
  return true;
}

}  // namespace

bool DecodeRows(ByteSource& source, const Layout& layout, bool withAlpha, RowSink& sink) {
  if (layout.compression == kRle8 || layout.compression == kRle4)
    return DecodeRuns(source, layout, sink);
  return DecodePlain(source, layout, withAlpha, sink);
}

}  // namespace bmp
