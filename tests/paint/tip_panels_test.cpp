// What the option panels do to the pen, the pen pattern and the text tip.
#include "paint/pen_pattern.h"
#include "paint/text_tip.h"
#include "paint/tip.h"
#include "paint/tip_panels.h"
#include "store/dib.h"
#include "tip_test_support.h"

namespace {

using namespace tiptest;

class PanelTest : public PenTest {};

TEST_F(PanelTest, PanelChoiceAndTheTipInUse) {
  EXPECT_EQ(OptionPanel::Brush, ChooseOptionPanel(20005, false));
  EXPECT_EQ(OptionPanel::Text, ChooseOptionPanel(20005, true));
  EXPECT_EQ(OptionPanel::Range, ChooseOptionPanel(20007, true));
  dotPenPanel = 1;
  EXPECT_EQ(OptionPanel::Dot, ChooseOptionPanel(20000, false));

  OpenOptionPanel(OptionPanel::Text);
  EXPECT_EQ(1, dotTipActive);
  EXPECT_EQ(OptionPanel::Brush, SwitchTipPanel(OptionPanel::Dot));
  EXPECT_EQ(0, dotPenPanel);
  EXPECT_EQ(0, dotTipActive);
  EXPECT_EQ(OptionPanel::Dot, SwitchTipPanel(OptionPanel::Brush));
  EXPECT_EQ(1, dotPenPanel);
  EXPECT_EQ(1, dotTipActive);
}

TEST_F(PanelTest, ShapeButtonsAndDragSizing) {
  pen.radiusX = pen.radiusY = 2;
  EXPECT_EQ(1, PickTipShape(10));
  EXPECT_EQ(10, pen.tipShape);
  EXPECT_NE(nullptr, pen.tipHigh);
  EXPECT_EQ(0, PickTipShape(16));
  EXPECT_EQ(10, pen.tipShape);

  struct Case {
    int dx, dy;
    bool right, shift;
    double rx, ry;
  };
  for (Case c : {Case{-5, 9, false, false, 5, 5}, Case{-5, 9, false, true, 5, 9},
                 Case{-5, 9, true, false, 5, 9}, Case{-5, 9, true, true, 5, 5},
                 Case{0, 300, true, false, 1, 127}}) {
    DragTipRadii(c.dx, c.dy, c.right, c.shift);
    EXPECT_EQ(c.rx, pen.radiusX);
    EXPECT_EQ(c.ry, pen.radiusY);
  }
  EXPECT_EQ(215, TipPreviewShade(10));
  EXPECT_EQ(0, TipPreviewShade(64));
}

TEST_F(PanelTest, PatternAsksWhetherToBeATip) {
  auto image = [](int w, int h) { return PlaneStore.CreatePlane(w, h, 24, 255, 1, Physical); };
  headless::Recorded().boxAnswers = {platform::IdYes};
  ASSERT_EQ(1, SetPenPattern("a/b.PNG", image(299, 300), nullptr));
  EXPECT_EQ(1u, pen.patternActive);
  EXPECT_EQ(1, patternIsTip);
  ASSERT_EQ(1u, headless::Recorded().boxes.size());
  EXPECT_EQ("Use this image as tip of pen?", headless::Recorded().boxes[0].text);

  // Too large to be a tip, or of a kind that is never one: no question.
  ASSERT_EQ(1, SetPenPattern("big.tsl", image(300, 300), nullptr));
  EXPECT_EQ(0, patternIsTip);
  ASSERT_EQ(1, SetPenPattern("p.jpg", image(4, 4), nullptr));
  ASSERT_EQ(1, SetPenPattern("p.bmp", image(4, 4), nullptr));  // a bmp without its mask
  EXPECT_EQ(1u, headless::Recorded().boxes.size());

  // A bmp with a mask beside it takes the mask and asks.
  Plane* mask = PlaneStore.CreatePlane(4, 4, 8, 60, 1, Physical);
  ASSERT_EQ(1, SaveBmp(mask, (scratch.path / "m.bmm").string()));
  PlaneStore.FreePlane(&mask);
  Plane* alpha = PlaneStore.CreatePlane(4, 4, 8, 0, 1, Physical);
  headless::Recorded().boxAnswers = {platform::IdNo};
  ASSERT_EQ(1, SetPenPattern((scratch.path / "m.bmp").string(), image(4, 4), alpha));
  EXPECT_EQ(2u, headless::Recorded().boxes.size());
  EXPECT_EQ(0, patternIsTip);
  EXPECT_EQ((Raster{4, 4, Bytes(16, 60)}), Read(pen.patternAlpha));

  // No picture: the pattern stays.
  Plane* kept = pen.patternImage;
  EXPECT_EQ(0, SetPenPattern("x.png", nullptr, nullptr));
  EXPECT_EQ(kept, pen.patternImage);
  FreePenPattern();
  EXPECT_EQ(nullptr, pen.patternImage);
  EXPECT_EQ(0u, pen.patternActive);
}

TEST_F(PanelTest, TextTipIsTheRenderedTextInvertedAndCut) {
  Plane* rendered = PlaneStore.CreatePlane(300, 2, 8, 255, 1, Physical);
  PlaneStore.WritePixel8(rendered, 0, 1, 40);
  PlaneStore.WritePixel8(rendered, 256, 0, 0);  // beyond the cut
  ASSERT_EQ(1, SetTextTip(rendered));
  Raster tip = Read(dotTip);
  EXPECT_EQ(256, tip.width);
  EXPECT_EQ(2, tip.height);
  EXPECT_EQ(215, tip.at(0, 1));
  EXPECT_EQ(0, *std::max_element(tip.bytes.begin() + 1, tip.bytes.begin() + 256));
  PlaneStore.FreePlane(&rendered);
}

}  // namespace
