#include <gtest/gtest.h>

#include <cstring>

#include "document/canvas_request.h"
#include "document/new_canvas_size.h"
#include "settings/settings.h"

namespace {

TEST(NewCanvasSize, ConversionsClampsAndFormat) {
  EXPECT_EQ(FormatLength(PixelsToMillimetres(640, 96)), "169.33");  // 16256 / 96
  EXPECT_EQ(FormatLength(PixelsToInches(640, 96)), " 6.67");
  EXPECT_EQ(FormatLength(PixelsToMillimetres(3, 0)), "76.20");  // dpi 0 counts as 1
  EXPECT_EQ(MillimetresToPixels(210, 300), 2480);               // 2480.315..
  EXPECT_EQ(MillimetresToPixels(297, 300), 3508);               // 3507.874..
  EXPECT_EQ(MillimetresToPixels(25.4, 96), 96);                 // 96.0000031..
  EXPECT_EQ(InchesToPixels(0.5, 3), 2);                         // 1.5 + 0.5
  EXPECT_EQ(InchesToPixels(0.49, 3), 1);

  EXPECT_EQ(TypedPixels(""), 1);
  EXPECT_EQ(TypedPixels("-40"), 1);
  EXPECT_EQ(TypedPixels("640"), 640);
  EXPECT_EQ(TypedPixels("99999999999999999999"), 10240);
  EXPECT_EQ(TypedDpi(""), 1);
  EXPECT_EQ(TypedDpi("5001"), 5000);
  EXPECT_DOUBLE_EQ(TypedLength(""), 0.01);
  EXPECT_DOUBLE_EQ(TypedLength("nan"), 0.01);
  EXPECT_DOUBLE_EQ(TypedLength("1000.5"), 1000.0);
  EXPECT_DOUBLE_EQ(SpinLength(12.5, 1, LengthUnit::Millimetres), 13.5);
  EXPECT_DOUBLE_EQ(SpinLength(0.5, -1, LengthUnit::Millimetres), 0.1);
  EXPECT_DOUBLE_EQ(SpinLength(0.5, -1, LengthUnit::Inches), 0.01);
  EXPECT_DOUBLE_EQ(SpinLength(999.5, 1, LengthUnit::Inches), 1000.0);
}

TEST(NewCanvasSize, PaperPresetsAsListed) {
  const double expected[8][2] = {{257, 182}, {182, 257}, {364, 257}, {257, 364},
                                 {297, 210}, {210, 297}, {148, 100.9}, {100.9, 148.4}};
  for (int i = 0; i < kPaperPresetCount; ++i) {
    EXPECT_EQ(kPaperPresets[i].width, expected[i][0]) << i;
    EXPECT_EQ(kPaperPresets[i].height, expected[i][1]) << i;
  }
  NewCanvasFields fields{640, 480, 96, 0, 0, LengthUnit::Millimetres};
  ChoosePaperPreset(fields, 5);  // A4 Portrait: 793.70.. x 1122.51..
  EXPECT_EQ(fields.lengthWidth, 210);
  EXPECT_EQ(fields.width, 794);
  EXPECT_EQ(fields.height, 1123);
  // The postcards disagree a little: 148 mm makes 559 pixels, 148.4 mm 561.
  ChoosePaperPreset(fields, 6);
  EXPECT_EQ(fields.width, 559);
  EXPECT_EQ(fields.height, 381);
  ChoosePaperPreset(fields, 7);
  EXPECT_EQ(fields.height, 561);
  // In inches the fields show the same paper; at 5000 dpi B4 passes the limit.
  fields.unit = LengthUnit::Inches;
  fields.dpi = 5000;
  ChoosePaperPreset(fields, 3);
  EXPECT_EQ(FormatLength(fields.lengthWidth), "10.12");  // 257 / 25.4
  EXPECT_EQ(fields.height, 10240);
}

TEST(NewCanvasSize, DialogOpensWithTheLastValuesAndOkFillsTheRequest) {
  std::memset(&settings, 0, sizeof settings);
  newCanvasMemory = NewCanvasMemory{};
  settings.lastNewWidth = 640;
  settings.lastNewHeight = 480;
  NewCanvasFields fields = OpenNewCanvasFields();
  EXPECT_EQ(fields.dpi, 96);
  EXPECT_EQ(FormatLength(fields.lengthHeight), "127.00");

  fields.dpi = 300;
  RecomputeLengths(fields);
  EXPECT_EQ(FormatLength(fields.lengthWidth), "54.19");  // 640 x 25.4 / 300
  ChangeUnit(fields, LengthUnit::Inches);
  EXPECT_EQ(FormatLength(fields.lengthHeight), " 1.60");
  fields.lengthWidth = 2.5;
  RecomputePixels(fields);
  EXPECT_EQ(fields.width, 750);
  EXPECT_EQ(fields.height, 480);

  AcceptNewCanvas(fields);
  EXPECT_EQ(settings.lastNewWidth, 750);
  EXPECT_EQ(settings.lastNewHeight, 480);
  EXPECT_EQ(CanvasRequest.mode, kModeNew);
  EXPECT_EQ(CanvasRequest.layerCount, 1);
  EXPECT_EQ(CanvasRequest.planeCount[0], 2);
  EXPECT_EQ(CanvasRequest.width[0], 750);
  EXPECT_EQ(CanvasRequest.bits[0], 24);
  EXPECT_EQ(CanvasRequest.dpi, 300);
  fields = OpenNewCanvasFields();
  EXPECT_EQ(fields.dpi, 300);
  EXPECT_EQ(fields.unit, LengthUnit::Inches);
}

}  // namespace
