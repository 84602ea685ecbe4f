#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include "display/view_windows.h"
#include "document/canvas_manager.h"
#include "layers/layer_resize.h"
#include "base/command_ids.h"
#include "base/command_table.h"
#include "shell/history_menu.h"
#include "shell_fixture.h"
#include "support/planes.h"
#include "support/temp_folder.h"

namespace {

using Routing = ShellTest;
using Strings = std::vector<std::string>;

TEST_F(Routing, TableHoldsEveryRangeOnceWithItsOwner) {
  int count = 0;
  for (int id = 0; id < 65536; ++id) count += FindCommand(id) != nullptr;
  // 1034; file 14; view 9 + 14 zoom ratios; window 6; help 2; edit 13;
  // tools 14; selection 9; picture 33; tone 1; outside 4; test 2; history 8.
  EXPECT_EQ(count, 130);
  for (size_t i = 1; i < kCommandCount; ++i)
    EXPECT_LT(kCommandTable[i - 1].id, kCommandTable[i].id);
  EXPECT_EQ(FindCommand(11021)->owner, CommandOwner::Canvas);
  EXPECT_STREQ(FindCommand(11042)->menuText, "75%");
  EXPECT_STREQ(FindCommand(21032)->menuText, "Rotate..");
  EXPECT_TRUE(FindCommand(20013)->toolChange && FindCommand(14008)->toolChange);
  EXPECT_FALSE(FindCommand(21017)->toolChange);
}

TEST_F(Routing, FrameKeepsItsOwnCommandsPassesTheRestAndBlocksWhileBusy) {
  std::vector<uint32_t> mdi;
  Strings calls;
  shellWindows.mdiClientMessage = [&](uint32_t message) { mdi.push_back(message); };
  shellWindows.closeActiveDocument = [&] { calls.push_back("close"); };
  shellWindows.closeFrame = [&] { calls.push_back("exit"); };
  shellWindows.showAbout = [&] { calls.push_back("about"); };
  for (int id : {12000, 12001, 12003, 10000, 10001, 13001}) EXPECT_EQ(FrameCommand(id, 0), 1);
  EXPECT_EQ(mdi, (std::vector<uint32_t>{550, 551, 552}));
  EXPECT_EQ(calls, (Strings{"close", "exit", "about"}));
  EXPECT_EQ(FrameCommand(11013, 0), 0);
  EXPECT_EQ(FrameCommand(11001, 0), 0);  // no such command: not the frame's

  std::vector<std::pair<Canvas*, bool>> seen;
  RegisterCanvasCommand(21030, [&](Canvas* canvas, intptr_t) {
    seen.push_back({canvas, commandRunning});
  });
  RouteCommand(21030, 0);  // no document: nothing happens
  EXPECT_TRUE(seen.empty());
  Canvas* canvas = OpenBlank(8, 4);
  // Resizing a layer or the text dialog blocks everything; an open colour
  // adjustment swallows even the frame's commands.
  layerWindows.openResizeBySides = [](Canvas*, int) {};
  ASSERT_EQ(ResizeLayerBySides(canvas, 0), 1);
  RouteCommand(12000, 0);
  RouteCommand(11013, 0);
  CloseResizeBySides();
  for (bool* flag : {&textDialogOpen, &colorAdjustOwnsPointer}) {
    *flag = true;
    RouteCommand(12000, 0);
    RouteCommand(11013, 0);
    *flag = false;
  }
  EXPECT_EQ(mdi.size(), 3u);
  EXPECT_EQ(canvas->rulersOn, 0u);
  RouteCommand(21030, 0);
  RouteCommand(11013, 0);
  EXPECT_EQ(seen, (std::vector<std::pair<Canvas*, bool>>{{canvas, true}}));  // set while it runs
  EXPECT_FALSE(commandRunning);
  EXPECT_EQ(canvas->rulersOn, 1u);
  RouteCommand(21016, 0);  // an owner that hasn't registered: nothing, and no fault
  EXPECT_EQ(seen.size(), 1u);
}

TEST_F(Routing, HistoryItemsOpenThrough10007AndClearingAsksFirst) {
  Strings opened;
  RegisterFrameCommand(10007, [&](intptr_t lParam) {
    const std::string path = reinterpret_cast<const char*>(lParam);
    AddToFileHistory(path);  // as opening does: the history moves under the path
    opened.push_back(path);
  });
  for (const char* path : {"C:\\one.tsl", "C:\\two.tsl", "C:\\three.tsl"}) AddToFileHistory(path);
  RouteCommand(40002, 0);
  EXPECT_EQ(opened, Strings{"C:\\one.tsl"});
  EXPECT_EQ((Strings{fileHistory[0], fileHistory[1]}), (Strings{"C:\\one.tsl", "C:\\three.tsl"}));

  int changes = 0;
  shellWindows.historyChanged = [&] { ++changes; };
  headless::Recorded().boxAnswers = {platform::IdNo, platform::IdYes};
  RouteCommand(10011, 0);
  EXPECT_STREQ(fileHistory[0], "C:\\one.tsl");
  RouteCommand(10011, 0);
  EXPECT_EQ(fileHistory[0][0], 0);
  EXPECT_EQ(changes, 1);  // No leaves the history as it was
  EXPECT_EQ(BoxTexts(), (Strings{"Wish to clear history?", "Wish to clear history?"}));
}

TEST_F(Routing, ZoomStaysWithinItsSteps) {
  Canvas* canvas = OpenBlank(8, 4);
  int views = 0;
  shellWindows.viewChanged = [&](Canvas*) { ++views; };
  std::string readout;
  viewWindows.showZoom = [&](const ZoomReadout& r) { readout = r.text; };
  canvas->zoomStep = 9;
  std::vector<int> steps;
  for (int id : {11014, 11014, 11040, 11015, 11044}) {
    RouteCommand(id, 0);
    steps.push_back(canvas->zoomStep);
  }
  EXPECT_EQ(steps, (std::vector<int>{10, 10, -3, -3, 1}));
  EXPECT_EQ(views, 5);
  EXPECT_EQ(readout, "150%");  // the view's SetZoom did the change
  viewWindows = ViewWindows{};
}

TEST_F(Routing, NewMakesABlankDocumentOrReports1303) {
  int shownWidth = 0;
  shellWindows.newDialog = [&](NewCanvasFields& fields) {
    shownWidth = fields.width;
    fields.width = 30;
    fields.height = 20;
    return 1;
  };
  settings.lastNewWidth = 64;
  RouteCommand(10002, 0);
  EXPECT_EQ(shownWidth, 64);  // the dialog opened with the last size
  ASSERT_EQ(open.size(), 1u);
  EXPECT_EQ(std::tie(CanvasRequest.layerCount, CanvasRequest.planeCount[0], CanvasRequest.mode),
            std::make_tuple(1, 2, 0));
  EXPECT_EQ(std::tie(open[0]->canvasWidth, open[0]->canvasHeight), std::make_tuple(30, 20));
  EXPECT_NE(open[0]->planes[2].plane, nullptr);

  shellWindows.newDialog = [](NewCanvasFields&) { return 0; };
  RouteCommand(10002, 0);
  EXPECT_EQ(open.size(), 1u);
  EXPECT_TRUE(headless::Recorded().boxes.empty());
  shellWindows.newDialog = [](NewCanvasFields&) { return 1; };
  shellWindows.createDocument = [] { return 0; };
  RouteCommand(10002, 0);
  EXPECT_EQ(BoxTexts(), Strings{"Making new file failed!"});
}

TEST_F(Routing, CloseAllAndFrameClosingStopAtTheFirstRefusal) {
  OpenBlank(4, 4);
  Canvas* second = OpenBlank(4, 4);
  Canvas* third = OpenBlank(4, 4);
  second->modified = third->modified = 1;
  headless::Recorded().boxAnswers = {platform::IdCancel};
  RouteCommand(12002, 0);
  EXPECT_EQ(open, (std::vector<Canvas*>{second, third}));  // third was never asked
  EXPECT_EQ(BoxTexts(), Strings{"Save changes to the file?"});

  // Closing the frame saves the settings even when a document stays.
  TempFolder folder;
  headless::Recorded().boxAnswers = {platform::IdCancel};
  EXPECT_EQ(FrameClosing({0, 10, 20, 500, 300}, folder.path()), 0);
  EXPECT_EQ(std::tie(settings.framePosition, settings.frameSize),
            std::make_tuple(20 << 16 | 10, 300 << 16 | 500));
  EXPECT_TRUE(folder.Exists("env__.env"));
  EXPECT_EQ(open.size(), 2u);

  // Yes saves; a save that leaves the picture modified keeps it open.
  headless::Recorded().boxAnswers = {platform::IdYes};
  EXPECT_EQ(CloseAllDocuments(), 0);
  EXPECT_EQ(open.size(), 2u);
  RegisterCanvasCommand(10004, [](Canvas* canvas, intptr_t) { canvas->modified = 0; });
  headless::Recorded().boxAnswers = {platform::IdYes, platform::IdNo};
  EXPECT_EQ(CloseAllDocuments(), 1);
  EXPECT_TRUE(open.empty());
  EXPECT_EQ(OpenDocumentCount(), 0);
  EXPECT_EQ(ActiveCanvas(), nullptr);
}

TEST_F(Routing, ClearingCommandsAskTheirQuestionsFirst) {
  Canvas* canvas = OpenBlank(3, 2);
  int snapshots = 0;
  undoSnapshotHooks.Add([&](Canvas* c) { snapshots += c == canvas; });
  Plane* mask = canvas->planes[1].plane;
  Plane* transparency = canvas->planes[2].plane;
  PlaneStore.WritePixel8(mask, 2, 1, 77);
  PlaneStore.WritePixel8(transparency, 0, 0, 5);
  auto sum = [&](int x, int y) {
    const auto rgb = PixelRgb(canvas->planes[0].plane, x, y);
    return rgb[0] + rgb[1] + rgb[2];
  };

  headless::Recorded().boxAnswers = {platform::IdCancel, platform::IdOk, platform::IdOk};
  RouteCommand(21013, 0);
  EXPECT_EQ(std::make_tuple(PixelValue(mask, 2, 1), canvas->modified), std::make_tuple(77u, 0u));
  RouteCommand(21013, 0);
  RouteCommand(21014, 0);
  EXPECT_EQ(std::make_tuple(PixelValue(mask, 2, 1), PixelValue(transparency, 0, 0)),
            std::make_tuple(0u, 255u));
  EXPECT_EQ(std::tie(canvas->modified, snapshots), std::make_tuple(1u, 2));
  RouteCommand(21015, 0);  // Negative asks nothing: white turns black
  EXPECT_EQ(sum(1, 1), 0u);
  shellWindows.blankSheetDialog = [](BlankSheetChoice& choice) {
    choice.kind = BlankSheetKind::White;
    return 1;
  };
  RouteCommand(21012, 0);
  EXPECT_EQ(sum(2, 0), 765u);
  canvas->activePlane = 1;  // a plane that isn't an image: the plain question
  PlaneStore.WritePixel8(mask, 0, 0, 9);
  headless::Recorded().boxAnswers = {platform::IdOk};
  RouteCommand(21012, 0);
  EXPECT_EQ(PixelValue(mask, 0, 0), 0u);
  EXPECT_EQ(BoxTexts(), (Strings{"Mask will be cleared.", "Mask will be cleared.",
                                 "Transparency will be cleared.", "This Plane will be cleared."}));
  EXPECT_EQ(snapshots, 5);
}

TEST_F(Routing, CanvasTogglesAndTheOutsideDisplay) {
  settings.imageBuffer = Virtual;
  Canvas* canvas = OpenBlank(4, 4);
  RouteCommand(24000, 0);  // the row cache test commands
  for (int position : {0, 1, 2}) EXPECT_EQ(canvas->planes[position].plane->rowCacheSize, 100u);
  RouteCommand(24001, 0);
  EXPECT_EQ(canvas->planes[2].plane->rowCacheSize, 4u);
  ASSERT_EQ(BoxTexts(), (Strings{"キャッシュOn", "キャッシュOff"}));
  EXPECT_EQ(headless::Recorded().boxes[1].caption, "test");

  std::string title;
  shellWindows.setTitle = [&](Canvas*, const std::string& text) { title = text; };
  RouteCommand(21024, 0);
  EXPECT_EQ(canvas->doubleAccuracy, 1u);
  EXPECT_NE(canvas->planes[0].accuracyPlane, nullptr);
  EXPECT_EQ(title.rfind("Double Accuracy", 0), 0u);
  RouteCommand(21024, 0);
  EXPECT_EQ(canvas->planes[0].accuracyPlane, nullptr);

  std::vector<int> steps;
  for (int id : {23001, 23010, 23010, 23010}) {
    RouteCommand(id, 0);
    steps.push_back(settings.outsideDisplay);
  }
  EXPECT_EQ(steps, (std::vector<int>{1, 2, 0, 1}));
  RouteCommand(11017, 0);
  EXPECT_EQ(settings.darkenOutsideBoundary, 1);
}

TEST_F(Routing, AdjustWindowSizeFitsTheZoomedCanvasSendingTheDoubleFirst) {
  Canvas* canvas = OpenBlank(100, 60);
  DocumentFrame frame{0, 0, 0, 4, 20, 1000, 1000};
  std::vector<std::pair<int, int>> moves, sizes;
  shellWindows.documentFrame = [&](Canvas*) { return frame; };
  shellWindows.moveDocument = [&](Canvas*, int w, int h) { moves.push_back({w, h}); };
  shellWindows.sendDocumentSize = [&](Canvas*, int w, int h) { sizes.push_back({w, h}); };
  canvas->zoomStep = 1;  // 150 %: 150 x 90
  RouteCommand(12004, 0);
  canvas->zoomStep = -1;  // "75%" is 2/3: 66 x 40, within an MDI client 90 wide
  frame.mdiWidth = 90;
  RouteCommand(12004, 0);
  // 150 + 4 x 8 + 2 x 4 = 190; 90 + 4 x 8 + 20 + 2 x 4 = 150.
  EXPECT_EQ(moves,
            (std::vector<std::pair<int, int>>{{380, 300}, {190, 150}, {180, 200}, {90, 100}}));
  frame = {1, 300, 200, 4, 20, 1000, 1000};
  RouteCommand(12004, 0);
  EXPECT_EQ(sizes, (std::vector<std::pair<int, int>>{{600, 400}, {300, 200}}));
}

TEST_F(Routing, ToolChangeStoresTheDraftAndGoesBackWhenTheToolCantStart) {
  Canvas* canvas = OpenBlank(4, 4);
  EXPECT_EQ(currentTool, 20005);
  std::vector<Canvas*> stored;
  std::vector<std::pair<int, int>> buttons;
  draftStoreHooks.Add([&](Canvas* c) { stored.push_back(c); });
  shellWindows.toolButtonsChanged = [&](int previous, int now) {
    buttons.push_back({previous, now});
  };
  RouteCommand(20001, 0);
  RouteCommand(20000, 0);
  EXPECT_EQ(std::tie(currentTool, lastDraftTool), std::make_tuple(20000, 20001));
  EXPECT_EQ(stored, (std::vector<Canvas*>{canvas, canvas}));
  EXPECT_EQ(buttons, (std::vector<std::pair<int, int>>{{20005, 20001}, {20001, 20000}}));
  EXPECT_EQ(headless::MessagesTo(platform::Window::StatusBar, 1024).size(), 2u);

  int kind = -1;
  RegisterToolStart(14001, [&](int pasteKind, const std::string&) {
    kind = pasteKind;
    return 0;
  });
  RouteCommand(14001, 0);
  EXPECT_EQ(std::tie(kind, currentTool), std::make_tuple(0, 20000));

  // Smooth Zoom in force: the command ends it instead of changing the tool.
  int ended = 0;
  RegisterFrameCommand(20507, [&](intptr_t) { ++ended; });
  canvas->smoothZoom = 1;
  RouteCommand(20507, 0);
  EXPECT_EQ(std::tie(ended, currentTool), std::make_tuple(1, 20000));
  canvas->smoothZoom = 0;
  RouteCommand(20507, 0);
  EXPECT_EQ(currentTool, 20507);
}

}  // namespace
