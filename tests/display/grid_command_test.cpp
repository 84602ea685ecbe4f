// The Grid command: off when on, else the dialog's pitch and snap on OK.
#include <gtest/gtest.h>

#include "display/grid_command.h"

namespace {

class GridCommandTest : public ::testing::Test {
 protected:
  void SetUp() override {
    canvas = Canvas{};
    canvas.gridX = canvas.gridY = 16;  // as a new canvas has them
    asked = 0;
    gridDialog = [this](GridChoice* choice) {
      ++asked;
      offered = *choice;
      *choice = answer;
      return ok;
    };
  }
  void TearDown() override { gridDialog = nullptr; }

  Canvas canvas;
  GridChoice answer{8, 32, 1}, offered{};
  int ok = 1, asked = 0;
};

TEST_F(GridCommandTest, OkShowsTheGridWithTheEnteredPitchAndSnap) {
  EXPECT_EQ(ToggleGrid(&canvas), 1);
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(offered.pitchX, 16);
  EXPECT_EQ(offered.pitchY, 16);
  EXPECT_EQ(offered.snap, 0);
  EXPECT_EQ(canvas.gridOn, 1u);
  EXPECT_EQ(canvas.gridX, 8);
  EXPECT_EQ(canvas.gridY, 32);
  EXPECT_EQ(canvas.gridSnap, 1u);

  // On: the command takes it off without asking, keeping pitch and snap
  // for the next time, which the dialog then offers.
  EXPECT_EQ(ToggleGrid(&canvas), 1);
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(canvas.gridOn, 0u);
  ToggleGrid(&canvas);
  EXPECT_EQ(offered.pitchX, 8);
  EXPECT_EQ(offered.pitchY, 32);
  EXPECT_EQ(offered.snap, 1);
}

TEST_F(GridCommandTest, CancelOrNoDialogChangesNothing) {
  ok = 0;
  EXPECT_EQ(ToggleGrid(&canvas), 0);
  EXPECT_EQ(canvas.gridOn, 0u);
  EXPECT_EQ(canvas.gridX, 16);
  EXPECT_EQ(canvas.gridSnap, 0u);
  gridDialog = nullptr;
  EXPECT_EQ(ToggleGrid(&canvas), 0);
  EXPECT_EQ(canvas.gridOn, 0u);
}

TEST_F(GridCommandTest, PitchIsKeptBetweenTwoAndAThousand) {
  const int entered[][2] = {{0, 1}, {-5, 1001}, {2, 1000}, {1 << 30, 3}};
  const int kept[][2] = {{2, 2}, {2, 1000}, {2, 1000}, {1000, 3}};
  for (int i = 0; i < 4; ++i) {
    canvas.gridOn = 0;
    answer = {entered[i][0], entered[i][1], 0};
    ToggleGrid(&canvas);
    EXPECT_EQ(canvas.gridX, kept[i][0]) << i;
    EXPECT_EQ(canvas.gridY, kept[i][1]) << i;
  }
}

}  // namespace
