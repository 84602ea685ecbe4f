#include "file/file_records.h"

#include <cstdlib>

#include "file/plugin_registry.h"

namespace {

uint8_t* Zeroed(size_t bytes) { return static_cast<uint8_t*>(std::calloc(bytes, 1)); }

}  // namespace

FileRecords::FileRecords(int capacity)
    : capacity_(capacity),
      header_(Zeroed(offsetof(FileHeader, layers) + sizeof(LayerGeometry) * size_t(capacity))),
      planes_(Zeroed(sizeof(LayerPlaneTable) * size_t(capacity))),
      layers_(Zeroed(sizeof(LayerRecord) * size_t(capacity))) {}

int WriteCapacityFor(const std::string& path) {
  const std::string extension = ExtensionOf(path);
  return SameText(extension, "psd") || SameText(extension, "ico") ? TESEL_LAYER_CAPACITY_BIG
                                                                   : TESEL_LAYER_CAPACITY;
}
