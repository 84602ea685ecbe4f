// What the option panels do to the pen: the panel choice, shape buttons and
// drag sizing, the size list, stored pens, the pen pattern and the text tip;
// and the pen kept in the settings record's tool state between runs.
#include "paint/tip/tip_panels.h"

#include <algorithm>
#include <cstring>
#include <tuple>

#include "paint/tip/pen_pattern.h"
#include "paint/tip/pen_record.h"
#include "paint/tip/pen_sizes.h"
#include "paint/tip/pen_state.h"
#include "paint/tip/stored_pen.h"
#include "paint/tip/text_tip.h"
#include "settings/default_settings.h"
#include "settings/number_lists.h"
#include "settings/settings.h"
#include "store/dib.h"
#include "tip_test_support.h"

namespace {

using namespace tiptest;
using Sizes = std::vector<std::pair<int, int>>;

class PanelTest : public PenTest {
 protected:
  static Sizes Entries() {
    Sizes entries;
    for (int i = 0; i < penSizes.Count(); ++i)
      entries.emplace_back(penSizes.column[0][i], penSizes.column[1][i]);
    return entries;
  }
  void WritePenFile(int slot, const Bytes& bytes, size_t size) const {
    scratch.Write("pen0" + std::to_string(slot), Bytes(bytes.begin(), bytes.begin() + size));
  }
  static auto Radii() { return std::make_pair(pen.radiusX, pen.radiusY); }
  static auto TipSize() { return std::make_pair(pen.tipHigh->width, pen.tipHigh->height); }
  static void SetPen() {
    tipState.dotPenPanel = 0;
    pen.tipShape = 13, pen.colorThickness = 200, pen.density = 17;
    pen.radiusX = 3.25, pen.radiusY = 0.5;
    PenDataList.folderInUse = 2, PenDataList.fileInUse = 7;
  }
};

TEST_F(PanelTest, PanelChoiceShapeButtonsAndDragSizing) {
  EXPECT_EQ(OptionPanel::Brush, ChooseOptionPanel(20005, false));
  EXPECT_EQ(OptionPanel::Text, ChooseOptionPanel(20005, true));
  EXPECT_EQ(OptionPanel::Range, ChooseOptionPanel(20007, true));
  tipState.dotPenPanel = 1;
  EXPECT_EQ(OptionPanel::Dot, ChooseOptionPanel(20000, false));
  OpenOptionPanel(OptionPanel::Text);
  EXPECT_EQ(1, tipState.dotTipActive);
  EXPECT_EQ(OptionPanel::Brush, SwitchTipPanel(OptionPanel::Dot));
  EXPECT_EQ(std::make_pair(tipState.dotPenPanel, tipState.dotTipActive), std::make_pair(0, 0));
  EXPECT_EQ(OptionPanel::Dot, SwitchTipPanel(OptionPanel::Brush));
  EXPECT_EQ(std::make_pair(tipState.dotPenPanel, tipState.dotTipActive), std::make_pair(1, 1));

  pen.radiusX = pen.radiusY = 2;
  EXPECT_EQ(1, PickTipShape(10));
  EXPECT_NE(nullptr, pen.tipHigh);
  EXPECT_EQ(0, PickTipShape(16));
  EXPECT_EQ(10, pen.tipShape);
  // (dx, dy, right button, Shift) -> radii: the left button keeps them equal
  // unless Shift is held, the right button the other way round.
  struct Case {
    int dx, dy;
    bool right, shift;
    double rx, ry;
  };
  for (Case c : {Case{-5, 9, false, false, 5, 5}, Case{-5, 9, false, true, 5, 9},
                 Case{-5, 9, true, false, 5, 9}, Case{-5, 9, true, true, 5, 5},
                 Case{0, 300, true, false, 1, 127}}) {
    DragTipRadii(c.dx, c.dy, c.right, c.shift);
    EXPECT_EQ(std::make_pair(c.rx, c.ry), Radii()) << c.dx << "," << c.dy;
  }
  EXPECT_EQ(std::make_tuple(215, 0), std::make_tuple(TipPreviewShade(10), TipPreviewShade(64)));
}

TEST_F(PanelTest, SizeListKeepsSortedSizesUpToItsLimit) {
  AddPenSize(9, 1);
  AddPenSize(5, 7);
  AddPenSize(5, 2);
  AddPenSize(5, 7);    // already there
  AddPenSize(0, 400);  // each side within 1..255
  // Equal widths keep their order.
  EXPECT_EQ(Entries(), (Sizes{{1, 1}, {1, 255}, {5, 7}, {5, 2}, {9, 1}}));
  pen.radiusX = 2.7;  // trunc(6.4) x trunc(1.4)
  pen.radiusY = 0.2;
  AddCurrentPenSize();
  EXPECT_EQ("6 x 1", PenSizeLabel(4));

  for (int width = 10; Entries().size() < 46; ++width) ASSERT_EQ(1, AddPenSize(width, 3));
  EXPECT_TRUE(headless::Recorded().boxes.empty());
  EXPECT_EQ(0, AddPenSize(100, 100));  // indices 0 to 45 only
  EXPECT_EQ(1, AddPenSize(20, 3));     // already there: no new place needed
  EXPECT_EQ(46, penSizes.Count());
  ASSERT_EQ(BoxTexts(), std::vector<std::string>{"これ以上追加できません"});
  EXPECT_EQ("Tesel", headless::Recorded().boxes[0].caption);
  EXPECT_EQ(-1, penSizes.column[0][46]);
}

TEST_F(PanelTest, SizeListPicksAndDeletesAfterAsking) {
  AddPenSize(7, 4);
  AddPenSize(9, 9);
  ASSERT_EQ(1, PickPenSize(1));
  EXPECT_EQ(Radii(), std::make_pair(3.0, 1.5));
  EXPECT_EQ(TipSize(), std::make_pair(8, 4));
  EXPECT_EQ(0, PickPenSize(3));
  EXPECT_EQ("", PenSizeLabel(3));

  headless::Recorded().boxAnswers = {platform::IdNo, platform::IdYes};
  EXPECT_EQ(0, DeletePenSize(1));
  EXPECT_EQ(3, penSizes.Count());
  EXPECT_EQ(1, DeletePenSize(1));
  EXPECT_EQ(Entries(), (Sizes{{1, 1}, {9, 9}}));
  EXPECT_EQ(-1, penSizes.column[1][2]);
  EXPECT_EQ(0, DeletePenSize(5));  // no such entry: not even asked
  EXPECT_EQ(BoxTexts(), std::vector<std::string>(2, "The selected size will be deleted. Okay?"));
}

TEST_F(PanelTest, StoredPenFileHoldsTheTipAndStrengthsOnly) {
  SetPen();
  pen.red = 12, pen.mode = 6;
  ASSERT_EQ(1, SavePen(scratch.path(), 4));
  // Shape, file, folder, thickness, density; the radii as doubles, little-
  // endian: 3.25 = 0x400A000000000000, 0.5 = 0x3FE0000000000000.
  Bytes expected(200, 0);
  for (auto [at, value] : {std::pair{1, 13},
                           {2, 7},
                           {3, 2},
                           {4, 200},
                           {5, 17},
                           {16, 0x0A},
                           {17, 0x40},
                           {24, 0xE0},
                           {25, 0x3F}})
    expected[at] = uint8_t(value);
  EXPECT_EQ(expected, scratch.Read("pen04"));

  pen.tipShape = 2, pen.colorThickness = pen.density = 255, pen.radiusX = pen.radiusY = 40;
  pen.red = 99, tipState.dotTipActive = 1;
  ASSERT_EQ(1, LoadPen(scratch.path(), 4));
  // Colour and mode are not stored; the brush panel is back, the tip rebuilt.
  EXPECT_EQ(std::make_tuple(pen.tipShape, pen.colorThickness, pen.density, pen.radiusX, pen.radiusY,
                            pen.red, pen.mode, tipState.dotTipActive),
            std::make_tuple(13, 200u, 17u, 3.25, 0.5, 99u, 6u, 0));
  EXPECT_EQ(TipSize(), std::make_pair(8, 2));

  // The Shift key stores and says so; the key alone loads.
  ASSERT_EQ(1, StoredPenKey(scratch.path(), 3, true));
  EXPECT_EQ(0, StoredPenKey(scratch.path() + "nowhere/", 3, true));  // not stored: not said
  pen.tipShape = 0;
  ASSERT_EQ(1, StoredPenKey(scratch.path(), 3, false));
  EXPECT_EQ(13, pen.tipShape);
  EXPECT_EQ(BoxTexts(), std::vector<std::string>{"Now registered to [3]!"});

  // A dot pen comes back from its folder.
  SaveAndFree(PlaneStore.CreatePlane(3, 2, 8, 0, 1, Physical), "pendata/f/a.bmp");
  PenDataList.Read(scratch.path());
  PenDataList.PickDotPen(0);
  tipState.dotPenPanel = 1;
  ASSERT_EQ(1, SavePen(scratch.path(), 1));
  PlaneStore.FreePlane(&tipState.dotTip);
  tipState.dotPenPanel = 0;
  ASSERT_EQ(1, LoadPen(scratch.path(), 1));
  EXPECT_EQ(std::make_pair(tipState.dotPenPanel, tipState.dotTipActive), std::make_pair(1, 1));
  EXPECT_EQ((Raster{3, 2, Bytes(6, 255)}), Read(tipState.dotTip));
}

TEST_F(PanelTest, BadStoredPenFilesAndSlotsLeaveThePenAlone) {
  SetPen();
  EXPECT_EQ(0, SavePen(scratch.path(), 0));
  EXPECT_EQ(0, SavePen(scratch.path(), 10));
  EXPECT_EQ(0, SavePen(scratch.path() + "nowhere/", 1));
  EXPECT_EQ(0, LoadPen(scratch.path(), 5));  // missing
  Bytes file(200, 0);
  file[1] = 16;  // no such shape
  WritePenFile(5, file, 200);
  EXPECT_EQ(0, LoadPen(scratch.path(), 5));
  file[1] = 3;
  WritePenFile(5, file, 199);
  EXPECT_EQ(0, LoadPen(scratch.path(), 5));  // short
  EXPECT_EQ(std::make_tuple(pen.tipShape, pen.radiusX, pen.tipHigh),
            std::make_tuple(13, 3.25, nullptr));
  // Radii out of range are brought in, as at start.
  const double radii[2] = {1e300, -2};
  std::memcpy(&file[10], radii, sizeof radii);
  WritePenFile(5, file, 200);
  ASSERT_EQ(1, LoadPen(scratch.path(), 5));
  EXPECT_EQ(Radii(), std::make_pair(127.0, 0.0));
}

TEST_F(PanelTest, PatternAsksWhetherToBeATip) {
  auto image = [](int w, int h) { return PlaneStore.CreatePlane(w, h, 24, 255, 1, Physical); };
  headless::Recorded().boxAnswers = {platform::IdYes};
  ASSERT_EQ(1, SetPenPattern("a/b.PNG", image(299, 300), nullptr));
  EXPECT_EQ(std::make_pair(pen.patternActive, tipState.patternIsTip), std::make_pair(1u, 1));
  EXPECT_EQ(BoxTexts(), std::vector<std::string>{"Use this image as tip of pen?"});
  // Too large to be a tip, or of a kind that is never one: no question.
  ASSERT_EQ(1, SetPenPattern("big.tsl", image(300, 300), nullptr));
  EXPECT_EQ(0, tipState.patternIsTip);
  ASSERT_EQ(1, SetPenPattern("p.jpg", image(4, 4), nullptr));
  ASSERT_EQ(1, SetPenPattern("p.bmp", image(4, 4), nullptr));  // a bmp without its mask
  EXPECT_EQ(1u, headless::Recorded().boxes.size());
  // A bmp with a mask beside it takes the mask and asks.
  SaveAndFree(PlaneStore.CreatePlane(4, 4, 8, 60, 1, Physical), "m.bmm");
  headless::Recorded().boxAnswers = {platform::IdNo};
  ASSERT_EQ(1, SetPenPattern(scratch / "m.bmp", image(4, 4),
                             PlaneStore.CreatePlane(4, 4, 8, 0, 1, Physical)));
  EXPECT_EQ(std::make_pair(headless::Recorded().boxes.size(), tipState.patternIsTip),
            std::make_pair(size_t{2}, 0));
  EXPECT_EQ((Raster{4, 4, Bytes(16, 60)}), Read(pen.patternAlpha));
  // No picture: the pattern stays.
  Plane* kept = pen.patternImage;
  EXPECT_EQ(0, SetPenPattern("x.png", nullptr, nullptr));
  EXPECT_EQ(kept, pen.patternImage);
  FreePenPattern();
  EXPECT_EQ(std::make_tuple(pen.patternImage, pen.patternActive), std::make_tuple(nullptr, 0u));
}

TEST_F(PanelTest, TextTipIsTheRenderedTextInvertedAndCut) {
  Plane* rendered = PlaneStore.CreatePlane(300, 2, 8, 255, 1, Physical);
  PlaneStore.WritePixel8(rendered, 0, 1, 40);
  PlaneStore.WritePixel8(rendered, 256, 0, 0);  // beyond the cut
  ASSERT_EQ(1, SetTextTip(rendered));
  Raster tip = Read(tipState.dotTip);
  EXPECT_EQ(std::make_tuple(tip.width, tip.height, tip.at(0, 1)), std::make_tuple(256, 2, 215));
  EXPECT_EQ(0, *std::max_element(tip.bytes.begin() + 1, tip.bytes.begin() + 256));
  PlaneStore.FreePlane(&rendered);
}

// The pen words, in the order the tool state keeps them.
auto Pen() {
  return std::make_tuple(pen.red, pen.green, pen.blue, pen.mode, pen.colorThickness, pen.density,
                         pen.radiusX, pen.radiusY, pen.tipShape);
}
using Words = decltype(Pen());

// Loads the tool state from these words.
Words Loaded(std::initializer_list<int32_t> words) {
  std::copy(words.begin(), words.end(), settings.toolState);
  LoadPenState();
  return Pen();
}

using PenStateTest = TeselTest;

TEST_F(PenStateTest, RoundTripKeepsThePenAndClearsTheRest) {
  settings.toolState[77] = 99;
  pen.red = 200, pen.green = 10, pen.blue = 77;
  pen.mode = 5, pen.colorThickness = 128, pen.density = 64;
  pen.radiusX = 2.57, pen.radiusY = 12.5, pen.tipShape = 8;
  StorePenState();
  std::vector<int32_t> words(settings.toolState, settings.toolState + 78);
  std::vector<int32_t> expected{200, 10, 77, 5, 128, 64, 257, 1250, 8};  // radii in hundredths
  expected.resize(78);
  EXPECT_EQ(words, expected);
  ResetPen();
  LoadPenState();
  EXPECT_EQ(Pen(), Words(200, 10, 77, 5, 128, 64, 2.57, 12.5, 8));
  EXPECT_EQ(pen.value, 200u);  // the mixer's copy of the colour follows
}

TEST_F(PenStateTest, OutOfRangeWordsAreClampedAndBlankOnesGiveTheFirstRunPen) {
  EXPECT_EQ(Loaded({-5, 300, 255, 13, -1, 1000, -250, 20000, 16}),
            Words(0, 255, 255, 12, 0, 255, 0.0, 127.0, 15));
  EXPECT_EQ(Loaded({0, 0, 0, -7, 0, 0, 1, 0, -3}), Words(0, 0, 0, 0, 0, 0, 0.01, 0.0, 0));
  const Words firstRun(0, 0, 0, 0, 255, 255, 3.0, 3.0, 15);
  EXPECT_EQ(Loaded({0, 0, 0, 0, 0, 0, 0, 0, 0}), firstRun);
  DefaultSettings(settings);
  EXPECT_EQ(Loaded({}), firstRun);
}

}  // namespace
