// The small lists kept in text files beside the program: pen sizes, canvas
// sizes for New, and the presets of pen thickness and density.
#pragma once

#include <cstdint>
#include <string>

constexpr int kListLimit = 50;        // entries of a list
constexpr int kListLineChars = 250;   // longest line read at once

// One list: entry i is column[0][i] (and column[1][i] for pairs). A
// negative first number ends the list; free entries hold -1.
struct NumberList {
  explicit NumberList(int numbersPerLine) : columns(numbersPerLine) { Clear(); }

  int columns;  // numbers per line: 1 or 2
  int32_t column[2][kListLimit];

  // Entries before the end of the list.
  int Count() const;
  // Every entry free.
  void Clear();
};

extern NumberList penSizes;       // widths, heights
extern NumberList canvasSizes;    // widths, heights
extern NumberList presetLists[2]; // 0 pen thickness, 1 density

// Each read returns 1, or 0 when the file can't be opened; each write
// returns 1, or 0 when the file can't be created. folder ends with a
// path separator.
int ReadPenSizes(const std::string& folder);    // default: the pair 1, 1
int WritePenSizes(const std::string& folder);
int ReadCanvasSizes(const std::string& folder); // default: empty
int WriteCanvasSizes(const std::string& folder);
int ReadTList(const std::string& folder, int n);  // n 0 or 1; default: 255
int WriteTList(const std::string& folder, int n);
