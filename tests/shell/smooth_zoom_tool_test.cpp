// The tool Smooth Zoom within the frame: its start by the tool change, the
// return to the tool before, the command that ends it, and what a closing
// picture ends.
#include "shell/smooth_zoom_tool.h"

#include <filesystem>
#include <tuple>
#include <vector>

#include "display/smooth_zoom.h"
#include "display/smooth_zoom_frame.h"
#include "display/view_windows.h"
#include "shell_fixture.h"
#include "support/temp_folder.h"

namespace {

class SmoothZoomTool : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    viewWindows = ViewWindows{};
    InstallSmoothZoomTool(folder.path());
    viewWindows.smoothZoomDialog = [this](SmoothZoomDialogFields* fields) {
      *fields = {0, 0};  // row "x16" gives 2
      return dialogAnswer;
    };
    viewWindows.zoomFrameMenu = [this](Canvas*) { return menuAnswer; };
    toolStateHooks.Add([this] { tools.push_back(currentTool); });
  }
  void TearDown() override {
    EndZoomFrame();
    ShellTest::TearDown();
  }
  int ParkedFiles() const {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
      count += entry.path().extension() == ".zmt";
    return count;
  }

  TempFolder folder;
  int dialogAnswer = 1;
  int menuAnswer = kZoomFrameEnter;
  std::vector<int> tools;  // currentTool at each refresh of the tool state
};

TEST_F(SmoothZoomTool, StartsFromTheToolChangeAndGivesTheToolBack) {
  Canvas* canvas = OpenBlank(64, 48);
  tools.clear();
  RouteCommand(20001, 0);
  // A cancelled dialog: the tool goes back, and its state follows.
  dialogAnswer = 0;
  RouteCommand(20507, 0);
  EXPECT_EQ(currentTool, 20001);
  EXPECT_EQ(tools, (std::vector<int>{20001, 20507, 20001}));
  dialogAnswer = 1;
  RouteCommand(20507, 0);
  RouteCommand(20507, 0);  // again while choosing: the tool to return to stays
  EXPECT_EQ(std::tie(currentTool, smoothZoomChoice.width), std::make_tuple(20507, 32));
  ASSERT_EQ(ZoomFrameMenu(canvas), 1);
  EXPECT_EQ(std::tie(currentTool, canvas->smoothZoom), std::make_tuple(20001, 2));
  EXPECT_EQ(ParkedFiles(), 3);  // image, mask and transparency of the base layer

  // In force, the command ends it and leaves the tool alone.
  RouteCommand(20507, 0);
  EXPECT_EQ(std::tie(currentTool, canvas->smoothZoom), std::make_tuple(20001, 0));
  EXPECT_EQ(ParkedFiles(), 0);

  // Another tool while choosing drops the frame without entering.
  RouteCommand(20507, 0);
  RouteCommand(20000, 0);
  EXPECT_EQ(std::tie(canvas->smoothZoom, smoothZoomChoice.width), std::make_tuple(0, 1));
  EXPECT_EQ(ZoomFrameCanvas(), nullptr);
}

TEST_F(SmoothZoomTool, ClosingEndsTheZoomAndTheFrame) {
  Canvas* first = OpenBlank(64, 48);
  RouteCommand(20507, 0);
  ASSERT_EQ(ZoomFrameMenu(first), 1);
  ASSERT_EQ(first->smoothZoom, 2);
  headless::Recorded().boxAnswers = {platform::IdCancel};  // "Save changes?" keeps it open
  EXPECT_EQ(QueryCloseDocument(first), 0);
  EXPECT_EQ(std::tie(first->smoothZoom, first->planes[0].width), std::make_tuple(0, 64));
  EXPECT_EQ(ParkedFiles(), 0);

  // The picture that shows the frame closes: the tool before comes back.
  RouteCommand(20000, 0);
  Canvas* second = OpenBlank(32, 32);
  RouteCommand(20507, 0);
  ASSERT_EQ(ZoomFrameCanvas(), second);
  Close(second);
  EXPECT_EQ(std::tie(currentTool, smoothZoomChoice.width), std::make_tuple(20000, 1));
  EXPECT_EQ(ZoomFrameCanvas(), nullptr);
}

}  // namespace
