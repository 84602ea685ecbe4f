#include "shell/drop_files.h"

namespace {

constexpr size_t kWideFlagOffset = 16;
constexpr size_t kSystemHeaderBytes = 20;

void PutWord(std::vector<uint8_t>& out, uint32_t value) {
  for (int shift = 0; shift < 32; shift += 8) out.push_back(static_cast<uint8_t>(value >> shift));
}

uint32_t WordAt(const uint8_t* bytes, size_t offset) {
  return bytes[offset] | bytes[offset + 1] << 8 | bytes[offset + 2] << 16 |
         static_cast<uint32_t>(bytes[offset + 3]) << 24;
}

void AppendUtf8(std::string& out, uint32_t code) {
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xC0 | code >> 6);
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    out += static_cast<char>(0xE0 | code >> 12);
    out += static_cast<char>(0x80 | (code >> 6 & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | code >> 18);
    out += static_cast<char>(0x80 | (code >> 12 & 0x3F));
    out += static_cast<char>(0x80 | (code >> 6 & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  }
}

// Narrow names: each ends with a zero, the list with an empty name.
int ReadNarrowNames(const uint8_t* bytes, size_t size, size_t at, std::vector<std::string>& names) {
  while (at < size) {
    size_t end = at;
    while (end < size && bytes[end]) ++end;
    if (end == size) return 0;
    if (end == at) return 1;
    names.emplace_back(reinterpret_cast<const char*>(bytes + at), end - at);
    at = end + 1;
  }
  return 0;
}

// Wide names: UTF-16 little-endian, turned into UTF-8.
int ReadWideNames(const uint8_t* bytes, size_t size, size_t at, std::vector<std::string>& names) {
  std::string name;
  while (at + 1 < size) {
    uint32_t unit = bytes[at] | bytes[at + 1] << 8;
    at += 2;
    if (unit == 0) {
      if (name.empty()) return 1;
      names.push_back(name);
      name.clear();
      continue;
    }
    if (unit >= 0xD800 && unit < 0xDC00 && at + 1 < size) {
      const uint32_t low = bytes[at] | bytes[at + 1] << 8;
      if (low >= 0xDC00 && low < 0xE000) {
        unit = 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
        at += 2;
      }
    }
    AppendUtf8(name, unit);
  }
  return 0;
}

}  // namespace

std::vector<uint8_t> BuildDropBlock(const std::vector<std::string>& names, int x, int y) {
  std::vector<uint8_t> block;
  PutWord(block, kDropHeaderBytes);
  PutWord(block, static_cast<uint32_t>(x));
  PutWord(block, static_cast<uint32_t>(y));
  PutWord(block, 0);
  for (const std::string& name : names) {
    block.insert(block.end(), name.begin(), name.end());
    block.push_back(0);
  }
  block.push_back(0);
  return block;
}

int ParseDropBlock(const uint8_t* bytes, size_t size, DropBlock& block) {
  block = {};
  if (size < kDropHeaderBytes) return 0;
  const size_t offset = WordAt(bytes, 0);
  if (offset < kDropHeaderBytes || offset >= size) return 0;
  block.x = static_cast<int32_t>(WordAt(bytes, 4));
  block.y = static_cast<int32_t>(WordAt(bytes, 8));
  const bool wide = offset >= kSystemHeaderBytes && WordAt(bytes, kWideFlagOffset) != 0;
  return wide ? ReadWideNames(bytes, size, offset, block.names)
              : ReadNarrowNames(bytes, size, offset, block.names);
}
