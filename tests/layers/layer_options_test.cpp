#include <cstring>
#include <string>

#include "display/view_windows.h"
#include "layers/layer_options.h"
#include "store/dib.h"
#include "support/fixture.h"

namespace {

// The view's pictures are recorded: how many were drawn, and the colour of
// the last one's top left pixel as blue, green, red.
class LayerOptionsTest : public TeselTest {
 protected:
  void SetUp() override {
    TeselTest::SetUp();
    viewWindows.drawPicture = [this](Canvas*, const DibTile* picture, int, int, const Rect&) {
      ++drawn;
      ReadTileRow(picture, 0, 0, 0, corner);
    };
  }
  // A white base under a black layer that covers it, all layers shown.
  Canvas* BlackOverWhite() {
    Canvas* canvas = MakeBlank(8, 6);
    canvas->planes[0].displayMode = kDisplayLayersBlended;
    const int layer = CanvasManager.AddLayer(canvas, 0, 0, 8, 6);
    for (int y = 0; y < 6; ++y)
      for (int x = 0; x < 8; ++x)
        PlaneStore.WritePixel24(canvas->planes[layer].plane, x, y, 0, 0, 0);
    return canvas;
  }
  int drawn = 0;
  uint8_t corner[3] = {};
};

TEST(LayerOptionsPercent, OpacityIsHeldInPercentOfLoss) {
  EXPECT_EQ(LossPercentOf(255), 100);
  EXPECT_EQ(LossPercentOf(1), 0);      // 228 / 255
  EXPECT_EQ(LossPercentOf(128), 50);   // 12928 / 255 = 50.7
  EXPECT_EQ(OpacityLossOf(100), 255);  // (25500 + 50) / 100
  EXPECT_EQ(OpacityLossOf(1), 3);      // 305 / 100
}

TEST(LayerOptionsName, LongNamesAreCutAtAWholeCharacterWithRoomForTheNul) {
  EXPECT_EQ(FittedLayerName("Sky"), "Sky");
  EXPECT_EQ(FittedLayerName(std::string(64, 'a')), std::string(39, 'a'));
  // 20 two-byte letters are 40 bytes: the 20th doesn't fit whole.
  std::string accents;
  for (int i = 0; i < 20; ++i) accents += "\xC3\xA9";
  EXPECT_EQ(FittedLayerName(accents), accents.substr(0, 38));
  // A three-byte letter over the cut: 37 bytes of ASCII, then one of them.
  EXPECT_EQ(FittedLayerName(std::string(37, 'b') + "\xE3\x81\x82" + "c"), std::string(37, 'b'));
  // Exactly 39 bytes ending in a whole letter stays.
  const std::string fits = std::string(36, 'b') + "\xE3\x81\x82";
  EXPECT_EQ(FittedLayerName(fits), fits);
}

TEST_F(LayerOptionsTest, ThePictureFollowsOnceATimerAsksAndOkKeepsTheValues) {
  Canvas* canvas = BlackOverWhite();
  PlaneSlot& slot = canvas->planes[SlotIndex(1, 0)];
  slot.opacityLoss = 1;
  LayerOptionsSession session(canvas, 1);
  EXPECT_EQ(session.Opacity(), 100);  // 1 is 0 % of loss
  EXPECT_EQ(session.MixMode(), kMixNormal);

  session.SetName(std::string(64, 'n'));
  EXPECT_EQ(std::string(slot.name), std::string(39, 'n'));
  EXPECT_EQ(session.Name(), std::string(39, 'n'));
  session.SetMixMode(10);  // no such mode
  session.SetMixMode(-1);
  EXPECT_EQ(slot.mixMode, kMixNormal);
  session.SetOpacity(0);
  EXPECT_EQ(slot.opacityLoss, 255);
  EXPECT_EQ(drawn, 0);

  // Any number of changes make one repaint, in which the layer is gone.
  EXPECT_TRUE(session.TakeRepaintDue());
  EXPECT_FALSE(session.TakeRepaintDue());
  session.Repaint();
  EXPECT_EQ(drawn, 1);
  EXPECT_EQ(std::vector<int>(corner, corner + 3), (std::vector<int>{255, 255, 255}));

  session.SetOpacity(30);
  EXPECT_EQ(slot.opacityLoss, 179);  // (70 x 255 + 50) / 100 = 179.0
  session.SetMixMode(0);             // Hide
  session.Keep();                    // the change the timer didn't reach repaints
  EXPECT_EQ(drawn, 2);
  EXPECT_EQ(std::vector<int>(corner, corner + 3), (std::vector<int>{255, 255, 255}));
  EXPECT_EQ(slot.opacityLoss, 179);
  EXPECT_EQ(slot.mixMode, 0);
}

TEST_F(LayerOptionsTest, OkWithoutChangesStillConvertsBackFromPercent) {
  Canvas* canvas = MakeBlank(10, 10);
  canvas->planes[0].opacityLoss = 1;
  LayerOptionsSession session(canvas, 0);
  session.Keep();
  EXPECT_EQ(canvas->planes[0].opacityLoss, 0);
  EXPECT_EQ(drawn, 0);
}

TEST_F(LayerOptionsTest, CancelPutsEveryValueBackExactlyAndThePictureWithThem) {
  Canvas* canvas = BlackOverWhite();
  PlaneSlot& slot = canvas->planes[SlotIndex(1, 0)];
  std::memset(slot.name, 'q', sizeof slot.name);  // a full field without its nul
  slot.opacityLoss = 0;
  slot.mixMode = kMixNormal;
  const PlaneSlot before = slot;
  {
    LayerOptionsSession untouched(canvas, 1);
    untouched.Restore();
    EXPECT_EQ(drawn, 0);  // nothing to repaint
  }
  LayerOptionsSession session(canvas, 1);
  EXPECT_EQ(session.Name(), std::string(40, 'q'));
  session.SetName("other");
  session.SetMixMode(0);
  session.SetOpacity(0);
  session.Restore();
  EXPECT_EQ(std::memcmp(slot.name, before.name, sizeof slot.name), 0);
  EXPECT_EQ(slot.opacityLoss, 0);
  EXPECT_EQ(slot.mixMode, kMixNormal);
  EXPECT_EQ(drawn, 1);
  EXPECT_EQ(std::vector<int>(corner, corner + 3), (std::vector<int>{0, 0, 0}));
  EXPECT_FALSE(session.TakeRepaintDue());
}

TEST_F(LayerOptionsTest, TypedOpacityClampsAndTextWithoutANumberChangesNothing) {
  Canvas* canvas = MakeBlank(10, 10);
  canvas->planes[0].opacityLoss = 128;  // 50 %
  LayerOptionsSession session(canvas, 0);
  EXPECT_EQ(session.Opacity(), 50);
  for (const char* text : {"", "abc", "-", "%"}) {
    session.SetOpacityText(text);
    EXPECT_EQ(session.Opacity(), 50) << text;
  }
  EXPECT_EQ(canvas->planes[0].opacityLoss, 128);  // (50 x 255 + 50) / 100
  session.SetOpacityText("250");
  EXPECT_EQ(canvas->planes[0].opacityLoss, 0);
  session.SetOpacityText("-7");
  EXPECT_EQ(canvas->planes[0].opacityLoss, 255);
  session.SetOpacityText("123456789012345678901234567890");
  EXPECT_EQ(session.Opacity(), 100);
  session.SetOpacityText("25%");
  EXPECT_EQ(canvas->planes[0].opacityLoss, 191);  // (75 x 255 + 50) / 100 = 191.75
}

}  // namespace
