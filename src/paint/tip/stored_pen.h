// The nine stored pens: files "pen01" to "pen09" in the program folder,
// 200 bytes each. They keep the tip and the two strengths; colour and pen
// mode are not stored.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

constexpr int kStoredPenBytes = 200;
constexpr int kStoredPenSlots = 9;

// Offsets in the file; bytes not listed are written as zeros and mean
// nothing.
constexpr size_t kStoredDotPenPanel = 0;
constexpr size_t kStoredTipShape = 1;
constexpr size_t kStoredDotFile = 2;
constexpr size_t kStoredDotFolder = 3;
constexpr size_t kStoredThickness = 4;
constexpr size_t kStoredDensity = 5;
constexpr size_t kStoredRadiusX = 10;  // a double
constexpr size_t kStoredRadiusY = 18;  // a double

// Writes the pen to slot 1..9; 0, and nothing said, when the file can't be
// made.
int SavePen(const std::string& programFolder, int slot);
// Reads slot 1..9 into the pen, brings back its dot pen or panel, rebuilds
// the tip and has the control panel repaint. A missing, short or damaged
// file leaves the pen as it was and gives 0.
int LoadPen(const std::string& programFolder, int slot);

// Keys 1 to 9 in the canvas window: with Shift the pen is stored and the
// user told so, else the stored pen is loaded.
int StoredPenKey(const std::string& programFolder, int slot, bool shiftHeld);
