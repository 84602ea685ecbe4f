// The reader: every count, size and offset is checked against the file
// before anything is allocated for it, and each band must inflate to
// exactly its rows, so a damaged file fails instead of delivering garbage.
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "plugin_abi/file_plugin.h"
#include "plugin_abi/progress.h"
#include "tsl_bands.h"
#include "tsl_info.h"
#include "tsl_layout.h"

namespace tsl {
namespace {

bool OpenDirectory(const char* path, std::ifstream* in, Directory* d) {
  if (!path) return false;
  in->open(path, std::ios::binary);
  return *in && ReadDirectory(*in, d);
}

void DescribeLayer(const LayerEntry& l, LayerGeometry* g, LayerPlaneTable* planes) {
  g->width = l.width;
  g->height = l.height;
  g->bits = 24;
  for (int k = 0; k < 10; ++k) planes->present[k] = k < kAlphaPlanes && (l.presentMask >> k & 1);
  for (int k = 0; k < kAlphaPlanes; ++k) {
    std::memcpy(planes->names[k], l.planeNames[size_t(k)].data(), 10);
    planes->flags[k] = l.planeFlags[size_t(k)];
  }
}

void DescribeCanvas(const Directory& d, FileHeader* header) {
  header->dpiX = header->dpiY = d.dpi;
  header->activeLayer = d.activeLayer;
  header->layers[0].hasBackColour = d.hasBackColour;
  header->layers[0].backRed = d.backRed;
  header->layers[0].backGreen = d.backGreen;
  header->layers[0].backBlue = d.backBlue;
}

void FillRecord(const LayerEntry& l, int index, LayerRecord* r) {
  std::memcpy(r->name, l.name.data(), 256);
  r->left = l.left;
  r->top = l.top;
  r->index = index;
  r->one = 1;
  r->mixMode = l.mixMode;
  r->opacityLoss = l.opacityLoss;
  r->savedMixMode = l.savedMixMode;
  std::memcpy(r->planeOff, l.planeOff.data(), 8);
  std::memcpy(r->lineDrawing, l.lineDrawing.data(), 8);
}

class Reader {
 public:
  Reader(TeselWindow window, std::ifstream* in, const Directory& d, const ReadCallbacks* callbacks)
      : window_(window), in_(in), d_(d), callbacks_(callbacks) {}

  bool Read(int layers) {
    if (!decoder_.ok()) return false;
    for (int i = 0; i < layers; ++i) totalRows_ += d_.layers[size_t(i)].height;
    for (int i = 0; i < layers; ++i)
      if (!ReadLayer(i, d_.layers[size_t(i)])) return false;
    return true;
  }

 private:
  bool ReadLayer(int layer, const LayerEntry& l) {
    const int bands = l.Bands(d_.bandRows);
    const uint64_t tableBytes = uint64_t(bands) * kBandEntryBytes;
    std::vector<uint8_t> table(static_cast<size_t>(tableBytes));
    in_->seekg(std::streamoff(l.dataOffset));
    if (!in_->read(reinterpret_cast<char*>(table.data()), std::streamsize(tableBytes)))
      return false;
    std::vector<BandEntry> entries(static_cast<size_t>(bands));
    uint64_t streams = 0;
    for (int b = 0; b < bands; ++b) {
      entries[size_t(b)] = DecodeBand(&table[size_t(b) * kBandEntryBytes]);
      streams += entries[size_t(b)].streamBytes;
    }
    if (streams != l.dataBytes - tableBytes) return false;

    const int width = l.width;
    std::vector<uint8_t> image(size_t(width) * 3);
    std::array<std::vector<uint8_t>, kAlphaPlanes> alpha;
    RowSet row;
    row.image = image.data();
    for (int k = 0; k < kAlphaPlanes; ++k) {
      if (!(l.presentMask >> k & 1)) continue;
      alpha[size_t(k)].resize(size_t(width));
      row.alpha[size_t(k)] = alpha[size_t(k)].data();
    }
    for (int b = 0; b < bands; ++b) {
      const BandEntry& e = entries[size_t(b)];
      const int y0 = b * d_.bandRows;
      const int count = std::min(d_.bandRows, l.height - y0);
      const uint64_t most = BandDecoder::MaxStreamBytes(uint64_t(width) * count * kChannels);
      if (e.streamBytes > most) return false;
      stream_.resize(e.streamBytes);
      if (e.streamBytes &&
          !in_->read(reinterpret_cast<char*>(stream_.data()), std::streamsize(e.streamBytes)))
        return false;
      if (!decoder_.Start(width, count, l.presentMask, e, stream_.data())) return false;
      decoder_.FillConstant(width, row);
      for (int r = 0; r < count; ++r) {
        decoder_.Row(width, r, row);
        callbacks_->PutRow(y0 + r, 0, width - 1, image.data(), layer);
        if (!callbacks_->PutPlaneRow) continue;
        for (int k = 0; k < kAlphaPlanes; ++k)
          if (row.alpha[size_t(k)])
            callbacks_->PutPlaneRow(y0 + r, 0, width - 1, row.alpha[size_t(k)], layer, k);
      }
      rowsDone_ += count;
      TeselReportProgress(window_, TESEL_PROGRESS_READING, int(rowsDone_ * 100 / totalRows_));
    }
    return true;
  }

