// libFuzzer entry for the bmp reader: each input is a file held in memory,
// sized and read as a host would, through callbacks that read every byte
// of each row they are given and keep none.
#include <cstddef>
#include <cstdint>

#include "bmp_plugin.h"

namespace {

int declaredBits = 24;
volatile uint8_t sink;

void Touch(const uint8_t* bytes, size_t count) {
  uint8_t sum = 0;
  for (size_t i = 0; i < count; ++i) sum = uint8_t(sum + bytes[i]);
  sink = sum;
}

size_t RowBytes(int x0, int x1) {
  const size_t pixels = size_t(x1 - x0 + 1);
  switch (declaredBits) {
    case 1:
      return (pixels + 7) / 8;
    case 4:
      return (pixels + 1) / 2;
    case 8:
      return pixels;
    default:
      return pixels * 3;
  }
}

int PutRow(int, int x0, int x1, const uint8_t* buffer, int) {
  Touch(buffer, RowBytes(x0, x1));
  return 0;
}
int PutPlaneRow(int, int x0, int x1, const uint8_t* buffer, int, int) {
  Touch(buffer, size_t(x1 - x0 + 1));
  return 0;
}
int SetPalette(const uint8_t* table, int) {
  Touch(table, size_t{4} << declaredBits);
  return declaredBits;
}
int PutChannelRow(int, int, int x0, int x1, const uint8_t* buffer, int) {
  Touch(buffer, size_t(x1 - x0 + 1));
  return 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  bmp::MemorySource source({data, size});
  static FileHeader header;
  static LayerPlaneTable planes[TESEL_LAYER_CAPACITY];
  static LayerRecord layers[TESEL_LAYER_CAPACITY];
  header = FileHeader{};
  for (auto& p : planes) p = LayerPlaneTable{};
  header.layerCount = 1;
  if (!bmp::GetSize(source, &header, planes)) return 0;
  // Larger pictures take the same paths, only slower: a few bytes of runs
  // can stand for 2^28 pixels.
  const LayerGeometry& g = header.layers[0];
  if (int64_t{g.width} * g.height > (int64_t{1} << 20)) return 0;
  declaredBits = g.bits;
  ReadCallbacks callbacks{PutRow, PutPlaneRow, SetPalette, PutChannelRow};
  bmp::ReadExec(source, nullptr, &header, layers, &callbacks);
  return 0;
}
