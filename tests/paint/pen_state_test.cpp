// The pen kept in the settings record's tool state between runs.
#include "paint/tip/pen_state.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <tuple>

#include "paint/tip/pen_record.h"
#include "platform/headless/headless.h"
#include "settings/default_settings.h"
#include "settings/settings.h"
#include "support/fixture.h"

namespace {

// The pen words, in the order the tool state keeps them.
auto Pen() {
  return std::make_tuple(pen.red, pen.green, pen.blue, pen.mode, pen.colorThickness, pen.density,
                         pen.radiusX, pen.radiusY, pen.tipShape);
}
using Words = decltype(Pen());

// Loads the tool state from these words.
Words Loaded(std::initializer_list<int32_t> words) {
  std::copy(words.begin(), words.end(), settings.toolState);
  LoadPenState();
  return Pen();
}

using PenStateTest = TeselTest;

TEST_F(PenStateTest, RoundTripKeepsThePenAndClearsTheRest) {
  settings.toolState[77] = 99;
  pen.red = 200, pen.green = 10, pen.blue = 77;
  pen.mode = 5, pen.colorThickness = 128, pen.density = 64;
  pen.radiusX = 2.57, pen.radiusY = 12.5, pen.tipShape = 8;
  StorePenState();
  std::vector<int32_t> words(settings.toolState, settings.toolState + 78);
  std::vector<int32_t> expected{200, 10, 77, 5, 128, 64, 257, 1250, 8};  // radii in hundredths
  expected.resize(78);
  EXPECT_EQ(words, expected);
  ResetPen();
  LoadPenState();
  EXPECT_EQ(Pen(), Words(200, 10, 77, 5, 128, 64, 2.57, 12.5, 8));
  EXPECT_EQ(pen.value, 200u);  // the mixer's copy of the colour follows
}

TEST_F(PenStateTest, OutOfRangeWordsAreClampedAndBlankOnesGiveTheFirstRunPen) {
  EXPECT_EQ(Loaded({-5, 300, 255, 13, -1, 1000, -250, 20000, 16}),
            Words(0, 255, 255, 12, 0, 255, 0.0, 127.0, 15));
  EXPECT_EQ(Loaded({0, 0, 0, -7, 0, 0, 1, 0, -3}), Words(0, 0, 0, 0, 0, 0, 0.01, 0.0, 0));
  const Words firstRun(0, 0, 0, 0, 255, 255, 3.0, 3.0, 15);
  EXPECT_EQ(Loaded({0, 0, 0, 0, 0, 0, 0, 0, 0}), firstRun);
  DefaultSettings(settings);
  EXPECT_EQ(Loaded({}), firstRun);
}

}  // namespace