  TeselWindow window_;
  std::ifstream* in_;
  const Directory& d_;
  const ReadCallbacks* callbacks_;
  BandDecoder decoder_;
  std::vector<uint8_t> stream_;
  int64_t totalRows_ = 0, rowsDone_ = 0;
};

// A fresh name in the system's temporary folder; empty when there is none.
std::string TemporaryJpegPath() {
  std::error_code error;
  const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
  if (error) return {};
  uint64_t salt = uint64_t(std::chrono::steady_clock::now().time_since_epoch().count());
  try {
    std::random_device device;
    salt ^= uint64_t(device()) << 32 | device();
  } catch (...) {
  }
  char name[40];
  std::snprintf(name, sizeof name, "tesel_tsl_%016llx.jpg", static_cast<unsigned long long>(salt));
  return (folder / name).string();
}

bool CopyBytes(std::ifstream& in, uint64_t offset, uint64_t bytes, const std::string& path) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  if (!out) return false;
  in.seekg(std::streamoff(offset));
  std::vector<char> chunk(size_t{1} << 16);
  while (bytes > 0) {
    const size_t n = size_t(std::min<uint64_t>(bytes, chunk.size()));
    if (!in.read(chunk.data(), std::streamsize(n)) || !out.write(chunk.data(), std::streamsize(n)))
      return false;
    bytes -= n;
  }
  out.flush();
  return bool(out);
}

}  // namespace
}  // namespace tsl

extern "C" {

int ReadFileInfo(TeselWindow, FormatInfo* info) {
  tsl::FillFormatInfo(info);
  return 1;
}

// The file holds all a layered read needs; a single picture reads layer 0.
int ReadFileInit(TeselWindow, const char*, int) { return 1; }

int ReadFileGetSize(TeselWindow, const char* path, FileHeader* header, LayerPlaneTable* planes) {
  if (!header || !planes) return 0;
  try {
    std::ifstream in;
    tsl::Directory d;
    if (!tsl::OpenDirectory(path, &in, &d)) return 0;
    header->layerCount = int32_t(d.layers.size());
    tsl::DescribeCanvas(d, header);
    for (size_t i = 0; i < d.layers.size(); ++i)
      tsl::DescribeLayer(d.layers[i], &header->layers[i], &planes[i]);
    return 1;
  } catch (...) {
    return 0;
  }
}

// Delivers the layers the host prepared (all of them for a canvas, the first
// for a single picture), each of the size the file gives it.
int ReadFileExec(TeselWindow window, const char* path, FileHeader* header, LayerPlaneTable* planes,
                 LayerRecord* layers, ReadCallbacks* callbacks) {
  if (!header || !planes || !layers || !callbacks || !callbacks->PutRow) return 0;
  int result = 0;
  try {
    std::ifstream in;
    tsl::Directory d;
    const int wanted = header->layerCount;
    if (tsl::OpenDirectory(path, &in, &d) && wanted >= 1 && wanted <= tsl::kMaxLayers) {
      const int count = std::min(wanted, int(d.layers.size()));
      bool fits = true;
      for (int i = 0; i < count; ++i) {
        const tsl::LayerEntry& l = d.layers[size_t(i)];
        fits = fits && header->layers[i].width == l.width && header->layers[i].height == l.height;
      }
      if (fits) {
        tsl::DescribeCanvas(d, header);
        for (int i = 0; i < count; ++i) {
          tsl::DescribeLayer(d.layers[size_t(i)], &header->layers[i], &planes[i]);
          tsl::FillRecord(d.layers[size_t(i)], i, &layers[i]);
        }
        tsl::Reader reader(window, &in, d, callbacks);
        result = reader.Read(count) ? 1 : 0;
      }
    }
  } catch (...) {
    result = 0;
  }
  TeselReportProgress(window, TESEL_PROGRESS_CLEAR, 0);
  return result;
}

int ReadFileFastImage(TeselWindow, const char* path, FileHeader*, LayerPlaneTable*,
                      char* outputPath) {
  if (!outputPath) return 0;
  try {
    std::ifstream in;
    tsl::Directory d;
    if (!tsl::OpenDirectory(path, &in, &d) || d.thumbnailBytes == 0) return 0;
    const std::string target = tsl::TemporaryJpegPath();
    if (target.empty() || target.size() >= TESEL_FAST_IMAGE_PATH_BYTES) return 0;
    if (!tsl::CopyBytes(in, d.thumbnailOffset, d.thumbnailBytes, target)) {
      std::remove(target.c_str());
      return 0;
    }
    std::memcpy(outputPath, target.c_str(), target.size() + 1);
    return 1;
  } catch (...) {
    return 0;
  }
}

}  // extern "C"
