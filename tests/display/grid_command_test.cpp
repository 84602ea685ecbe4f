// The Grid command: off when on, else the dialog's pitch and snap on OK.
#include "display/grid_command.h"
#include "display/view_windows.h"
#include "support/fixture.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

class GridCommandTest : public TeselTest {
 protected:
  void SetUp() override {
    TeselTest::SetUp();
    canvas.gridX = canvas.gridY = 16;  // as a new canvas has them
    viewWindows.gridDialog = [this](GridChoice* choice) {
      offered.push_back(*choice);
      *choice = answer;
      return ok;
    };
  }
  auto Grid() const {
    return std::make_tuple(canvas.gridOn, canvas.gridX, canvas.gridY, canvas.gridSnap);
  }

  Canvas canvas{};
  GridChoice answer{8, 32, 1};
  std::vector<GridChoice> offered;
  int ok = 1;
};

auto Fields(const GridChoice& c) { return std::make_tuple(c.pitchX, c.pitchY, c.snap); }

TEST_F(GridCommandTest, OkShowsTheGridWithTheEnteredPitchAndSnap) {
  EXPECT_EQ(ToggleGrid(&canvas), 1);
  EXPECT_EQ(Grid(), std::make_tuple(1u, 8, 32, 1u));
  // On: the command takes it off without asking, keeping pitch and snap
  // for the next time, which the dialog then offers.
  EXPECT_EQ(ToggleGrid(&canvas), 1);
  EXPECT_EQ(Grid(), std::make_tuple(0u, 8, 32, 1u));
  answer.snap = 0;
  ToggleGrid(&canvas);
  ASSERT_EQ(offered.size(), 2u);
  EXPECT_EQ(Fields(offered[0]), std::make_tuple(16, 16, 0));
  EXPECT_EQ(Fields(offered[1]), std::make_tuple(8, 32, 1));
  EXPECT_EQ(Grid(), std::make_tuple(1u, 8, 32, 0u));
}

TEST_F(GridCommandTest, CancelOrNoDialogChangesNothingAndPitchIsKeptBetweenTwoAndAThousand) {
  ok = 0;
  EXPECT_EQ(ToggleGrid(&canvas), 0);
  viewWindows.gridDialog = nullptr;
  EXPECT_EQ(ToggleGrid(&canvas), 0);
  EXPECT_EQ(Grid(), std::make_tuple(0u, 16, 16, 0u));

  ok = 1;
  SetUp();
  for (auto [x, y, keptX, keptY] :
       {std::array{0, 1, 2, 2}, {-5, 1001, 2, 1000}, {2, 1000, 2, 1000}, {1 << 30, 3, 1000, 3}}) {
    canvas.gridOn = 0;
    answer = {x, y, 0};
    ToggleGrid(&canvas);
    EXPECT_EQ(std::make_pair(canvas.gridX, canvas.gridY), std::make_pair(keptX, keptY)) << x;
  }
}

}  // namespace
