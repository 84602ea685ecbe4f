// The writer: pulls each layer's rows band by band, compresses them and
// writes the file in one pass, going back only to fill each layer's band
// table and, at the end, the header and the layer records.
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <vector>

#include "module_folder.h"
#include "plugin_abi/file_plugin.h"
#include "plugin_abi/progress.h"
#include "tsl_bands.h"
#include "tsl_info.h"
#include "tsl_layout.h"

namespace tsl {
namespace {

// A thumbnail far beyond any the host renders is not ours: leave it out.
constexpr std::streamoff kMaxThumbnailBytes = 64 << 20;

// The host's thumbnail beside the plug-in, or nothing.
std::vector<uint8_t> ReadThumbnail() {
  const std::string folder = ModuleFolder();
  if (folder.empty()) return {};
  std::ifstream in(folder + "tmb.jpg", std::ios::binary | std::ios::ate);
  if (!in) return {};
  const std::streamoff size = in.tellg();
  if (size <= 0 || size > kMaxThumbnailBytes) return {};
  std::vector<uint8_t> bytes(static_cast<size_t>(size));
  in.seekg(0);
  if (!in.read(reinterpret_cast<char*>(bytes.data()), size)) return {};
  return bytes;
}

bool DescribeLayers(const FileHeader* header, const LayerPlaneTable* planes,
                    const LayerRecord* records, Directory* d) {
  const int count = header->layerCount;
  if (count < 1 || count > kMaxLayers) return false;
  d->dpi = header->dpiX;
  d->activeLayer =
      header->activeLayer >= 0 && header->activeLayer < count ? header->activeLayer : 0;
  d->hasBackColour = header->layers[0].hasBackColour;
  d->backRed = header->layers[0].backRed;
  d->backGreen = header->layers[0].backGreen;
  d->backBlue = header->layers[0].backBlue;
  for (int i = 0; i < count; ++i) {
    const LayerGeometry& g = header->layers[i];
    if (g.width < 1 || g.width > kMaxSide || g.height < 1 || g.height > kMaxSide || g.bits != 24)
      return false;
    LayerEntry l;
    l.width = g.width;
    l.height = g.height;
    const LayerRecord& r = records[i];
    l.left = r.left;
    l.top = r.top;
    l.mixMode = r.mixMode;
    l.savedMixMode = r.savedMixMode;
    l.opacityLoss = r.opacityLoss;
    std::memcpy(l.planeOff.data(), r.planeOff, 8);
    std::memcpy(l.lineDrawing.data(), r.lineDrawing, 8);
    std::memcpy(l.name.data(), r.name, 255);
    for (int k = 0; k < kAlphaPlanes; ++k) {
      if (planes[i].present[k]) l.presentMask |= 1u << k;
      std::memcpy(l.planeNames[size_t(k)].data(), planes[i].names[k], 10);
      l.planeFlags[size_t(k)] = planes[i].flags[k];
    }
    d->layers.push_back(l);
  }
  return true;
}

class Writer {
 public:
  Writer(TeselWindow window, const char* path, const WriteCallbacks* callbacks)
      : window_(window), callbacks_(callbacks), out_(path, std::ios::binary | std::ios::trunc) {}

  bool Write(Directory* d) {
    if (!out_ || !encoder_.ok()) return false;
    const std::vector<uint8_t> thumbnail = ReadThumbnail();
    const size_t count = d->layers.size();
    const std::vector<uint8_t> zeros(kHeaderBytes + count * kLayerRecordBytes, 0);
    Put(zeros.data(), zeros.size());
    d->thumbnailOffset = thumbnail.empty() ? 0 : zeros.size();
    d->thumbnailBytes = thumbnail.size();
    Put(thumbnail.data(), thumbnail.size());
    for (const LayerEntry& l : d->layers) totalRows_ += l.height;
    for (size_t i = 0; i < count && out_; ++i)
      if (!WriteLayer(int(i), d->bandRows, &d->layers[i])) return false;
    d->fileBytes = uint64_t(out_.tellp());

    std::vector<uint8_t> head(zeros.size());
    EncodeHeader(*d, head.data());
    for (size_t i = 0; i < count; ++i)
      EncodeLayer(d->layers[i], &head[kHeaderBytes + i * kLayerRecordBytes]);
    out_.seekp(0);
    Put(head.data(), head.size());
    out_.flush();
    return bool(out_);
  }

