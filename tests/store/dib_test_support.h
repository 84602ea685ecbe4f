// Helpers of the Dib, BMP and resampling tests: planes filled from plain
// pixel arrays and read back into them, and BMP files built by hand.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "platform/headless/headless.h"
#include "settings/settings.h"
#include "store/plane_store.h"

namespace dibtest {

using Bytes = std::vector<uint8_t>;

// Packed pixels, top row first, `channels` bytes a pixel.
struct Pixels {
  int width = 0;
  int height = 0;
  int channels = 0;
  Bytes bytes;
  uint8_t& at(int x, int y, int ch) { return bytes[(size_t(y) * width + x) * channels + ch]; }
  uint8_t at(int x, int y, int ch) const { return bytes[(size_t(y) * width + x) * channels + ch]; }
};

// xorshift32: the same noise on every run.
struct Random {
  uint32_t state;
  uint32_t Next() {
    state ^= state << 13;
    state ^= state >> 17;
    state ^= state << 5;
    return state;
  }
  uint32_t Below(uint32_t n) { return Next() % n; }
};

inline Pixels RandomPixels(int width, int height, int channels, uint32_t seed) {
  Pixels p{width, height, channels, Bytes(size_t(width) * height * channels)};
  Random random{seed};
  for (auto& byte : p.bytes) byte = static_cast<uint8_t>(random.Next() >> 24);
  return p;
}

inline Plane* PlaneOf(const Pixels& p, uint32_t kind) {
  Plane* plane = PlaneStore.CreatePlane(p.width, p.height, p.channels * 8, 0, 0, kind);
  for (int y = 0; y < p.height; y++) {
    Bytes row(plane->stride);
    std::copy_n(&p.bytes[size_t(y) * p.width * p.channels], p.width * p.channels, row.begin());
    PlaneStore.WriteRow(plane, y, 0, p.width - 1, row.data());
  }
  return plane;
}

inline Pixels PixelsOf(Plane* plane) {
  Pixels p{plane->width, plane->height, static_cast<int>(plane->bytesPerPixel), {}};
  Bytes row(plane->stride);
  for (int y = 0; y < p.height; y++) {
    PlaneStore.ReadRow(plane, y, 0, p.width - 1, row.data());
    p.bytes.insert(p.bytes.end(), row.begin(), row.begin() + p.width * p.channels);
  }
  return p;
}

inline void Put(Bytes& out, uint32_t value, int bytes) {
  for (int i = 0; i < bytes; i++) out.push_back(static_cast<uint8_t>(value >> (8 * i)));
}

// A BMP file laid out field by field. Rows are given top first, packed at
// their depth without padding.
struct BmpSpec {
  int width, height, bits;
  std::vector<Bytes> palette;  // blue, green, red
  std::vector<Bytes> rows;
  bool topDown = false;
  uint32_t colorsUsed = 0;
};

inline Bytes BuildBmp(const BmpSpec& s) {
  const uint32_t stride = (uint32_t(s.bits) * s.width + 31) / 32 * 4;
  const uint32_t offset = 54 + 4 * uint32_t(s.palette.size());
  Bytes out = {'B', 'M'};
  for (uint32_t v : {offset + stride * s.height, 0u, offset, 40u, uint32_t(s.width)}) Put(out, v, 4);
  Put(out, uint32_t(s.topDown ? -s.height : s.height), 4);
  Put(out, 1, 2);
  Put(out, uint32_t(s.bits), 2);
  for (uint32_t v : {0u, 0u, 0u, 0u, s.colorsUsed, 0u}) Put(out, v, 4);
  for (const Bytes& entry : s.palette) out.insert(out.end(), {entry[0], entry[1], entry[2], 0});
  for (int i = 0; i < s.height; i++) {
    Bytes row = s.rows[s.topDown ? i : s.height - 1 - i];
    row.resize(stride, 0);
    out.insert(out.end(), row.begin(), row.end());
  }
  return out;
}

// Files of a test live in a folder of their own, removed after the test.
inline std::filesystem::path TempDir() {
  return std::filesystem::temp_directory_path() / ("tesel_dib_tests_" + std::to_string(getpid()));
}

inline std::string TempPath(const std::string& name) {
  std::filesystem::create_directories(TempDir());
  return (TempDir() / name).string();
}

inline void WriteBytes(const std::string& path, const Bytes& bytes) {
  std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(bytes.data()), bytes.size());
}

inline Bytes ReadBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return Bytes(std::istreambuf_iterator<char>(in), {});
}

// Fresh platform and store; new work planes are Physical unless a kind test
// says otherwise.
class DibTest : public ::testing::Test {
 protected:
  void SetUp() override {
    headless::Reset();
    PlaneStore.Reset();
    settings.workBuffer = Physical;
  }
  void TearDown() override { std::filesystem::remove_all(TempDir()); }
};

// Runs in each storage kind, which is also the kind of new work planes.
class DibKindTest : public DibTest, public ::testing::WithParamInterface<uint32_t> {
 protected:
  void SetUp() override {
    DibTest::SetUp();
    settings.workBuffer = static_cast<int32_t>(GetParam());
  }
};

}  // namespace dibtest
