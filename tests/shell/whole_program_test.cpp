// The subsystems wired as the frame wires them, without a window: a press
// of the pen on a new picture paints through the installed routes, and the
// undo history, reached through the commands, takes the stroke back and
// brings it again.
#include "base/command_ids.h"
#include "display/pointer_routing.h"
#include "paint/tip/pen_record.h"
#include "paint/tip/tip.h"
#include "shell/install.h"
#include "shell_fixture.h"
#include "support/planes.h"
#include "support/temp_folder.h"

namespace {

class WholeProgram : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    settings.undoCount = 5;
    settings.positionSmoothing = 1;
    InstallSubsystems(folder.path(), folder.path());
  }
  static bool Painted(Canvas* canvas, int x, int y) {
    const auto rgb = PixelRgb(canvas->planes[0].plane, x, y);
    return rgb[0] + rgb[1] + rgb[2] < 3 * 255;
  }
  TempFolder folder;
};

TEST_F(WholeProgram, AStrokePaintsAndUndoAndRedoTakeItBackAndAgain) {
  Canvas* canvas = OpenBlank(64, 48);
  ASSERT_NE(canvas, nullptr);
  // A black block pen of radius 2 (the settings of a first run are zero).
  pen.tipShape = 10;
  pen.radiusX = pen.radiusY = 2;
  pen.red = pen.green = pen.blue = 0;
  ASSERT_EQ(BuildTip(), 1);

  const std::vector<int> left{platform::VkLeftButton};
  headless::Recorded().pointer = {10, 20, left};
  headless::ScriptPointer({{10, 20, left}, {30, 20, left}, {50, 20, left}, {50, 20, {}}});
  LeftButtonDown(canvas, {currentTool, 0, 0, 0});
  EXPECT_TRUE(Painted(canvas, 10, 20) && Painted(canvas, 30, 20) && Painted(canvas, 49, 20));
  EXPECT_FALSE(Painted(canvas, 30, 40));

  RouteCommand(cmd::kUndo, 0);
  EXPECT_FALSE(Painted(canvas, 10, 20) || Painted(canvas, 30, 20) || Painted(canvas, 49, 20));
  RouteCommand(cmd::kRedo, 0);
  EXPECT_TRUE(Painted(canvas, 10, 20) && Painted(canvas, 30, 20) && Painted(canvas, 49, 20));
}

}  // namespace
