// The Draft's routes: the right press's menus and their order, the cursor
// the pointer earns, what a finished gesture does by itself, and the
// outline kept across repaints.
#include <map>

#include "base/command_ids.h"
#include "draft_fixture.h"
#include "paint/control/pen_options.h"
#include "selection/draft_engine.h"
#include "selection/draft_routes.h"

TEST_F(DraftTest, ActionMenuShowsNearTheDraftWithItsItemsSetByKind) {
  std::vector<int> sent;
  selectionWindows.sendCommand = [&](int id) { sent.push_back(id); };
  int picked = 0;
  pointerRoutes.colourPicker = [&](Canvas*) { ++picked; };
  currentTool = cmd::kSelectionBox;

  at = {10, 10};  // no Draft: the dropper
  RightButtonDown(canvas, {currentTool, 0, 0, 0});
  EXPECT_TRUE(menus.empty());
  EXPECT_EQ(picked, 1);

  Drag(cmd::kSelectionLine, {30, 20}, {{5, 10}});
  menuAnswer = cmd::kLine;
  at = {130, 120};  // 100 view pixels beyond the line's box on both axes
  RightButtonDown(canvas, {currentTool, 0, 0, 0});
  ASSERT_EQ(menus.size(), 1u);
  EXPECT_EQ(menus[0].first, "tsDraftExec");
  std::map<int, bool> enabled;
  for (const MenuItemState& item : menus[0].second) enabled[item.id] = item.enabled;
  EXPECT_FALSE(enabled[cmd::kFill]);
  EXPECT_FALSE(enabled[cmd::kCopy]);
  EXPECT_TRUE(enabled[cmd::kLine]);
  EXPECT_TRUE(enabled[cmd::kConvertToBezier]);
  EXPECT_FALSE(enabled[cmd::kEditBezier]);
  EXPECT_EQ(sent, std::vector<int>{cmd::kLine});

  at = {131, 20};
  RightButtonDown(canvas, {currentTool, 0, 0, 0});
  EXPECT_EQ(menus.size(), 1u);
  EXPECT_EQ(picked, 2);
}

TEST_F(DraftTest, PointerEarnsPegAndBodyCursorsOfTheToolInUse) {
  std::vector<std::string> cursors;
  selectionWindows.showCursor = [&](const std::string& name) { cursors.push_back(name); };
  Drag(cmd::kSelectionBox, {5, 6}, {{20, 15}});
  cursors.clear();
  for (Point p : {Point{12, 7}, Point{13, 10}, Point{21, 16}, Point{30, 28}, Point{10, 10}}) {
    at = p;
    PointerMoved(canvas);
  }
  // A peg's zone reaches 3 pixels; the same cursor isn't shown twice.
  EXPECT_EQ(cursors, (std::vector<std::string>{"posmove", "move", "posmove", "", "move"}));
  currentTool = cmd::kFreeHand;
  PointerMoved(canvas);
  EXPECT_EQ(cursors.back(), "");
}

TEST_F(DraftTest, FinishedGestureFollowsKeysAndTheSelectionOption) {
  std::vector<int> sent, posted;
  std::vector<int> outsideSeen;
  selectionWindows.sendCommand = [&](int id) {
    sent.push_back(id);
    outsideSeen.push_back(settings.outsideDisplay);
  };
  selectionWindows.postCommand = [&](int id) { posted.push_back(id); };
  settings.outsideDisplay = 1;

  Hold({platform::VkControl, 'Z'});
  Drag(cmd::kSelectionBox, {5, 6}, {{20, 15}});
  EXPECT_EQ(posted, (std::vector<int>{cmd::kFill, cmd::kLine}));
  EXPECT_EQ(canvas->selectionKind, cmd::kSelectionBox);
  Hold({});

  shapeFinish = kFinishFill;
  Drag(cmd::kSelectionLine, {5, 6}, {{20, 15}});
  EXPECT_TRUE(sent.empty());  // an open shape isn't filled
  EXPECT_EQ(canvas->selectionKind, cmd::kSelectionLine);
  Drag(cmd::kSelectionCircle, {5, 26}, {{20, 28}});
  EXPECT_EQ(sent, std::vector<int>{cmd::kFill});
  EXPECT_EQ(canvas->selectionKind, kNoDraft);

  shapeFinish = kFinishStraightLine;
  Drag(cmd::kSelectionLine, {5, 6}, {{20, 15}});
  EXPECT_EQ(sent, (std::vector<int>{cmd::kFill, cmd::kLine}));
  EXPECT_EQ(canvas->selectionKind, kNoDraft);
  EXPECT_EQ(outsideSeen, (std::vector<int>{0, 0}));
  EXPECT_EQ(settings.outsideDisplay, 1);
  shapeFinish = kFinishSelection;
}

TEST_F(DraftTest, OutlineSurvivesRepaintsAndARepaintDuringADragKeepsTheBand) {
  Drag(cmd::kSelectionBox, {5, 6}, {{20, 15}});
  const auto atRest = shown;
  auto& toggle = pointerRoutes.overlayToggles[kOverlayDraft];
  toggle(canvas);
  EXPECT_TRUE(shown.empty());
  toggle(canvas);
  EXPECT_EQ(shown, atRest);

  // A repaint while the body is dragged: the band goes off and on, the
  // outline at rest isn't drawn over it.
  std::vector<decltype(shown)> duringRepaint;
  viewWindows.buttonHeld = [&](PointerButton) {
    if (path.empty()) return false;
    toggle(canvas);
    duringRepaint.push_back(shown);
    toggle(canvas);
    at = path.front();
    path.pop_front();
    return true;
  };
  Drag(cmd::kSelectionBox, {10, 10}, {{12, 10}, {14, 10}});
  for (const auto& s : duringRepaint) EXPECT_TRUE(s.empty());
  EXPECT_EQ(Box(), (Rect{9, 6, 24, 15}));
  EXPECT_EQ(shown.count({"box", 9, 6, 24, 15}), 1u);
  EXPECT_EQ(shown.size(), 9u);
}
