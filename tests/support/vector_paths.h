// Suites whose every test runs once with the vector kernels and once
// without, named after the path they take.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "pixel/vector_paths.h"

class BothPathsTest : public ::testing::TestWithParam<bool> {
 protected:
  void SetUp() override { UseVectorPaths(GetParam()); }
  void TearDown() override { UseVectorPaths(true); }
};

inline std::string PathName(const ::testing::TestParamInfo<bool>& info) {
  return info.param ? "Vector" : "Scalar";
}
