// The records of one plug-in operation, zero-filled and owned by the host:
// the header with its layer geometry, the plane tables and the layer
// records, for 64 layers, or for 3,000 when writing "psd" or "ico".
#pragma once

#include <memory>
#include <string>

#include "plugin_abi/file_plugin.h"

class FileRecords {
 public:
  explicit FileRecords(int capacity = TESEL_LAYER_CAPACITY);

  // False when the blocks couldn't be had.
  bool ok() const { return header_ && planes_ && layers_; }
  int capacity() const { return capacity_; }

  FileHeader* header() { return reinterpret_cast<FileHeader*>(header_.get()); }
  // Layer i's geometry, also beyond the 64 that FileHeader declares.
  LayerGeometry& geometry(int i) {
    return reinterpret_cast<LayerGeometry*>(header_.get() + offsetof(FileHeader, layers))[i];
  }
  LayerPlaneTable* planes() { return reinterpret_cast<LayerPlaneTable*>(planes_.get()); }
  LayerRecord* layers() { return reinterpret_cast<LayerRecord*>(layers_.get()); }

 private:
  struct Free {
    void operator()(uint8_t* p) const { std::free(p); }
  };
  using Block = std::unique_ptr<uint8_t, Free>;
  int capacity_;
  Block header_, planes_, layers_;
};

// The capacity a write to a path's extension takes.
int WriteCapacityFor(const std::string& path);
