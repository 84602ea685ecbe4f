// Writes the seeds of the bmp reader's fuzzer into the folder of its one
// argument: pictures of each depth the bmp plug-in writes, made by it, and
// a few laid out by hand in the forms it only reads (runs of 4 bits, the
// 12-byte header, 1 bit), which mutations alone reach slowly.
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "file/plugin_harness.h"

using namespace plugintest;

namespace {

MemoryLayer Layer(int width, int height, int bits) {
  MemoryLayer l;
  l.width = width, l.height = height, l.bits = bits;
  for (int i = 0; i < width * height * 3; ++i) l.image.push_back(uint8_t(i * 29));
  for (int i = 0; i < width * height; ++i) l.indices.push_back(uint8_t(i * 3));
  for (int i = 0; i < 1024; ++i) l.palette[size_t(i)] = uint8_t(i * 5);
  return l;
}

// The file header, an info header of 12 or 40 bytes, a palette of
// `entries` grey entries, then data.
std::vector<uint8_t> HandMade(int infoBytes, int width, int height, int bits, int compression,
                              int entries, const std::vector<uint8_t>& data) {
  const int entryBytes = infoBytes == 12 ? 3 : 4;
  const int offset = 14 + infoBytes + entries * entryBytes;
  std::vector<uint8_t> out = {'B', 'M'};
  auto put = [&](uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) out.push_back(uint8_t(value >> (8 * i)));
  };
  put(uint32_t(offset) + uint32_t(data.size()), 4), put(0, 4), put(uint32_t(offset), 4);
  put(uint32_t(infoBytes), 4);
  const int side = infoBytes == 12 ? 2 : 4;
  put(uint32_t(width), side), put(uint32_t(height), side), put(1, 2), put(uint32_t(bits), 2);
  if (infoBytes == 40) put(uint32_t(compression), 4), out.resize(14 + 40, 0);
  for (int i = 0; i < entries; ++i) {
    for (int k = 0; k < entryBytes; ++k) out.push_back(uint8_t(k == 3 ? 0 : i * 255 / entries));
  }
  out.insert(out.end(), data.begin(), data.end());
  return out;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const PluginModule plugin("bmp");
  const std::string folder = std::string(argv[1]) + "/";
  MemoryPicture colour, indexed, clear, single;
  colour.layers = {Layer(5, 3, 24)};
  indexed.layers = {Layer(6, 4, 8)};
  clear.layers = {Layer(3, 3, 24)};
  for (int i = 0; i < 9; ++i) clear.layers[0].alpha[1].push_back(uint8_t(i * 31));
  single.layers = {Layer(1, 1, 24)};
  int failures = 0;
  for (auto [picture, name] : {std::pair(&colour, "colour"), std::pair(&indexed, "indexed"),
                               std::pair(&clear, "alpha"), std::pair(&single, "single")}) {
    if (!WritePicture(plugin, folder + name + ".bmp", *picture)) {
      std::fprintf(stderr, "no seed %s\n", name);
      ++failures;
    }
  }
  const std::pair<const char*, std::vector<uint8_t>> handMade[] = {
      {"runs4", HandMade(40, 8, 3, 4, 2, 16, {5,    0x12, 0, 3, 0x34, 0x50, 0, 0, 0,    5, 0x67,
                                              0x89, 0xA0, 0, 0, 2,    1,    1, 2, 0xBC, 0, 1})},
      {"core4", HandMade(12, 3, 2, 4, 0, 16, {0x12, 0x30, 0, 0, 0x45, 0x60, 0, 0})},
      {"one", HandMade(40, 10, 2, 1, 0, 2, {0x40, 0x40, 0, 0, 0x80, 0xC0, 0, 0})},
  };
  for (const auto& [name, bytes] : handMade) {
    std::ofstream(folder + name + ".bmp", std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), std::streamsize(bytes.size()));
  }
  return failures ? 1 : 0;
}
