// Edit Bezier's frame, drags, menu and the turned and scaled path, against
// values worked out by hand.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/command_ids.h"
#include "base/current_tool.h"
#include "display/view_fixture.h"
#include "display/view_paint.h"
#include "selection/draft.h"
#include "selection/edit_bezier.h"
#include "selection/path_file.h"
#include "selection/selection_windows.h"
#include "selection/shape_tool.h"
#include "support/temp_folder.h"

namespace {

using Nodes = std::vector<std::array<int, 6>>;

class EditBezierTest : public ViewTest {
 protected:
  void SetUp() override {
    ViewTest::SetUp();
    InstallEditBezier();
    currentTool = cmd::kEditBezier;
    pathFileFolder = folder.path();
    canvas = MakeBlank(200, 200);
    // An open Free Bezier of two nodes; its box is that of the nodes.
    Draft.nodes[0] = {100, 50, 120, 50, 140, 70};
    Draft.nodes[1] = {140, 90, 0, 0, 0, 0};
    Draft.nodeCount = 2;
    canvas->selectionKind = cmd::kFreeBezier;
    canvas->selLeft = 100, canvas->selTop = 50, canvas->selRight = 140, canvas->selBottom = 90;
    selectionWindows.invertText = [this](Canvas*, int x, int y, const std::string& text) {
      labels.push_back(text + " at " + std::to_string(x) + "," + std::to_string(y));
    };
  }
  Nodes Path() const {
    Nodes nodes;
    for (int i = 0; i < Draft.nodeCount; ++i) {
      const PathNode& n = Draft.nodes[i];
      nodes.push_back({n.x, n.y, n.c1x, n.c1y, n.c2x, n.c2y});
    }
    return nodes;
  }
  // A press at `from`, dragged to `to` and let go.
  void Drag(std::array<int, 2> from, std::array<int, 2> to) {
    script.clear();
    PointerAt({from, to});
    held = 1;
    pointerRoutes.draftObjectPress(canvas);
  }
  // The menu chosen at `at`, and the number dialog's answer.
  int Menu(std::array<int, 2> at, int item, int typed = 0) {
    script.clear();
    PointerAt({at});
    selectionWindows.popupMenu = [item](Canvas*, const std::string& menu,
                                        const std::vector<MenuItemState>& items) {
      EXPECT_EQ(menu, "tsTapSubMenu");
      EXPECT_EQ(items.size(), 5u);
      return item;
    };
    selectionWindows.numberDialog = [this, typed](const std::string& title, int low, int high,
                                                  int* value) {
      asked.push_back(title + " " + std::to_string(low) + ".." + std::to_string(high) + " " +
                      std::to_string(*value));
      if (typed) *value = typed;
      return 1;
    };
    return ShapeToolOf(cmd::kEditBezier)->pegMenu(canvas);
  }

