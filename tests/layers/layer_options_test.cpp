#include <cstring>
#include <string>

#include "layers/layer_options.h"
#include "platform/headless/headless.h"
#include "support/fixture.h"

using LayerOptionsTest = TeselTest;

namespace {

int PanelRebuilds() {
  int count = 0;
  for (const auto& m : headless::MessagesTo(platform::Window::LayerPanel, platform::MsgLayerRedraw))
    count += m.wParam == -1;
  return count;
}

}  // namespace

TEST(LayerOptionsPercent, OpacityIsHeldInPercentOfLoss) {
  EXPECT_EQ(LossPercentOf(0), 0);
  EXPECT_EQ(LossPercentOf(255), 100);
  EXPECT_EQ(LossPercentOf(1), 0);     // 228 / 255
  EXPECT_EQ(LossPercentOf(2), 1);     // 328 / 255
  EXPECT_EQ(LossPercentOf(128), 50);  // 12928 / 255 = 50.7
  EXPECT_EQ(OpacityLossOf(0), 0);
  EXPECT_EQ(OpacityLossOf(100), 255);  // (25500 + 50) / 100
  EXPECT_EQ(OpacityLossOf(50), 128);   // 12800 / 100
  EXPECT_EQ(OpacityLossOf(1), 3);      // 305 / 100
}

TEST(LayerOptionsName, LongNamesAreCutAtAWholeCharacterWithRoomForTheNul) {
  EXPECT_EQ(FittedLayerName("Sky"), "Sky");
  const std::string typed(64, 'a');
  EXPECT_EQ(FittedLayerName(typed), std::string(39, 'a'));
  // 20 two-byte letters are 40 bytes: the 20th doesn't fit whole.
  std::string accents;
  for (int i = 0; i < 20; ++i) accents += "\xC3\xA9";
  EXPECT_EQ(FittedLayerName(accents), accents.substr(0, 38));
  // A three-byte letter over the cut: 37 bytes of ASCII, then one of them.
  const std::string kana = std::string(37, 'b') + "\xE3\x81\x82" + "c";
  EXPECT_EQ(FittedLayerName(kana), std::string(37, 'b'));
  // Exactly 39 bytes ending in a whole letter stays.
  const std::string fits = std::string(36, 'b') + "\xE3\x81\x82";
  EXPECT_EQ(FittedLayerName(fits), fits);
}

TEST_F(LayerOptionsTest, ChangesShowAtOnceAndOkKeepsThemWithTheOpacityFromPercent) {
  Canvas* canvas = MakeBlank(40, 30);
  PlaneSlot& slot = canvas->planes[0];
  slot.opacityLoss = 1;
  slot.mixMode = kMixNormal;
  LayerOptionsSession session(canvas, 0);
  EXPECT_EQ(session.Opacity(), 100);  // 1 is 0 % of loss
  EXPECT_EQ(session.MixMode(), kMixNormal);

  session.SetName(std::string(64, 'n'));
  EXPECT_EQ(std::string(slot.name), std::string(39, 'n'));
  EXPECT_EQ(session.Name(), std::string(39, 'n'));
  session.SetMixMode(8);
  EXPECT_EQ(slot.mixMode, 8);
  session.SetMixMode(10);  // no such mode
  session.SetMixMode(-1);
  EXPECT_EQ(slot.mixMode, 8);
  session.SetOpacity(30);
  EXPECT_EQ(slot.opacityLoss, 179);  // (70 x 255 + 50) / 100 = 179
  EXPECT_EQ(session.Opacity(), 30);

  // The timer repaints once for any number of changes before it.
  EXPECT_TRUE(session.TakeRepaintDue());
  EXPECT_FALSE(session.TakeRepaintDue());
  session.Repaint();
  EXPECT_EQ(PanelRebuilds(), 1);

  session.Keep();
  EXPECT_EQ(slot.opacityLoss, 179);
  EXPECT_EQ(slot.mixMode, 8);
  EXPECT_EQ(PanelRebuilds(), 1);  // nothing was pending
}

TEST_F(LayerOptionsTest, OkWithoutChangesStillConvertsBackFromPercent) {
  Canvas* canvas = MakeBlank(10, 10);
  canvas->planes[0].opacityLoss = 1;
  LayerOptionsSession session(canvas, 0);
  session.Keep();
  EXPECT_EQ(canvas->planes[0].opacityLoss, 0);
  EXPECT_EQ(PanelRebuilds(), 0);
}

TEST_F(LayerOptionsTest, CancelPutsEveryValueBackExactly) {
  Canvas* canvas = MakeBlank(10, 10);
  PlaneSlot& slot = canvas->planes[0];
  std::memset(slot.name, 'q', sizeof slot.name);  // a full field without its nul
  slot.opacityLoss = 77;
  slot.mixMode = 3;
  const PlaneSlot before = slot;
  {
    LayerOptionsSession untouched(canvas, 0);
    untouched.Restore();
    EXPECT_EQ(PanelRebuilds(), 0);  // nothing to repaint
  }
  LayerOptionsSession session(canvas, 0);
  EXPECT_EQ(session.Name(), std::string(40, 'q'));
  session.SetName("other");
  session.SetMixMode(0);
  session.SetOpacity(0);
  EXPECT_EQ(slot.opacityLoss, 255);
  session.Restore();
  EXPECT_EQ(std::memcmp(slot.name, before.name, sizeof slot.name), 0);
  EXPECT_EQ(slot.opacityLoss, 77);
  EXPECT_EQ(slot.mixMode, 3);
  EXPECT_EQ(PanelRebuilds(), 1);
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
  EXPECT_EQ(session.Opacity(), 100);
  EXPECT_EQ(canvas->planes[0].opacityLoss, 0);
  session.SetOpacityText("-7");
  EXPECT_EQ(canvas->planes[0].opacityLoss, 255);
  session.SetOpacityText("123456789012345678901234567890");
  EXPECT_EQ(session.Opacity(), 100);
  session.SetOpacityText("25%");
  EXPECT_EQ(canvas->planes[0].opacityLoss, 191);  // (75 x 255 + 50) / 100 = 191.75
}
