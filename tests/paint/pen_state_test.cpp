// The pen kept in the settings record's tool state between runs.
#include <gtest/gtest.h>

#include <cstring>

#include "paint/pen_record.h"
#include "paint/pen_state.h"
#include "platform/headless/headless.h"
#include "settings/default_settings.h"
#include "settings/settings.h"

namespace {

class PenStateTest : public ::testing::Test {
 protected:
  void SetUp() override {
    headless::Reset();
    std::memset(&settings, 0, sizeof settings);
    ResetPen();
  }
  void TearDown() override { ResetPen(); }
};

// The pen words, in the order the tool state keeps them.
void ExpectPen(uint32_t r, uint32_t g, uint32_t b, uint32_t mode, uint32_t thickness,
               uint32_t density, double rx, double ry, int32_t shape) {
  EXPECT_EQ(pen.red, r);
  EXPECT_EQ(pen.green, g);
  EXPECT_EQ(pen.blue, b);
  EXPECT_EQ(pen.mode, mode);
  EXPECT_EQ(pen.colorThickness, thickness);
  EXPECT_EQ(pen.density, density);
  EXPECT_DOUBLE_EQ(pen.radiusX, rx);
  EXPECT_DOUBLE_EQ(pen.radiusY, ry);
  EXPECT_EQ(pen.tipShape, shape);
}

TEST_F(PenStateTest, RoundTripKeepsThePenAndClearsTheRest) {
  settings.toolState[77] = 99;
  pen.red = 200, pen.green = 10, pen.blue = 77;
  pen.mode = 5, pen.colorThickness = 128, pen.density = 64;
  pen.radiusX = 2.57, pen.radiusY = 12.5, pen.tipShape = 8;
  StorePenState();
  const int32_t expected[9] = {200, 10, 77, 5, 128, 64, 257, 1250, 8};
  for (int i = 0; i < 9; ++i) EXPECT_EQ(settings.toolState[i], expected[i]) << i;
  for (int i = 9; i < 78; ++i) EXPECT_EQ(settings.toolState[i], 0) << i;

  ResetPen();
  LoadPenState();
  ExpectPen(200, 10, 77, 5, 128, 64, 2.57, 12.5, 8);
  // The mixer's copy of the colour follows: value is the largest channel.
  EXPECT_EQ(pen.value, 200u);
}

TEST_F(PenStateTest, OutOfRangeWordsAreClamped) {
  const int32_t bad[9] = {-5, 300, 255, 13, -1, 1000, -250, 20000, 16};
  std::memcpy(settings.toolState, bad, sizeof bad);
  LoadPenState();
  ExpectPen(0, 255, 255, 12, 0, 255, 0.0, 127.0, 15);

  const int32_t low[9] = {0, 0, 0, -7, 0, 0, 1, 0, -3};
  std::memcpy(settings.toolState, low, sizeof low);
  LoadPenState();
  ExpectPen(0, 0, 0, 0, 0, 0, 0.01, 0.0, 0);
}

TEST_F(PenStateTest, BlankToolStateGivesTheFirstRunPen) {
  LoadPenState();
  ExpectPen(0, 0, 0, 0, 255, 255, 3.0, 3.0, 15);

  DefaultSettings(settings);
  ResetPen();
  LoadPenState();
  ExpectPen(0, 0, 0, 0, 255, 255, 3.0, 3.0, 15);
}

}  // namespace
