// Shared set-up of the store tests: a fresh seam and store, planes freed
// after each test, filled from plain pixel arrays and read back into them.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "platform/headless/headless.h"
#include "settings/settings.h"
#include "store/plane_store.h"
#include "support/fixture.h"
#include "support/planes.h"

namespace storetest {

using Bytes = std::vector<uint8_t>;
constexpr uint32_t kKinds[] = {Virtual, Physical, Packed};

// Packed pixels, top row first, `channels` bytes a pixel.
struct Pixels {
  int width = 0, height = 0, channels = 0;
  Bytes bytes;
  uint8_t& at(int x, int y, int ch) { return bytes[(size_t(y) * width + x) * channels + ch]; }
  uint8_t at(int x, int y, int ch) const { return bytes[(size_t(y) * width + x) * channels + ch]; }
  const uint8_t* row(int y) const { return &bytes[size_t(y) * width * channels]; }
};

// xorshift32: the same noise on every run.
struct Random {
  uint32_t state;
  uint32_t Next() {
    state ^= state << 13;
    state ^= state >> 17;
    return state ^= state << 5;
  }
  uint32_t Below(uint32_t n) { return Next() % n; }
};

// Noise; a mask of few bits makes it compress, as packed planes need.
inline Pixels RandomPixels(int width, int height, int channels, uint32_t seed, uint8_t mask = 0xff) {
  Pixels p{width, height, channels, Bytes(size_t(width) * height * channels)};
  Random random{seed};
  for (auto& byte : p.bytes) byte = uint8_t(random.Next() >> 24) & mask;
  return p;
}

// The planes of the running test, freed when it ends.
inline std::vector<Plane*> testPlanes;

inline Plane* Kept(Plane* plane) { return testPlanes.emplace_back(plane); }

inline Plane* NewPlane(int width, int height, int bits, int fill, int doFill, uint32_t kind) {
  return Kept(PlaneStore.CreatePlane(width, height, bits, fill, doFill, kind));
}

inline Plane* PlaneOf(const Pixels& p, uint32_t kind) {
  return Kept(PlaneOfBytes(p.width, p.height, p.channels * 8, p.bytes, kind));
}

inline Pixels PixelsOf(Plane* plane) {
  return {plane->width, plane->height, int(plane->bytesPerPixel), PlaneBytes(plane)};
}

// New work planes are Physical unless a kind test says otherwise.
class StoreTest : public TeselTest {
 protected:
  void SetUp() override {
    TeselTest::SetUp();
    settings.workBuffer = Physical;
  }
  void TearDown() override {
    for (Plane*& plane : testPlanes) PlaneStore.FreePlane(&plane);
    testPlanes.clear();
    TeselTest::TearDown();
  }
};

// Runs in each storage kind, which is also the kind of new work planes.
class StoreKindTest : public StoreTest, public testing::WithParamInterface<uint32_t> {
 protected:
  void SetUp() override {
    StoreTest::SetUp();
    settings.workBuffer = int32_t(GetParam());
  }
};

}  // namespace storetest
