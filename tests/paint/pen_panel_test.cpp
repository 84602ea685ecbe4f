// What the CONTROL page decides: pen mode, strengths, speed, colour mask
// and paint flags; the size popup; the tip preview and shape pictures; the
// dot pen tiles; the panel messages.

#include "paint/control/control_page.h"
#include "paint/control/dot_tiles.h"
#include "paint/control/pen_options.h"
#include "paint/control/size_menu.h"
#include "paint/control/tip_preview.h"
#include "paint/modes/color_mask.h"
#include "paint/modes/place_dab.h"
#include "paint/modes/protection.h"
#include "paint/stroke/stroke_engine.h"
#include "paint/tip/pen_sizes.h"
#include "paint/tip/stored_pen.h"
#include "paint/tip/tip.h"
#include "paint/tip/tip_panels.h"
#include "settings/number_lists.h"
#include "store/dib.h"
#include "tip_test_support.h"

namespace {

using namespace tiptest;

constexpr uint8_t kGrey = 0xB4;

// A picture of shades, row after row, one byte a pixel; the tests compare
// it with the blue, green, red triples of the panel's pictures.
Bytes Grey(const Bytes& bgr) {
  Bytes grey;
  for (size_t i = 0; i < bgr.size(); i += 3) {
    EXPECT_TRUE(bgr[i] == bgr[i + 1] && bgr[i] == bgr[i + 2]) << "pixel " << i / 3;
    grey.push_back(bgr[i]);
  }
  return grey;
}

class PenPanelTest : public PenTest {
 protected:
  // A pen picture in family `family`: a white picture with one dark pixel.
  void PenFile(const std::string& family, const std::string& name, int x, int y) {
    SavePicture("pendata/" + family + "/" + name, 4, 4, {{x, y, 0, 0, 0}});
  }
};

TEST_F(PenPanelTest, ModesStrengthsSpeedMaskAndFlagsStayInTheirRanges) {
  EXPECT_EQ(1, ChoosePenMode(6));
  EXPECT_EQ(1, ChoosePenMode(10));  // the popup's last
  EXPECT_EQ(0, ChoosePenMode(11));  // offered to nobody
  EXPECT_EQ(0, ChoosePenMode(-1));
  EXPECT_EQ(10u, pen.mode);
  EXPECT_EQ("Eraser", PenModeLabel(6));
  EXPECT_EQ("Clipboard", PenModeLabel(12));
  EXPECT_EQ("", PenModeLabel(13));

  SetColorThickness(300);
  SetDensity(-4);
  EXPECT_EQ(std::make_pair(pen.colorThickness, pen.density), std::make_pair(255u, 0u));
  SetColorThickness(77);
  EXPECT_EQ(77u, pen.colorThickness);

  // The slider's position is 100 less the delay.
  SetSpeedSlider(30);
  EXPECT_EQ(std::make_pair(PenBlender.speedDelay, SpeedSliderPosition()), std::make_pair(70, 30));
  SetSpeedSlider(-5);
  EXPECT_EQ(100, PenBlender.speedDelay);
  SetFastest();
  EXPECT_EQ(std::make_pair(PenBlender.speedDelay, SpeedSliderPosition()), std::make_pair(0, 100));
  SetSpeedSlider(150);
  EXPECT_EQ(0, PenBlender.speedDelay);

  ChooseColorMask(3);
  EXPECT_EQ(3, colorMask.choice);
  ChooseColorMask(9);
  EXPECT_EQ(4, colorMask.choice);
  EXPECT_EQ("UpperLeft Color", ColorMaskLabel(2));
  EXPECT_EQ("", ColorMaskLabel(5));
  SetVagueness(101);
  EXPECT_EQ(100, colorMask.vagueness);
  ChooseShapeFinish(2);
  ChooseShapeFinish(3);
  EXPECT_EQ(kFinishFill, shapeFinish);
  EXPECT_EQ("Straight Line", ShapeFinishLabel(1));

  // Each check box has its own word.
  SetPaintFlag(PaintFlag::AntiAlias, false);
  SetPaintFlag(PaintFlag::ReflectDensity, true);
  SetPaintFlag(PaintFlag::AutoSmooth, true);
  SetPaintFlag(PaintFlag::MaskOutsideSelection, true);
  EXPECT_EQ(1, protection.maskOutsideSelection);
  EXPECT_EQ(0, PenBlender.antiAlias);
  EXPECT_EQ(std::make_tuple(StrokeEngine.reflectOnThick, StrokeEngine.reflectOnDensity,
                            StrokeEngine.reflectOnSize, StrokeEngine.autoSmooth),
            std::make_tuple(0, 1, 0, 1));
  EXPECT_TRUE(PaintFlagOn(PaintFlag::ReflectDensity));
  EXPECT_FALSE(PaintFlagOn(PaintFlag::ReflectSize));
}

TEST_F(PenPanelTest, SizePopupListsPicksAndAdds) {
  AddPenSize(5, 5);
  AddPenSize(9, 3);
  pen.radiusX = pen.radiusY = 2.0;  // 5 x 5
  std::vector<std::tuple<int, std::string, bool>> items;
  for (const SizeMenuItem& item : SizeMenuItems()) items.emplace_back(item.id, item.text, item.checked);
  EXPECT_EQ(items, (std::vector<std::tuple<int, std::string, bool>>{{0, "1 x 1", false},
                                                                    {1, "5 x 5", true},
                                                                    {2, "9 x 3", false},
                                                                    {-1, "", false},
                                                                    {kSizeMenuAdd, "Add", false},
                                                                    {kSizeMenuEdit, "Edit...", false}}));

  EXPECT_EQ(SizeMenuResult::Picked, ChooseSizeMenuItem(2));
  EXPECT_EQ(std::make_pair(pen.radiusX, pen.radiusY), std::make_pair(4.0, 1.0));
  ASSERT_NE(nullptr, pen.tipHigh);  // rebuilt: (4 + 1) x 2 by (1 + 1) x 2
  EXPECT_EQ(std::make_pair(pen.tipHigh->width, pen.tipHigh->height), std::make_pair(10, 4));
  EXPECT_EQ("9 x 3", CurrentPenSizeLabel());
  EXPECT_EQ(SizeMenuResult::None, ChooseSizeMenuItem(-1));
  EXPECT_EQ(SizeMenuResult::None, ChooseSizeMenuItem(3));
  EXPECT_EQ(SizeMenuResult::Edit, ChooseSizeMenuItem(kSizeMenuEdit));
  EXPECT_EQ(3, penSizes.Count());

  pen.radiusX = 6.5;
  pen.radiusY = 0.0;
  EXPECT_EQ(SizeMenuResult::Added, ChooseSizeMenuItem(kSizeMenuAdd));
  EXPECT_EQ(std::make_pair(penSizes.column[0][3], penSizes.column[1][3]), std::make_pair(14, 1));

  // The list dialog's typed sizes: whole numbers of 1..255 or a message.
  EXPECT_EQ(1, AddTypedPenSize("255", "007"));
  for (auto [w, h] : {std::pair{"0", "5"}, {"", "5"}, {"256", "1"}, {"1a", "2"}, {" 5", "5"},
                      {"5", "-1"}})
    EXPECT_EQ(0, AddTypedPenSize(w, h)) << w << " x " << h;
  EXPECT_EQ(5, penSizes.Count());
  EXPECT_EQ(std::make_pair(penSizes.column[0][4], penSizes.column[1][4]), std::make_pair(255, 7));
  ASSERT_EQ(6u, headless::Recorded().boxes.size());
  EXPECT_EQ("Width and height must each be from 1 to 255.", headless::Recorded().boxes[5].text);

  // While the dot tip paints, the size is the dot tip's.
  tipState.dotTip = PlaneOfBytes(3, 2, 8, Bytes(6, 9));
  tipState.dotTipActive = 1;
  EXPECT_EQ("3 x 2", CurrentPenSizeLabel());
}

TEST_F(PenPanelTest, PreviewShadesTheTipOnGreyAndShrinksLargeTips) {
  // Shade 255 - min(255, 4 h), centred in the box.
  pen.tipHigh = PlaneOfBytes(4, 2, 8, {0, 10, 64, 255, 1, 2, 3, 40});
  const uint8_t g = kGrey;
  EXPECT_EQ(Grey(TipPreview(8, 4)), (Bytes{g, g, g,   g,   g,   g,   g, g,  //
                                           g, g, 255, 215, 0,   0,   g, g,  //
                                           g, g, 251, 247, 243, 95,  g, g,  //
                                           g, g, g,   g,   g,   g,   g, g}));
  // 5 x 3 into 2 x 2: factor 3, one row of two pixels, each the strongest
  // it covers: columns 0..2 and 3..4.
  PlaneStore.FreePlane(&pen.tipHigh);
  pen.tipHigh = PlaneOfBytes(5, 3, 8,
                             {0, 0, 0, 0, 1,  //
                              0, 2, 0, 0, 0,  //
                              0, 0, 0, 30, 0});
  EXPECT_EQ(Grey(TipPreview(2, 2)), (Bytes{247, 135, g, g}));
  // The dot tip while it is in use.
  tipState.dotTip = PlaneOfBytes(1, 1, 8, {20});
  tipState.dotTipActive = 1;
  EXPECT_EQ(Grey(TipPreview(1, 1)), Bytes{175});
  tipState.dotTipActive = 0;
  EXPECT_EQ(Grey(TipPreview(1, 1)), Bytes{135});
}

TEST_F(PenPanelTest, ShapePictureDrawsTheShapeAndLeavesThePenAlone) {
  pen.tipShape = 2;
  pen.radiusX = 3.0;
  pen.radiusY = 1.0;
  ASSERT_EQ(1, BuildTip());
  const Plane* tip = pen.tipHigh;
  const Raster before = Read(pen.tipHigh);
  // Block of radius 2: a 6 x 6 raster whose top left 5 x 5 is full; in a
  // 7 x 7 box it stands at the top left, the grey beyond.
  Bytes expected;
  for (int y = 0; y < 7; ++y)
    for (int x = 0; x < 7; ++x) expected.push_back(x == 6 || y == 6 ? kGrey : x < 5 && y < 5 ? 0 : 255);
  EXPECT_EQ(expected, Grey(ShapePicture(10, 2.0, 7)));
  EXPECT_EQ(std::make_tuple(pen.tipShape, pen.radiusX, pen.radiusY, tip),
            std::make_tuple(2, 3.0, 1.0, pen.tipHigh));
  EXPECT_EQ(before, Read(pen.tipHigh));
}

TEST_F(PenPanelTest, DotTilesPageThroughTheFamilyAndWrapFolders) {
  for (int i = 0; i < 17; ++i) {
    char name[16];
    std::snprintf(name, sizeof name, "f%02d.bmp", i);
    PenFile("a", name, i % 4, i / 4 % 4);
  }
  PenFile("b", "good.bmp", 1, 2);
  scratch.WriteText("pendata/b/bad.bmp", "not a picture");
  ASSERT_EQ(2, PenDataList.Read(scratch.path()));

  // Opening the panel with no dot tip loads the file in use.
  OpenOptionPanel(OptionPanel::Dot);
  EXPECT_EQ(1, tipState.dotTipActive);
  EXPECT_EQ((Raster{1, 1, {255}}), Read(tipState.dotTip));
  EXPECT_EQ(2, DotPageCount());
  EXPECT_EQ(std::make_tuple(DotTileFile(14), DotTileFile(15), DotTileFile(-1)),
            std::make_tuple(14, -1, -1));
  EXPECT_EQ(1, NextDotPage());
  EXPECT_EQ(std::make_tuple(DotTileFile(0), DotTileFile(1), DotTileFile(2)),
            std::make_tuple(15, 16, -1));
  EXPECT_EQ(0, PickDotTile(2));
  ASSERT_EQ(1, PickDotTile(1));
  EXPECT_EQ(16, PenDataList.fileInUse);
  EXPECT_EQ(0, NextDotPage());
  OpenOptionPanel(OptionPanel::Dot);  // back on the page of the file in use
  EXPECT_EQ(1, tipState.dotTilePage);

  // The next family starts at its first file: "bad.bmp" can't be read and
  // gives a blank tip. The one after wraps to the first family.
  ASSERT_EQ(1, NextDotFolder());
  EXPECT_EQ(std::make_tuple(PenDataList.folderInUse, PenDataList.fileInUse, tipState.dotTilePage),
            std::make_tuple(1, 0, 0));
  EXPECT_EQ((Raster{1, 1, {0}}), Read(tipState.dotTip));
  ASSERT_EQ(1, NextDotFolder());
  EXPECT_EQ(0, PenDataList.folderInUse);
  EXPECT_EQ(0, ChooseDotFolder(2));
  ASSERT_EQ(1, ChooseDotFolder(1));
  EXPECT_EQ(1, DotPageCount());
}

TEST_F(PenPanelTest, ThumbnailsShrinkToTheDarkestAndGreyTheUnreadable) {
  // 4 x 2 into 3 x 3: factor 2, one row of two pixels at column 0, row 1.
  SavePicture("t.bmp", 4, 2, {{0, 0, 200, 100, 250}, {1, 1, 90, 220, 240}, {3, 0, 10, 20, 30}});
  Bytes bgr;
  ASSERT_EQ(1, DotThumbnail(scratch / "t.bmp", 3, bgr));
  Bytes expected(27, 255);
  const Bytes left{240, 100, 90}, right{30, 20, 10};  // blue, green, red
  std::copy(left.begin(), left.end(), expected.begin() + 9);
  std::copy(right.begin(), right.end(), expected.begin() + 12);
  EXPECT_EQ(expected, bgr);

  EXPECT_EQ(0, DotThumbnail(scratch / "missing.bmp", 2, bgr));
  EXPECT_EQ(Bytes(12, 0x80), bgr);
}

TEST_F(PenPanelTest, PanelMessagesAndStoredPensRepaintThePage) {
  EXPECT_TRUE(ControlPageRefreshes(1, kControlPageNumber));
  EXPECT_FALSE(ControlPageRefreshes(1, 2));
  EXPECT_TRUE(ControlPageRefreshes(0, 0));
  EXPECT_TRUE(ControlPageRefreshes(0, 1 << kControlPageNumber | 1));
  EXPECT_FALSE(ControlPageRefreshes(0, 1 << 2));
  EXPECT_FALSE(ControlPageRefreshes(2, kControlPageNumber));

  // Text and range panels fall back to the brush panel for now; the dot
  // panel comes up while it is the one in use.
  EXPECT_EQ(OptionPanel::Brush, OptionAreaPanel(20005, true));
  EXPECT_EQ(OptionPanel::Brush, OptionAreaPanel(20007, false));
  tipState.dotPenPanel = 1;
  EXPECT_EQ(OptionPanel::Dot, OptionAreaPanel(20005, false));

  ASSERT_EQ(1, SavePen(scratch.path(), 2));
  EXPECT_TRUE(headless::MessagesTo(platform::Window::ControlPanel, 1034).empty());
  ASSERT_EQ(1, StoredPenKey(scratch.path(), 2, false));
  EXPECT_EQ(1u, headless::MessagesTo(platform::Window::ControlPanel, 1034).size());
  EXPECT_EQ(0, StoredPenKey(scratch.path(), 7, false));  // no such pen: nothing to repaint
  EXPECT_EQ(1u, headless::MessagesTo(platform::Window::ControlPanel, 1034).size());
}

}  // namespace
