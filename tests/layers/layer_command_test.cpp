#include "display/pointer_routing.h"
#include "layers/layer_command.h"
#include "layers_fixture.h"

namespace {

using Command = LayersTest;

int PanelRedraws() {
  return int(headless::MessagesTo(platform::Window::LayerPanel, platform::MsgLayerRedraw).size());
}

TEST_F(Command, DeleteRefusesTheBaseAndAsksForTheOthers) {
  Canvas* canvas = MakeLayered(16, 16, 3);
  EXPECT_EQ(LayerCommand(canvas, kLayerItemDelete, 2), 0);
  EXPECT_EQ(BoxTexts(), std::vector<std::string>{"Base layer cannot be deleted."});
  headless::Recorded().boxAnswers = {platform::IdCancel};
  EXPECT_EQ(LayerCommand(canvas, kLayerItemDelete, 8), 0);
  EXPECT_EQ(BoxTexts().back(), "Delete layer [LAYER1]?");
  EXPECT_EQ(CanvasManager.LayerCount(canvas), 3);
  Plane* top = canvas->planes[16].plane;
  EXPECT_EQ(PanelRedraws(), 0);
  EXPECT_EQ(LayerCommand(canvas, kLayerItemDelete, 8 + 2), 1);
  EXPECT_EQ(CanvasManager.LayerCount(canvas), 2);
  EXPECT_EQ(canvas->planes[8].plane, top);
  EXPECT_EQ(PanelRedraws(), 1);
}

TEST_F(Command, AddPutsTheLayerAboveTheOneOfTheMenuAndMakesItActive) {
  Canvas* canvas = MakeLayered(20, 10, 9);
  layerWindows.addLayerDialog = [](const Canvas*, int* w, int* h) {
    *w = 6, *h = 40;
    return true;
  };
  Plane* sixth = canvas->planes[6 * 8].plane;
  // Through the view's layer menu, on the layer at place 5.
  pointerRoutes.layerCommand(canvas, 5, kLayerItemAdd);
  EXPECT_EQ(CanvasManager.LayerCount(canvas), 10);
  const PlaneSlot& added = canvas->planes[6 * 8];
  EXPECT_EQ(canvas->activePlane, 6 * 8);
  EXPECT_EQ((std::array{added.left, added.top, added.width, added.height}),
            (std::array{7, 0, 6, 10}));
  EXPECT_EQ(canvas->planes[7 * 8].plane, sixth);
}

TEST_F(Command, DuplicateAndFurtherPlanes) {
  Canvas* canvas = MakeLayered(8, 8, 2);
  ASSERT_EQ(LayerCommand(canvas, kLayerItemDuplicate, 8), 1);
  EXPECT_EQ(canvas->activePlane, 16);
  EXPECT_EQ(PlaneBytes(canvas->planes[16].plane), PlaneBytes(canvas->planes[8].plane));

  ASSERT_EQ(LayerCommand(canvas, kLayerItemAddTransparency, 8), 1);
  ASSERT_EQ(LayerCommand(canvas, kLayerItemAddMask, 8), 1);
  const PlaneSlot* layer = &canvas->planes[8];
  EXPECT_EQ(std::vector<int>(layer[3].planeFlags, layer[3].planeFlags + 5),
            (std::vector<int>{0, 0, 0, 1, 0}));
  EXPECT_EQ(std::vector<int>(layer[4].planeFlags, layer[4].planeFlags + 5),
            (std::vector<int>{1, 0, 0, 0, 0}));
  EXPECT_EQ(layer[3].name[1], 'T');
  EXPECT_EQ(layer[4].name[1], 'M');
  EXPECT_EQ(PanelRedraws(), 3);
}

TEST_F(Command, RefusalsAndCancelledDialogsChangeNothing) {
  Canvas* canvas = MakeLayered(8, 8, 2);
  colorAdjustOwnsPointer = true;
  EXPECT_EQ(LayerCommand(canvas, kLayerItemDuplicate, 8), 0);
  colorAdjustOwnsPointer = false;
  // No window side, or a dialog cancelled.
  EXPECT_EQ(LayerCommand(canvas, kLayerItemMergeDown, 8), 0);
  layerWindows.mergeDownDialog = [](int*) { return false; };
  layerWindows.layerOptionsDialog = [](Canvas*, int) { return false; };
  EXPECT_EQ(LayerCommand(canvas, kLayerItemMergeDown, 8), 0);
  EXPECT_EQ(LayerCommand(canvas, kLayerItemSetting, 8), 0);
  EXPECT_EQ(LayerCommand(canvas, kLayerItemDuplicate, 40), 0);  // an empty slot
  EXPECT_EQ(CanvasManager.LayerCount(canvas), 2);
  EXPECT_EQ(canvas->modified, 0u);
  EXPECT_EQ(PanelRedraws(), 0);

  layerWindows.layerOptionsDialog = [](Canvas*, int) { return true; };
  EXPECT_EQ(LayerCommand(canvas, kLayerItemSetting, 8), 1);
  EXPECT_EQ(canvas->modified, 1u);
  layerWindows.mergeDownDialog = [](int* mergeTransparency) {
    *mergeTransparency = 1;
    return true;
  };
  EXPECT_EQ(LayerCommand(canvas, kLayerItemMergeDown, 8), 1);
  EXPECT_EQ(CanvasManager.LayerCount(canvas), 1);
}

}  // namespace
