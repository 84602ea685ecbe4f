// The Bezier path within the frame: its file follows the focus of the
// documents and goes with a closing one, and Edit Bezier starts and ends
// with the tool.
#include "shell/bezier_path_tool.h"

#include <vector>

#include "base/command_ids.h"
#include "document/selection_rows.h"
#include "selection/draft.h"
#include "selection/draft_engine.h"
#include "selection/edit_bezier.h"
#include "selection/path_file.h"
#include "selection/selection_windows.h"
#include "shell_fixture.h"
#include "support/temp_folder.h"

namespace {

class BezierPathTool : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    InstallBezierPathTool(folder.path());
    historyHooks.Add([this](Canvas*) { ++entries; });
  }
  // An open Free Bezier of two nodes on the canvas.
  void MakePath(Canvas* canvas) {
    Draft.nodes[0] = {10, 5, 12, 5, 14, 7};
    Draft.nodes[1] = {14, 9, 0, 0, 0, 0};
    Draft.nodeCount = 2;
    canvas->selectionKind = cmd::kFreeBezier;
    CommitShape(canvas, 0, 0);
  }
  bool HasFile(const Canvas* canvas) const { return platform::FileExists(PathFileName(canvas)); }

  TempFolder folder;
  int entries = 0;
};

TEST_F(BezierPathTool, APathLeavesWithTheFocusComesBackWithItAndGoesWithTheDocument) {
  Canvas* first = OpenBlank(32, 24);
  MakePath(first);
  ActivateDocument(first, false);
  EXPECT_EQ(first->selectionKind, kNoDraft);
  // Another document has the one path meanwhile.
  Canvas* second = OpenBlank(32, 24);
  Draft = {};
  ActivateDocument(second, false);
  EXPECT_FALSE(HasFile(second));
  ActivateDocument(first, true);
  EXPECT_EQ(first->selectionKind, cmd::kFreeBezier);
  EXPECT_EQ(Draft.nodeCount, 2);
  EXPECT_EQ(SelectionBox(first), (Rect{10, 5, 14, 9}));
  EXPECT_EQ(entries, 1);  // the restored path's commit
  // A path given up while its document had the focus stays given up.
  Deselect(first);
  ActivateDocument(first, false);
  EXPECT_FALSE(HasFile(first));
  ActivateDocument(first, true);
  EXPECT_EQ(first->selectionKind, kNoDraft);
  MakePath(first);
  ActivateDocument(first, false);
  EXPECT_TRUE(HasFile(first));
  const std::string name = PathFileName(first);
  Close(first);
  EXPECT_FALSE(platform::FileExists(name));
}

TEST_F(BezierPathTool, EditBezierStartsWithTheToolAndEndsWithIt) {
  Canvas* canvas = OpenBlank(200, 200);
  std::vector<Rect> pegs;
  selectionWindows.invertBox = [&](Canvas*, const Rect& box) { pegs.push_back(box); };
  RouteCommand(cmd::kFreeBezier, 0);
  // Without a path the mode can't start, and the tool stays.
  RouteCommand(cmd::kEditBezier, 0);
  EXPECT_EQ(currentTool, cmd::kFreeBezier);
  MakePath(canvas);
  RouteCommand(cmd::kEditBezier, 0);
  EXPECT_EQ(currentTool, cmd::kEditBezier);
  EXPECT_EQ(EditBezierCanvas(), canvas);
  // The frame's pegs: its third corner, (12, 7) + (2, 2), and the angle
  // line's end 50 to the right of the centre.
  EXPECT_EQ(pegs, (std::vector<Rect>{{10, 5, 18, 13}, {58, 3, 66, 11}}));
  RouteCommand(cmd::kSelectionBox, 0);
  EXPECT_EQ(EditBezierCanvas(), nullptr);
  EXPECT_EQ(pegs.size(), 4u);
  EXPECT_EQ(Draft.active, 0);
  // The mode follows the focus, and ends on a canvas without a path.
  RouteCommand(cmd::kEditBezier, 0);
  Canvas* other = OpenBlank(50, 50);
  ActivateDocument(canvas, false);
  EXPECT_EQ(EditBezierCanvas(), nullptr);
  ActivateDocument(other, true);
  EXPECT_EQ(EditBezierCanvas(), nullptr);
  ActivateDocument(other, false);
  ActivateDocument(canvas, true);
  EXPECT_EQ(EditBezierCanvas(), canvas);
  EXPECT_EQ(canvas->selectionKind, cmd::kFreeBezier);
  // A document closing with the mode on ends it.
  ASSERT_EQ(EditBezierCanvas(), canvas);
  Close(canvas);
  EXPECT_EQ(EditBezierCanvas(), nullptr);
}

}  // namespace
