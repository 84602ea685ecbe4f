// The palette area's bytes as a read leaves them: in each of its 1,152
// cells (40 corners, 1,000 stops, 112 cells of the page) the two pointer
// words are cleared and the path ends at its field's last byte. Laid out
// by hand, independently of the program's record.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

constexpr size_t kPaletteCellBytesInFile = 312;

inline std::vector<size_t> PaletteCellStarts() {
  std::vector<size_t> starts;
  for (size_t i = 0; i < 40; ++i) starts.push_back(i * kPaletteCellBytesInFile);
  for (size_t i = 0; i < 1000; ++i) starts.push_back(12544 + i * kPaletteCellBytesInFile);
  for (size_t i = 0; i < 112; ++i) starts.push_back(328544 + i * kPaletteCellBytesInFile);
  return starts;
}

// Settles the area that begins at `area` in bytes (the file, or the
// settings record at offset 660); cells cut off by the end are skipped.
inline void SettlePaletteBytes(std::vector<uint8_t>& bytes, size_t area = 0) {
  for (size_t start : PaletteCellStarts()) {
    const size_t cell = area + start;
    if (cell + kPaletteCellBytesInFile > bytes.size()) continue;
    std::fill(bytes.begin() + long(cell + 304), bytes.begin() + long(cell + 312), 0);
    bytes[cell + 52 + 251] = 0;
  }
}
