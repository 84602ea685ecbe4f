#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include "settings/settings.h"
#include "store/dib.h"
#include "store/little_endian.h"
#include "store/plane_rows.h"

namespace {

// Later info headers extend the 40-byte one; their extra fields matter only
// for compressions that aren't read here.
constexpr uint32_t kMaxInfoBytes = 124;
constexpr int kHeadBytes = kBmpFileHeaderBytes + kDibHeaderBytes;

struct FileCloser {
  void operator()(FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<FILE, FileCloser>;

bool WriteAll(FILE* file, const void* data, size_t bytes) {
  return std::fwrite(data, 1, bytes, file) == bytes;
}

// Closing flushes, so a full disk may only show here.
bool Close(File& file) { return std::fclose(file.release()) == 0; }

// "BM", the file size, two zero words, the offset of the pixels.
void WriteFileHeader(uint8_t* out, uint64_t fileBytes, uint32_t pixelOffset) {
  std::memset(out, 0, kBmpFileHeaderBytes);
  out[0] = 'B';
  out[1] = 'M';
  PutU32(out + 2, static_cast<uint32_t>(fileBytes));
  PutU32(out + 10, pixelOffset);
}

// What the headers of a readable file say.
struct BmpLayout {
  int width;
  int rows;
  bool topDown;
  int fileBits;
  uint64_t fileStride;
  uint32_t pixelOffset;
  uint8_t palette[256][4];  // entries missing from the file read black
  int planeBits;
};

bool PaletteIsGrey(const BmpLayout& layout, uint32_t entries) {
  for (uint32_t i = 0; i < entries; i++) {
    const uint8_t* entry = layout.palette[i];
    if (entry[0] != entry[1] || entry[1] != entry[2]) return false;
  }
  return true;
}

bool ReadLayout(FILE* file, BmpLayout* layout) {
  uint8_t head[kHeadBytes];
  if (std::fread(head, 1, kHeadBytes, file) != kHeadBytes) return false;
  if (head[0] != 'B' || head[1] != 'M') return false;
  const uint8_t* info = head + kBmpFileHeaderBytes;
  const uint32_t infoBytes = GetU32(info);
  const int32_t width = GetI32(info + 4);
  const int32_t height = GetI32(info + 8);
  const uint32_t planes = GetU16(info + 12);
  const uint32_t bits = GetU16(info + 14);
  const uint32_t compression = GetU32(info + 16);
  const uint32_t colorsUsed = GetU32(info + 32);
  if (infoBytes < kDibHeaderBytes || infoBytes > kMaxInfoBytes) return false;
  if (planes != 1 || compression != 0 || DibPaletteBytes(static_cast<int>(bits)) < 0) return false;
  if (width < 1 || height == 0 || height == INT32_MIN) return false;

  const uint32_t maxEntries = bits == 24 ? 0 : 1u << bits;
  const uint32_t entries = colorsUsed != 0 && bits != 24 ? colorsUsed : maxEntries;
  if (entries > maxEntries) return false;
  const uint32_t paletteStart = kBmpFileHeaderBytes + infoBytes;
  layout->pixelOffset = GetU32(head + 10);
  if (layout->pixelOffset < paletteStart + 4 * entries) return false;

  layout->width = width;
  layout->rows = std::abs(height);
  layout->topDown = height < 0;
  layout->fileBits = static_cast<int>(bits);
  layout->fileStride = DibStride(width, layout->fileBits);

  std::memset(layout->palette, 0, sizeof layout->palette);
  if (std::fseek(file, paletteStart, SEEK_SET) != 0) return false;
  if (std::fread(layout->palette, 4, entries, file) != entries) return false;
  layout->planeBits = bits == 24 || !PaletteIsGrey(*layout, entries) ? 24 : 8;

  // The plane's sizes are 32-bit, and the pixels must all be in the file.
  if (DibStride(width, layout->planeBits) * layout->rows > INT32_MAX) return false;
  if (std::fseek(file, 0, SEEK_END) != 0) return false;
  const long fileBytes = std::ftell(file);
  return fileBytes >= 0 &&
         layout->pixelOffset + layout->fileStride * layout->rows <= static_cast<uint64_t>(fileBytes);
}

// Palette index of column x of a 1-, 4- or 8-bit row, most significant first.
unsigned IndexAt(const uint8_t* row, int bits, int x) {
  switch (bits) {
    case 1: return (row[x >> 3] >> (7 - (x & 7))) & 1;
    case 4: return (row[x >> 1] >> ((x & 1) ? 0 : 4)) & 15;
    default: return row[x];
  }
}

void ExpandRow(const BmpLayout& layout, const uint8_t* fileRow, uint8_t* planeRow) {
  if (layout.fileBits == 24) {
    std::memcpy(planeRow, fileRow, static_cast<size_t>(layout.width) * 3);
    return;
  }
  for (int x = 0; x < layout.width; x++) {
    const uint8_t* colour = layout.palette[IndexAt(fileRow, layout.fileBits, x)];
    if (layout.planeBits == 8) {
      planeRow[x] = colour[0];
    } else {
      std::memcpy(planeRow + 3 * static_cast<size_t>(x), colour, 3);
    }
  }
}

bool ReadPixels(FILE* file, const BmpLayout& layout, Plane* plane) {
  if (std::fseek(file, layout.pixelOffset, SEEK_SET) != 0) return false;
  std::vector<uint8_t> fileRow(layout.fileStride);
  std::vector<uint8_t> planeRow = RowBuffer(plane);
  for (int i = 0; i < layout.rows; i++) {
    if (std::fread(fileRow.data(), 1, fileRow.size(), file) != fileRow.size()) return false;
    ExpandRow(layout, fileRow.data(), planeRow.data());
    WriteWholeRow(plane, layout.topDown ? i : layout.rows - 1 - i, planeRow.data());
  }
  return true;
}

}  // namespace

int SaveBmp(Plane* plane, const std::string& path) {
  if (!HasRowDepth(plane)) return 0;
  platform::WaitCursor wait;
  File file(platform::OpenFile(path, "wb"));
  if (!file) return 0;
  const int paletteBytes = DibPaletteBytes(static_cast<int>(plane->bits));
  const uint32_t pixelOffset = kHeadBytes + paletteBytes;
  std::vector<uint8_t> head(pixelOffset);
  WriteFileHeader(head.data(), pixelOffset + static_cast<uint64_t>(plane->byteSize), pixelOffset);
  WriteDibHeader(head.data() + kBmpFileHeaderBytes, plane->width, plane->height,
                 static_cast<int>(plane->bits));
  std::memcpy(head.data() + kHeadBytes, plane->palette, paletteBytes);
  bool written = WriteAll(file.get(), head.data(), head.size());
  std::vector<uint8_t> row = RowBuffer(plane);
  for (int y = plane->height - 1; written && y >= 0; y--) {
    ReadWholeRow(plane, y, row.data());
    written = WriteAll(file.get(), row.data(), plane->stride);
  }
  return Close(file) && written ? 1 : 0;
}

int SaveTileBmp(const DibTile* tile, const std::string& path) {
  platform::WaitCursor wait;
  File file(platform::OpenFile(path, "wb"));
  if (!file) return 0;
  const uint64_t dibBytes = tile->pixelOffset + static_cast<uint64_t>(tile->stride) * tile->height;
  uint8_t head[kBmpFileHeaderBytes];
  WriteFileHeader(head, kBmpFileHeaderBytes + dibBytes, kBmpFileHeaderBytes + tile->pixelOffset);
  const bool written = WriteAll(file.get(), head, sizeof head) && WriteAll(file.get(), tile->dib, dibBytes);
  return Close(file) && written ? 1 : 0;
}

Plane* LoadBmp(const std::string& path) {
  File file(platform::OpenFile(path, "rb"));
  if (!file) return nullptr;
  BmpLayout layout;
  if (!ReadLayout(file.get(), &layout)) return nullptr;
  Plane* plane = PlaneStore.CreatePlane(layout.width, layout.rows, layout.planeBits, 0, 0,
                                        static_cast<uint32_t>(settings.workBuffer));
  if (plane && !ReadPixels(file.get(), layout, plane)) PlaneStore.FreePlane(&plane);
  return plane;
}
