#include "pixel/mul_table.h"

namespace {

constexpr MulTableData BuildMulTable() {
  MulTableData table{};
  for (unsigned k = 0; k < 256; ++k)
    for (unsigned v = 0; v < 256; ++v) {
      unsigned product = (k * v + 128) / 255;
      table.v[k][v] = static_cast<uint8_t>(product < 255 ? product : 255);
    }
  return table;
}

}  // namespace

alignas(64) constexpr MulTableData MulTable = BuildMulTable();
