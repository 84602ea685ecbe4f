// A plug-in for the host's tests, of the extensions "prb", "both" and the
// native "tsl" (whose files only the host's version word reads): its
// file is the records it was given and the rows it pulled, as they came,
// so that a test reads back exactly what the host handed over; and reading
// such a file delivers it again through the callbacks. Rows of 1, 4 and 8
// bits carry a palette before them.
#include <cstdio>
#include <cstring>
#include <vector>

#include "plugin_abi/file_plugin.h"

namespace {

// A file of another format: the first word says which.
constexpr uint32_t kMagic = 0x424f5250;  // "PROB"

int RowBytes(int bits, int width) { return bits == 24 ? width * 3 : (width * bits + 7) / 8; }

bool ReadAll(const char* path, std::vector<uint8_t>* bytes) {
  FILE* file = std::fopen(path, "rb");
  if (!file) return false;
  uint8_t chunk[4096];
  size_t n;
  while ((n = std::fread(chunk, 1, sizeof chunk, file)) > 0) bytes->insert(bytes->end(), chunk, chunk + n);
  std::fclose(file);
  return true;
}

// The parts of a probe file, read in order.
struct Reader {
  const std::vector<uint8_t>& bytes;
  size_t at = 0;
  bool Take(void* to, size_t n) {
    if (at + n > bytes.size()) return false;
    std::memcpy(to, &bytes[at], n);
    at += n;
    return true;
  }
  const uint8_t* Skip(size_t n) {
    if (at + n > bytes.size()) return nullptr;
    at += n;
    return &bytes[at - n];
  }
};

bool ReadRecords(Reader& in, FileHeader* header, LayerPlaneTable* planes, LayerRecord* layers) {
  uint32_t magic = 0;
  int32_t count = 0;
  if (!in.Take(&magic, 4) || magic != kMagic || !in.Take(&count, 4) || count < 1 ||
      count > TESEL_LAYER_CAPACITY)
    return false;
  FileHeader file{};
  if (!in.Take(&file, offsetof(FileHeader, layers) + sizeof(LayerGeometry) * size_t(count))) return false;
  std::memcpy(header, &file, offsetof(FileHeader, layers) + sizeof(LayerGeometry) * size_t(count));
  for (int i = 0; i < count; ++i)
    if (!in.Take(&planes[i], sizeof(LayerPlaneTable))) return false;
  for (int i = 0; i < count; ++i) {
    LayerRecord record;
    if (!in.Take(&record, sizeof record)) return false;
    if (layers) layers[i] = record;
  }
  return true;
}

}  // namespace

extern "C" {

int ReadFileInfo(TeselWindow, FormatInfo* info) {
#ifdef PROBE_PALETTE
  std::snprintf(info->extensions, sizeof info->extensions, "pal");
#else
  std::snprintf(info->extensions, sizeof info->extensions, "prb;both;tsl");
#endif
  std::snprintf(info->description, sizeof info->description, "Probe");
  return 1;
}

// Built twice: as a writer of 24-bit pictures, and (PROBE_PALETTE) as one
// of palette pictures only.
int WriteFileInfo(TeselWindow window, FormatInfo* info) {
  ReadFileInfo(window, info);
#ifdef PROBE_PALETTE
  info->accepts8 = 1;
#else
  info->accepts24 = 1;
#endif
  return 1;
}

int WriteFileInit(TeselWindow, const char*, int) { return 1; }

int WriteFileExec(TeselWindow, const char* path, FileHeader* header, LayerPlaneTable* planes,
                  LayerRecord* layers, WriteCallbacks* callbacks) {
  FILE* file = std::fopen(path, "wb");
  if (!file) return 0;
  const int32_t count = header->layerCount;
  std::fwrite(&kMagic, 4, 1, file);
  std::fwrite(&count, 4, 1, file);
  std::fwrite(header, offsetof(FileHeader, layers) + sizeof(LayerGeometry) * size_t(count), 1, file);
  std::fwrite(planes, sizeof(LayerPlaneTable), size_t(count), file);
  std::fwrite(layers, sizeof(LayerRecord), size_t(count), file);
  for (int i = 0; i < count; ++i) {
    const LayerGeometry& g = header->layers[i];
    std::vector<uint8_t> row(size_t(g.width) * 3);
    if (g.bits == 8) {
      uint8_t palette[1024] = {};
      callbacks->GetPalette(palette);
      std::fwrite(palette, 1, sizeof palette, file);
    }
    for (int y = 0; y < g.height; ++y) {
      callbacks->GetRow(y, 0, g.width - 1, row.data(), i);
      std::fwrite(row.data(), 1, size_t(RowBytes(g.bits, g.width)), file);
    }
    for (int k = 0; k < TESEL_ALPHA_PLANES; ++k) {
      if (!planes[i].present[k]) continue;
      for (int y = 0; y < g.height; ++y) {
        if (!callbacks->GetPlaneRow(y, 0, g.width - 1, row.data(), i, k)) std::memset(row.data(), 0xEE, row.size());
        std::fwrite(row.data(), 1, size_t(g.width), file);
      }
    }
  }
  return std::fclose(file) == 0;
}

int ReadFileGetSize(TeselWindow, const char* path, FileHeader* header, LayerPlaneTable* planes) {
  std::vector<uint8_t> bytes;
  if (!ReadAll(path, &bytes)) return 0;
  Reader in{bytes};
  return ReadRecords(in, header, planes, nullptr);
}

int ReadFileExec(TeselWindow, const char* path, FileHeader* header, LayerPlaneTable* planes,
                 LayerRecord* layers, ReadCallbacks* callbacks) {
  std::vector<uint8_t> bytes;
  if (!ReadAll(path, &bytes)) return 0;
  Reader in{bytes};
  FileHeader file{};
  std::vector<LayerPlaneTable> tables(TESEL_LAYER_CAPACITY);
  if (!ReadRecords(in, &file, tables.data(), layers)) return 0;
  header->dpiX = header->dpiY = file.dpiX;
  for (int i = 0; i < file.layerCount; ++i) {
    const LayerGeometry& g = file.layers[i];
    if (g.bits != 24) {
      const uint8_t* palette = in.Skip(1024);
      if (!palette) return 0;
      callbacks->SetPalette(palette, i);
    }
    for (int y = 0; y < g.height; ++y) {
      const uint8_t* row = in.Skip(size_t(RowBytes(g.bits, g.width)));
      if (!row) return 0;
      callbacks->PutRow(y, 0, g.width - 1, row, i);
    }
    for (int k = 0; k < TESEL_ALPHA_PLANES; ++k) {
      if (!tables[size_t(i)].present[k]) continue;
      for (int y = 0; y < g.height; ++y) {
        const uint8_t* row = in.Skip(size_t(g.width));
        if (!row) return 0;
        callbacks->PutPlaneRow(y, 0, g.width - 1, row, i, k);
      }
    }
  }
  (void)planes;
  return 1;
}

// A probe file stands for itself: a copy of it, in the temporary folder.
int ReadFileFastImage(TeselWindow, const char* path, FileHeader*, LayerPlaneTable*, char* output) {
  std::vector<uint8_t> bytes;
  if (!ReadAll(path, &bytes)) return 0;
  std::snprintf(output, TESEL_FAST_IMAGE_PATH_BYTES, "%s.fast.prb", path);
  FILE* file = std::fopen(output, "wb");
  if (!file) return 0;
  std::fwrite(bytes.data(), 1, bytes.size(), file);
  return std::fclose(file) == 0;
}

}  // extern "C"
