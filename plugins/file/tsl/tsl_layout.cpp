#include "tsl_layout.h"

namespace tsl {

void EncodeHeader(const Directory& d, uint8_t* out) {
  std::memset(out, 0, kHeaderBytes);
  std::memcpy(out + kHeaderMagic, kMagic, sizeof kMagic);
  Put32(out + kHeaderSize, kHeaderBytes);
  Put32(out + kHeaderLayerCount, uint32_t(d.layers.size()));
  Put32(out + kHeaderDpi, uint32_t(d.dpi));
  Put32(out + kHeaderActiveLayer, uint32_t(d.activeLayer));
  Put32(out + kHeaderHasBackColour, uint32_t(d.hasBackColour));
  Put32(out + kHeaderBackRed, uint32_t(d.backRed));
  Put32(out + kHeaderBackGreen, uint32_t(d.backGreen));
  Put32(out + kHeaderBackBlue, uint32_t(d.backBlue));
  Put32(out + kHeaderBandRows, uint32_t(d.bandRows));
  Put32(out + kHeaderLayerRecordSize, kLayerRecordBytes);
  Put64(out + kHeaderThumbnailOffset, d.thumbnailOffset);
  Put32(out + kHeaderThumbnailBytes, uint32_t(d.thumbnailBytes));
  Put64(out + kHeaderFileBytes, d.fileBytes);
  Put32(out + kHeaderVersion, kVersion);
}

void EncodeLayer(const LayerEntry& l, uint8_t* out) {
  std::memset(out, 0, kLayerRecordBytes);
  Put32(out + kLayerWidth, uint32_t(l.width));
  Put32(out + kLayerHeight, uint32_t(l.height));
  Put32(out + kLayerBits, uint32_t(l.bits));
  Put32(out + kLayerLeft, uint32_t(l.left));
  Put32(out + kLayerTop, uint32_t(l.top));
  Put32(out + kLayerMixMode, uint32_t(l.mixMode));
  Put32(out + kLayerSavedMixMode, uint32_t(l.savedMixMode));
  Put32(out + kLayerOpacityLoss, uint32_t(l.opacityLoss));
  std::memcpy(out + kLayerPlaneOff, l.planeOff.data(), 8);
  std::memcpy(out + kLayerLineDrawing, l.lineDrawing.data(), 8);
  Put32(out + kLayerPresentMask, l.presentMask);
  for (int k = 0; k < kAlphaPlanes; ++k) {
    std::memcpy(out + kLayerPlaneNames + 10 * k, l.planeNames[size_t(k)].data(), 10);
    Put32(out + kLayerPlaneFlags + 4 * k, l.planeFlags[size_t(k)]);
  }
  Put64(out + kLayerDataOffset, l.dataOffset);
  Put64(out + kLayerDataBytes, l.dataBytes);
  std::memcpy(out + kLayerName, l.name.data(), 255);
}

static LayerEntry DecodeLayer(const uint8_t* in) {
  LayerEntry l;
  l.width = int32_t(Get32(in + kLayerWidth));
  l.height = int32_t(Get32(in + kLayerHeight));
  l.bits = int32_t(Get32(in + kLayerBits));
  l.left = int32_t(Get32(in + kLayerLeft));
  l.top = int32_t(Get32(in + kLayerTop));
  l.mixMode = int32_t(Get32(in + kLayerMixMode));
  l.savedMixMode = int32_t(Get32(in + kLayerSavedMixMode));
  l.opacityLoss = int32_t(Get32(in + kLayerOpacityLoss));
  std::memcpy(l.planeOff.data(), in + kLayerPlaneOff, 8);
  std::memcpy(l.lineDrawing.data(), in + kLayerLineDrawing, 8);
  l.presentMask = Get32(in + kLayerPresentMask);
  for (int k = 0; k < kAlphaPlanes; ++k) {
    std::memcpy(l.planeNames[size_t(k)].data(), in + kLayerPlaneNames + 10 * k, 10);
    l.planeFlags[size_t(k)] = Get32(in + kLayerPlaneFlags + 4 * k);
  }
  l.dataOffset = Get64(in + kLayerDataOffset);
  l.dataBytes = Get64(in + kLayerDataBytes);
  std::memcpy(l.name.data(), in + kLayerName, 255);  // the last byte stays NUL
  return l;
}

// [offset, offset + bytes) lies inside a file of `size` bytes.
static bool Within(uint64_t offset, uint64_t bytes, uint64_t size) {
  return offset <= size && bytes <= size - offset;
}

bool ReadDirectory(std::istream& in, Directory* d) {
  in.seekg(0, std::ios::end);
  const std::streamoff end = in.tellg();
  if (!in || end < std::streamoff(kHeaderBytes)) return false;
  const uint64_t size = uint64_t(end);
  uint8_t h[kHeaderBytes];
  in.seekg(0);
  if (!in.read(reinterpret_cast<char*>(h), kHeaderBytes)) return false;
  if (std::memcmp(h + kHeaderMagic, kMagic, sizeof kMagic) != 0 ||
      Get32(h + kHeaderVersion) != kVersion || Get32(h + kHeaderSize) != kHeaderBytes ||
      Get32(h + kHeaderLayerRecordSize) != kLayerRecordBytes || Get64(h + kHeaderFileBytes) != size)
    return false;
  const uint32_t count = Get32(h + kHeaderLayerCount);
  const uint32_t bandRows = Get32(h + kHeaderBandRows);
  if (count < 1 || count > uint32_t(kMaxLayers) || bandRows < 1 || bandRows > kMaxBandRows)
    return false;
  d->dpi = int32_t(Get32(h + kHeaderDpi));
  d->activeLayer = int32_t(Get32(h + kHeaderActiveLayer));
  d->hasBackColour = int32_t(Get32(h + kHeaderHasBackColour));
  d->backRed = int32_t(Get32(h + kHeaderBackRed));
  d->backGreen = int32_t(Get32(h + kHeaderBackGreen));
  d->backBlue = int32_t(Get32(h + kHeaderBackBlue));
  d->bandRows = int(bandRows);
  d->thumbnailOffset = Get64(h + kHeaderThumbnailOffset);
  d->thumbnailBytes = Get32(h + kHeaderThumbnailBytes);
  d->fileBytes = size;
  if (d->activeLayer < 0 || uint32_t(d->activeLayer) >= count) return false;
  if (d->thumbnailBytes && !Within(d->thumbnailOffset, d->thumbnailBytes, size)) return false;
  const uint64_t recordsEnd = kHeaderBytes + uint64_t(count) * kLayerRecordBytes;
  if (recordsEnd > size) return false;

  std::vector<uint8_t> records(size_t(count) * kLayerRecordBytes);
  if (!in.read(reinterpret_cast<char*>(records.data()), std::streamsize(records.size())))
    return false;
  d->layers.clear();
  for (uint32_t i = 0; i < count; ++i) {
    LayerEntry l = DecodeLayer(&records[size_t(i) * kLayerRecordBytes]);
    if (l.width < 1 || l.width > kMaxSide || l.height < 1 || l.height > kMaxSide || l.bits != 24 ||
        l.presentMask >= (1u << kAlphaPlanes))
      return false;
    const uint64_t table = uint64_t(l.Bands(d->bandRows)) * kBandEntryBytes;
    if (l.dataOffset < recordsEnd || l.dataBytes < table ||
        !Within(l.dataOffset, l.dataBytes, size))
      return false;
    d->layers.push_back(l);
  }
  return true;
}

void EncodeBand(const BandEntry& b, uint8_t* out) {
  std::memset(out, 0, kBandEntryBytes);
  Put32(out, b.streamBytes);
  out[4] = b.method;
  out[6] = uint8_t(b.constantMask);
  out[7] = uint8_t(b.constantMask >> 8);
  std::memcpy(out + 8, b.fill.data(), kChannels);
}

BandEntry DecodeBand(const uint8_t* in) {
  BandEntry b;
  b.streamBytes = Get32(in);
  b.method = in[4];
  b.constantMask = uint16_t(in[6] | in[7] << 8);
  std::memcpy(b.fill.data(), in + 8, kChannels);
  return b;
}

}  // namespace tsl
