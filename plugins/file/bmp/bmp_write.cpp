// Writing: 8 bits with the host's palette, 24 bits, or 32 bits whose alpha
// is the transparency plane; always bottom-up, the form every reader takes.
#include <algorithm>
#include <cstdio>
#include <vector>

#include "bmp_format.h"
#include "bmp_plugin.h"
#include "plugin_abi/progress.h"

namespace bmp {
namespace {

constexpr uint32_t kSrgb = 0x73524742;  // "sRGB" as the colour space
constexpr uint32_t kImageIntent = 4;    // perceptual: a picture, not a chart

// Whether the transparency plane exists and is not opaque everywhere. Every
// canvas has one; an opaque plane adds nothing that a 24-bit file loses.
bool NeedsAlpha(const WriteCallbacks* callbacks, int width, int height, uint8_t* row) {
  if (!callbacks->GetPlaneRow) return false;
  for (int y = 0; y < height; ++y) {
    if (!callbacks->GetPlaneRow(y, 0, width - 1, row, 0, kTransparencyPlane)) return false;
    if (std::any_of(row, row + width, [](uint8_t v) { return v != 255; })) return true;
  }
  return false;
}

// The file header, the info header (version 5 for 32 bits, to state the
// alpha mask) and room for the palette at 8 bits.
std::vector<uint8_t> Headers(int width, int height, int bits, int32_t ppm, uint32_t pixelBytes) {
  const uint32_t infoBytes = bits == 32 ? kV5HeaderBytes : kInfoHeaderBytes;
  const uint32_t offset = kFileHeaderBytes + infoBytes + (bits == 8 ? 1024 : 0);
  std::vector<uint8_t> out(offset, 0);
  out[0] = 'B';
  out[1] = 'M';
  PutU32(&out[2], offset + pixelBytes);
  PutU32(&out[10], offset);
  uint8_t* info = &out[kFileHeaderBytes];
  PutU32(info, infoBytes);
  PutU32(info + 4, uint32_t(width));
  PutU32(info + 8, uint32_t(height));  // positive: bottom-up
  PutU16(info + 12, 1);
  PutU16(info + 14, uint32_t(bits));
  PutU32(info + 16, bits == 32 ? kBitfields : kRgb);
  PutU32(info + 20, pixelBytes);
  PutU32(info + 24, uint32_t(ppm));
  PutU32(info + 28, uint32_t(ppm));
  PutU32(info + 32, bits == 8 ? 256 : 0);
  if (bits == 32) {
    const uint32_t masks[4] = {0x00FF0000, 0x0000FF00, 0x000000FF, 0xFF000000};
    for (int i = 0; i < 4; ++i) PutU32(info + 40 + 4 * i, masks[i]);
    PutU32(info + 56, kSrgb);
    PutU32(info + 108, kImageIntent);
  }
  return out;
}

// Row y as the file stores it; the padding of row stays as it is.
bool FileRow(WriteCallbacks* callbacks, int y, int width, int bits, uint8_t* row, uint8_t* colour,
             uint8_t* alpha) {
  if (bits != 32) return callbacks->GetRow(y, 0, width - 1, row, 0) != 0;
  if (!callbacks->GetRow(y, 0, width - 1, colour, 0) ||
      !callbacks->GetPlaneRow(y, 0, width - 1, alpha, 0, kTransparencyPlane))
    return false;
  for (int x = 0; x < width; ++x) {
    std::copy(colour + 3 * x, colour + 3 * x + 3, row + 4 * x);
    row[4 * x + 3] = alpha[x];
  }
  return true;
}

}  // namespace

int Write(TeselWindow window, const char* path, const FileHeader* header,
          WriteCallbacks* callbacks) {
  if (!path || !header || !callbacks || !callbacks->GetRow || header->layerCount < 1) return 0;
  const int width = header->layers[0].width, height = header->layers[0].height;
  // Nothing is written that the reader would refuse.
  if (width < 1 || height < 1 || width > kMaxSide || height > kMaxSide ||
      int64_t{width} * height > kMaxPixels)
    return 0;
  std::vector<uint8_t> alpha(size_t(width), 0);
  const int bits = header->layers[0].bits == 8                          ? 8
                   : NeedsAlpha(callbacks, width, height, alpha.data()) ? 32
                                                                        : 24;
  const uint64_t stride = Stride(width, bits);
  std::vector<uint8_t> head =
      Headers(width, height, bits, PixelsPerMetreFromDpi(header->dpiX), uint32_t(stride * height));
  if (bits == 8) {
    uint8_t* palette = &head[head.size() - 1024];
    if (!callbacks->GetPalette || !callbacks->GetPalette(palette)) return 0;
    for (int i = 0; i < 256; ++i) palette[4 * i + 3] = 0;  // reserved in the file
  }
  std::FILE* file = std::fopen(path, "wb");
  if (!file) return 0;
  bool written = std::fwrite(head.data(), 1, head.size(), file) == head.size();
  std::vector<uint8_t> row(stride, 0), colour(bits == 32 ? size_t(width) * 3 : 0);
  int percent = -1;
  for (int i = 0; written && i < height; ++i) {
    written =
        FileRow(callbacks, height - 1 - i, width, bits, row.data(), colour.data(), alpha.data()) &&
        std::fwrite(row.data(), 1, row.size(), file) == row.size();
    const int now = int(int64_t{i + 1} * 100 / height);
    if (now != percent) TeselReportProgress(window, TESEL_PROGRESS_SAVING, percent = now);
  }
  // Closing flushes, so a full disk may show only here.
  written = std::fclose(file) == 0 && written;
  if (!written) std::remove(path);
  TeselReportProgress(window, TESEL_PROGRESS_CLEAR, 0);
  return written ? 1 : 0;
}

}  // namespace bmp
