// The layer commands as the frame and the document route them: each asks
// its dialog, then makes its new document or changes the active one.
#include "base/command_ids.h"
#include "document/canvas_manager.h"
#include "layers/install.h"
#include "layers/layer_windows.h"
#include "shell/layer_commands.h"
#include "shell_fixture.h"

namespace {

class LayerCommands : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    InstallLayers();
    InstallLayerCommands();
    source = OpenBlank(30, 20);
    CanvasManager.AddLayer(source, 4, 5, 8, 6);
    source->planes[8].mixMode = 0;
  }
  size_t Documents() const { return open.size(); }
  Canvas* source = nullptr;
};

TEST_F(LayerCommands, EachCommandAsksItsDialogAndMakesItsDocument) {
  MergeChoice merge{MergeKind::AllLayers, 1};
  layerWindows.mergeLayersDialog = [&](MergeChoice* choice) {
    *choice = merge;
    return true;
  };
  RouteCommand(cmd::kMergeLayers, 0);
  ASSERT_EQ(Documents(), 2u);
  EXPECT_EQ(CanvasManager.LayerCount(open.back()), 2);  // the hidden layer kept

  ActivateDocument(source, true);
  merge.kind = MergeKind::FlattenedLayer;
  RouteCommand(cmd::kMergeLayers, 0);
  EXPECT_EQ(Documents(), 2u);
  EXPECT_EQ(CanvasManager.LayerCount(source), 3);
  const auto redraws = headless::MessagesTo(platform::Window::LayerPanel, platform::MsgLayerRedraw);
  ASSERT_FALSE(redraws.empty());
  EXPECT_EQ(redraws.back().wParam, -1);
  EXPECT_EQ(redraws.back().lParam, reinterpret_cast<intptr_t>(source));

  RouteCommand(cmd::kDuplicate, 0);
  ASSERT_EQ(Documents(), 3u);
  EXPECT_EQ(CanvasManager.LayerCount(open.back()), 3);

  ActivateDocument(source, true);
  layerWindows.resizeDialog = [](const Canvas*, ResizeChoice* choice) {
    EXPECT_EQ(choice->width, 30);  // the present size the first time
    choice->width = 60, choice->height = 10;
    return true;
  };
  RouteCommand(cmd::kMakeResizedDuplicate, 0);
  ASSERT_EQ(Documents(), 4u);
  EXPECT_EQ(open.back()->canvasWidth, 60);

  ActivateDocument(source, true);
  layerWindows.rotateDialog = [](Canvas*, RotateChoice* choice) {
    choice->degrees = 89.6;  // whole degrees
    return true;
  };
  RouteCommand(cmd::kMakeRotatedDuplicate, 0);
  ASSERT_EQ(Documents(), 5u);
  EXPECT_EQ(CanvasRequest.rotation, 90);
  EXPECT_EQ(open.back()->canvasWidth, 20);
}

TEST_F(LayerCommands, RefusalsMakeNoDocument) {
  // A document that can't be made says so.
  shellWindows.createDocument = [] { return 0; };
  RouteCommand(cmd::kDuplicate, 0);
  EXPECT_EQ(BoxTexts().back(), "Making new file failed!");
  // A cancelled dialog does nothing.
  layerWindows.mergeLayersDialog = [](MergeChoice*) { return false; };
  RouteCommand(cmd::kMergeLayers, 0);
  EXPECT_EQ(Documents(), 1u);
  EXPECT_EQ(CanvasManager.LayerCount(source), 2);
}

}  // namespace
