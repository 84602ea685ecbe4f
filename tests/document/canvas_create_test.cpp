// Making canvases: the blank canvas, planes dropped for bad names, failures
// that free everything, and the New dialog's sizes, units and paper.
#include <cstdio>
#include <cstring>
#include <tuple>

#include "canvas_fixture.h"
#include "document/canvas_content.h"
#include "document/new_canvas_size.h"

namespace {

using CanvasCreate = CanvasTest;

TEST_F(CanvasCreate, BlankCanvasHasOneWhiteLayerWithMaskAndTransparency) {
  settings.defaultDisplay = 1;
  settings.imageBuffer = Virtual;
  canvasSerialCount = 41;
  Canvas* canvas = MakeBlank(7, 5);
  const PlaneSlot* s = canvas->planes;
  EXPECT_EQ(1, CanvasManager.LayerCount(canvas));
  EXPECT_EQ(std::tuple(Virtual, 24u, 41u, 96),
            std::tuple(s[0].plane->kind, s[0].plane->bits, canvas->serial, canvas->dpi));
  EXPECT_TRUE(AllBytes(s[0].plane, 255) && AllBytes(s[1].plane, 0) && AllBytes(s[2].plane, 255));
  EXPECT_EQ(nullptr, s[3].plane);
  EXPECT_EQ((std::vector<std::string>{"LAYER0", "0M", "0T", "1T"}),  // "1T" held for the first further plane
            (std::vector<std::string>{s[0].name, s[1].name, s[2].name, s[3].name}));
  EXPECT_EQ(std::tuple(1, 10), std::tuple(s[0].displayMode, s[7].displayMode));
  EXPECT_STREQ("Untitled", canvas->fileName);
  EXPECT_TRUE(headless::Recorded().boxes.empty());

  settings.noMaskPlane = settings.noTransparencyPlane = 1;
  canvas = MakeBlank(4, 4);
  EXPECT_EQ(42u, canvas->serial);
  for (int position = 1; position < 8; ++position) EXPECT_EQ(nullptr, canvas->planes[position].plane);
  settings.noMaskPlane = 0;
  canvas = MakeBlank(4, 4);
  EXPECT_TRUE(canvas->planes[1].plane && !canvas->planes[2].plane);
}

// A loader stand-in: names planes as a file with bad plane names would.
int NameLikeABadFile(Canvas* canvas) {
  std::snprintf(canvas->planes[3].name, kPlaneNameChars, "@@");
  std::snprintf(canvas->planes[9].name, kPlaneNameChars, "x");
  return 1;
}

TEST_F(CanvasCreate, PlanesWithoutAKindLetterAreDroppedWithAMessage) {
  RequestBlankCanvas(6, 6, 72);
  CanvasRequest.mode = kModeOpen;
  CanvasRequest.layerCount = 2;
  CanvasRequest.width[1] = CanvasRequest.height[1] = 3;
  CanvasRequest.bits[1] = 24;
  CanvasRequest.planeCount[0] = 4;  // positions 1..4
  SetCanvasContentFill(kModeOpen, NameLikeABadFile);
  Canvas* canvas = NewRecord();
  EXPECT_EQ(1, CanvasManager.MakeCanvas(canvas, nullptr));
  SetCanvasContentFill(kModeOpen, nullptr);
  EXPECT_EQ(2, CanvasManager.LayerCount(canvas));
  // The slot stays empty, which ends the layer's planes: 4 isn't looked at.
  EXPECT_TRUE(!canvas->planes[3].plane && canvas->planes[4].plane && !canvas->planes[9].plane);
  ASSERT_EQ((std::vector<std::string>{"Alpha channel [@@] is illegal, will be deleted!",
                                      "Alpha channel [x] is illegal, will be deleted!"}),
            BoxTexts());
  EXPECT_EQ("Tesel", headless::Recorded().boxes[0].caption);
  EXPECT_EQ(unsigned{platform::MbIconInformation}, headless::Recorded().boxes[0].style & 0xF0u);
}

int RefuseContent(Canvas*) { return 0; }

TEST_F(CanvasCreate, FailuresFreeEverythingAndShowTheMemoryBox) {
  // A mode with no content routine, or one that refuses, makes no canvas.
  RequestBlankCanvas(4, 4, 96);
  CanvasRequest.mode = kModeFromClipboard;
  Canvas* canvas = NewRecord();
  EXPECT_EQ(0, CanvasManager.MakeCanvas(canvas, nullptr));
  SetCanvasContentFill(kModeFromClipboard, RefuseContent);
  EXPECT_EQ(0, CanvasManager.MakeCanvas(canvas, nullptr));
  SetCanvasContentFill(kModeFromClipboard, nullptr);
  EXPECT_EQ(0, CanvasManager.LayerCount(canvas));
  EXPECT_TRUE(headless::Recorded().boxes.empty());

  // Layer 1 is too large for any plane: layer 0, made already, is freed.
  RequestBlankCanvas(4, 4, 96);
  CanvasRequest.layerCount = 2;
  CanvasRequest.width[1] = CanvasRequest.height[1] = 40000;
  CanvasRequest.bits[1] = 24;
  EXPECT_EQ(0, CanvasManager.MakeCanvas(canvas, nullptr));
  for (const PlaneSlot& slot : canvas->planes) EXPECT_EQ(nullptr, slot.plane);
  ASSERT_EQ(std::vector<std::string>{"memory error0"}, BoxTexts());
  EXPECT_EQ("Tesel", headless::Recorded().boxes[0].caption);

  settings.imageBuffer = Virtual;  // the page file refuses the image plane's mapping
  headless::Recorded().failMappings = 1;
  RequestBlankCanvas(4, 4, 96);
  EXPECT_EQ(0, CanvasManager.MakeCanvas(canvas, nullptr));
  EXPECT_EQ(0, CanvasManager.LayerCount(canvas));
  EXPECT_EQ("memory error0", LastBoxText());
}

TEST(NewCanvasSize, ConversionsClampsAndFormat) {
  EXPECT_EQ("169.33", FormatLength(PixelsToMillimetres(640, 96)));  // 16256 / 96
  EXPECT_EQ(" 6.67", FormatLength(PixelsToInches(640, 96)));
  EXPECT_EQ("76.20", FormatLength(PixelsToMillimetres(3, 0)));  // dpi 0 counts as 1
  EXPECT_EQ(2480, MillimetresToPixels(210, 300));               // 2480.315..
  EXPECT_EQ(3508, MillimetresToPixels(297, 300));               // 3507.874..
  EXPECT_EQ(96, MillimetresToPixels(25.4, 96));                 // 96.0000031..
  EXPECT_EQ(2, InchesToPixels(0.5, 3));                         // 1.5 + 0.5
  EXPECT_EQ(1, InchesToPixels(0.49, 3));
  // Typed fields are clamped; what can't be read gives the lower bound.
  EXPECT_EQ(std::tuple(1, 1, 640, 10240),
            std::tuple(TypedPixels(""), TypedPixels("-40"), TypedPixels("640"),
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
  EXPECT_EQ(std::tuple(210.0, 794, 1123),
            std::tuple(fields.lengthWidth, fields.width, fields.height));
  // The postcards disagree a little: 148 mm makes 559 pixels, 148.4 mm 561.
  ChoosePaperPreset(fields, 6);
  EXPECT_EQ(std::pair(559, 381), std::pair(fields.width, fields.height));
  ChoosePaperPreset(fields, 7);
  EXPECT_EQ(561, fields.height);
}

}  // namespace
