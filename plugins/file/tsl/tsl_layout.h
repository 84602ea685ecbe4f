// The bytes of a native file (README.md beside this file draws them): the
// header, one fixed record per layer, the thumbnail and, per layer, a table
// of row bands followed by their zlib streams. Shared by the reader and the
// writer so that the two cannot drift apart.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <istream>
#include <vector>

namespace tsl {

inline constexpr uint8_t kMagic[8] = {'T', 'E', 'S', 'E', 'L', 'T', 'S', 'L'};
// The dword at offset 80. 3 names an older plane order; ours never takes it.
inline constexpr uint32_t kVersion = 4;
inline constexpr uint32_t kHeaderBytes = 256;
inline constexpr uint32_t kLayerRecordBytes = 512;
inline constexpr uint32_t kBandEntryBytes = 20;
inline constexpr int kBandRows = 64;
// Bounds that keep a reader from allocating or looping absurdly.
inline constexpr int kMaxSide = 10240;
inline constexpr int kMaxLayers = 64;
inline constexpr int kMaxBandRows = 256;
inline constexpr int kAlphaPlanes = 7;
// Blue, green, red of the image, then one channel per alpha plane.
inline constexpr int kChannels = 3 + kAlphaPlanes;

// Header offsets.
enum : uint32_t {
  kHeaderMagic = 0,
  kHeaderSize = 8,
  kHeaderLayerCount = 12,
  kHeaderDpi = 16,
  kHeaderActiveLayer = 20,
  kHeaderHasBackColour = 24,
  kHeaderBackRed = 28,
  kHeaderBackGreen = 32,
  kHeaderBackBlue = 36,
  kHeaderBandRows = 40,
  kHeaderLayerRecordSize = 44,
  kHeaderThumbnailOffset = 48,
  kHeaderThumbnailBytes = 56,
  kHeaderFileBytes = 64,
  kHeaderVersion = 80,
};

// Layer record offsets.
enum : uint32_t {
  kLayerWidth = 0,
  kLayerHeight = 4,
  kLayerBits = 8,
  kLayerLeft = 12,
  kLayerTop = 16,
  kLayerMixMode = 20,
  kLayerSavedMixMode = 24,
  kLayerOpacityLoss = 28,
  kLayerPlaneOff = 32,
  kLayerLineDrawing = 40,
  kLayerPresentMask = 48,
  kLayerPlaneNames = 56,
  kLayerPlaneFlags = 128,
  kLayerDataOffset = 160,
  kLayerDataBytes = 168,
  kLayerName = 176,
};

inline uint32_t Get32(const uint8_t* p) {
  return uint32_t(p[0]) | uint32_t(p[1]) << 8 | uint32_t(p[2]) << 16 | uint32_t(p[3]) << 24;
}
inline uint64_t Get64(const uint8_t* p) { return Get32(p) | uint64_t(Get32(p + 4)) << 32; }
inline void Put32(uint8_t* p, uint32_t v) {
  for (int i = 0; i < 4; ++i) p[i] = uint8_t(v >> (8 * i));
}
inline void Put64(uint8_t* p, uint64_t v) {
  Put32(p, uint32_t(v));
  Put32(p + 4, uint32_t(v >> 32));
}

struct LayerEntry {
  int32_t width = 0, height = 0, bits = 24;
  int32_t left = 0, top = 0;
  int32_t mixMode = 0, savedMixMode = 0, opacityLoss = 0;
  std::array<uint8_t, 8> planeOff{}, lineDrawing{};
  uint32_t presentMask = 0;  // bit k: alpha plane k exists
  std::array<std::array<char, 10>, kAlphaPlanes> planeNames{};
  std::array<uint32_t, kAlphaPlanes> planeFlags{};
  uint64_t dataOffset = 0, dataBytes = 0;
  std::array<char, 256> name{};

  int Bands(int bandRows) const { return (height + bandRows - 1) / bandRows; }
};

struct Directory {
  int32_t dpi = 0, activeLayer = 0;
  int32_t hasBackColour = 0, backRed = 0, backGreen = 0, backBlue = 0;
  int bandRows = kBandRows;
  uint64_t thumbnailOffset = 0, thumbnailBytes = 0;
  uint64_t fileBytes = 0;
  std::vector<LayerEntry> layers;
};

void EncodeHeader(const Directory& d, uint8_t* out);
void EncodeLayer(const LayerEntry& l, uint8_t* out);

// Reads the header and the layer records and checks every count, size and
// offset against the file's real length; false for anything out of bounds.
bool ReadDirectory(std::istream& in, Directory* d);

// One band's entry in a layer's table.
struct BandEntry {
  uint32_t streamBytes = 0;
  uint8_t method = 0;         // 0: no stream, every channel constant; 1: zlib; 2: zlib,
                              // blue and red as differences from green
  uint16_t constantMask = 0;  // bit c: channel c holds fill[c] throughout
  std::array<uint8_t, kChannels> fill{};
};
void EncodeBand(const BandEntry& b, uint8_t* out);
BandEntry DecodeBand(const uint8_t* in);

}  // namespace tsl