 private:
  void Put(const uint8_t* bytes, size_t size) {
    out_.write(reinterpret_cast<const char*>(bytes), std::streamsize(size));
  }

  bool WriteLayer(int layer, int bandRows, LayerEntry* l) {
    const int width = l->width;
    const int bands = l->Bands(bandRows);
    const std::streamoff tableAt = out_.tellp();
    std::vector<uint8_t> table(size_t(bands) * kBandEntryBytes, 0);
    Put(table.data(), table.size());

    // One band of rows in memory: the image and each present alpha plane.
    std::vector<uint8_t> image(size_t(width) * bandRows * 3);
    std::array<std::vector<uint8_t>, kAlphaPlanes> alpha;
    for (int k = 0; k < kAlphaPlanes; ++k)
      if (l->presentMask >> k & 1) alpha[size_t(k)].resize(size_t(width) * bandRows);
    std::vector<RowSet> rows;
    for (int b = 0; b < bands; ++b) {
      const int y0 = b * bandRows;
      const int count = std::min(bandRows, l->height - y0);
      rows.assign(size_t(count), RowSet{});
      for (int r = 0; r < count; ++r) {
        RowSet& row = rows[size_t(r)];
        row.image = &image[size_t(r) * width * 3];
        if (!callbacks_->GetRow(y0 + r, 0, width - 1, row.image, layer)) return false;
        for (int k = 0; k < kAlphaPlanes; ++k) {
          if (alpha[size_t(k)].empty()) continue;
          row.alpha[size_t(k)] = &alpha[size_t(k)][size_t(r) * width];
          if (!callbacks_->GetPlaneRow ||
              !callbacks_->GetPlaneRow(y0 + r, 0, width - 1, row.alpha[size_t(k)], layer, k))
            return false;
        }
      }
      BandEntry entry;
      const uint8_t* stream = nullptr;
      if (!encoder_.Encode(width, l->presentMask, rows, &entry, &stream)) return false;
      Put(stream, entry.streamBytes);
      EncodeBand(entry, &table[size_t(b) * kBandEntryBytes]);
      rowsDone_ += count;
      TeselReportProgress(window_, TESEL_PROGRESS_SAVING, int(rowsDone_ * 100 / totalRows_));
    }
    const std::streamoff end = out_.tellp();
    out_.seekp(tableAt);
    Put(table.data(), table.size());
    out_.seekp(end);
    l->dataOffset = uint64_t(tableAt);
    l->dataBytes = uint64_t(end - tableAt);
    return bool(out_);
  }

  TeselWindow window_;
  const WriteCallbacks* callbacks_;
  std::ofstream out_;
  BandEncoder encoder_;
  int64_t totalRows_ = 0, rowsDone_ = 0;
};

}  // namespace
}  // namespace tsl

extern "C" {

int WriteFileInfo(TeselWindow, FormatInfo* info) {
  tsl::FillFormatInfo(info);
  return 1;
}

// No options to ask for.
int WriteFileInit(TeselWindow, const char*, int) { return 1; }

int WriteFileExec(TeselWindow window, const char* path, FileHeader* header, LayerPlaneTable* planes,
                  LayerRecord* layers, WriteCallbacks* callbacks) {
  if (!path || !header || !planes || !layers || !callbacks || !callbacks->GetRow) return 0;
  bool opened = false, written = false;
  try {
    tsl::Directory d;
    if (tsl::DescribeLayers(header, planes, layers, &d)) {
      opened = true;
      tsl::Writer writer(window, path, callbacks);
      written = writer.Write(&d);
    }
  } catch (...) {
    written = false;
  }
  // A half-written file would only fail to open later.
  if (opened && !written) std::remove(path);
  TeselReportProgress(window, TESEL_PROGRESS_CLEAR, 0);
  return written ? 1 : 0;
}

}  // extern "C"
