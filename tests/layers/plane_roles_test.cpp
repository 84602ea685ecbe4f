// tsl_alpopt: adding planes of a kind, converting, deleting after the
// question, and which buttons can act.
#include <algorithm>

#include "layers/plane_roles.h"
#include "platform/headless/headless.h"
#include "support/fixture.h"
#include "support/planes.h"

namespace {

using PlaneRolesTest = TeselTest;

// The kind flags 0 to 4 of a slot, as one number per flag.
std::vector<int> KindFlags(const PlaneSlot& slot) {
  return std::vector<int>(slot.planeFlags, slot.planeFlags + 5);
}

bool AllBytesAre(Plane* plane, uint8_t value) {
  const std::vector<uint8_t> bytes = PlaneBytes(plane);
  return std::all_of(bytes.begin(), bytes.end(), [value](uint8_t b) { return b == value; });
}

TEST_F(PlaneRolesTest, EachKindAddsItsFlagAndALineDrawingStartsWhite) {
  Canvas* canvas = MakeBlank(6, 4);  // image, mask, transparency
  const int layer1 = CanvasManager.AddLayer(canvas, 1, 1, 3, 2);
  ASSERT_GT(layer1, 0);

  const int mask = AddPlaneOfRole(canvas, layer1 + 2, PlaneRole::Mask);
  const int transparency = AddPlaneOfRole(canvas, layer1, PlaneRole::Transparency);
  const int line = AddPlaneOfRole(canvas, layer1, PlaneRole::LineDrawing);
  EXPECT_EQ(mask, layer1 + 3);
  EXPECT_EQ(transparency, layer1 + 4);
  EXPECT_EQ(line, layer1 + 5);
  EXPECT_EQ(KindFlags(canvas->planes[mask]), (std::vector<int>{1, 0, 0, 0, 0}));
  EXPECT_EQ(KindFlags(canvas->planes[transparency]), (std::vector<int>{0, 0, 0, 1, 0}));
  EXPECT_EQ(KindFlags(canvas->planes[line]), (std::vector<int>{0, 0, 0, 0, 1}));
  EXPECT_EQ(canvas->planes[transparency].name[1], 'T');
  EXPECT_EQ(canvas->planes[line].name[1], 'M');
  EXPECT_EQ(canvas->planes[line].width, 3);  // the layer's size, not the canvas's
  EXPECT_TRUE(AllBytesAre(canvas->planes[mask].plane, 0));
  EXPECT_TRUE(AllBytesAre(canvas->planes[line].plane, 255));
  EXPECT_EQ(RoleOfPlane(canvas->planes[mask]), static_cast<int>(PlaneRole::Mask));
  EXPECT_EQ(RoleOfPlane(canvas->planes[line]), static_cast<int>(PlaneRole::LineDrawing));
  EXPECT_TRUE(canvas->modified);
  EXPECT_EQ(headless::MessagesTo(platform::Window::LayerPanel, platform::MsgLayerRedraw).size(),
            3u);

  // Two more fill the layer; then Add can't act and nothing changes.
  EXPECT_TRUE(PlaneButtonsFor(canvas, layer1).add);
  AddPlaneOfRole(canvas, layer1, PlaneRole::Mask);
  AddPlaneOfRole(canvas, layer1, PlaneRole::Mask);
  EXPECT_FALSE(PlaneButtonsFor(canvas, layer1 + 3).add);
  EXPECT_EQ(AddPlaneOfRole(canvas, layer1, PlaneRole::Mask), -1);
  EXPECT_EQ(headless::MessagesTo(platform::Window::LayerPanel, platform::MsgLayerRedraw).size(),
            5u);
}

TEST_F(PlaneRolesTest, ConvertingChangesTheFlagsAloneAndOnlyAboveTheImage) {
  Canvas* canvas = MakeBlank(4, 3);
  const int line = AddPlaneOfRole(canvas, 0, PlaneRole::LineDrawing);
  PlaneSlot& slot = canvas->planes[line];
  slot.planeFlags[kFlagDirectCoverage] = 1;
  slot.planeFlags[5] = 1;  // not a kind flag: it stays
  PlaneStore.WritePixel8(slot.plane, 2, 1, 40);
  const std::vector<uint8_t> pixels = PlaneBytes(slot.plane);

  EXPECT_EQ(ConvertPlane(canvas, line, PlaneRole::Transparency), 1);
  EXPECT_EQ(KindFlags(slot), (std::vector<int>{0, 0, 0, 1, 0}));
  EXPECT_EQ(slot.planeFlags[5], 1);
  EXPECT_EQ(PlaneBytes(slot.plane), pixels);
  EXPECT_EQ(ConvertPlane(canvas, line, PlaneRole::Mask), 1);
  EXPECT_EQ(KindFlags(slot), (std::vector<int>{1, 0, 0, 0, 0}));

  EXPECT_EQ(ConvertPlane(canvas, 0, PlaneRole::Mask), 0);  // the image
  EXPECT_EQ(ConvertPlane(canvas, 7, PlaneRole::Mask), 0);  // an empty position
  EXPECT_EQ(ConvertPlane(canvas, -1, PlaneRole::Mask), 0);
  EXPECT_EQ(KindFlags(canvas->planes[0]), (std::vector<int>{0, 0, 0, 0, 0}));

  // The buttons offer the kinds the plane isn't, and nothing on the image.
  const PlaneButtons onMask = PlaneButtonsFor(canvas, line);
  EXPECT_TRUE(onMask.add && onMask.remove);
  EXPECT_FALSE(onMask.convertTo[0]);
  EXPECT_TRUE(onMask.convertTo[1] && onMask.convertTo[2]);
  const PlaneButtons onImage = PlaneButtonsFor(canvas, 0);
  EXPECT_TRUE(onImage.add);
  EXPECT_FALSE(onImage.remove || onImage.convertTo[0] || onImage.convertTo[1] ||
               onImage.convertTo[2]);
  EXPECT_FALSE(PlaneButtonsFor(canvas, kPlaneSlots).add);
}

TEST_F(PlaneRolesTest, DeleteAsksByTheLabelAndTheActivePlaneFollows) {
  Canvas* canvas = MakeBlank(4, 3);  // image, Mask, Transparency
  const int mask2 = AddPlaneOfRole(canvas, 0, PlaneRole::Mask);
  ASSERT_EQ(mask2, 3);
  Plane* kept = canvas->planes[mask2].plane;

  headless::Recorded().boxAnswers = {platform::IdCancel};
  EXPECT_EQ(DeletePlaneAsked(canvas, 1), 0);
  ASSERT_EQ(BoxTexts(), (std::vector<std::string>{"Plane [Mask] will be deleted."}));
  EXPECT_EQ(headless::Recorded().boxes[0].caption, "Tesel");
  EXPECT_NE(canvas->planes[1].plane, nullptr);

  // The active plane slides down with the plane it is.
  CanvasManager.SelectPlane(canvas, mask2);
  EXPECT_EQ(DeletePlaneAsked(canvas, 1), 1);
  EXPECT_EQ(canvas->planes[2].plane, kept);
  EXPECT_EQ(canvas->activePlane, 2);
  EXPECT_EQ(canvas->planes[3].plane, nullptr);

  // Deleting the active plane makes the layer's image active.
  EXPECT_EQ(DeletePlaneAsked(canvas, 2), 1);
  EXPECT_EQ(canvas->activePlane, 0);
  // Positions 1 and 2 go by their place's name.
  EXPECT_EQ(BoxTexts().back(), "Plane [Transparency] will be deleted.");

  EXPECT_EQ(DeletePlaneAsked(canvas, 0), 0);  // never the image, and no question
  EXPECT_EQ(BoxTexts().size(), 3u);
}

}  // namespace
