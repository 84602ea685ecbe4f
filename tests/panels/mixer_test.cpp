// The colour mixer: where the wheel and bars put the colour, the number
// fields in both notations, the swatch file, and OK against Cancel.
#include <gtest/gtest.h>

#include "panels/mix_color.h"
#include "panels/mixer_color.h"
#include "panels/number_notation.h"
#include "panels/swatches.h"
#include "settings/settings.h"
#include "support/fixture.h"
#include "support/temp_folder.h"

namespace {

using MixerTest = TeselTest;

struct Rgb {
  int r, g, b;
  bool operator==(const Rgb&) const = default;
};
Rgb RgbOf(const MixerColor& c) { return {c.red, c.green, c.blue}; }

MixerColor WithValue(int value) {
  MixerColor color;
  SetFromHsv(&color, 0, 0, value);
  return color;
}

// The angles and distances below are worked by hand: atan2(-40, 30) is
// -0.9273 radians, 53.13 degrees once turned, so hue 180 - 53 = 127.
TEST_F(MixerTest, WheelMapsAngleToHueAndDistanceToSaturation) {
  MixerColor color = WithValue(0);
  PickWheel(&color, 30, -40, 100, false);  // on the rim; value 0 becomes 255
  EXPECT_EQ(color.hue, 127);
  EXPECT_EQ(color.saturation, 255);
  EXPECT_EQ(color.value, 255);
  EXPECT_EQ(RgbOf(color), (Rgb{0, 255, 29}));  // sextant 2, e = 29

  PickWheel(&color, -30, 40, 100, false);  // -126.87 degrees: hue 306
  EXPECT_EQ(color.hue, 306);
  EXPECT_EQ(RgbOf(color), (Rgb{255, 0, 230}));

  color = WithValue(100);
  PickWheel(&color, 15, -20, 100, false);  // half way: 25 x 255 / 50
  EXPECT_EQ(color.saturation, 127);
  EXPECT_EQ(color.value, 100);  // the left button keeps a value that isn't 0
  EXPECT_EQ(RgbOf(color), (Rgb{50, 100, 56}));
  PickWheel(&color, 15, -20, 100, true);
  EXPECT_EQ(color.value, 255);  // the right button makes it full

  PickWheel(&color, 300, -400, 100, false);  // outside the wheel: saturation stops at 255
  EXPECT_EQ(color.saturation, 255);
  PickWheel(&color, 0, 0, 0, false);  // a wheel of no size picks the centre, no fault
  EXPECT_EQ(color.saturation, 0);

  // The drawing's mapping is the pointer's, and the mark lands where a
  // pick would give its hue back.
  int hue, saturation, dx, dy;
  WheelHueAt(30, -40, 100, &hue, &saturation);
  EXPECT_EQ(hue, 127);
  WheelPoint(127, 255, 100, &dx, &dy);
  WheelHueAt(dx, dy, 100, &hue, &saturation);
  EXPECT_NEAR(hue, 127, 1);
  EXPECT_NEAR(saturation, 255, 6);
}

TEST_F(MixerTest, BarsMapPositionsAndTheRightButtonSteps) {
  EXPECT_EQ(ValueBarAt(0, 101), 255);  // top is bright
  EXPECT_EQ(ValueBarAt(100, 101), 0);
  EXPECT_EQ(ValueBarAt(50, 101), 127);
  EXPECT_EQ(ValueBarAt(-5, 101), 255);
  EXPECT_EQ(ValueBarAt(300, 101), 0);
  EXPECT_EQ(ColorBarAt(255, 256), 255);
  EXPECT_EQ(ColorBarAt(50, 101), 127);
  EXPECT_EQ(ColorBarAt(-1, 101), 0);
  EXPECT_EQ(ColorBarAt(5, 1), 255);  // a bar one pixel wide can't divide by 0
  EXPECT_EQ(StepToward(10, 20), 11);
  EXPECT_EQ(StepToward(10, 3), 9);
  EXPECT_EQ(StepToward(7, 7), 7);

  MixerColor color;
  SetFromRgb(&color, 200, 10, 20);
  SetChannel(&color, 1, 300);
  EXPECT_EQ(RgbOf(color), (Rgb{200, 255, 20}));
  EXPECT_EQ(color.value, 255);     // the other form follows
  SetFromRgb(&color, 77, 77, 77);  // grey: no hue, no saturation, its value kept
  EXPECT_EQ(color.hue, 0);
  EXPECT_EQ(color.saturation, 0);
  SetValue(&color, 20);
  EXPECT_EQ(RgbOf(color), (Rgb{20, 20, 20}));
}

TEST_F(MixerTest, NumberFieldsInBothNotations) {
  MixerColor color;
  SetFromRgb(&color, 255, 0, 0);
  settings.numberNotation = 1;
  EXPECT_EQ(ToNotation(255), 100);
  EXPECT_EQ(ToNotation(128), 50);  // 12800 / 255, truncated
  EXPECT_EQ(FromNotation(50), 127);
  EXPECT_EQ(FieldShown(color, kFieldRed), 100);
  EXPECT_EQ(FieldTop(kFieldValue), 100);
  EXPECT_EQ(FieldTop(kFieldHue), 359);  // hue is degrees in either notation
  FieldTyped(&color, kFieldValue, 50);
  EXPECT_EQ(color.value, 127);
  EXPECT_EQ(RgbOf(color), (Rgb{127, 0, 0}));
  FieldTyped(&color, kFieldValue, 150);  // beyond the notation: its top, that is 255
  EXPECT_EQ(color.value, 255);
  FieldTyped(&color, kFieldHue, 400);
  EXPECT_EQ(color.hue, 359);
  EXPECT_EQ(FieldShown(color, kFieldHue), 359);

  settings.numberNotation = 0;
  FieldTyped(&color, kFieldGreen, 128);
  EXPECT_EQ(color.green, 128);
  EXPECT_EQ(color.value, 255);
  EXPECT_EQ(FieldShown(color, kFieldGreen), 128);
  FieldTyped(&color, kFieldSaturation, -3);
  EXPECT_EQ(color.saturation, 0);
  EXPECT_EQ(RgbOf(color), (Rgb{255, 255, 255}));
}

std::vector<uint8_t> WordBytes(std::initializer_list<uint32_t> words) {
  std::vector<uint8_t> bytes;
  for (uint32_t w : words)
    for (int i = 0; i < 4; ++i) bytes.push_back(uint8_t(w >> (8 * i)));
  return bytes;
}

TEST_F(MixerTest, SwatchFileMissingShortLongAndWritten) {
  TempFolder folder;
  swatches[0] = 0x111111;
  ReadSwatches(folder.path());  // missing: the words stay
  EXPECT_EQ(swatches[0], 0x111111u);

  std::vector<uint8_t> shortFile = WordBytes({0x00302010, 0xFF0000FF});
  shortFile.push_back(0x77);  // a part of a third word is not a word
  folder.Write("coldlg.dat", shortFile);
  swatches[2] = 5;
  ReadSwatches(folder.path());
  EXPECT_EQ(SwatchRed(swatches[0]), 0x10);
  EXPECT_EQ(SwatchGreen(swatches[0]), 0x20);
  EXPECT_EQ(SwatchBlue(swatches[0]), 0x30);
  EXPECT_EQ(swatches[1], 0xFF0000FFu);  // the top byte is kept, never shown
  EXPECT_EQ(swatches[2], 5u);

  std::vector<uint8_t> longFile(200, 0xAB);
  folder.Write("coldlg.dat", longFile);
  ReadSwatches(folder.path());
  for (int i = 0; i < kSwatchWords; ++i) EXPECT_EQ(swatches[i], 0xABABABABu);

  swatches[29] = SwatchWord(1, 2, 3);
  ASSERT_TRUE(WriteSwatches(folder.path()));
  std::vector<uint8_t> written = folder.Read("coldlg.dat");
  ASSERT_EQ(written.size(), 120u);
  EXPECT_EQ(std::vector<uint8_t>(written.end() - 4, written.end()),
            (std::vector<uint8_t>{1, 2, 3, 0}));
}

TEST_F(MixerTest, OkGivesTheColourAndWritesTheFileCancelTouchesNeither) {
  TempFolder folder;
  folder.Write("coldlg.dat", std::vector<uint8_t>(120, 0));
  int r = 10, g = 20, b = 30;
  EXPECT_FALSE(MixColor(folder.path(), &r, &g, &b, "Title"));  // no dialog
  EXPECT_EQ((Rgb{r, g, b}), (Rgb{10, 20, 30}));

  std::string titleSeen;
  Rgb seen{};
  mixerWindows.colorMixerDialog = [&](MixerSession* session) {
    titleSeen = session->title;
    seen = RgbOf(session->color);
    EXPECT_EQ(session->color.value, 30);  // the dialog opens with both forms
    SetFromRgb(&session->color, 1, 2, 3);
    swatches[4] = SwatchWord(9, 9, 9);
    return false;
  };
  EXPECT_FALSE(MixColor(folder.path(), &r, &g, &b, "Shadow"));
  EXPECT_EQ(titleSeen, "Shadow");
  EXPECT_EQ(seen, (Rgb{10, 20, 30}));
  EXPECT_EQ((Rgb{r, g, b}), (Rgb{10, 20, 30}));
  EXPECT_EQ(folder.Read("coldlg.dat"), std::vector<uint8_t>(120, 0));
  ReadSwatches(folder.path());
  EXPECT_EQ(swatches[4], 0u);  // the swatch changed on the screen is lost

  mixerWindows.colorMixerDialog = [](MixerSession* session) {
    SetFromRgb(&session->color, 1, 2, 3);
    swatches[4] = SwatchWord(9, 8, 7);
    return true;
  };
  EXPECT_TRUE(MixColor(folder.path(), &r, &g, &b, nullptr));
  EXPECT_EQ((Rgb{r, g, b}), (Rgb{1, 2, 3}));
  EXPECT_EQ(folder.Read("coldlg.dat")[16], 9);
  EXPECT_EQ(folder.Read("coldlg.dat")[18], 7);
}

}  // namespace
