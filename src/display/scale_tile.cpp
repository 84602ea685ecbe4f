#include "display/scale_tile.h"

#include <algorithm>
#include <vector>

namespace {

// The source index each output index reads, along one axis.
std::vector<int> IndexMap(int sourceSize, int outputSize, int viewStart, int phase150) {
  std::vector<int> map(static_cast<size_t>(outputSize));
  for (int i = 0; i < outputSize; ++i) {
    const int64_t product = static_cast<int64_t>(sourceSize) * i;
    const bool up = phase150 && ((i + viewStart) % 3 + 3) % 3 == 1;
    const int64_t index = up ? (product + outputSize - 1) / outputSize : product / outputSize;
    map[static_cast<size_t>(i)] = static_cast<int>(std::min<int64_t>(sourceSize - 1, index));
  }
  return map;
}

}  // namespace

int ScaleTile(const DibTile* source, DibTile* dest, int viewX, int viewY, int phase150) {
  if (source->bits != 24 || dest->bits != 24) return 0;
  const std::vector<int> columns = IndexMap(source->width, dest->width, viewX, phase150);
  const std::vector<int> rows = IndexMap(source->height, dest->height, viewY, phase150);
  std::vector<uint8_t> in(static_cast<size_t>(source->width) * 3);
  std::vector<uint8_t> out(static_cast<size_t>(dest->width) * 3);
  int loaded = -1;
  for (int r = 0; r < dest->height; ++r) {
    const int sourceRow = rows[static_cast<size_t>(r)];
    if (sourceRow != loaded) {
      ReadTileRow(source, sourceRow, 0, source->width - 1, in.data());
      for (size_t c = 0; c < columns.size(); ++c)
        std::copy_n(&in[static_cast<size_t>(columns[c]) * 3], 3, &out[c * 3]);
      loaded = sourceRow;
    }
    WriteTileRow(dest, r, 0, dest->width - 1, out.data());
  }
  return 1;
}
