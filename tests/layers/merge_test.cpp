#include <memory>

#include "document/undo_history.h"
#include "layers/layer_copy.h"
#include "layers/merge_down.h"
#include "layers/merge_layers.h"
#include "layers_fixture.h"

namespace {

using Merge = LayersTest;

// 300 x 270 crosses the 256-pixel blocks both ways.
constexpr int kWidth = 300, kHeight = 270;

TEST_F(Merge, WithLowerOnLayerThreeMergesTheBaseUpToItAndKeepsTheLayersAbove) {
  Canvas* canvas = MakeLayered(kWidth, kHeight, 6, {2, 8, 9, 3, 4});
  canvas->planes[5 * 8].mixMode = 0;  // a hidden layer above stays hidden
  Plane* fourth = canvas->planes[4 * 8].plane;
  Plane* fifth = canvas->planes[5 * 8].plane;
  // What layers 0..3 look like on their own, the base making the start.
  auto expected = std::make_unique<Canvas>(*canvas);
  expected->planes[4 * 8].mixMode = expected->planes[5 * 8].mixMode = 0;
  const std::vector<uint8_t> picture = Reference(*expected, true);
  const std::vector<uint8_t> coverage = ReferenceCoverage(*expected);

  canvas->activePlane = 3 * 8;
  ASSERT_EQ(MergeDown(canvas, 3 * 8 + 2, 1), 1);
  EXPECT_EQ(CanvasManager.LayerCount(canvas), 3);
  EXPECT_EQ(PlaneBytes(canvas->planes[0].plane), picture);
  EXPECT_EQ(PlaneBytes(canvas->planes[2].plane), coverage);
  EXPECT_EQ(canvas->planes[8].plane, fourth);
  EXPECT_EQ(canvas->planes[8].mixMode, 3);
  EXPECT_EQ(canvas->planes[8].opacityLoss, 160);
  EXPECT_EQ(canvas->planes[16].plane, fifth);
  EXPECT_EQ(canvas->planes[16].mixMode, 0);
  // Progress ran and was cleared.
  const auto progress = headless::MessagesTo(platform::Window::StatusBar, platform::MsgStatus);
  ASSERT_GE(progress.size(), 3u);
  EXPECT_EQ(progress[1].lParam, 256 * 100 / kHeight);
  EXPECT_EQ(progress.back().wParam, 0);
  // The entries of the layers merged away are gone; the base has a fresh one.
  EXPECT_EQ(UndoHistory.entries[0].kind, kUndoWhole);
  EXPECT_EQ(UndoHistory.entries[0].planeIndex, 0);
  EXPECT_EQ(UndoHistory.entries[1].kind, kUndoEmpty);
  EXPECT_EQ(canvas->modified, 1u);

  // The base layer has nothing below it.
  EXPECT_EQ(MergeDown(canvas, 2, 1), 0);
  EXPECT_EQ(CanvasManager.LayerCount(canvas), 3);
}

class MergeNew : public LayersTest {
 protected:
  // Layer 2 is hidden.
  Canvas* Source() {
    Canvas* source = MakeLayered(kWidth, kHeight, 4, {5, 0, 8});
    source->planes[16 + 3].planeFlags[0] = 1;
    source->planes[16 + 3].plane = PlaneStore.CreatePlane(kWidth, kHeight, 8, 0, 1, Physical);
    Randomize(source->planes[16 + 3].plane);
    return source;
  }
};

TEST_F(MergeNew, VisibleMakesOneLayerOfThePictureAndLosesHiddenLayers) {
  Canvas* source = Source();
  RequestMergedCanvas(source, MergeKind::Visible, 0);
  Canvas* made = MakeRequested();
  EXPECT_EQ(CanvasManager.LayerCount(made), 1);
  EXPECT_EQ(PlaneBytes(made->planes[0].plane), Reference(*source, false));
  EXPECT_TRUE(std::vector<uint8_t>(size_t(kWidth) * kHeight, 255) ==
              PlaneBytes(made->planes[2].plane));
}

TEST_F(MergeNew, AllLayersKeepsTheHiddenLayerWholeAboveTheMergedOne) {
  Canvas* source = Source();
  RequestMergedCanvas(source, MergeKind::AllLayers, 1);
  Canvas* made = MakeRequested();
  ASSERT_EQ(CanvasManager.LayerCount(made), 2);
  EXPECT_EQ(PlaneBytes(made->planes[0].plane), Reference(*source, true));
  EXPECT_EQ(PlaneBytes(made->planes[2].plane), ReferenceCoverage(*source));
  const PlaneSlot* hidden = &made->planes[8];
  EXPECT_EQ(hidden[0].mixMode, 0);
  EXPECT_EQ(hidden[0].opacityLoss, 80);
  EXPECT_STREQ(hidden[0].name, "LAYER2");
  EXPECT_EQ(hidden[3].planeFlags[0], 1);
  for (int position = 0; position < 4; ++position) {
    EXPECT_NE(hidden[position].plane, source->planes[16 + position].plane);
    EXPECT_EQ(PlaneBytes(hidden[position].plane), PlaneBytes(source->planes[16 + position].plane))
        << position;
  }
}

TEST_F(MergeNew, FlattenedLayerGoesHiddenOnTopOfTheSameCanvas) {
  Canvas* source = Source();
  const std::vector<uint8_t> picture = Reference(*source, true);
  const std::vector<uint8_t> coverage = ReferenceCoverage(*source);
  ASSERT_EQ(NewFlattenedLayer(source, 1), 32);
  ASSERT_EQ(CanvasManager.LayerCount(source), 5);
  const PlaneSlot* flat = &source->planes[32];
  EXPECT_EQ(source->activePlane, 32);
  EXPECT_EQ(flat[0].mixMode, 0);
  EXPECT_EQ(flat[0].savedMixMode, 0);
  EXPECT_EQ(flat[0].displayMode, kDisplayThisLayerOnly);
  EXPECT_STREQ(flat[0].name, "LAYER4");
  EXPECT_EQ(PlaneBytes(flat[0].plane), picture);
  EXPECT_EQ(PlaneBytes(flat[2].plane), coverage);
  EXPECT_TRUE(std::vector<uint8_t>(size_t(kWidth) * kHeight, 0) == PlaneBytes(flat[1].plane));
}

TEST_F(MergeNew, DuplicateCopiesEveryLayer) {
  Canvas* source = Source();
  RequestLayersOf(source, kModeDuplicate, 4);
  Canvas* made = MakeRequested();
  ASSERT_EQ(CanvasManager.LayerCount(made), 4);
  for (int index = 0; index < 32; ++index) {
    EXPECT_EQ(made->planes[index].mixMode, source->planes[index].mixMode);
    EXPECT_EQ(!made->planes[index].plane, !source->planes[index].plane) << index;
    EXPECT_EQ(PlaneBytes(made->planes[index].plane), PlaneBytes(source->planes[index].plane));
  }
}

}  // namespace
