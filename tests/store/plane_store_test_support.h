// Shared set-up and row helpers of the plane store tests.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "platform/headless/headless.h"
#include "store/plane_store.h"

class PlaneStoreTest : public testing::Test {
 protected:
  void SetUp() override {
    headless::Reset();
    PlaneStore.Reset();
  }
};

using Bytes = std::vector<uint8_t>;

inline Bytes Slice(const Bytes& bytes, size_t at, size_t count) {
  return Bytes(bytes.begin() + at, bytes.begin() + at + count);
}

inline Bytes ReadWholeRow(Plane* plane, int y) {
  Bytes row(static_cast<size_t>(plane->width) * plane->bytesPerPixel);
  EXPECT_EQ(1, PlaneStore.ReadRow(plane, y, 0, plane->width - 1, row.data()));
  return row;
}

// Byte i of row y: differs from row to row, and compresses.
inline uint8_t PatternByte(int y, int i) { return static_cast<uint8_t>((y * 7 + i / 3) % 11 + 1); }

inline Bytes PatternRow(const Plane* plane, int y) {
  Bytes row(static_cast<size_t>(plane->width) * plane->bytesPerPixel);
  for (size_t i = 0; i < row.size(); ++i) row[i] = PatternByte(y, static_cast<int>(i));
  return row;
}

inline void WritePattern(Plane* plane) {
  for (int y = 0; y < plane->height; ++y)
    PlaneStore.WriteRow(plane, y, 0, plane->width - 1, PatternRow(plane, y).data());
}
