// Shared set-up of the pen and tip tests: a clean seam and pen before each
// test, rasters read back as byte vectors, and a scratch folder per run.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "paint/tip/pen_data_list.h"
#include "paint/tip/pen_record.h"
#include "paint/tip/tip.h"
#include "platform/headless/headless.h"
#include "store/plane_store.h"
#include "support/fixture.h"

namespace tiptest {

using Bytes = std::vector<uint8_t>;

struct Raster {
  int width = 0, height = 0;
  Bytes bytes;  // row after row
  uint8_t at(int x, int y) const { return bytes[size_t(y) * width + x]; }
  bool operator==(const Raster&) const = default;
};

inline Raster Read(Plane* plane) {
  Raster raster;
  if (!plane) return raster;
  raster.width = plane->width;
  raster.height = plane->height;
  raster.bytes.resize(size_t(plane->width) * plane->height);
  for (int y = 0; y < plane->height; ++y)
    PlaneStore.ReadRow(plane, y, 0, plane->width - 1, &raster.bytes[size_t(y) * plane->width]);
  return raster;
}

// A folder of this run, emptied before each test and removed at the end.
struct ScratchFolder {
  std::filesystem::path path =
      std::filesystem::temp_directory_path() / ("tesel_paint_tests_" + std::to_string(getpid()));
  ~ScratchFolder() { std::filesystem::remove_all(path); }
  void Renew() {
    std::filesystem::remove_all(path);
    std::filesystem::create_directories(path);
  }
  // The folder with its trailing separator, as the program folder is given.
  std::string Prefix() const { return path.string() + "/"; }
};

inline ScratchFolder scratch;

class PenTest : public TeselTest {
 protected:
  void SetUp() override {
    TeselTest::SetUp();
    scratch.Renew();
  }
  // The generated tip of a shape and radii.
  static void Build(int shape, double rx, double ry) {
    pen.tipShape = shape;
    pen.radiusX = rx;
    pen.radiusY = ry;
    ASSERT_EQ(1, BuildTip());
  }
};

}  // namespace tiptest