  TempFolder folder;
  Canvas* canvas = nullptr;
  std::vector<std::string> labels, asked;
};

TEST_F(EditBezierTest, MenuScalesAndTurnsTheBackupAboutTheBoxCentre) {
  ASSERT_EQ(BeginEditBezier(canvas, cmd::kFreeBezier), 1);
  EXPECT_EQ(Draft.active, 1);
  EXPECT_EQ(
      (std::array{editFrame.tapLeft, editFrame.tapRight, editFrame.tapTop, editFrame.tapBottom,
                  editFrame.tapWidth, editFrame.tapHeight, editFrame.tapSize}),
      (std::array{100, 140, 50, 90, 41, 41, 100}));
  // Half: each point's offset from the centre (120, 70), times 50 / 100.
  EXPECT_EQ(Menu({120, 70}, 4, 50), 1);
  EXPECT_EQ(asked, (std::vector<std::string>{"Size 1..100 100"}));
  EXPECT_EQ(Path(), (Nodes{{110, 60, 120, 60, 130, 70}, {130, 80, 60, 35, 60, 35}}));
  // A quarter turn on top, from the backup: (x, y) goes to (-y, x).
  EXPECT_EQ(Menu({120, 70}, 5, 90), 1);
  EXPECT_EQ(Path(), (Nodes{{130, 60, 130, 70, 120, 80}, {110, 80, 155, 10, 155, 10}}));
  // Back to the whole size and no turn: the path as it was.
  Menu({120, 70}, 2);
  Menu({120, 70}, 3);
  EXPECT_EQ(Path(), (Nodes{{100, 50, 120, 50, 140, 70}, {140, 90, 0, 0, 0, 0}}));
  // Outside the frame there is no menu; "Back" sends the tool it came from.
  EXPECT_EQ(Menu({20, 20}, 10), 0);
  int sent = 0;
  selectionWindows.sendCommand = [&](int id) { sent = id; };
  EXPECT_EQ(Menu({120, 70}, 10), 1);
  EXPECT_EQ(sent, cmd::kFreeBezier);
  // A repaint takes the frame off and puts it back.
  std::vector<Rect> pegs;
  selectionWindows.invertBox = [&](Canvas*, const Rect& box) { pegs.push_back(box); };
  OverlaysOff(canvas);
  EXPECT_EQ(pegs, (std::vector<Rect>{{136, 86, 144, 94}, {166, 66, 174, 74}}));
  EndEditBezier();
  EXPECT_EQ(pegs.size(), 4u);
  OverlaysOn(canvas);
  EXPECT_EQ(pegs.size(), 4u);
  EXPECT_EQ(Draft.active, 0);
  EXPECT_EQ(EditBezierCanvas(), nullptr);
  // Only a Bezier path can be edited.
  canvas->selectionKind = cmd::kSelectionBox;
  EXPECT_EQ(BeginEditBezier(canvas, cmd::kSelectionBox), 0);
}

TEST_F(EditBezierTest, DragsTurnSizeAndMoveTheFrameWithTheirLabels) {
  ASSERT_EQ(BeginEditBezier(canvas, cmd::kFreeBezier), 1);
  // The angle peg lies 50 to the right of the centre; (130, 81) is at
  // 47.7 degrees, 47, which Shift takes to 45.
  headless::Recorded().pointer.keysDown = {platform::VkShift};
  Drag({170, 70}, {130, 81});
  headless::Recorded().pointer.keysDown.clear();
  EXPECT_EQ(Draft.angle, 45);
  EXPECT_EQ(labels, (std::vector<std::string>{"angle: -45 at 110,61", "angle: -45 at 110,61"}));
  // (-20, -20) turns to (0, -28.28): -28; (0, -20) to (14.14, -14.14).
  EXPECT_EQ(Path(), (Nodes{{120, 42, 134, 56, 134, 84}, {120, 98, 85, -64, 85, -64}}));

  // A corner, dragged out along the unturned axis: |30| x 100 / (41 / 2).
  Menu({120, 70}, 3);
  labels.clear();
  Drag({140, 90}, {150, 95});
  EXPECT_EQ(editFrame.tapSize, 150);
  EXPECT_EQ(labels, (std::vector<std::string>{"size:150 at 130,75", "size:150 at 130,75"}));
  EXPECT_EQ(Path()[0], (std::array{90, 40, 120, 40, 150, 70}));
  // The dialog shows the size above its range, and OK keeps it.
  Menu({120, 70}, 4);
  EXPECT_EQ(asked, (std::vector<std::string>{"Size 1..100 150"}));
  EXPECT_EQ(editFrame.tapSize, 150);

  // The body: the frame moves, and the path with it.
  Menu({120, 70}, 2);
  Drag({115, 60}, {125, 65});
  EXPECT_EQ((std::array{editFrame.tapLeft, editFrame.tapTop}), (std::array{110, 55}));
  EXPECT_EQ(Path()[0], (std::array{110, 55, 130, 55, 150, 75}));
  // A press outside the frame changes nothing.
  Drag({10, 10}, {30, 30});
  EXPECT_EQ(Path()[0], (std::array{110, 55, 130, 55, 150, 75}));
}

}  // namespace
