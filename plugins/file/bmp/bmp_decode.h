// Decoding a BMP file: its headers, its palette and its rows, from any
// source of bytes. Nothing here knows the plug-in boundary, so the decoder
// runs as well from memory (the fuzzer) as from a file (the plug-in).
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <span>

namespace bmp {

// Random access to a file's bytes.
class ByteSource {
 public:
  virtual ~ByteSource() = default;
  // Copies what there is of [offset, offset + size) into out; the count.
  virtual size_t Fetch(uint64_t offset, uint8_t* out, size_t size) = 0;
  // All of [offset, offset + size), or false.
  bool Read(uint64_t offset, uint8_t* out, size_t size) { return Fetch(offset, out, size) == size; }
};

class MemorySource final : public ByteSource {
 public:
  explicit MemorySource(std::span<const uint8_t> bytes) : bytes_(bytes) {}
  size_t Fetch(uint64_t offset, uint8_t* out, size_t size) override;

 private:
  std::span<const uint8_t> bytes_;
};

class FileSource final : public ByteSource {
 public:
  explicit FileSource(const char* path);
  ~FileSource() override;
  FileSource(const FileSource&) = delete;
  FileSource& operator=(const FileSource&) = delete;

  bool opened() const { return file_ != nullptr; }
  size_t Fetch(uint64_t offset, uint8_t* out, size_t size) override;

 private:
  std::FILE* file_;
  uint64_t position_ = 0;  // saves a seek on each of the sequential reads
};

// What the headers say, checked: a picture that DecodeRows can deliver.
struct Layout {
  int width = 0, height = 0;
  bool topDown = false;
  int fileBits = 0;          // 1, 4, 8, 16, 24 or 32
  uint32_t compression = 0;  // kRgb, kRle8, kRle4 or kBitfields
  uint32_t masks[4] = {};    // red, green, blue, alpha of 16- and 32-bit pixels
  // kDeclared: the alpha mask is stated. kIfAnyNonZero: 32-bit pixels whose
  // fourth byte counts only when some pixel sets it, since many writers
  // leave it zero in opaque pictures.
  enum class Alpha { kNone, kDeclared, kIfAnyNonZero } alpha = Alpha::kNone;
  uint8_t palette[1024] = {};  // blue, green, red, 0; entries missing from the file are black
  uint64_t pixelOffset = 0;
  int32_t pixelsPerMetre = 0;

  // The depth of the delivered rows: indices as the file packs them, or
  // blue-green-red.
  int RowBits() const { return fileBits <= 8 ? fileBits : 24; }
  // The palette's bytes for RowBits() of 1, 4 or 8.
  size_t PaletteBytes() const { return size_t{4} << fileBits; }
};

// False for anything but a readable picture within kMaxSide and kMaxPixels
// whose uncompressed pixels are all in the source.
bool ReadLayout(ByteSource& source, Layout* layout);

// Whether the picture carries an alpha worth a transparency plane.
bool HasAlpha(ByteSource& source, const Layout& layout);

// Where the decoded rows go; y counts from the top. alpha is null unless
// asked for; false stops the decoding.
class RowSink {
 public:
  virtual bool Row(int y, const uint8_t* pixels, const uint8_t* alpha) = 0;

 protected:
  ~RowSink() = default;
};

// Every row of the picture once, in the order of the file; false when the
// data is short or broken (rows before the fault have been delivered).
bool DecodeRows(ByteSource& source, const Layout& layout, bool withAlpha, RowSink& sink);

}  // namespace bmp
