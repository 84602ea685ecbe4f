#include <tuple>

#include "document/canvas_fixture.h"
#include "panels/layer_menus.h"
#include "layers/layer_command.h"
#include "panels/row_press.h"
#include "selection/draft.h"

namespace {

class LayerPress : public CanvasTest {
 protected:
  // Three layers of the canvas size; layer 1 has a further transparency
  // plane and a further mask, flagged as the layer menu makes them.
  Canvas* Stack() {
    Canvas* canvas = MakeBlank(6, 4);
    CanvasManager.AddLayer(canvas, 0, 0, 6, 4);
    CanvasManager.AddLayer(canvas, 0, 0, 6, 4);
    canvas->planes[CanvasManager.AddPlane(canvas, 8, 1)].planeFlags[kFlagTransparency] = 1;  // 11
    canvas->planes[CanvasManager.AddPlane(canvas, 8, 0)].planeFlags[kFlagMask] = 1;          // 12
    return canvas;
  }
  Plane* ImageOf(Canvas* canvas, int layer) { return canvas->planes[layer * 8].plane; }
};

TEST_F(LayerPress, ReleaseWithinALayerSelectsWhereThePressBegan) {
  Canvas* canvas = Stack();
  CanvasManager.SelectPlane(canvas, 8);
  // Pressed on the mask, released on the image: the mask is chosen.
  EXPECT_EQ(RowRelease::Selected, ReleaseRow(canvas, 9, 8));
  EXPECT_EQ(9, canvas->activePlane);
  EXPECT_EQ(RowRelease::LayerOptions, ReleaseRow(canvas, 9, 12));
  EXPECT_EQ(RowRelease::Nothing, ReleaseRow(canvas, 9, -1));
  EXPECT_EQ(RowRelease::Nothing, ReleaseRow(canvas, 9, 13));  // no plane there
  EXPECT_EQ(9, canvas->activePlane);
  EXPECT_TRUE(BoxTexts().empty());
  // No press is taken while Edit Bezier's frame or a colour-adjust window
  // holds the pointer.
  EXPECT_FALSE(RowPressRefused());
  Draft.active = 1;
  EXPECT_TRUE(RowPressRefused());
  Draft.active = 0;
  colorAdjustOwnsPointer = true;
  EXPECT_TRUE(RowPressRefused());
}

TEST_F(LayerPress, ReleaseOnAnotherLayerMovesItUnlessSmoothZoomOrTheBaseSizeForbids) {
  Canvas* canvas = Stack();
  Plane* layers[3] = {ImageOf(canvas, 0), ImageOf(canvas, 1), ImageOf(canvas, 2)};
  canvas->smoothZoom = 1;
  EXPECT_EQ(RowRelease::Refused, ReleaseRow(canvas, 16, 1));
  EXPECT_EQ(std::vector<std::string>{"Layers cannot be moved while smooth zoom is in effect!"},
            BoxTexts());
  EXPECT_EQ(layers[2], ImageOf(canvas, 2));

  // Layer 1 goes under the base; the active plane, at position 4 of
  // layer 1, is left on an empty slot and falls back to its layer's image.
  canvas->smoothZoom = 0;
  CanvasManager.SelectPlane(canvas, 12);
  EXPECT_EQ(RowRelease::Moved, ReleaseRow(canvas, 12, 2));
  EXPECT_EQ(std::tuple(layers[1], layers[0], layers[2]),
            std::tuple(ImageOf(canvas, 0), ImageOf(canvas, 1), ImageOf(canvas, 2)));
  EXPECT_EQ(8, canvas->activePlane);

  // A smaller layer can't become the base: the stack stands.
  CanvasManager.AddLayer(canvas, 1, 1, 2, 2);
  Plane* small = ImageOf(canvas, 3);
  EXPECT_EQ(RowRelease::Moved, ReleaseRow(canvas, 24, 0));
  EXPECT_EQ(std::pair(layers[1], small), std::pair(ImageOf(canvas, 0), ImageOf(canvas, 3)));
  EXPECT_EQ("Cannot make change of layer positions that would change the size of base layer!",
            LastBoxText());
}

TEST_F(LayerPress, DisplayModeEyeAndPlaneSwitch) {
  Canvas* canvas = Stack();
  settings.showPlanes = 1;
  CanvasManager.SelectPlane(canvas, 8);
  EXPECT_EQ(DisplayMenu::Image, DisplayMenuOf(canvas, 8));
  EXPECT_EQ(DisplayMenu::None, DisplayMenuOf(canvas, 0));
  ChooseDisplayMode(canvas, DisplayMenu::Image, 1);
  EXPECT_EQ(kDisplayThisLayerOnly, canvas->planes[8].displayMode);
  ChooseDisplayMode(canvas, DisplayMenu::Image, 2);
  EXPECT_EQ(kDisplayLayersBlended, canvas->planes[8].displayMode);
  CanvasManager.SelectPlane(canvas, 11);
  EXPECT_EQ(DisplayMenu::None, DisplayMenuOf(canvas, 8));
  EXPECT_EQ(DisplayMenu::Plane, DisplayMenuOf(canvas, 11));
  ChooseDisplayMode(canvas, DisplayMenu::Plane, 4);
  EXPECT_EQ(kDisplayThickness, canvas->planes[11].displayMode);
  ChooseDisplayMode(canvas, DisplayMenu::Plane, 1);
  EXPECT_EQ(kDisplayChannel, canvas->planes[11].displayMode);
  // With the planes folded away the layer's row offers the active plane's modes.
  settings.showPlanes = 0;
  EXPECT_EQ(DisplayMenu::Plane, DisplayMenuOf(canvas, 8));
  EXPECT_EQ(DisplayMenu::None, DisplayMenuOf(canvas, 16));

  // The eye keeps the mode to come back to; one kept as 0 comes back Normal.
  PlaneSlot& image = canvas->planes[16];
  image.mixMode = 4;
  ToggleEye(canvas, 16);
  EXPECT_EQ(std::pair(kMixHide, 4), std::pair(image.mixMode, image.savedMixMode));
  ToggleEye(canvas, 17);  // any row of the layer
  EXPECT_EQ(4, image.mixMode);
  image.mixMode = kMixHide;
  image.savedMixMode = 0;
  ToggleEye(canvas, 16);
  EXPECT_EQ(kMixNormal, image.mixMode);

  TogglePlaneOff(canvas, 12);
  EXPECT_EQ(1, canvas->planes[12].planeOff);
  TogglePlaneOff(canvas, 12);
  TogglePlaneOff(canvas, 8);  // images have no switch
  EXPECT_EQ(std::pair(0, 0),
            std::pair(int(canvas->planes[12].planeOff), int(canvas->planes[8].planeOff)));
}

TEST_F(LayerPress, RightPressMenusGreyWhatSmoothZoomForbids) {
  Canvas* canvas = Stack();
  EXPECT_EQ(RowMenuKind::Layer, RightPressMenu(canvas, 8).kind);
  EXPECT_TRUE(RightPressMenu(canvas, 8).greyed.empty());
  EXPECT_EQ(RowMenuKind::None, RightPressMenu(canvas, 9).kind);
  EXPECT_EQ(RowMenuKind::None, RightPressMenu(canvas, 10).kind);
  EXPECT_EQ(RowMenuKind::FurtherPlane, RightPressMenu(canvas, 11).kind);
  EXPECT_EQ(RowMenuKind::None, RightPressMenu(canvas, 13).kind);
  canvas->smoothZoom = 2;
  EXPECT_EQ((std::vector<int>{1, 2, 3, 5, 7, 8, 9}), RightPressMenu(canvas, 0).greyed);
  settings.showPlanes = 1;
  const RowMenu menu = RightPressMenu(canvas, 0);
  EXPECT_EQ(RowMenuKind::LayerPlanes, menu.kind);
  EXPECT_EQ((std::vector<int>{1, 2, 3, 5, 7, 8, 9, 11, 12}), menu.greyed);

  // Delete... asks with the plane's label, and only yes deletes.
  Plane* mask = canvas->planes[12].plane;
  headless::Recorded().boxAnswers = {platform::IdNo, platform::IdYes};
  EXPECT_FALSE(DeleteRowPlane(canvas, 11));
  EXPECT_TRUE(DeleteRowPlane(canvas, 11));
  EXPECT_EQ((std::vector<std::string>{"Plane [Transparency1] will be deleted.",
                                      "Plane [Transparency1] will be deleted."}),
            BoxTexts());
  EXPECT_EQ(std::pair(mask, static_cast<Plane*>(nullptr)),
            std::pair(canvas->planes[11].plane, canvas->planes[12].plane));
  EXPECT_FALSE(DeleteRowPlane(canvas, 9));  // the mask isn't deleted from its row
}

TEST_F(LayerPress, PlanePopupFollowsTheActiveLayer) {
  Canvas* canvas = Stack();
  CanvasManager.SelectPlane(canvas, 8);
  PlaneMenu menu = PlaneMenuOf(canvas);
  EXPECT_TRUE(menu.maskEnabled && menu.transparencyEnabled && menu.addDelete);
  ASSERT_EQ(2u, menu.further.size());
  EXPECT_EQ(std::pair(4, std::string("Transparency1")),
            std::pair(menu.further[0].item, menu.further[0].text));
  EXPECT_EQ(std::pair(5, std::string("Mask2")),
            std::pair(menu.further[1].item, menu.further[1].text));
  EXPECT_EQ(
      (std::vector<int>{8, 9, 10, 11, 12, -1, -1}),
      (std::vector<int>{PlaneOfItem(canvas, 1), PlaneOfItem(canvas, 2), PlaneOfItem(canvas, 3),
                        PlaneOfItem(canvas, 4), PlaneOfItem(canvas, 5), PlaneOfItem(canvas, 6),
                        PlaneOfItem(canvas, 100)}));
  EXPECT_EQ("Image", StripPlaneName(canvas));
  CanvasManager.SelectPlane(canvas, 10);
  EXPECT_EQ("Transparency", StripPlaneName(canvas));
  CanvasManager.SelectPlane(canvas, 12);
  EXPECT_EQ("Mask2", StripPlaneName(canvas));

  // A layer without a mask; during Smooth Zoom the planes can't be edited.
  settings.noMaskPlane = 1;
  CanvasManager.AddLayer(canvas, 0, 0, 6, 4);
  CanvasManager.SelectPlane(canvas, 24);
  canvas->smoothZoom = 1;
  menu = PlaneMenuOf(canvas);
  EXPECT_EQ(
      std::tuple(false, true, false, size_t{0}),
      std::tuple(menu.maskEnabled, menu.transparencyEnabled, menu.addDelete, menu.further.size()));
  EXPECT_EQ(-1, PlaneOfItem(canvas, 2));
  EXPECT_EQ(26, PlaneOfItem(canvas, 3));
}

}  // namespace
