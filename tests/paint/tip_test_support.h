// Shared set-up of the pen and tip tests: a clean seam and pen before each
// test, rasters read back as byte vectors, and a scratch folder per test.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "paint/tip/pen_data_list.h"
#include "paint/tip/pen_record.h"
#include "paint/tip/tip.h"
#include "platform/headless/headless.h"
#include "settings/number_lists.h"
#include "store/dib.h"
#include "store/plane_store.h"
#include "support/fixture.h"
#include "support/planes.h"
#include "support/temp_folder.h"

namespace tiptest {

using Bytes = std::vector<uint8_t>;

struct Raster {
  int width = 0, height = 0;
  Bytes bytes;  // row after row
  uint8_t at(int x, int y) const { return bytes[size_t(y) * width + x]; }
  bool operator==(const Raster&) const = default;
};

inline Raster Read(Plane* plane) {
  return plane ? Raster{plane->width, plane->height, PlaneBytes(plane)} : Raster{};
}

class PenTest : public TeselTest {
 protected:
  // The size list holds its one entry of 1 x 1, as with no list file.
  void SetUp() override {
    TeselTest::SetUp();
    penSizes.column[0][0] = penSizes.column[1][0] = 1;
  }
  // The generated tip of a shape and radii.
  static void Build(int shape, double rx, double ry) {
    pen.tipShape = shape;
    pen.radiusX = rx;
    pen.radiusY = ry;
    ASSERT_EQ(1, BuildTip());
  }
  // Saved as a BMP at `name` in the folder, its folders made, and freed.
  void SaveAndFree(Plane* picture, const std::string& name) const {
    std::filesystem::create_directories(std::filesystem::path(scratch / name).parent_path());
    EXPECT_EQ(1, SaveBmp(picture, scratch / name)) << name;
    PlaneStore.FreePlane(&picture);
  }
  // A white picture with the given pixels (x, y, red, green, blue).
  void SavePicture(const std::string& name, int width, int height,
                   std::initializer_list<std::array<int, 5>> dots) const {
    Plane* picture = PlaneStore.CreatePlane(width, height, 24, 255, 1, Physical);
    for (auto d : dots) PlaneStore.WritePixel24(picture, d[0], d[1], d[2], d[3], d[4]);
    SaveAndFree(picture, name);
  }

  // The test's folder; its path ends in a separator, as the program folder is given.
  TempFolder scratch;
};

}  // namespace tiptest
