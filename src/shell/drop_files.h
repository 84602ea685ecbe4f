// The drop block that a second start posts to the running frame (message
// 563, WM_DROPFILES), and its reading. The Win32 side copies the built
// bytes into shared, zeroed, movable global memory; on receipt it hands
// the locked block to ParseDropBlock.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

constexpr uint32_t kDropFilesMessage = 563;
constexpr size_t kDropHeaderBytes = 16;

// Header of 16 bytes (names' offset 16, pointer x, y, 0 as 32-bit little-
// endian words), each name with its terminating zero, then a final zero.
std::vector<uint8_t> BuildDropBlock(const std::vector<std::string>& names, int x, int y);

struct DropBlock {
  int x, y;
  std::vector<std::string> names;
};
// Reads a block of the layout above, or a system one whose names are wide
// (offset 20 or more and the word at 16 not 0; names come back as UTF-8).
// 0 for a block too short or whose names run off its end.
int ParseDropBlock(const uint8_t* bytes, size_t size, DropBlock& block);
