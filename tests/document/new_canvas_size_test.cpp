#include <gtest/gtest.h>

#include <cstring>
#include <tuple>

#include "document/canvas_request.h"
#include "document/new_canvas_size.h"
#include "settings/settings.h"

namespace {

TEST(NewCanvasSize, ConversionsClampsAndFormat) {
  EXPECT_EQ("169.33", FormatLength(PixelsToMillimetres(640, 96)));  // 16256 / 96
  EXPECT_EQ(" 6.67", FormatLength(PixelsToInches(640, 96)));
  EXPECT_EQ("76.20", FormatLength(PixelsToMillimetres(3, 0)));  // dpi 0 counts as 1
  EXPECT_EQ(2480, MillimetresToPixels(210, 300));                // 2480.315..
  EXPECT_EQ(3508, MillimetresToPixels(297, 300));                // 3507.874..
  EXPECT_EQ(96, MillimetresToPixels(25.4, 96));                  // 96.0000031..
  EXPECT_EQ(2, InchesToPixels(0.5, 3));                           // 1.5 + 0.5
  EXPECT_EQ(1, InchesToPixels(0.49, 3));
  // Typed fields are clamped; what can't be read gives the lower bound.
  EXPECT_EQ(std::tuple(1, 1, 640, 10240), std::tuple(TypedPixels(""), TypedPixels("-40"), TypedPixels("640"),
                                                     TypedPixels("99999999999999999999")));
  EXPECT_EQ(std::pair(1, 5000), std::pair(TypedDpi(""), TypedDpi("5001")));
  EXPECT_EQ(std::tuple(0.01, 0.01, 1000.0),
            std::tuple(TypedLength(""), TypedLength("nan"), TypedLength("1000.5")));
  // A spin step is 1 in either unit, down to 0.1 mm or 0.01 inch, up to 1000.
  using enum LengthUnit;
  EXPECT_EQ(std::tuple(13.5, 0.1, 0.01, 1000.0),
            std::tuple(SpinLength(12.5, 1, Millimetres), SpinLength(0.5, -1, Millimetres),
                       SpinLength(0.5, -1, Inches), SpinLength(999.5, 1, Inches)));
}

TEST(NewCanvasSize, DialogKeepsPixelsLengthsAndPaperInStepAndOkFillsTheRequest) {
  std::memset(&settings, 0, sizeof settings);
  newCanvasMemory = NewCanvasMemory{};
  settings.lastNewWidth = 640;
  settings.lastNewHeight = 480;
  NewCanvasFields fields = OpenNewCanvasFields();
  EXPECT_EQ(96, fields.dpi);
  EXPECT_EQ("127.00", FormatLength(fields.lengthHeight));
  fields.dpi = 300;
  RecomputeLengths(fields);
  EXPECT_EQ("54.19", FormatLength(fields.lengthWidth));  // 640 x 25.4 / 300
  ChangeUnit(fields, LengthUnit::Inches);
  EXPECT_EQ(" 1.60", FormatLength(fields.lengthHeight));
  fields.lengthWidth = 2.5;
  RecomputePixels(fields);
  EXPECT_EQ(std::pair(750, 480), std::pair(fields.width, fields.height));

  AcceptNewCanvas(fields);
  EXPECT_EQ(std::pair(750, 480), std::pair(settings.lastNewWidth, settings.lastNewHeight));
  EXPECT_EQ(std::tuple(kModeNew, 1, 2, 750, 24, 300),
            std::tuple(CanvasRequest.mode, CanvasRequest.layerCount, CanvasRequest.planeCount[0],
                       CanvasRequest.width[0], CanvasRequest.bits[0], CanvasRequest.dpi));
  fields = OpenNewCanvasFields();
  EXPECT_EQ(std::pair(300, LengthUnit::Inches), std::pair(fields.dpi, fields.unit));

  // Paper in inches shows the same paper; at 5000 dpi B4 passes the limit.
  fields.dpi = 5000;
  ChoosePaperPreset(fields, 3);
  EXPECT_EQ("10.12", FormatLength(fields.lengthWidth));  // 257 / 25.4
  EXPECT_EQ(10240, fields.height);
  fields.dpi = 96;
  fields.unit = LengthUnit::Millimetres;
  ChoosePaperPreset(fields, 5);  // A4 Portrait: 793.70.. x 1122.51..
  EXPECT_EQ(std::tuple(210.0, 794, 1123), std::tuple(fields.lengthWidth, fields.width, fields.height));
  // The postcards disagree a little: 148 mm makes 559 pixels, 148.4 mm 561.
  ChoosePaperPreset(fields, 6);
  EXPECT_EQ(std::pair(559, 381), std::pair(fields.width, fields.height));
  ChoosePaperPreset(fields, 7);
  EXPECT_EQ(561, fields.height);
}

}  // namespace
