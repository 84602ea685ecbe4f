// The mixer's stored colours: 30 words, red in the low byte, green in the
// next, blue in the third, of which the dialog shows the first 20. They
// live in "coldlg.dat" beside the program, 120 bytes little-endian.
#pragma once

#include <cstdint>
#include <string>

constexpr int kSwatchWords = 30;
constexpr int kSwatchesShown = 20;

extern uint32_t swatches[kSwatchWords];

inline uint32_t SwatchWord(int red, int green, int blue) {
  return uint32_t(red & 255) | uint32_t(green & 255) << 8 | uint32_t(blue & 255) << 16;
}
inline int SwatchRed(uint32_t word) { return int(word & 255); }
inline int SwatchGreen(uint32_t word) { return int(word >> 8 & 255); }
inline int SwatchBlue(uint32_t word) { return int(word >> 16 & 255); }

// Reads the words from "coldlg.dat" in folder. A missing file leaves them
// as they are; a short one replaces only the whole words it holds, and
// bytes past the 120th are not read. Any bytes make words, so no content
// is refused: the fourth byte of a word is kept but never shown.
void ReadSwatches(const std::string& folder);
// Writes the 30 words; false when the file can't be written.
bool WriteSwatches(const std::string& folder);
